<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>BlockingSerialLink</name>
    <message>
        <source>can&apos;t switch the parity of %1: %2</source>
        <translation>Parität von %1 lässt sich nicht umschalten: %2</translation>
    </message>
    <message>
        <source>the serial port is closed</source>
        <translation>die serielle Schnittstelle ist geschlossen</translation>
    </message>
    <message>
        <source>serial write timeout</source>
        <translation>Zeitüberschreitung beim seriellen Schreiben</translation>
    </message>
</context>
<context>
    <name>FirmwareCache</name>
    <message>
        <source>The download has %1 bytes, the manifest announced %2.</source>
        <translation>Der Download hat %1 Bytes, das Manifest nannte %2.</translation>
    </message>
    <message>
        <source>The download&apos;s SHA-256 is %1, the manifest announced %2.</source>
        <translation>Der SHA-256 des Downloads ist %1, das Manifest nannte %2.</translation>
    </message>
    <message>
        <source>Can&apos;t create the firmware folder %1.</source>
        <translation>Der Firmware-Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Can&apos;t write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>FirmwareManifest</name>
    <message>
        <source>has no &quot;version&quot;</source>
        <translation>hat keine „version“</translation>
    </message>
    <message>
        <source>has no valid &quot;url&quot;</source>
        <translation>hat keine gültige „url“</translation>
    </message>
    <message>
        <source>has no valid &quot;size&quot; (1 to %1 bytes)</source>
        <translation>hat keine gültige „size“ (1 bis %1 Bytes)</translation>
    </message>
    <message>
        <source>has no valid &quot;sha256&quot; (64 hex digits)</source>
        <translation>hat keine gültige „sha256“ (64 Hex-Ziffern)</translation>
    </message>
    <message>
        <source>The update manifest is larger than %1 bytes.</source>
        <translation>Das Update-Manifest ist größer als %1 Bytes.</translation>
    </message>
    <message>
        <source>The update manifest is not a JSON object: %1</source>
        <translation>Das Update-Manifest ist kein JSON-Objekt: %1</translation>
    </message>
    <message>
        <source>The update manifest has no &quot;devices&quot; object.</source>
        <translation>Das Update-Manifest hat kein „devices“-Objekt.</translation>
    </message>
    <message>
        <source>is not an object</source>
        <translation>ist kein Objekt</translation>
    </message>
    <message>
        <source>The update manifest&apos;s &quot;%1&quot; %2.</source>
        <translation>„%1“ im Update-Manifest %2.</translation>
    </message>
</context>
<context>
    <name>ForceFeedbackCheck</name>
    <message>
        <source>FULL — ready for force feedback</source>
        <translation>VOLL — bereit für Force Feedback</translation>
    </message>
    <message>
        <source>PARTIAL — close other sim software (it holds the wheel)</source>
        <translation>TEILWEISE — andere Sim-Software schließen (sie belegt das Lenkrad)</translation>
    </message>
    <message>
        <source>PARTIAL — limited support</source>
        <translation>TEILWEISE — eingeschränkte Unterstützung</translation>
    </message>
    <message>
        <source>INCOMPATIBLE — no force feedback</source>
        <translation>INKOMPATIBEL — kein Force Feedback</translation>
    </message>
    <message>
        <source>No wheelbase connected</source>
        <translation>Kein Lenkrad verbunden</translation>
    </message>
</context>
<context>
    <name>HelicopterComputation</name>
    <message>
        <source>Lower the collective before arming the motor.</source>
        <translation>Senken Sie das Kollektiv ab, bevor Sie den Motor scharf schalten.</translation>
    </message>
</context>
<context>
    <name>HelicopterSettings</name>
    <message>
        <source>Roll</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Nicken</translation>
    </message>
    <message>
        <source>Collective</source>
        <translation>Kollektiv</translation>
    </message>
    <message>
        <source>Rudder</source>
        <translation>Heck</translation>
    </message>
    <message>
        <source>Arm switch</source>
        <translation>Scharfschalter</translation>
    </message>
    <message>
        <source>Motor</source>
        <translation>Motor</translation>
    </message>
    <message>
        <source>%1 and %2 would both drive CH%3. Give each its own channel.</source>
        <translation>%1 und %2 würden beide CH%3 steuern. Geben Sie jedem einen eigenen Kanal.</translation>
    </message>
    <message>
        <source>Disarm the motor to change these settings.</source>
        <translation>Schalten Sie den Motor unscharf, um diese Einstellungen zu ändern.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>OrvaneLabs HUB</source>
        <translation>OrvaneLabs HUB</translation>
    </message>
    <message>
        <source>Dashboard</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation>Fahrzeuge</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Light mode</source>
        <translation>Helles Design</translation>
    </message>
    <message>
        <source>Dark mode</source>
        <translation>Dunkles Design</translation>
    </message>
    <message>
        <source>The log is not written to disk in this run</source>
        <translation>Das Protokoll wird in diesem Lauf nicht auf die Festplatte geschrieben</translation>
    </message>
    <message>
        <source>No file manager could open %1</source>
        <translation>Kein Dateimanager konnte %1 öffnen</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>&amp;Select All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Hochzählen</translation>
    </message>
    <message>
        <source>Step &amp;down</source>
        <translation>&amp;Runterzählen</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Wieder&amp;herstellen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Einf&amp;ügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Wieder&amp;herstellen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Einf&amp;ügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>ReceiverV4ImageLoader</name>
    <message>
        <source>The firmware description (.json) can&apos;t be read.</source>
        <translation>Die Firmware-Beschreibung (.json) kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This firmware is for &quot;%1&quot;, not a Orvane receiver V4.</source>
        <translation>Diese Firmware ist für „%1“, nicht für einen Orvane-Empfänger V4.</translation>
    </message>
    <message>
        <source>The firmware&apos;s flash address is not 0x08000000.</source>
        <translation>Die Flash-Adresse der Firmware ist nicht 0x08000000.</translation>
    </message>
    <message>
        <source>The firmware file doesn&apos;t match its description (corrupted or wrong file).</source>
        <translation>Die Firmware-Datei passt nicht zu ihrer Beschreibung (beschädigt oder falsche Datei).</translation>
    </message>
    <message>
        <source>The firmware description has no version.</source>
        <translation>Die Firmware-Beschreibung hat keine Version.</translation>
    </message>
    <message>
        <source>The firmware file is too small.</source>
        <translation>Die Firmware-Datei ist zu klein.</translation>
    </message>
    <message>
        <source>The firmware file is larger than 256 KB.</source>
        <translation>Die Firmware-Datei ist größer als 256 KB.</translation>
    </message>
    <message>
        <source>Not a Orvane receiver firmware (stack pointer 0x%1).</source>
        <translation>Keine Firmware für Orvane-Empfänger (Stack-Pointer 0x%1).</translation>
    </message>
    <message>
        <source>Not a Orvane receiver firmware (reset address 0x%1).</source>
        <translation>Keine Firmware für Orvane-Empfänger (Reset-Adresse 0x%1).</translation>
    </message>
</context>
<context>
    <name>Stm32BootloaderClient</name>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>no reply from the bootloader</source>
        <translation>keine Antwort vom Bootloader</translation>
    </message>
    <message>
        <source>GET: no length</source>
        <translation>GET: keine Länge</translation>
    </message>
    <message>
        <source>GET: short reply</source>
        <translation>GET: Antwort zu kurz</translation>
    </message>
    <message>
        <source>GET_ID: no length</source>
        <translation>GET_ID: keine Länge</translation>
    </message>
    <message>
        <source>GET_ID: short reply</source>
        <translation>GET_ID: Antwort zu kurz</translation>
    </message>
    <message>
        <source>READ: short data</source>
        <translation>READ: Daten zu kurz</translation>
    </message>
    <message>
        <source>bootloader NACK</source>
        <translation>Bootloader-NACK</translation>
    </message>
    <message>
        <source>unexpected byte 0x%1</source>
        <translation>unerwartetes Byte 0x%1</translation>
    </message>
</context>
<context>
    <name>Uf2BootDrive</name>
    <message>
        <source>Can&apos;t write to the boot drive %1: %2</source>
        <translation>Auf das Boot-Laufwerk %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Writing to the boot drive %1 failed: %2</source>
        <translation>Schreiben auf das Boot-Laufwerk %1 fehlgeschlagen: %2</translation>
    </message>
</context>
<context>
    <name>Uf2Image</name>
    <message>
        <source>The image is not a whole number of 512-byte UF2 blocks (%1 bytes).</source>
        <translation>Das Image besteht nicht aus ganzen UF2-Blöcken zu 512 Bytes (%1 Bytes).</translation>
    </message>
    <message>
        <source>Block %1 does not carry the UF2 magic numbers.</source>
        <translation>Block %1 trägt nicht die magischen UF2-Zahlen.</translation>
    </message>
    <message>
        <source>Block %1 is not for the RP2040.</source>
        <translation>Block %1 ist nicht für den RP2040.</translation>
    </message>
    <message>
        <source>Block %1 claims %2 payload bytes.</source>
        <translation>Block %1 gibt %2 Nutzdaten-Bytes an.</translation>
    </message>
    <message>
        <source>Block %1 is numbered %2 of %3: blocks are missing or out of order.</source>
        <translation>Block %1 trägt die Nummer %2 von %3: Blöcke fehlen oder sind vertauscht.</translation>
    </message>
</context>
<context>
    <name>hub::Card</name>
    <message>
        <source>Show or hide</source>
        <translation>Ein- oder ausblenden</translation>
    </message>
</context>
<context>
    <name>hub::Sidebar</name>
    <message>
        <source>Collapse</source>
        <translation>Einklappen</translation>
    </message>
    <message>
        <source>Expand</source>
        <translation>Ausklappen</translation>
    </message>
</context>
<context>
    <name>tavrix::ActiveProfileFollower</name>
    <message>
        <source>The new profile takes effect when transmission stops</source>
        <translation>Das neue Profil gilt, sobald die Übertragung stoppt</translation>
    </message>
</context>
<context>
    <name>tavrix::AppAddressList</name>
    <message>
        <source>The app server is not listening, so the mobile app cannot connect.</source>
        <translation>Der App-Server lauscht nicht, die mobile App kann sich also nicht verbinden.</translation>
    </message>
</context>
<context>
    <name>tavrix::AxisEditor</name>
    <message>
        <source>Invert the direction</source>
        <translation>Richtung umkehren</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Potenz</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>Logarithmisch</translation>
    </message>
    <message>
        <source>Deadzone</source>
        <translation>Totzone</translation>
    </message>
    <message>
        <source>Output from</source>
        <translation>Ausgabe von</translation>
    </message>
    <message>
        <source>Output to</source>
        <translation>Ausgabe bis</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Exponent</source>
        <translation>Exponent</translation>
    </message>
    <message>
        <source>The output range moves the centre too: from 0.2 the wheel rests at 0.2.</source>
        <translation>Der Ausgabebereich verschiebt auch die Mitte: ab 0,2 ruht das Lenkrad bei 0,2.</translation>
    </message>
    <message>
        <source>A pedal keeps at least a 2% deadzone against rest noise.</source>
        <translation>Ein Pedal behält mindestens 2 % Totzone gegen Rauschen in Ruhe.</translation>
    </message>
    <message>
        <source>Use the calibration</source>
        <translation>Kalibrierung verwenden</translation>
    </message>
    <message>
        <source>Use the calibrated floor and ceiling</source>
        <translation>Kalibrierte Unter- und Obergrenze verwenden</translation>
    </message>
    <message>
        <source>Set minimum</source>
        <translation>Minimum setzen</translation>
    </message>
    <message>
        <source>Set centre</source>
        <translation>Mitte setzen</translation>
    </message>
    <message>
        <source>Set maximum</source>
        <translation>Maximum setzen</translation>
    </message>
    <message>
        <source>Move the control to its ends (and let the wheel centre), then set each point.</source>
        <translation>Bewegen Sie das Bedienelement an seine Enden (das Lenkrad zur Mitte) und setzen Sie dann jeden Punkt.</translation>
    </message>
    <message>
        <source>Raw %1</source>
        <translation>Roh %1</translation>
    </message>
    <message>
        <source>Output %1</source>
        <translation>Ausgabe %1</translation>
    </message>
    <message>
        <source>Raw —</source>
        <translation>Roh —</translation>
    </message>
    <message>
        <source>Output —</source>
        <translation>Ausgabe —</translation>
    </message>
    <message>
        <source>Softens the wheel around the centre and keeps full lock at the ends.</source>
        <translation>Macht das Lenkrad um die Mitte weicher und behält den vollen Einschlag an den Enden.</translation>
    </message>
    <message>
        <source>Expo</source>
        <translation>Expo</translation>
    </message>
</context>
<context>
    <name>tavrix::AxisMappingDialog</name>
    <message>
        <source>Axis mapping: %1</source>
        <translation>Achsenzuordnung: %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Choose the axis that feeds each input, or press Detect and move the control. The mapping is saved for this product in the profile.</source>
        <translation>Wählen Sie die Achse für jede Eingabe, oder drücken Sie „Erkennen“ und bewegen Sie das Bedienelement. Die Zuordnung wird für dieses Produkt im Profil gespeichert.</translation>
    </message>
    <message>
        <source>Steering</source>
        <translation>Lenkung</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Gas</translation>
    </message>
    <message>
        <source>Brake</source>
        <translation>Bremse</translation>
    </message>
    <message>
        <source>Clutch</source>
        <translation>Kupplung</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation>Achse %1</translation>
    </message>
    <message>
        <source>Inverted</source>
        <translation>Umgekehrt</translation>
    </message>
    <message>
        <source>Detect</source>
        <translation>Erkennen</translation>
    </message>
    <message>
        <source>%1: move the control well away from where it rests…</source>
        <translation>%1: Bewegen Sie das Bedienelement deutlich aus seiner Ruhelage…</translation>
    </message>
</context>
<context>
    <name>tavrix::AxisMappingDialogBinder</name>
    <message>
        <source>No axis moved far enough. Press Detect again and move the control further.</source>
        <translation>Keine Achse wurde weit genug bewegt. Drücken Sie erneut „Erkennen“ und bewegen Sie das Bedienelement weiter.</translation>
    </message>
</context>
<context>
    <name>tavrix::AxisSettingsDialog</name>
    <message>
        <source>Axes and calibration</source>
        <translation>Achsen und Kalibrierung</translation>
    </message>
    <message>
        <source>Steering</source>
        <translation>Lenkung</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Gas</translation>
    </message>
    <message>
        <source>Brake</source>
        <translation>Bremse</translation>
    </message>
    <message>
        <source>Clutch</source>
        <translation>Kupplung</translation>
    </message>
    <message>
        <source>Wheel and pedal presets</source>
        <translation>Vorgaben für Lenkrad und Pedale</translation>
    </message>
    <message>
        <source>Which axis feeds each input; saved for this product in the profile.</source>
        <translation>Welche Achse jeden Eingang speist; für dieses Produkt im Profil gespeichert.</translation>
    </message>
    <message>
        <source>Wheel base</source>
        <translation>Lenkrad</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>Pedale</translation>
    </message>
    <message>
        <source>Gas and brake on one axis</source>
        <translation>Gas und Bremse auf einer Achse</translation>
    </message>
    <message>
        <source>Verify pedals…</source>
        <translation>Pedale prüfen…</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>Customise…</source>
        <translation>Anpassen…</translation>
    </message>
    <message>
        <source>Choose the axis of each input yourself</source>
        <translation>Die Achse jeder Eingabe selbst wählen</translation>
    </message>
</context>
<context>
    <name>tavrix::ButtonMappingBook</name>
    <message>
        <source>Too many button mappings (max %1)</source>
        <translation>Zu viele Tastenbelegungen (höchstens %1)</translation>
    </message>
    <message>
        <source>Index %1 out of range (count: %2)</source>
        <translation>Index %1 außerhalb des Bereichs (Anzahl: %2)</translation>
    </message>
    <message>
        <source>Channel must be %1-%2 (0-%3 carry the flight controls)</source>
        <translation>Der Kanal muss zwischen %1 und %2 liegen (0-%3 tragen die Flugsteuerung)</translation>
    </message>
    <message>
        <source>Channel must be %1-%2 (0-%3 reserved for steering/throttle)</source>
        <translation>Der Kanal muss zwischen %1 und %2 liegen (0-%3 sind für Lenkung/Gas reserviert)</translation>
    </message>
</context>
<context>
    <name>tavrix::ButtonMappingEditor</name>
    <message>
        <source>Horn, lights, …</source>
        <translation>Hupe, Licht, …</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>Press…</source>
        <translation>Drücken…</translation>
    </message>
    <message>
        <source>Pick the control by pressing it on the wheel</source>
        <translation>Wählen Sie das Bedienelement, indem Sie es am Lenkrad drücken</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Bedienelement</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>Verhalten</translation>
    </message>
    <message>
        <source>CH%1</source>
        <translation>K%1</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Pressed value</source>
        <translation>Wert gedrückt</translation>
    </message>
    <message>
        <source>Released value</source>
        <translation>Wert losgelassen</translation>
    </message>
    <message>
        <source> per s</source>
        <translation> pro s</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Lowest value</source>
        <translation>Niedrigster Wert</translation>
    </message>
    <message>
        <source>Highest value</source>
        <translation>Höchster Wert</translation>
    </message>
    <message>
        <source>Activate Pit Limiter when pressed</source>
        <translation>Pit-Limiter beim Drücken aktivieren</translation>
    </message>
    <message>
        <source>Button %1</source>
        <translation>Taste %1</translation>
    </message>
    <message>
        <source>Hat %1 up</source>
        <translation>Coolie-Hat %1 oben</translation>
    </message>
    <message>
        <source>Hat %1 right</source>
        <translation>Coolie-Hat %1 rechts</translation>
    </message>
    <message>
        <source>Hat %1 down</source>
        <translation>Coolie-Hat %1 unten</translation>
    </message>
    <message>
        <source>Hat %1 left</source>
        <translation>Coolie-Hat %1 links</translation>
    </message>
    <message>
        <source>Axis %1 +</source>
        <translation>Achse %1 +</translation>
    </message>
    <message>
        <source>Axis %1 −</source>
        <translation>Achse %1 −</translation>
    </message>
    <message>
        <source>Momentary</source>
        <translation>Tastend</translation>
    </message>
    <message>
        <source>Hold to raise</source>
        <translation>Halten zum Erhöhen</translation>
    </message>
    <message>
        <source>Hold to lower</source>
        <translation>Halten zum Senken</translation>
    </message>
    <message>
        <source>Toggle</source>
        <translation>Umschalten</translation>
    </message>
    <message>
        <source>Switch position</source>
        <translation>Schalterstellung</translation>
    </message>
    <message>
        <source>%1 pressed, %2 released</source>
        <translation>%1 gedrückt, %2 losgelassen</translation>
    </message>
    <message>
        <source>%1%2/s in %3–%4, from %5</source>
        <translation>%1%2/s in %3–%4, ab %5</translation>
    </message>
    <message>
        <source>on %1, off %2</source>
        <translation>ein %1, aus %2</translation>
    </message>
    <message>
        <source>%1, from %2</source>
        <translation>%1, ab %2</translation>
    </message>
    <message>
        <source>%1, pit limiter</source>
        <translation>%1, Pit-Limiter</translation>
    </message>
    <message>
        <source>Start value</source>
        <translation>Startwert</translation>
    </message>
    <message>
        <source>ON value</source>
        <translation>EIN-Wert</translation>
    </message>
    <message>
        <source>OFF value</source>
        <translation>AUS-Wert</translation>
    </message>
    <message>
        <source>Position value</source>
        <translation>Positionswert</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Add a further control by pressing it</source>
        <translation>Weiteres Bedienelement durch Drücken hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Also pressed by</source>
        <translation>Auch ausgelöst durch</translation>
    </message>
</context>
<context>
    <name>tavrix::ButtonMappingsDialog</name>
    <message>
        <source>Button mappings</source>
        <translation>Tastenbelegung</translation>
    </message>
    <message>
        <source>Press a button or a hat direction on the wheel…</source>
        <translation>Drücken Sie eine Taste oder eine Coolie-Hat-Richtung am Lenkrad…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Bedienelement</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>Verhalten</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Sends</source>
        <translation>Sendet</translation>
    </message>
    <message>
        <source>Add by pressing…</source>
        <translation>Durch Drücken hinzufügen…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>CH%1</source>
        <translation>K%1</translation>
    </message>
</context>
<context>
    <name>tavrix::CarPage</name>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
    <message>
        <source>Drive a real RC car with your wheel, pedals and shifter.</source>
        <translation>Fahren Sie ein echtes RC-Auto mit Lenkrad, Pedalen und Schaltknauf.</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Lenkrad</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>Pedale</translation>
    </message>
    <message>
        <source>Shifter</source>
        <translation>Schaltknauf</translation>
    </message>
    <message>
        <source>Game controllers for each role</source>
        <translation>Gamecontroller für jede Rolle</translation>
    </message>
    <message>
        <source>Configure</source>
        <translation>Konfigurieren</translation>
    </message>
    <message>
        <source>Settings of the active car profile</source>
        <translation>Einstellungen des aktiven Fahrzeugprofils</translation>
    </message>
    <message>
        <source>Transmission</source>
        <translation>Übertragung</translation>
    </message>
    <message>
        <source>Force feedback</source>
        <translation>Force Feedback</translation>
    </message>
    <message>
        <source>Motion output</source>
        <translation>Bewegungsausgabe</translation>
    </message>
    <message>
        <source>Live input</source>
        <translation>Live-Eingabe</translation>
    </message>
    <message>
        <source>Steering, throttle and brake as the car receives them</source>
        <translation>Lenkung, Gas und Bremse, wie das Auto sie empfängt</translation>
    </message>
    <message>
        <source>Steering</source>
        <translation>Lenkung</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Gas</translation>
    </message>
    <message>
        <source>Brake</source>
        <translation>Bremse</translation>
    </message>
    <message>
        <source>Car link</source>
        <translation>Fahrzeugverbindung</translation>
    </message>
    <message>
        <source>Telemetry from the car&apos;s receiver</source>
        <translation>Telemetrie vom Empfänger des Autos</translation>
    </message>
    <message>
        <source>Link quality</source>
        <translation>Verbindungsqualität</translation>
    </message>
    <message>
        <source>RSSI</source>
        <translation>RSSI</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Akku</translation>
    </message>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>The car reports here while transmission runs.</source>
        <translation>Das Auto meldet sich hier, während die Übertragung läuft.</translation>
    </message>
    <message>
        <source>Linked</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>No link</source>
        <translation>Keine Verbindung</translation>
    </message>
    <message>
        <source>sats</source>
        <translation>Sat.</translation>
    </message>
    <message>
        <source>No fix</source>
        <translation>Kein Fix</translation>
    </message>
    <message>
        <source>Axes and calibration</source>
        <translation>Achsen und Kalibrierung</translation>
    </message>
    <message>
        <source>Drive and throttle safety</source>
        <translation>Antrieb und Gassicherheit</translation>
    </message>
    <message>
        <source>Button mappings</source>
        <translation>Tastenbelegung</translation>
    </message>
    <message>
        <source>LED strip</source>
        <translation>LED-Streifen</translation>
    </message>
    <message>
        <source>The active profile keeps these settings.</source>
        <translation>Das aktive Profil speichert diese Einstellungen.</translation>
    </message>
    <message>
        <source>The profile “%1” keeps these settings.</source>
        <translation>Das Profil „%1“ speichert diese Einstellungen.</translation>
    </message>
    <message>
        <source>It drives with its saved values and defaults; the topics shown as buttons open their editors.</source>
        <translation>Es fährt mit seinen gespeicherten Werten und Vorgaben; die Themen als Schaltflächen öffnen ihre Editoren.</translation>
    </message>
    <message>
        <source>Wheel force feedback</source>
        <translation>Force Feedback des Lenkrads</translation>
    </message>
</context>
<context>
    <name>tavrix::DashboardBinder</name>
    <message>
        <source>Choose them on the vehicle&apos;s page</source>
        <translation>Wählen Sie sie auf der Fahrzeugseite</translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Looked for over the radio while transmitting</source>
        <translation>Wird während der Übertragung per Funk gesucht</translation>
    </message>
    <message>
        <source>Searching</source>
        <translation>Suche läuft</translation>
    </message>
    <message>
        <source>Asking the car&apos;s receiver to answer</source>
        <translation>Der Empfänger des Autos wird angefragt</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>Einstellungen werden gelesen</translation>
    </message>
    <message>
        <source>%1, firmware %2</source>
        <translation>%1, Firmware %2</translation>
    </message>
    <message>
        <source>Firmware %1, reached over the radio</source>
        <translation>Firmware %1, per Funk erreicht</translation>
    </message>
</context>
<context>
    <name>tavrix::DashboardPage</name>
    <message>
        <source>Dashboard</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Connections, transmission and telemetry at a glance.</source>
        <translation>Verbindungen, Übertragung und Telemetrie auf einen Blick.</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Companion app on the local network</source>
        <translation>Begleit-App im lokalen Netzwerk</translation>
    </message>
    <message>
        <source>Connections</source>
        <translation>Verbindungen</translation>
    </message>
    <message>
        <source>Transmitter</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Car link</source>
        <translation>Fahrzeugverbindung</translation>
    </message>
    <message>
        <source>Mobile app</source>
        <translation>Mobile App</translation>
    </message>
    <message>
        <source>Transmission</source>
        <translation>Übertragung</translation>
    </message>
    <message>
        <source>Vehicle</source>
        <translation>Fahrzeug</translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation>Bildrate</translation>
    </message>
    <message>
        <source>Drive a car</source>
        <translation>Auto fahren</translation>
    </message>
    <message>
        <source>Fly a helicopter</source>
        <translation>Hubschrauber fliegen</translation>
    </message>
    <message>
        <source>Telemetry</source>
        <translation>Telemetrie</translation>
    </message>
    <message>
        <source>No telemetry yet</source>
        <translation>Noch keine Telemetrie</translation>
    </message>
    <message>
        <source>Readings from the car&apos;s sensors appear here while transmission runs and the car is linked.</source>
        <translation>Messwerte der Sensoren des Autos erscheinen hier, während die Übertragung läuft und das Auto verbunden ist.</translation>
    </message>
    <message>
        <source>Orvane Transmitter on %1</source>
        <translation>Orvane Transmitter an %1</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Plug the Orvane Transmitter in over USB</source>
        <translation>Schließen Sie den Orvane Transmitter per USB an</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Radio link to the car&apos;s receiver</source>
        <translation>Funkverbindung zum Empfänger des Autos</translation>
    </message>
    <message>
        <source>Linked</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>No link</source>
        <translation>Keine Verbindung</translation>
    </message>
    <message>
        <source>Transmitting</source>
        <translation>Sendet</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Gestoppt</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Choose them on the vehicle&apos;s page</source>
        <translation>Wählen Sie sie auf der Fahrzeugseite</translation>
    </message>
    <message>
        <source>Game controllers</source>
        <translation>Gamecontroller</translation>
    </message>
    <message>
        <source>The car&apos;s sensors the profile shows, stale readings dimmed</source>
        <translation>Die Sensoren des Autos aus dem Profil, veraltete Werte abgeblendet</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Choose tiles…</source>
        <translation>Kacheln wählen…</translation>
    </message>
    <message>
        <source>Live telemetry</source>
        <translation>Live-Telemetrie</translation>
    </message>
    <message>
        <source>The car&apos;s G forces and radio link over the last minute</source>
        <translation>G-Kräfte und Funkverbindung des Autos in der letzten Minute</translation>
    </message>
</context>
<context>
    <name>tavrix::DashboardSettingsDialog</name>
    <message>
        <source>Dashboard tiles</source>
        <translation>Kacheln der Übersicht</translation>
    </message>
    <message>
        <source>Tick the readings the dashboard shows as tiles and put them in order. The active profile keeps the choice; with none ticked, every reading the car sends is shown.</source>
        <translation>Haken Sie die Messwerte an, die die Übersicht als Kacheln zeigt, und bringen Sie sie in eine Reihenfolge. Das aktive Profil speichert die Auswahl; ist nichts angehakt, wird jeder Messwert gezeigt, den das Auto sendet.</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>The sensor&apos;s own name</source>
        <translation>Der eigene Name des Sensors</translation>
    </message>
    <message>
        <source>Label of the highlighted reading</source>
        <translation>Bezeichnung des markierten Messwerts</translation>
    </message>
    <message>
        <source>Add readings the car reports for the first time to the list</source>
        <translation>Messwerte, die das Auto zum ersten Mal meldet, in die Liste aufnehmen</translation>
    </message>
</context>
<context>
    <name>tavrix::DebugConsole</name>
    <message>
        <source>Debug console</source>
        <translation>Debug-Konsole</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Alles kopieren</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>tavrix::DevicePickerCard</name>
    <message>
        <source>No game controllers found. Connect a controller over USB and it appears in these lists.</source>
        <translation>Keine Gamecontroller gefunden. Schließen Sie einen Controller per USB an, dann erscheint er in diesen Listen.</translation>
    </message>
    <message>
        <source>No device found</source>
        <translation>Kein Gerät gefunden</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keins</translation>
    </message>
</context>
<context>
    <name>tavrix::DeviceRoles</name>
    <message>
        <source>Wheel base disconnected</source>
        <translation>Lenkrad getrennt</translation>
    </message>
    <message>
        <source>Failed to open wheel base device</source>
        <translation>Das Lenkrad konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Wheel base not connected</source>
        <translation>Lenkrad nicht verbunden</translation>
    </message>
    <message>
        <source>Pedals disconnected</source>
        <translation>Pedale getrennt</translation>
    </message>
    <message>
        <source>Failed to open pedals device</source>
        <translation>Die Pedale konnten nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Pedals not connected</source>
        <translation>Pedale nicht verbunden</translation>
    </message>
    <message>
        <source>Shifter disconnected</source>
        <translation>Schaltknauf getrennt</translation>
    </message>
    <message>
        <source>Failed to open shifter device</source>
        <translation>Der Schaltknauf konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Shifter not connected</source>
        <translation>Schaltknauf nicht verbunden</translation>
    </message>
    <message>
        <source>Joystick disconnected</source>
        <translation>Joystick getrennt</translation>
    </message>
    <message>
        <source>Failed to open joystick device</source>
        <translation>Der Joystick konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Joystick not connected</source>
        <translation>Joystick nicht verbunden</translation>
    </message>
    <message>
        <source>Throttle disconnected</source>
        <translation>Gashebel getrennt</translation>
    </message>
    <message>
        <source>Failed to open throttle device</source>
        <translation>Der Gashebel konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Throttle not connected</source>
        <translation>Gashebel nicht verbunden</translation>
    </message>
</context>
<context>
    <name>tavrix::DriveComputation</name>
    <message>
        <source>impossible throttle spike detected</source>
        <translation>unmöglicher Gassprung erkannt</translation>
    </message>
</context>
<context>
    <name>tavrix::DriveRecorder</name>
    <message>
        <source>Cannot record the drive: the folder %1 cannot be made.</source>
        <translation>Die Fahrt kann nicht aufgezeichnet werden: Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Cannot record the drive to %1: %2</source>
        <translation>Die Fahrt kann nicht in %1 aufgezeichnet werden: %2</translation>
    </message>
    <message>
        <source>Recording stopped: writing %1 failed (%2). The rows recorded before are kept.</source>
        <translation>Aufzeichnung beendet: Schreiben von %1 fehlgeschlagen (%2). Die bis dahin aufgezeichneten Zeilen bleiben erhalten.</translation>
    </message>
</context>
<context>
    <name>tavrix::DriveRecorderBinder</name>
    <message>
        <source>Recording to %1</source>
        <translation>Aufzeichnung in %1</translation>
    </message>
    <message>
        <source>Saved %1: %2 rows.</source>
        <translation>%1 gespeichert: %2 Zeilen.</translation>
    </message>
    <message>
        <source>%1 rows were dropped because the disk fell behind.</source>
        <translation>%1 Zeilen wurden verworfen, weil das Schreiben auf die Festplatte nicht nachkam.</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>%1 wird gespeichert…</translation>
    </message>
</context>
<context>
    <name>tavrix::DriveSettings</name>
    <message>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>Traxxas/Tamiya/Arma Standard (172-992-1811)</source>
        <translation>Traxxas/Tamiya/Arma Standard (172-992-1811)</translation>
    </message>
</context>
<context>
    <name>tavrix::DriveSettingsDialog</name>
    <message>
        <source>Drive and throttle safety</source>
        <translation>Antrieb und Gassicherheit</translation>
    </message>
    <message>
        <source>ESC and reverse</source>
        <translation>ESC und Rückwärts</translation>
    </message>
    <message>
        <source>Throttle safety</source>
        <translation>Gassicherheit</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Grenzen</translation>
    </message>
    <message>
        <source>Traxxas/Tamiya/Arma Standard (172-992-1811)</source>
        <translation>Traxxas/Tamiya/Arma Standard (172-992-1811)</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>ESC mode</source>
        <translation>ESC-Modus</translation>
    </message>
    <message>
        <source>Standard drives the servo span; Custom uses the three values below.</source>
        <translation>Standard nutzt den Servobereich; Benutzerdefiniert die drei Werte unten.</translation>
    </message>
    <message>
        <source>ESC preset</source>
        <translation>ESC-Vorgabe</translation>
    </message>
    <message>
        <source>Copies a saved ESC&apos;s neutral and end points and selects Custom.</source>
        <translation>Übernimmt Neutral- und Endpunkte eines gespeicherten ESC und wählt Benutzerdefiniert.</translation>
    </message>
    <message>
        <source>Full reverse</source>
        <translation>Voll rückwärts</translation>
    </message>
    <message>
        <source>Neutral</source>
        <translation>Neutral</translation>
    </message>
    <message>
        <source>Full forward</source>
        <translation>Voll vorwärts</translation>
    </message>
    <message>
        <source>Custom ESC</source>
        <translation>Eigener ESC</translation>
    </message>
    <message>
        <source>Reverse by button or reverse gear</source>
        <translation>Rückwärts per Taste oder Rückwärtsgang</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>Rückwärts</translation>
    </message>
    <message>
        <source>The button toggles reverse; the throttle then drives backwards.</source>
        <translation>Die Taste schaltet Rückwärts um; das Gas fährt dann rückwärts.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Reverse button</source>
        <translation>Rückwärtstaste</translation>
    </message>
    <message>
        <source>Reverse speed</source>
        <translation>Rückwärtstempo</translation>
    </message>
    <message>
        <source>The most of the reverse span the throttle reaches.</source>
        <translation>Der größte Teil des Rückwärtsbereichs, den das Gas erreicht.</translation>
    </message>
    <message>
        <source>Spike protection</source>
        <translation>Schutz vor Gassprüngen</translation>
    </message>
    <message>
        <source>A throttle jumping from released to 80% in one tick zeroes it and stops the car.</source>
        <translation>Springt das Gas in einem Takt von losgelassen auf 80 %, wird es genullt und das Auto hält.</translation>
    </message>
    <message>
        <source>Stuck-throttle protection</source>
        <translation>Schutz vor hängendem Gas</translation>
    </message>
    <message>
        <source>A throttle reading full at the start is ignored until it is released.</source>
        <translation>Steht das Gas beim Start auf voll, wird es ignoriert, bis es losgelassen ist.</translation>
    </message>
    <message>
        <source>Soft start</source>
        <translation>Sanftanlauf</translation>
    </message>
    <message>
        <source>After each start the throttle is capped, rising from the floor to full.</source>
        <translation>Nach jedem Start ist das Gas begrenzt und steigt von der Untergrenze auf voll.</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation>Rampe</translation>
    </message>
    <message>
        <source>Floor</source>
        <translation>Untergrenze</translation>
    </message>
    <message>
        <source>Smooth deceleration</source>
        <translation>Sanftes Verzögern</translation>
    </message>
    <message>
        <source>Letting go of the throttle slows the car gradually; braking is never smoothed.</source>
        <translation>Loslassen des Gases bremst das Auto allmählich; Bremsen wird nie geglättet.</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Rate</translation>
    </message>
    <message>
        <source>Higher is gentler: 0 stops in 0.9 s, 10 in 2.3 s.</source>
        <translation>Höher ist sanfter: 0 hält in 0,9 s, 10 in 2,3 s.</translation>
    </message>
    <message>
        <source>Pit limiter</source>
        <translation>Pit-Limiter</translation>
    </message>
    <message>
        <source>Caps the ESC channel at the value below for as long as it is on.</source>
        <translation>Begrenzt den ESC-Kanal auf den Wert unten, solange er an ist.</translation>
    </message>
    <message>
        <source>Cap</source>
        <translation>Obergrenze</translation>
    </message>
    <message>
        <source>Per-gear limits</source>
        <translation>Grenzen je Gang</translation>
    </message>
    <message>
        <source>Each shifter gear reaches only its share of full throttle; neutral gives none.</source>
        <translation>Jeder Gang erreicht nur seinen Anteil am Vollgas; Leerlauf gibt keines.</translation>
    </message>
    <message>
        <source>Gear %1</source>
        <translation>Gang %1</translation>
    </message>
    <message>
        <source>No saved presets</source>
        <translation>Keine gespeicherten Vorgaben</translation>
    </message>
    <message>
        <source>Choose a preset</source>
        <translation>Vorgabe wählen</translation>
    </message>
    <message>
        <source>Manage presets…</source>
        <translation>Vorgaben verwalten…</translation>
    </message>
    <message>
        <source>Steering</source>
        <translation>Lenkung</translation>
    </message>
    <message>
        <source>Full left</source>
        <translation>Voll links</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Full right</source>
        <translation>Voll rechts</translation>
    </message>
    <message>
        <source>End points</source>
        <translation>Endpunkte</translation>
    </message>
    <message>
        <source>Each change steers the car at once, unsaved: Save trim keeps it, Revert or closing this dialog puts the saved end points back.</source>
        <translation>Jede Änderung wirkt sofort auf die Lenkung des Autos, ohne gespeichert zu werden: „Trimmung speichern“ behält sie, „Verwerfen“ oder das Schließen dieses Dialogs stellt die gespeicherten Endpunkte wieder her.</translation>
    </message>
    <message>
        <source>Save trim</source>
        <translation>Trimmung speichern</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Gears</source>
        <translation>Gänge</translation>
    </message>
    <message>
        <source>Throttle stays at neutral until the shifter&apos;s gears are mapped.</source>
        <translation>Das Gas bleibt auf Neutral, bis die Gänge des Schalthebels zugeordnet sind.</translation>
    </message>
</context>
<context>
    <name>tavrix::ElrsParameterManager</name>
    <message>
        <source>Start configuring to read/change ELRS RF settings.</source>
        <translation>Starten Sie die Konfiguration, um ELRS-Funkeinstellungen zu lesen oder zu ändern.</translation>
    </message>
    <message>
        <source>ELRS parameter manager: no CRSF protocol bound.</source>
        <translation>ELRS-Parameterverwaltung: kein CRSF-Protokoll gebunden.</translation>
    </message>
    <message>
        <source>No ELRS parameters could be read — this transmitter may be send-only (no half-duplex).</source>
        <translation>Keine ELRS-Parameter lesbar — dieser Sender kann vielleicht nur senden (kein Halbduplex).</translation>
    </message>
    <message>
        <source>ELRS walk timed out</source>
        <translation>Zeitüberschreitung beim Lesen der ELRS-Parameter</translation>
    </message>
    <message>
        <source>ELRS module returned a malformed DEVICE_INFO frame.</source>
        <translation>Das ELRS-Modul lieferte einen fehlerhaften DEVICE_INFO-Frame.</translation>
    </message>
    <message>
        <source>device ping</source>
        <translation>Geräte-Ping</translation>
    </message>
    <message>
        <source>parameter read (field %1, chunk %2)</source>
        <translation>Parameter lesen (Feld %1, Teil %2)</translation>
    </message>
    <message>
        <source>ELRS module did not respond to %1.</source>
        <translation>Das ELRS-Modul antwortete nicht auf %1.</translation>
    </message>
    <message>
        <source>ELRS parameters are not yet discovered.</source>
        <translation>Die ELRS-Parameter sind noch nicht ermittelt.</translation>
    </message>
    <message>
        <source>Unknown ELRS parameter: %1</source>
        <translation>Unbekannter ELRS-Parameter: %1</translation>
    </message>
    <message>
        <source>Parameter &apos;%1&apos; is not an enum (text selection).</source>
        <translation>Parameter „%1“ ist keine Auswahlliste (Textauswahl).</translation>
    </message>
    <message>
        <source>Option index %1 out of range for &apos;%2&apos;.</source>
        <translation>Optionsindex %1 liegt außerhalb des Bereichs für „%2“.</translation>
    </message>
    <message>
        <source>ELRS parameter manager: no serial writer.</source>
        <translation>ELRS-Parameterverwaltung: kein serieller Schreiber.</translation>
    </message>
    <message>
        <source>ELRS option index %1 out of byte range.</source>
        <translation>ELRS-Optionsindex %1 liegt außerhalb des Byte-Bereichs.</translation>
    </message>
</context>
<context>
    <name>tavrix::EscPresetStore</name>
    <message>
        <source>ESC preset name cannot be empty</source>
        <translation>Der Name der ESC-Vorgabe darf nicht leer sein</translation>
    </message>
    <message>
        <source>ESC preset not found: %1</source>
        <translation>ESC-Vorgabe nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Failed to save ESC presets</source>
        <translation>Die ESC-Vorgaben konnten nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Too many ESC presets (max %1)</source>
        <translation>Zu viele ESC-Vorgaben (höchstens %1)</translation>
    </message>
    <message>
        <source>Invalid ESC values. Must be 0-2047.</source>
        <translation>Ungültige ESC-Werte. Erlaubt sind 0-2047.</translation>
    </message>
</context>
<context>
    <name>tavrix::EscPresetsDialog</name>
    <message>
        <source>ESC presets</source>
        <translation>ESC-Vorgaben</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Save as new</source>
        <translation>Als neue speichern</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Update with current values</source>
        <translation>Mit aktuellen Werten aktualisieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>%1 — reverse %2, neutral %3, forward %4</source>
        <translation>%1 – rückwärts %2, neutral %3, vorwärts %4</translation>
    </message>
    <message>
        <source>Current ESC values: reverse %1, neutral %2, forward %3</source>
        <translation>Aktuelle ESC-Werte: rückwärts %1, neutral %2, vorwärts %3</translation>
    </message>
</context>
<context>
    <name>tavrix::FirmwareDialog</name>
    <message>
        <source>Firmware update</source>
        <translation>Firmware-Update</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Installed</source>
        <translation>Installiert</translation>
    </message>
    <message>
        <source>Available</source>
        <translation>Verfügbar</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Firmware file</source>
        <translation>Firmware-Datei</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen…</translation>
    </message>
    <message>
        <source>No serial port found</source>
        <translation>Keine serielle Schnittstelle gefunden</translation>
    </message>
    <message>
        <source>Read board</source>
        <translation>Platine lesen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Power-cycle the board now: switch its power off and on.</source>
        <translation>Starten Sie die Platine jetzt neu: Strom aus- und wieder einschalten.</translation>
    </message>
    <message numerus="yes">
        <source>Waiting %n more second(s).</source>
        <translation>
            <numerusform>Noch %n Sekunde Wartezeit.</numerusform>
            <numerusform>Noch %n Sekunden Wartezeit.</numerusform>
        </translation>
    </message>
    <message>
        <source>Closing: cancelling the update first. The dialog closes once it stopped.</source>
        <translation>Schließen: Das Update wird zuerst abgebrochen. Der Dialog schließt, sobald es gestoppt ist.</translation>
    </message>
    <message>
        <source>Choose a firmware file</source>
        <translation>Firmware-Datei wählen</translation>
    </message>
    <message>
        <source>Firmware (*.bin);;All files (*)</source>
        <translation>Firmware (*.bin);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
</context>
<context>
    <name>tavrix::FirmwareDownloader</name>
    <message>
        <source>%1 is larger than the %2 bytes expected.</source>
        <translation>%1 ist größer als die erwarteten %2 Bytes.</translation>
    </message>
    <message>
        <source>Downloading %1 failed: %2</source>
        <translation>Download von %1 fehlgeschlagen: %2</translation>
    </message>
</context>
<context>
    <name>tavrix::FirmwareUpdateService</name>
    <message>
        <source>No serial port for the receiver.</source>
        <translation>Keine serielle Schnittstelle für den Empfänger.</translation>
    </message>
    <message>
        <source>Could not start the update</source>
        <translation>Das Update konnte nicht starten</translation>
    </message>
    <message>
        <source>Could not check for updates</source>
        <translation>Die Suche nach Updates ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 wird gelesen</translation>
    </message>
    <message>
        <source>The transmitter&apos;s companion processor (SoC) takes its updates over a channel this hub does not know, so its version can neither be read nor changed from here.</source>
        <translation>Der Begleitprozessor (SoC) des Senders erhält Updates über einen Kanal, den dieser Hub nicht kennt; seine Version kann hier weder gelesen noch geändert werden.</translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation>Das Update wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The update manifest lists no firmware for the %1.</source>
        <translation>Das Update-Manifest nennt keine Firmware für „%1“.</translation>
    </message>
    <message>
        <source>Firmware %1 is available.</source>
        <translation>Firmware %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>The firmware is up to date (%1).</source>
        <translation>Die Firmware ist aktuell (%1).</translation>
    </message>
    <message>
        <source>Downloading firmware %1</source>
        <translation>Firmware %1 wird heruntergeladen</translation>
    </message>
    <message>
        <source>Unplug the transmitter, hold its BOOTSEL button and plug it in again.</source>
        <translation>Ziehen Sie den Sender ab, halten Sie seine BOOTSEL-Taste und stecken Sie ihn wieder ein.</translation>
    </message>
    <message>
        <source>Waiting for the transmitter&apos;s boot drive (%1)</source>
        <translation>Warten auf das Boot-Laufwerk des Senders (%1)</translation>
    </message>
    <message>
        <source>The transmitter&apos;s boot drive did not appear. Nothing was written.</source>
        <translation>Das Boot-Laufwerk des Senders ist nicht erschienen. Es wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>Writing firmware %1 to %2</source>
        <translation>Firmware %1 wird auf %2 geschrieben</translation>
    </message>
    <message>
        <source>Waiting for the transmitter to restart</source>
        <translation>Warten auf den Neustart des Senders</translation>
    </message>
    <message>
        <source>The transmitter did not come back after the firmware was written. Unplug it and plug it in again; if it stays in its boot drive, copy the image again.</source>
        <translation>Der Sender meldete sich nach dem Schreiben nicht zurück. Ziehen Sie ihn ab und stecken Sie ihn wieder ein; bleibt er im Boot-Laufwerk, kopieren Sie das Image erneut.</translation>
    </message>
    <message>
        <source>Firmware %1 was written and the transmitter is back. It does not report its version, so check it in the transmitter&apos;s own menu.</source>
        <translation>Firmware %1 ist geschrieben und der Sender ist zurück. Er meldet seine Version nicht; prüfen Sie sie im Menü des Senders.</translation>
    </message>
    <message>
        <source>Asking the receiver to restart into its bootloader</source>
        <translation>Der Empfänger wird gebeten, in seinen Bootloader neu zu starten</translation>
    </message>
    <message>
        <source>The receiver flasher is busy.</source>
        <translation>Das Flashen des Empfängers läuft bereits.</translation>
    </message>
    <message>
        <source>Writing firmware %1</source>
        <translation>Firmware %1 wird geschrieben</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliArmingDialog</name>
    <message>
        <source>Arming and safety</source>
        <translation>Scharfschalten und Sicherheit</translation>
    </message>
    <message>
        <source>Arming</source>
        <translation>Scharfschalten</translation>
    </message>
    <message>
        <source>The arm switch the flight controller reads</source>
        <translation>Der Scharfschalter, den der Flugregler liest</translation>
    </message>
    <message>
        <source>Send the arm switch</source>
        <translation>Scharfschalter senden</translation>
    </message>
    <message>
        <source>The page&apos;s Arm button sets it; stopping transmission always sends it safe.</source>
        <translation>Die Schaltfläche „Scharf schalten“ der Seite setzt ihn; das Stoppen der Übertragung sendet ihn immer gesichert.</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source> µs</source>
        <translation> µs</translation>
    </message>
    <message>
        <source>Armed</source>
        <translation>Scharf</translation>
    </message>
    <message>
        <source>Safe</source>
        <translation>Gesichert</translation>
    </message>
    <message>
        <source>Arm only at idle</source>
        <translation>Nur im Leerlauf scharfschalten</translation>
    </message>
    <message>
        <source>Arming is refused while the collective lever is above %1 %.</source>
        <translation>Scharfschalten wird abgelehnt, solange der Kollektivhebel über %1 % steht.</translation>
    </message>
    <message>
        <source>Safety</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>How the collective comes up, and glitches</source>
        <translation>Wie der Kollektiv hochfährt, und Störungen</translation>
    </message>
    <message>
        <source>Soft start</source>
        <translation>Sanftanlauf</translation>
    </message>
    <message>
        <source>After each start the collective and the motor rise from zero to the lever&apos;s position over the ramp (at least one second).</source>
        <translation>Nach jedem Start steigen Kollektiv und Motor über die Rampe (mindestens eine Sekunde) von null auf die Hebelstellung.</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation>Rampe</translation>
    </message>
    <message>
        <source>Spike protection</source>
        <translation>Spitzenschutz</translation>
    </message>
    <message>
        <source>Always on: a control that jumps by more than %1 % from one tick to the next is held for up to %2 ms; a jump that lasts longer is real and is taken.</source>
        <translation>Immer aktiv: Ein Steuerwert, der von einem Takt zum nächsten um mehr als %1 % springt, wird bis zu %2 ms zurückgehalten; ein Sprung, der länger anhält, ist echt und wird übernommen.</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliConfigDialog</name>
    <message>
        <source>Roll</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Nicken</translation>
    </message>
    <message>
        <source>Collective</source>
        <translation>Kollektiv</translation>
    </message>
    <message>
        <source>Rudder</source>
        <translation>Heck</translation>
    </message>
    <message>
        <source>Helicopter controls and channels</source>
        <translation>Hubschrauber: Steuerung und Kanäle</translation>
    </message>
    <message>
        <source>Axes and channels</source>
        <translation>Achsen und Kanäle</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Joystick</source>
        <translation>Joystick</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Gashebel</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>Pedale</translation>
    </message>
    <message>
        <source>Two pedals</source>
        <translation>Zwei Pedale</translation>
    </message>
    <message>
        <source>The right pedal&apos;s axis; the rudder&apos;s axis is then the left pedal.</source>
        <translation>Die Achse des rechten Pedals; die Heckachse ist dann das linke Pedal.</translation>
    </message>
    <message>
        <source>Detect, then move the control that should drive the function. Two pedals steer the rudder by right minus left. A function whose channel is “Not sent” leaves its channel to the button mappings; no two functions may share a channel.</source>
        <translation>Klicken Sie auf „Erkennen“ und bewegen Sie dann das Bedienelement, das die Funktion steuern soll. Zwei Pedale steuern das Heck mit rechts minus links. Eine Funktion, deren Kanal „Nicht gesendet“ ist, überlässt ihren Kanal den Tastenbelegungen; zwei Funktionen dürfen sich keinen Kanal teilen.</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Move it…</source>
        <translation>Jetzt bewegen…</translation>
    </message>
    <message>
        <source>Detect</source>
        <translation>Erkennen</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Take the axis&apos;s position now</source>
        <translation>Die jetzige Stellung der Achse übernehmen</translation>
    </message>
    <message>
        <source>Raw positions of each axis, -1 to +1: hold the control there and press Set. The collective reads its minimum as bottom and its maximum as top; the centre is not used.</source>
        <translation>Rohpositionen jeder Achse, -1 bis +1: Halten Sie das Bedienelement dort und drücken Sie Setzen. Der Kollektiv liest sein Minimum als unten und sein Maximum als oben; die Mitte wird nicht verwendet.</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliConfigDialogBinder</name>
    <message>
        <source>Choose the device on the helicopter page first, then detect its axis.</source>
        <translation>Wählen Sie zuerst das Gerät auf der Hubschrauberseite aus und erkennen Sie dann seine Achse.</translation>
    </message>
    <message>
        <source>There is no axis to read for this function: choose its device on the helicopter page and its axis here first.</source>
        <translation>Für diese Funktion gibt es keine Achse zum Lesen: Wählen Sie zuerst ihr Gerät auf der Hubschrauberseite und hier ihre Achse.</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliCurvesDialog</name>
    <message>
        <source>Pitch and throttle curves</source>
        <translation>Pitch- und Gaskurven</translation>
    </message>
    <message>
        <source>Pitch curve</source>
        <translation>Pitchkurve</translation>
    </message>
    <message>
        <source>Shapes the collective channel; off, the channel follows the lever.</source>
        <translation>Formt den Kollektivkanal; ausgeschaltet folgt der Kanal dem Hebel.</translation>
    </message>
    <message>
        <source>Throttle curve</source>
        <translation>Gaskurve</translation>
    </message>
    <message>
        <source>Drives the motor channel from the collective lever; off, no motor channel is sent.</source>
        <translation>Steuert den Motorkanal über den Kollektivhebel; ausgeschaltet wird kein Motorkanal gesendet.</translation>
    </message>
    <message>
        <source>Use this curve</source>
        <translation>Diese Kurve verwenden</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Motor channel</source>
        <translation>Motorkanal</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliFlyDialog</name>
    <message>
        <source>Rates and feel</source>
        <translation>Raten und Flugverhalten</translation>
    </message>
    <message>
        <source>Rates</source>
        <translation>Raten</translation>
    </message>
    <message>
        <source>How much of its travel roll, pitch and yaw reach</source>
        <translation>Wie viel ihres Wegs Rollen, Nicken und Gieren erreichen</translation>
    </message>
    <message>
        <source>Rate modes</source>
        <translation>Ratenmodi</translation>
    </message>
    <message>
        <source>The mode in use scales roll, pitch and yaw; the collective always keeps its full travel, so a lower rate never costs lift.</source>
        <translation>Der aktive Modus skaliert Rollen, Nicken und Gieren; der Kollektiv behält immer seinen vollen Weg, eine niedrigere Rate kostet also nie Auftrieb.</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Attitude display</source>
        <translation>Fluglageanzeige</translation>
    </message>
    <message>
        <source>The helicopter&apos;s reported attitude, as the hub shows it</source>
        <translation>Die gemeldete Fluglage des Hubschraubers, wie der Hub sie anzeigt</translation>
    </message>
    <message>
        <source>Invert pitch</source>
        <translation>Nicken umkehren</translation>
    </message>
    <message>
        <source>Invert roll</source>
        <translation>Rollen umkehren</translation>
    </message>
    <message>
        <source>Invert yaw</source>
        <translation>Gieren umkehren</translation>
    </message>
    <message>
        <source>Only the display turns; the channels sent are not affected.</source>
        <translation>Nur die Anzeige dreht sich; die gesendeten Kanäle bleiben unverändert.</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliPage</name>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
    <message>
        <source>Fly an RC helicopter with a joystick, throttle and pedals.</source>
        <translation>Fliegen Sie einen RC-Hubschrauber mit Joystick, Gashebel und Pedalen.</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Steuerung</translation>
    </message>
    <message>
        <source>Joystick</source>
        <translation>Joystick</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Gashebel</translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation>Pedale</translation>
    </message>
    <message>
        <source>Game controllers for each role</source>
        <translation>Gamecontroller für jede Rolle</translation>
    </message>
    <message>
        <source>Start transmission before arming.</source>
        <translation>Starten Sie die Übertragung vor dem Scharfschalten.</translation>
    </message>
    <message>
        <source>Flight</source>
        <translation>Flug</translation>
    </message>
    <message>
        <source>Rates and arming</source>
        <translation>Raten und Scharfschalten</translation>
    </message>
    <message>
        <source>Live controls</source>
        <translation>Live-Steuerung</translation>
    </message>
    <message>
        <source>Cyclic, collective and yaw as the helicopter receives them</source>
        <translation>Zyklisch, Kollektiv und Gier, wie der Hubschrauber sie empfängt</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Nicken</translation>
    </message>
    <message>
        <source>Collective</source>
        <translation>Kollektiv</translation>
    </message>
    <message>
        <source>Yaw</source>
        <translation>Gier</translation>
    </message>
    <message>
        <source>Disarm</source>
        <translation>Entschärfen</translation>
    </message>
    <message>
        <source>Arm</source>
        <translation>Scharf schalten</translation>
    </message>
    <message>
        <source>Armed</source>
        <translation>Scharf</translation>
    </message>
    <message>
        <source>Disarmed</source>
        <translation>Entschärft</translation>
    </message>
    <message>
        <source>Lower the collective, then arm. Arming is sent only while the profile&apos;s arm switch is on, and it is off by default: the collective goes out armed or not. Stopping transmission disarms.</source>
        <translation>Senken Sie das Kollektiv ab und schalten Sie dann scharf. Der scharfe Zustand wird nur gesendet, solange der Scharfschalter des Profils an ist, und er ist standardmäßig aus: das Kollektiv wird in jedem Fall gesendet. Stoppen der Übertragung entschärft.</translation>
    </message>
    <message>
        <source>Shown while transmission runs.</source>
        <translation>Sichtbar, während die Übertragung läuft.</translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation>Einsteiger</translation>
    </message>
    <message>
        <source>Sport</source>
        <translation>Sport</translation>
    </message>
    <message>
        <source>3D</source>
        <translation>3D</translation>
    </message>
    <message>
        <source>Rates: %1</source>
        <translation>Raten: %1</translation>
    </message>
    <message>
        <source>%1: roll, pitch and yaw at %2 % of the stick&apos;s travel</source>
        <translation>%1: Rollen, Nicken und Gier mit %2 % des Knüppelwegs</translation>
    </message>
    <message>
        <source>Configure</source>
        <translation>Konfigurieren</translation>
    </message>
    <message>
        <source>Settings of the active helicopter profile</source>
        <translation>Einstellungen des aktiven Hubschrauberprofils</translation>
    </message>
    <message>
        <source>Controls and channels</source>
        <translation>Steuerung und Kanäle</translation>
    </message>
    <message>
        <source>Rates and feel</source>
        <translation>Raten und Flugverhalten</translation>
    </message>
    <message>
        <source>Pitch and throttle curves</source>
        <translation>Pitch- und Gaskurven</translation>
    </message>
    <message>
        <source>Arming and safety</source>
        <translation>Scharfschalten und Sicherheit</translation>
    </message>
    <message>
        <source>Button mappings</source>
        <translation>Tastenbelegung</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliPageBinder</name>
    <message>
        <source>Start transmission before arming.</source>
        <translation>Starten Sie die Übertragung vor dem Scharfschalten.</translation>
    </message>
</context>
<context>
    <name>tavrix::HeliSettingsDialog</name>
    <message>
        <source>Not sent</source>
        <translation>Nicht gesendet</translation>
    </message>
    <message>
        <source>CH%1</source>
        <translation>CH%1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation>Achse %1</translation>
    </message>
</context>
<context>
    <name>tavrix::HubServices</name>
    <message>
        <source>Web panel started at %1</source>
        <translation>Web-Panel gestartet unter %1</translation>
    </message>
    <message>
        <source>Web panel failed to start (ports %1-%2 all in use)</source>
        <translation>Web-Panel konnte nicht starten (Ports %1-%2 alle belegt)</translation>
    </message>
</context>
<context>
    <name>tavrix::InfoPage</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>OrvaneLabs HUB</source>
        <translation>OrvaneLabs HUB</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Drive a real RC car or fly an RC helicopter with your sim-racing wheel, pedals, shifter or joystick. Built with Qt %1.</source>
        <translation>Fahren Sie ein echtes RC-Auto oder fliegen Sie einen RC-Hubschrauber mit Ihrem Sim-Racing-Lenkrad, Pedalen, Schaltknauf oder Joystick. Erstellt mit Qt %1.</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Reduce motion</source>
        <translation>Bewegung reduzieren</translation>
    </message>
    <message>
        <source>Turns off animations such as the sliding sidebar.</source>
        <translation>Schaltet Animationen wie die gleitende Seitenleiste ab.</translation>
    </message>
    <message>
        <source>Open debug console</source>
        <translation>Debug-Konsole öffnen</translation>
    </message>
    <message>
        <source>Licences</source>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <source>OrvaneLabs HUB is built with these components.</source>
        <translation>OrvaneLabs HUB ist mit diesen Komponenten gebaut.</translation>
    </message>
    <message>
        <source>Qt %1</source>
        <translation>Qt %1</translation>
    </message>
    <message>
        <source>The Qt Company Ltd and contributors. Used under the GNU Lesser General Public License version 3 (LGPL-3.0), linked dynamically so it can be replaced.</source>
        <translation>The Qt Company Ltd und Mitwirkende. Verwendet unter der GNU Lesser General Public License Version 3 (LGPL-3.0), dynamisch gelinkt, damit es ersetzt werden kann.</translation>
    </message>
    <message>
        <source>Geist and Geist Mono</source>
        <translation>Geist und Geist Mono</translation>
    </message>
    <message>
        <source>Vercel, in collaboration with basement.studio. Used under the SIL Open Font License 1.1.</source>
        <translation>Vercel in Zusammenarbeit mit basement.studio. Verwendet unter der SIL Open Font License 1.1.</translation>
    </message>
    <message>
        <source>SIL Open Font License 1.1</source>
        <translation>SIL Open Font License 1.1</translation>
    </message>
    <message>
        <source>Version, preferences, the mobile app and licences.</source>
        <translation>Version, Einstellungen, die mobile App und Lizenzen.</translation>
    </message>
    <message>
        <source>Mobile app</source>
        <translation>Mobile App</translation>
    </message>
    <message>
        <source>Enter one of these addresses in the mobile app on the same network.</source>
        <translation>Geben Sie eine dieser Adressen in der mobilen App im selben Netzwerk ein.</translation>
    </message>
    <message>
        <source>The name works on most home networks; where it does not, use an IP address.</source>
        <translation>Der Name funktioniert in den meisten Heimnetzen; wo nicht, nehmen Sie eine IP-Adresse.</translation>
    </message>
    <message>
        <source>Firmware updates</source>
        <translation>Firmware-Updates</translation>
    </message>
    <message>
        <source>Setup guide</source>
        <translation>Einrichtungsassistent</translation>
    </message>
    <message>
        <source>Open log folder</source>
        <translation>Log-Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>tavrix::InputDevice</name>
    <message>
        <source>No input backend</source>
        <translation>Keine Eingabeschnittstelle</translation>
    </message>
    <message>
        <source>No game controller at position %1</source>
        <translation>Kein Gamecontroller an Position %1</translation>
    </message>
    <message>
        <source>The game controller could not be opened</source>
        <translation>Der Gamecontroller konnte nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>tavrix::LedConfigPush</name>
    <message>
        <source>The receiver did not answer LED_%1</source>
        <translation>Der Empfänger antwortete nicht auf LED_%1</translation>
    </message>
    <message>
        <source>The receiver&apos;s USB connection closed</source>
        <translation>Die USB-Verbindung zum Empfänger wurde geschlossen</translation>
    </message>
    <message>
        <source>The receiver refused LED_%1: %2</source>
        <translation>Der Empfänger lehnte LED_%1 ab: %2</translation>
    </message>
    <message>
        <source>LED settings sent to the receiver</source>
        <translation>LED-Einstellungen an den Empfänger gesendet</translation>
    </message>
</context>
<context>
    <name>tavrix::LedDialog</name>
    <message>
        <source>LED strip</source>
        <translation>LED-Streifen</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Strip</source>
        <translation>Streifen</translation>
    </message>
    <message>
        <source>Power travels on CH12; the rest is sent to the receiver.</source>
        <translation>Ein/Aus läuft über CH12; der Rest geht an den Empfänger.</translation>
    </message>
    <message>
        <source>LED power on</source>
        <translation>LEDs eingeschaltet</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>LEDs on the strip</source>
        <translation>LEDs am Streifen</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Active share</source>
        <translation>Aktiver Anteil</translation>
    </message>
    <message>
        <source>Power button</source>
        <translation>Ein/Aus-Taste</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>One colour</source>
        <translation>Eine Farbe</translation>
    </message>
    <message>
        <source>A colour per LED</source>
        <translation>Eine Farbe je LED</translation>
    </message>
    <message>
        <source>Zones</source>
        <translation>Zonen</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>LED</source>
        <translation>LED</translation>
    </message>
    <message>
        <source>Its colour</source>
        <translation>Ihre Farbe</translation>
    </message>
    <message>
        <source>Add zone</source>
        <translation>Zone hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Needs the receiver on its USB cable.</source>
        <translation>Braucht den Empfänger am USB-Kabel.</translation>
    </message>
    <message>
        <source>Send to receiver</source>
        <translation>An Empfänger senden</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen…</translation>
    </message>
    <message>
        <source>LED colour</source>
        <translation>LED-Farbe</translation>
    </message>
    <message>
        <source>%1 % to %2 %</source>
        <translation>%1 % bis %2 %</translation>
    </message>
</context>
<context>
    <name>tavrix::LedDialogBinder</name>
    <message>
        <source>Sent</source>
        <translation>Gesendet</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>A push is already running.</source>
        <translation>Eine Übertragung läuft bereits.</translation>
    </message>
    <message>
        <source>Connect the receiver&apos;s USB cable first.</source>
        <translation>Schließen Sie zuerst das USB-Kabel des Empfängers an.</translation>
    </message>
    <message>
        <source>Add a zone first.</source>
        <translation>Fügen Sie zuerst eine Zone hinzu.</translation>
    </message>
    <message>
        <source>Not sent</source>
        <translation>Nicht gesendet</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>%1, item %2</source>
        <translation>%1, Eintrag %2</translation>
    </message>
    <message>
        <source>Sending</source>
        <translation>Wird gesendet</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionActuatorsCard</name>
    <message>
        <source>Actuators</source>
        <translation>Aktuatoren</translation>
    </message>
    <message>
        <source>Positions from the board&apos;s heartbeat</source>
        <translation>Positionen aus dem Lebenszeichen der Platine</translation>
    </message>
    <message>
        <source>Free mode: move each actuator by hand</source>
        <translation>Freier Modus: Aktuatoren von Hand</translation>
    </message>
    <message>
        <source>Speed and smoothness of the moves follow the platform settings.</source>
        <translation>Tempo und Sanftheit der Bewegungen folgen den Plattform-Einstellungen.</translation>
    </message>
    <message>
        <source>Actuator %1</source>
        <translation>Aktuator %1</translation>
    </message>
    <message>
        <source>Target position of actuator %1, mm</source>
        <translation>Zielposition von Aktuator %1, mm</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionChooserPage</name>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>Motion platforms that move your seat with the car.</source>
        <translation>Bewegungsplattformen, die Ihren Sitz mit dem Auto bewegen.</translation>
    </message>
    <message>
        <source>Two actuators for pitch and roll. A compact start for a seat or a cockpit.</source>
        <translation>Zwei Aktuatoren für Nicken und Rollen. Ein kompakter Einstieg für einen Sitz oder ein Cockpit.</translation>
    </message>
    <message>
        <source>%1DOF</source>
        <translation>%1DOF</translation>
    </message>
    <message>
        <source>Four lifting actuators for pitch, roll and heave.</source>
        <translation>Vier Hubaktuatoren für Nicken, Rollen und Heben.</translation>
    </message>
    <message>
        <source>Six actuators for full rigs: pitch, roll and heave, with yaw and surge.</source>
        <translation>Sechs Aktuatoren für volle Rigs: Nicken, Rollen und Heben, dazu Gier und Schub.</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Aktuell</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionConnectionCard</name>
    <message>
        <source>Motion controller</source>
        <translation>Bewegungscontroller</translation>
    </message>
    <message>
        <source>Orvane Motion Controller over USB</source>
        <translation>Orvane Motion Controller über USB</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Plug the motion controller in over USB; its port appears here.</source>
        <translation>Schließen Sie den Bewegungscontroller per USB an; sein Anschluss erscheint hier.</translation>
    </message>
    <message>
        <source>Auto home</source>
        <translation>Referenzfahrt</translation>
    </message>
    <message>
        <source>Runs the homing sequence; also the way out of the FAIL state.</source>
        <translation>Führt die Referenzfahrt aus; auch der Weg aus dem Zustand FAIL.</translation>
    </message>
    <message>
        <source>Calibration mode</source>
        <translation>Kalibriermodus</translation>
    </message>
    <message>
        <source>Switches the board&apos;s calibration mode on or off.</source>
        <translation>Schaltet den Kalibriermodus der Platine ein oder aus.</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionOutputBinder</name>
    <message>
        <source>Not available.</source>
        <translation>Nicht verfügbar.</translation>
    </message>
    <message>
        <source>Output stopped.</source>
        <translation>Ausgabe gestoppt.</translation>
    </message>
    <message>
        <source>waiting for car telemetry (start a transmission) — output at rest</source>
        <translation>warten auf Telemetrie des Autos (Übertragung starten) — Ausgabe in Ruhe</translation>
    </message>
    <message>
        <source>car telemetry live</source>
        <translation>Telemetrie des Autos live</translation>
    </message>
    <message>
        <source>car telemetry lost %1 s ago — output at rest</source>
        <translation>Telemetrie des Autos vor %1 s verloren — Ausgabe in Ruhe</translation>
    </message>
    <message>
        <source>Streaming to %1:%2 — %3 packets sent · %4</source>
        <translation>Sendet an %1:%2 — %3 Pakete gesendet · %4</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionOutputDialog</name>
    <message>
        <source>Motion output</source>
        <translation>Bewegungsausgabe</translation>
    </message>
    <message>
        <source>Motion platforms move — clear the area around the rig and start with low intensity in your motion software.</source>
        <translation>Bewegungsplattformen bewegen sich — halten Sie den Bereich um das Rig frei und beginnen Sie mit geringer Intensität in Ihrer Motion-Software.</translation>
    </message>
    <message>
        <source>Motion software</source>
        <translation>Motion-Software</translation>
    </message>
    <message>
        <source>SimHub, FlyPT Mover or SimTools with DiRT Rally chosen as the game</source>
        <translation>SimHub, FlyPT Mover oder SimTools mit DiRT Rally als gewähltem Spiel</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>UDP port</source>
        <translation>UDP-Port</translation>
    </message>
    <message>
        <source>Not available.</source>
        <translation>Nicht verfügbar.</translation>
    </message>
    <message>
        <source>Streaming — click to stop</source>
        <translation>Sendet — zum Stoppen klicken</translation>
    </message>
    <message>
        <source>Start motion output</source>
        <translation>Bewegungsausgabe starten</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionPanelBinder</name>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>Hub</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Smoothness</source>
        <translation>Sanftheit</translation>
    </message>
    <message>
        <source>Park position</source>
        <translation>Parkposition</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>The %1DOF platform cannot be chosen while a test runs on the %2DOF platform: let it finish or press Release first.</source>
        <translation>Die %1DOF-Plattform ist nicht wählbar, solange ein Test auf der %2DOF-Plattform läuft: lassen Sie ihn enden oder drücken Sie zuerst „Freigeben“.</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Waiting for heartbeat</source>
        <translation>Warten auf Lebenszeichen</translation>
    </message>
    <message>
        <source>Waiting for the first heartbeat…</source>
        <translation>Warten auf das erste Lebenszeichen…</translation>
    </message>
    <message>
        <source>Last heartbeat %1 s ago</source>
        <translation>Letztes Lebenszeichen vor %1 s</translation>
    </message>
    <message>
        <source>Full system test stopped</source>
        <translation>Gesamtsystemtest gestoppt</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionPanelPage</name>
    <message>
        <source>Motion platform</source>
        <translation>Bewegungsplattform</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>%1DOF motion platform</source>
        <translation>%1DOF-Bewegungsplattform</translation>
    </message>
    <message>
        <source>Web panel</source>
        <translation>Web-Panel</translation>
    </message>
    <message>
        <source>Run tests and settings from a phone&apos;s browser.</source>
        <translation>Tests und Einstellungen im Browser eines Smartphones.</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>Stops every test at once and switches the motors off. Auto home to resume.</source>
        <translation>Stoppt sofort jeden Test und schaltet die Motoren ab. Referenzfahrt zum Fortsetzen.</translation>
    </message>
    <message>
        <source>Controller log</source>
        <translation>Controller-Protokoll</translation>
    </message>
    <message>
        <source>Connect the motion controller, home the platform, then test it.</source>
        <translation>Verbinden Sie den Bewegungscontroller, fahren Sie die Referenz an und testen Sie dann.</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionSettingsCard</name>
    <message>
        <source>Platform settings</source>
        <translation>Plattform-Einstellungen</translation>
    </message>
    <message>
        <source>Kept on this PC and given to the board when it connects</source>
        <translation>Auf diesem PC gespeichert und beim Verbinden an die Platine gegeben</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionSystemController</name>
    <message>
        <source>all actuators</source>
        <translation>alle Aktuatoren</translation>
    </message>
    <message>
        <source>actuator %1</source>
        <translation>Aktuator %1</translation>
    </message>
    <message>
        <source>Full test [%1:%2 left]: %3 — travel %4%, %5 Hz, %6 s</source>
        <translation>Gesamttest [noch %1:%2]: %3 — Hub %4 %, %5 Hz, %6 s</translation>
    </message>
    <message>
        <source>Surge</source>
        <translation>Schub</translation>
    </message>
    <message>
        <source>Yaw</source>
        <translation>Gier</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Nicken</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Heave</source>
        <translation>Heben</translation>
    </message>
    <message>
        <source>Pattern %1</source>
        <translation>Muster %1</translation>
    </message>
    <message>
        <source>traction loss (opposed)</source>
        <translation>Traktionsverlust (gegenläufig)</translation>
    </message>
    <message>
        <source>No heartbeat from the controller within 3.5 s — wrong port, or the ST-LINK is wedged (unplug and replug the USB).</source>
        <translation>Kein Lebenszeichen vom Controller binnen 3,5 s — falscher Anschluss oder ST-LINK hängt (USB ab- und wieder anstecken).</translation>
    </message>
    <message>
        <source>Heartbeats stopped — link may be wedged (unplug and replug the USB if it persists).</source>
        <translation>Lebenszeichen ausgeblieben — Verbindung hängt evtl. (falls es anhält, USB ab- und wieder anstecken).</translation>
    </message>
    <message>
        <source>Board test assumed finished (no #TST done# seen)</source>
        <translation>Platinentest vermutlich beendet (kein #TST done# gesehen)</translation>
    </message>
    <message>
        <source>Orvane Motion Controller</source>
        <translation>Orvane Motion Controller</translation>
    </message>
    <message>
        <source>%1 is in use by another program (PuTTY? a test script?). Close it and connect again.</source>
        <translation>%1 wird von einem anderen Programm belegt (PuTTY? ein Testskript?). Schließen Sie es und verbinden Sie erneut.</translation>
    </message>
    <message>
        <source>Failed to open %1: %2</source>
        <translation>%1 konnte nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Connected to %1 — waiting for heartbeat…</source>
        <translation>Verbunden mit %1 — warten auf Lebenszeichen…</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Motion controller disconnected (port lost)</source>
        <translation>Bewegungscontroller getrennt (Anschluss verloren)</translation>
    </message>
    <message>
        <source>Serial writes failing — this is the known ST-LINK USB wedge. Unplug and replug the controller USB.</source>
        <translation>Serielles Schreiben schlägt fehl — das bekannte Hängen des ST-LINK-USB. Stecken Sie den USB des Controllers ab und wieder an.</translation>
    </message>
    <message>
        <source>Controller alive — state [%1]</source>
        <translation>Controller aktiv — Zustand [%1]</translation>
    </message>
    <message>
        <source>Test running — wait for it to finish</source>
        <translation>Test läuft — bitte warten, bis er endet</translation>
    </message>
    <message>
        <source>Homing requested</source>
        <translation>Referenzfahrt angefordert</translation>
    </message>
    <message>
        <source>Release requested — motion disabled, Home to resume</source>
        <translation>Freigabe angefordert — Bewegung aus, Referenzfahrt zum Fortsetzen</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Test already running</source>
        <translation>Test läuft bereits</translation>
    </message>
    <message>
        <source>Waiting for controller status (heartbeat) — try again in a moment</source>
        <translation>Warten auf den Controller-Status (Lebenszeichen) — gleich erneut versuchen</translation>
    </message>
    <message>
        <source> (use Auto Home after fixing the cause)</source>
        <translation> (nach Beheben der Ursache „Referenzfahrt“ nutzen)</translation>
    </message>
    <message>
        <source>Controller is in &quot;%1&quot; state — tests need &quot;ready&quot;%2</source>
        <translation>Controller im Zustand „%1“ — Tests brauchen „ready“%2</translation>
    </message>
    <message>
        <source>Testing %1 — travel %2%, %3 Hz, %4 s</source>
        <translation>Test %1 — Hub %2 %, %3 Hz, %4 s</translation>
    </message>
    <message>
        <source>Test finished — recentered to park</source>
        <translation>Test beendet — zurück in Parkposition</translation>
    </message>
    <message>
        <source>There is no actuator %1</source>
        <translation>Es gibt keinen Aktuator %1</translation>
    </message>
    <message>
        <source>Full system test started — %1 min</source>
        <translation>Gesamtsystemtest gestartet — %1 min</translation>
    </message>
    <message>
        <source>Full system test stopped (controller left ready state)</source>
        <translation>Gesamtsystemtest gestoppt (Controller hat den Zustand „ready“ verlassen)</translation>
    </message>
    <message>
        <source>Full system test complete</source>
        <translation>Gesamtsystemtest abgeschlossen</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionTestCard</name>
    <message>
        <source> % travel</source>
        <translation> % Hub</translation>
    </message>
    <message>
        <source> Hz</source>
        <translation> Hz</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Tests</source>
        <translation>Tests</translation>
    </message>
    <message>
        <source>Tests need the board in the &quot;ready&quot; state; Release stops any of them at once</source>
        <translation>Tests brauchen die Platine im Zustand „ready“; „Freigeben“ stoppt jeden sofort</translation>
    </message>
    <message>
        <source>Run pattern</source>
        <translation>Muster starten</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Run board test</source>
        <translation>Test starten</translation>
    </message>
    <message>
        <source>Board test</source>
        <translation>Platinentest</translation>
    </message>
    <message>
        <source> min</source>
        <translation> min</translation>
    </message>
    <message>
        <source>Start Full System test</source>
        <translation>Gesamttest starten</translation>
    </message>
    <message>
        <source>Full System</source>
        <translation>Gesamtsystem</translation>
    </message>
    <message>
        <source>All actuators</source>
        <translation>Alle Aktuatoren</translation>
    </message>
    <message>
        <source>Actuator %1</source>
        <translation>Aktuator %1</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionWebDialog</name>
    <message>
        <source>Motion System Web Panel</source>
        <translation>Web-Panel des Bewegungssystems</translation>
    </message>
    <message>
        <source>Open the Web Panel on your phone</source>
        <translation>Web-Panel auf dem Smartphone öffnen</translation>
    </message>
    <message>
        <source>Copy URL</source>
        <translation>URL kopieren</translation>
    </message>
    <message>
        <source>1. Make sure the phone is on the same WiFi network as this PC

2. Scan the QR code with the phone camera — the panel opens in the
   browser (no app needed) — or type the URL by hand

3. DOF tests, actuator bars and settings work live from the phone</source>
        <translation>1. Das Smartphone muss im selben WLAN sein wie dieser PC

2. Scannen Sie den QR-Code mit der Kamera — das Panel öffnet sich im
   Browser (keine App nötig) — oder tippen Sie die URL ein

3. DOF-Tests, Aktuator-Balken und Einstellungen laufen live am Smartphone</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>QR Code unavailable</source>
        <translation>QR-Code nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>tavrix::MotionWebDialogBinder</name>
    <message>
        <source>Web panel running at %1</source>
        <translation>Web-Panel läuft unter %1</translation>
    </message>
    <message>
        <source>! Web panel failed to start (ports %1-%2 in use)</source>
        <translation>! Web-Panel konnte nicht starten (Ports %1-%2 belegt)</translation>
    </message>
    <message>
        <source>Web panel started at %1</source>
        <translation>Web-Panel gestartet unter %1</translation>
    </message>
    <message>
        <source>Web panel stopped</source>
        <translation>Web-Panel gestoppt</translation>
    </message>
</context>
<context>
    <name>tavrix::PedalVerifyDialog</name>
    <message>
        <source>Verify pedals</source>
        <translation>Pedale prüfen</translation>
    </message>
    <message>
        <source>Press each pedal fully, then release it</source>
        <translation>Treten Sie jedes Pedal voll durch und lassen Sie es dann los</translation>
    </message>
    <message>
        <source>Released means at most %1 (the start refuses above it); fully pressed at least %2.</source>
        <translation>Losgelassen heißt höchstens %1 (darüber verweigert der Start); voll getreten mindestens %2.</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Gas</translation>
    </message>
    <message>
        <source>Brake</source>
        <translation>Bremse</translation>
    </message>
    <message>
        <source>%1 full and back</source>
        <translation>%1 voll und zurück</translation>
    </message>
    <message>
        <source>Start over</source>
        <translation>Neu beginnen</translation>
    </message>
    <message>
        <source>Press fully</source>
        <translation>Voll durchtreten</translation>
    </message>
    <message>
        <source>Now release</source>
        <translation>Jetzt loslassen</translation>
    </message>
    <message>
        <source>Verified</source>
        <translation>Geprüft</translation>
    </message>
    <message>
        <source>Both pedals cover their travel and come back to released.</source>
        <translation>Beide Pedale durchlaufen ihren Weg und kehren in die Ruhelage zurück.</translation>
    </message>
    <message>
        <source>Waiting for both pedals to go full and back.</source>
        <translation>Warten, bis beide Pedale voll und zurück gehen.</translation>
    </message>
</context>
<context>
    <name>tavrix::ProfileEdits</name>
    <message>
        <source>The profile was not changed</source>
        <translation>Das Profil wurde nicht geändert</translation>
    </message>
</context>
<context>
    <name>tavrix::ProfileManager</name>
    <message>
        <source>Source profile not found: %1</source>
        <translation>Ausgangsprofil nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Profile name cannot be empty</source>
        <translation>Der Profilname darf nicht leer sein</translation>
    </message>
    <message>
        <source>Cannot delete the last profile</source>
        <translation>Das letzte Profil kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Failed to delete profile: %1</source>
        <translation>Das Profil konnte nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Die Datei konnte nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>Invalid profile file format</source>
        <translation>Ungültiges Format der Profildatei</translation>
    </message>
    <message>
        <source>Invalid profile data</source>
        <translation>Ungültige Profildaten</translation>
    </message>
    <message>
        <source>Failed to save profile: %1</source>
        <translation>Das Profil konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>No active profile</source>
        <translation>Kein aktives Profil</translation>
    </message>
    <message>
        <source>Unknown profile setting: %1</source>
        <translation>Unbekannte Profileinstellung: %1</translation>
    </message>
    <message>
        <source>ESC preset not found: %1</source>
        <translation>ESC-Vorgabe nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Failed to save the active profile choice</source>
        <translation>Die Wahl des aktiven Profils konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Profile not found: %1</source>
        <translation>Profil nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Too many button mappings (max %1)</source>
        <translation>Zu viele Tastenbelegungen (höchstens %1)</translation>
    </message>
    <message>
        <source>Failed to write file: %1</source>
        <translation>Die Datei konnte nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>Too many profiles (max %1)</source>
        <translation>Zu viele Profile (höchstens %1)</translation>
    </message>
</context>
<context>
    <name>tavrix::ProfilesDialog</name>
    <message>
        <source>Profiles (*.json)</source>
        <translation>Profile (*.json)</translation>
    </message>
    <message>
        <source>Import profile</source>
        <translation>Profil importieren</translation>
    </message>
    <message>
        <source>Export profile</source>
        <translation>Profil exportieren</translation>
    </message>
    <message>
        <source>Delete profile</source>
        <translation>Profil löschen</translation>
    </message>
    <message>
        <source>Delete the profile “%1” and its file? This cannot be undone.</source>
        <translation>Das Profil „%1“ und seine Datei löschen? Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Profile</translation>
    </message>
    <message>
        <source>Each profile keeps a vehicle&apos;s settings. Transmission drives with the active one; a switch while it runs takes effect once it stops.</source>
        <translation>Jedes Profil enthält die Einstellungen eines Fahrzeugs. Die Übertragung fährt mit dem aktiven Profil; ein Wechsel während der Übertragung gilt, sobald sie anhält.</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Last changed</source>
        <translation>Zuletzt geändert</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>New Profile</source>
        <translation>Neues Profil</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Anlegen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Make active</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen…</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importieren…</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren…</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
</context>
<context>
    <name>tavrix::ProfilesDialogBinder</name>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
</context>
<context>
    <name>tavrix::RadioCalibrationBinder</name>
    <message>
        <source>Connect the car&apos;s receiver over USB first.</source>
        <translation>Schließen Sie zuerst den Empfänger des Autos per USB an.</translation>
    </message>
    <message>
        <source>Not possible right now: the calibration has moved on.</source>
        <translation>Gerade nicht möglich: Die Kalibrierung ist schon weiter.</translation>
    </message>
    <message>
        <source>All six end points are measured.</source>
        <translation>Alle sechs Endpunkte sind gemessen.</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Put the control in place, then press Measure.</source>
        <translation>Bringen Sie das Bedienelement in Position und drücken Sie dann „Messen“.</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>Misst</translation>
    </message>
    <message>
        <source>Measuring… hold the control still.</source>
        <translation>Messung… halten Sie das Bedienelement still.</translation>
    </message>
    <message>
        <source>Stable</source>
        <translation>Stabil</translation>
    </message>
    <message>
        <source>Good! Keep holding...</source>
        <translation>Gut! Weiter halten...</translation>
    </message>
    <message>
        <source>Unstable</source>
        <translation>Unruhig</translation>
    </message>
    <message>
        <source>Hold steady! Input moving too much...</source>
        <translation>Ruhig halten! Der Eingang bewegt sich zu stark...</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>Erfasst</translation>
    </message>
    <message>
        <source>Value recorded: CRSF %1</source>
        <translation>Wert erfasst: CRSF %1</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Calibration cancelled.</source>
        <translation>Kalibrierung abgebrochen.</translation>
    </message>
</context>
<context>
    <name>tavrix::RadioCalibrationDialog</name>
    <message>
        <source>Full throttle</source>
        <translation>Vollgas</translation>
    </message>
    <message>
        <source>Hold full throttle and keep it there.</source>
        <translation>Geben Sie Vollgas und halten Sie es.</translation>
    </message>
    <message>
        <source>Throttle neutral</source>
        <translation>Gas neutral</translation>
    </message>
    <message>
        <source>Let go of the throttle so it rests at neutral.</source>
        <translation>Lassen Sie das Gas los, damit es in Neutral ruht.</translation>
    </message>
    <message>
        <source>Full reverse</source>
        <translation>Voll rückwärts</translation>
    </message>
    <message>
        <source>Hold full brake / reverse and keep it there.</source>
        <translation>Geben Sie volle Bremse / Rückwärts und halten Sie sie.</translation>
    </message>
    <message>
        <source>Full left</source>
        <translation>Voll links</translation>
    </message>
    <message>
        <source>Turn the steering fully left and hold it.</source>
        <translation>Lenken Sie voll nach links und halten Sie.</translation>
    </message>
    <message>
        <source>Steering centre</source>
        <translation>Lenkung Mitte</translation>
    </message>
    <message>
        <source>Let the steering return to the centre.</source>
        <translation>Lassen Sie die Lenkung in die Mitte zurückkehren.</translation>
    </message>
    <message>
        <source>Full right</source>
        <translation>Voll rechts</translation>
    </message>
    <message>
        <source>Turn the steering fully right and hold it.</source>
        <translation>Lenken Sie voll nach rechts und halten Sie.</translation>
    </message>
    <message>
        <source>Receiver end points</source>
        <translation>Endpunkte des Empfängers</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>Hold each end point still until the countdown runs out.</source>
        <translation>Halten Sie jeden Endpunkt still, bis der Countdown abläuft.</translation>
    </message>
    <message>
        <source>Hold for</source>
        <translation>Halten für</translation>
    </message>
    <message>
        <source>CH1 steer</source>
        <translation>CH1 Lenkung</translation>
    </message>
    <message>
        <source>CH2 throttle</source>
        <translation>CH2 Gas</translation>
    </message>
    <message>
        <source>End points</source>
        <translation>Endpunkte</translation>
    </message>
    <message>
        <source>CRSF values as the receiver sees them.</source>
        <translation>CRSF-Werte, wie der Empfänger sie sieht.</translation>
    </message>
    <message>
        <source>Step %1 of %2 · %3</source>
        <translation>Schritt %1 von %2 · %3</translation>
    </message>
    <message>
        <source>All end points measured</source>
        <translation>Alle Endpunkte gemessen</translation>
    </message>
    <message>
        <source>Start again to measure them all anew.</source>
        <translation>Starten Sie erneut, um alle neu zu messen.</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Plug the car&apos;s receiver in over USB and switch the radio on, then press Start.</source>
        <translation>Schließen Sie den Empfänger des Autos per USB an, schalten Sie den Funk ein und drücken Sie „Start“.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>%1 µs · CRSF %2</source>
        <translation>%1 µs · CRSF %2</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>CRSF %1</source>
        <translation>CRSF %1</translation>
    </message>
    <message>
        <source>—</source>
        <translation>—</translation>
    </message>
</context>
<context>
    <name>tavrix::RadioSettingsView</name>
    <message>
        <source>Command, run on the module itself</source>
        <translation>Befehl, vom Modul selbst ausgeführt</translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverCard</name>
    <message>
        <source>Receiver</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>The Orvane receiver in the car, over its USB cable or the radio</source>
        <translation>Der Orvane-Empfänger im Auto, über sein USB-Kabel oder per Funk</translation>
    </message>
    <message>
        <source>Plug the receiver in over USB; its port appears here.</source>
        <translation>Schließen Sie den Empfänger per USB an; sein Anschluss erscheint hier.</translation>
    </message>
    <message>
        <source>Calibrate end points</source>
        <translation>Endpunkte kalibrieren</translation>
    </message>
    <message>
        <source>LED strip</source>
        <translation>LED-Streifen</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>1. Car flat</source>
        <translation>1. Auto eben</translation>
    </message>
    <message>
        <source>Put the car on a flat surface, then read the level</source>
        <translation>Stellen Sie das Auto auf eine ebene Fläche und lesen Sie dann die Lage ein</translation>
    </message>
    <message>
        <source>2. Front lifted</source>
        <translation>2. Front angehoben</translation>
    </message>
    <message>
        <source>Lift the front of the car about 30° and hold it</source>
        <translation>Heben Sie die Front des Autos um etwa 30° an und halten Sie sie</translation>
    </message>
    <message>
        <source>Mounting</source>
        <translation>Einbaulage</translation>
    </message>
    <message>
        <source>Calibrate gyro</source>
        <translation>Gyro kalibrieren</translation>
    </message>
    <message>
        <source>Console</source>
        <translation>Konsole</translation>
    </message>
    <message>
        <source>A command for the receiver, such as HELP</source>
        <translation>Ein Befehl für den Empfänger, etwa HELP</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>GPS: %1</source>
        <translation>GPS: %1</translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverCardBinder</name>
    <message>
        <source>GPS on</source>
        <translation>GPS an</translation>
    </message>
    <message>
        <source>GPS update rate</source>
        <translation>GPS-Aktualisierungsrate</translation>
    </message>
    <message>
        <source>Send GPS as telemetry</source>
        <translation>GPS als Telemetrie senden</translation>
    </message>
    <message>
        <source>Send attitude (IMU) as telemetry</source>
        <translation>Lage (IMU) als Telemetrie senden</translation>
    </message>
    <message>
        <source>Send motion as telemetry</source>
        <translation>Bewegung als Telemetrie senden</translation>
    </message>
    <message>
        <source>Motion telemetry rate</source>
        <translation>Rate der Bewegungstelemetrie</translation>
    </message>
    <message>
        <source>Video overlay (OSD)</source>
        <translation>Video-Einblendung (OSD)</translation>
    </message>
    <message>
        <source>Motion sensors on</source>
        <translation>Bewegungssensoren an</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>USB</source>
        <translation>USB</translation>
    </message>
    <message>
        <source>Over ELRS</source>
        <translation>Über ELRS</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Firmware %1</source>
        <translation>Firmware %1</translation>
    </message>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>IMU</source>
        <translation>IMU</translation>
    </message>
    <message>
        <source>Axes: %1</source>
        <translation>Achsen: %1</translation>
    </message>
    <message>
        <source>Not sent: connect the receiver&apos;s USB cable first.</source>
        <translation>Nicht gesendet: Schließen Sie zuerst das USB-Kabel des Empfängers an.</translation>
    </message>
    <message>
        <source>Not sent: the console does not send empty lines or DFU, which would stop the receiver.</source>
        <translation>Nicht gesendet: Die Konsole sendet keine leeren Zeilen und kein DFU, das würde den Empfänger anhalten.</translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverConfigManager</name>
    <message>
        <source>Level read. Now lift the FRONT of the car about 30° and hold it.</source>
        <translation>Lage eingelesen. Heben Sie jetzt die FRONT des Autos um etwa 30° an und halten Sie sie.</translation>
    </message>
    <message>
        <source>Mounting saved. Put the car down and keep it still for a second.</source>
        <translation>Einbaulage gespeichert. Setzen Sie das Auto ab und halten Sie es eine Sekunde still.</translation>
    </message>
    <message>
        <source>No answer from the receiver. Try again.</source>
        <translation>Keine Antwort vom Empfänger. Versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Connected · reading the receiver&apos;s settings…</source>
        <translation>Verbunden · Einstellungen des Empfängers werden gelesen…</translation>
    </message>
    <message>
        <source>Connected · no reply to settings commands (older receiver?)</source>
        <translation>Verbunden · keine Antwort auf Einstellungsbefehle (älterer Empfänger?)</translation>
    </message>
    <message>
        <source>Connected · applying settings…</source>
        <translation>Verbunden · Einstellungen werden übernommen…</translation>
    </message>
    <message>
        <source>Connected%1 · this receiver has no GPS/IMU settings</source>
        <translation>Verbunden%1 · dieser Empfänger hat keine GPS-/IMU-Einstellungen</translation>
    </message>
    <message>
        <source>Connected · firmware %1 · settings applied</source>
        <translation>Verbunden · Firmware %1 · Einstellungen übernommen</translation>
    </message>
    <message>
        <source>Connected · firmware %1 · settings go over the USB cable while it is plugged in</source>
        <translation>Verbunden · Firmware %1 · Einstellungen gehen über das USB-Kabel, solange es steckt</translation>
    </message>
    <message>
        <source>Connected over ELRS · firmware %1 · settings applied</source>
        <translation>Über ELRS verbunden · Firmware %1 · Einstellungen übernommen</translation>
    </message>
    <message>
        <source>Connected over ELRS · getting the receiver&apos;s settings…</source>
        <translation>Über ELRS verbunden · Einstellungen des Empfängers werden geholt…</translation>
    </message>
    <message>
        <source>Connected · settings not reachable over ELRS yet, trying again (needs receiver firmware 4.3.0 or later). Changes are saved and applied once they are.</source>
        <translation>Verbunden · Einstellungen über ELRS noch nicht erreichbar, neuer Versuch läuft (braucht Empfänger-Firmware 4.3.0 oder neuer). Änderungen werden gespeichert und übernommen, sobald sie es sind.</translation>
    </message>
    <message>
        <source>Receiver not connected. Start transmitting to reach it over ELRS, or plug in the J14 cable. Changes are saved and applied the next time it is reached.</source>
        <translation>Empfänger nicht verbunden. Starten Sie die Übertragung, um ihn über ELRS zu erreichen, oder stecken Sie das J14-Kabel ein. Änderungen werden gespeichert und beim nächsten Kontakt übernommen.</translation>
    </message>
    <message>
        <source>The car is not flat and still. Put it on a flat surface and try again.</source>
        <translation>Das Auto steht nicht eben und still. Stellen Sie es auf eine ebene Fläche und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>No tilt seen: lift the front more (about 30°) and try again.</source>
        <translation>Keine Neigung erkannt: Heben Sie die Front weiter an (etwa 30°) und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Start again from step 1.</source>
        <translation>Beginnen Sie erneut mit Schritt 1.</translation>
    </message>
    <message>
        <source>The receiver&apos;s IMU is not running.</source>
        <translation>Die IMU des Empfängers läuft nicht.</translation>
    </message>
    <message>
        <source>The receiver says: %1</source>
        <translation>Der Empfänger meldet: %1</translation>
    </message>
    <message>
        <source>off on the receiver</source>
        <translation>am Empfänger aus</translation>
    </message>
    <message>
        <source>fix, %1 satellites</source>
        <translation>Fix, %1 Satelliten</translation>
    </message>
    <message>
        <source>no fix yet, %1 satellites (needs open sky)</source>
        <translation>noch kein Fix, %1 Satelliten (braucht freien Himmel)</translation>
    </message>
    <message>
        <source> · antenna not detected, check the GPS antenna cable</source>
        <translation> · Antenne nicht erkannt, prüfen Sie das GPS-Antennenkabel</translation>
    </message>
    <message>
        <source> · antenna short circuit</source>
        <translation> · Kurzschluss an der Antenne</translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverGyroCalibration</name>
    <message>
        <source>Calibrating: keep the car still…</source>
        <translation>Kalibrierung: Halten Sie das Auto still…</translation>
    </message>
    <message>
        <source>Gyro calibrated, yaw reset to 0</source>
        <translation>Gyro kalibriert, Gier auf 0 gesetzt</translation>
    </message>
    <message>
        <source>No answer from the receiver. Try again.</source>
        <translation>Keine Antwort vom Empfänger. Versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The receiver did not calibrate.</source>
        <translation>Der Empfänger hat nicht kalibriert.</translation>
    </message>
    <message>
        <source>The receiver says: %1</source>
        <translation>Der Empfänger meldet: %1</translation>
    </message>
    <message>
        <source>Starting over ELRS…</source>
        <translation>Start über ELRS…</translation>
    </message>
    <message>
        <source>Not finished: the car must stand still. Try again.</source>
        <translation>Nicht abgeschlossen: Das Auto muss stillstehen. Versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Lost the receiver during calibration.</source>
        <translation>Der Empfänger ging während der Kalibrierung verloren.</translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverV4FirmwareBinder</name>
    <message>
        <source>Connecting</source>
        <translation>Verbindungsaufbau</translation>
    </message>
    <message>
        <source>Programming</source>
        <translation>Programmierung</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Prüfung</translation>
    </message>
    <message>
        <source>Orvane receiver V4</source>
        <translation>Orvane-Empfänger V4</translation>
    </message>
    <message>
        <source>Wire a USB-UART cable to the receiver&apos;s J14 header (cable TXD to RX, RXD to TX, GND) and choose the firmware file; its description (.json) must lie beside it.</source>
        <translation>Verbinden Sie ein USB-UART-Kabel mit dem J14-Stecker des Empfängers (Kabel TXD an RX, RXD an TX, GND) und wählen Sie die Firmware-Datei; ihre Beschreibung (.json) muss daneben liegen.</translation>
    </message>
    <message>
        <source>none (the board is in its bootloader)</source>
        <translation>keine (die Platine ist in ihrem Bootloader)</translation>
    </message>
    <message>
        <source>Orvane receiver V4 (%1)</source>
        <translation>Orvane-Empfänger V4 (%1)</translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation>Beschreibung: %1</translation>
    </message>
    <message>
        <source>Choose a firmware file first.</source>
        <translation>Wählen Sie zuerst eine Firmware-Datei.</translation>
    </message>
    <message>
        <source>Connect the USB-UART cable and choose its port first.</source>
        <translation>Schließen Sie zuerst das USB-UART-Kabel an und wählen Sie seinen Anschluss.</translation>
    </message>
    <message>
        <source>Another run is still in progress.</source>
        <translation>Ein anderer Durchlauf ist noch im Gange.</translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverV4FlashSession</name>
    <message>
        <source>Firmware %1, %2 bytes.</source>
        <translation>Firmware %1, %2 Bytes.</translation>
    </message>
    <message>
        <source>Running firmware: %1 on %2</source>
        <translation>Laufende Firmware: %1 auf %2</translation>
    </message>
    <message>
        <source>No reply from the firmware (continuing; it may be in OSD mode or too old).</source>
        <translation>Keine Antwort von der Firmware (es geht weiter; vielleicht im OSD-Modus oder zu alt).</translation>
    </message>
    <message>
        <source>The board is in the bootloader (no firmware running).</source>
        <translation>Die Platine ist im Bootloader (keine Firmware läuft).</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>The board does not answer.</source>
        <translation>Die Platine antwortet nicht.</translation>
    </message>
    <message>
        <source>Can&apos;t open %1: %2. Close any other program using it.</source>
        <translation>%1 lässt sich nicht öffnen: %2. Schließen Sie andere Programme, die ihn nutzen.</translation>
    </message>
    <message>
        <source>[%1 s] Lost contact with the board (it may have reset). Starting over.</source>
        <translation>[%1 s] Kontakt zur Platine verloren (evtl. neu gestartet). Beginne von vorn.</translation>
    </message>
    <message>
        <source>Lost contact with the board.</source>
        <translation>Kontakt zur Platine verloren.</translation>
    </message>
    <message>
        <source>Asking the firmware to restart into the bootloader (DFU).</source>
        <translation>Die Firmware wird gebeten, in den Bootloader (DFU) neu zu starten.</translation>
    </message>
    <message>
        <source>The board is already in the bootloader.</source>
        <translation>Die Platine ist bereits im Bootloader.</translation>
    </message>
    <message>
        <source>POWER-CYCLE THE BOARD NOW (switch its power off and on). Listening for %1 s...</source>
        <translation>PLATINE JETZT NEU STARTEN (Strom aus- und wieder einschalten). Warte %1 s auf sie...</translation>
    </message>
    <message>
        <source>Bootloader found.</source>
        <translation>Bootloader gefunden.</translation>
    </message>
    <message>
        <source>The board did not enter the bootloader.</source>
        <translation>Die Platine ist nicht in den Bootloader gewechselt.</translation>
    </message>
    <message>
        <source>This is not a Orvane receiver V4 (chip ID 0x%1, expected 0x467). Nothing was written.</source>
        <translation>Das ist kein Orvane-Empfänger V4 (Chip-ID 0x%1, erwartet 0x467). Es wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>The board&apos;s readout protection is on, so it can&apos;t be updated over the cable.</source>
        <translation>Der Ausleseschutz der Platine ist aktiv, daher ist kein Update über das Kabel möglich.</translation>
    </message>
    <message>
        <source>Bootloader protocol %1.%2, chip ID 0x%3</source>
        <translation>Bootloader-Protokoll %1.%2, Chip-ID 0x%3</translation>
    </message>
    <message>
        <source>Erasing page 0 (vector table).</source>
        <translation>Lösche Seite 0 (Vektortabelle).</translation>
    </message>
    <message>
        <source>Programmed and verified %1 bytes (%2 retries).</source>
        <translation>%1 Bytes programmiert und geprüft (%2 Wiederholungen).</translation>
    </message>
    <message>
        <source>Page %1: write failed, rewriting (attempt %2)</source>
        <translation>Seite %1: Schreiben fehlgeschlagen, schreibe neu (Versuch %2)</translation>
    </message>
    <message>
        <source>Page %1: verify failed, rewriting (attempt %2)</source>
        <translation>Seite %1: Prüfung fehlgeschlagen, schreibe neu (Versuch %2)</translation>
    </message>
    <message>
        <source>Page %1 could not be programmed.</source>
        <translation>Seite %1 konnte nicht programmiert werden.</translation>
    </message>
    <message>
        <source>  [%1 s] write 0x%2: %3 - resyncing</source>
        <translation>  [%1 s] Schreiben 0x%2: %3 - synchronisiere neu</translation>
    </message>
    <message>
        <source>GO: %1</source>
        <translation>GO: %1</translation>
    </message>
    <message>
        <source>The firmware was written and verified, but the receiver did not answer after starting. Power-cycle it and check the version.</source>
        <translation>Die Firmware ist geschrieben und geprüft, aber der Empfänger antwortete nach dem Start nicht. Schalten Sie ihn aus und wieder ein und prüfen Sie die Version.</translation>
    </message>
    <message>
        <source>The receiver reports %1, expected %2.</source>
        <translation>Der Empfänger meldet %1, erwartet war %2.</translation>
    </message>
    <message>
        <source>Update complete: running %1.</source>
        <translation>Update abgeschlossen: %1 läuft.</translation>
    </message>
    <message>
        <source>giving up after %1 attempts: %2</source>
        <translation>Abbruch nach %1 Versuchen: %2</translation>
    </message>
    <message>
        <source>  [%1 s] %2 - resyncing</source>
        <translation>  [%1 s] %2 - synchronisiere neu</translation>
    </message>
    <message>
        <source>lost contact with the bootloader</source>
        <translation>Kontakt zum Bootloader verloren</translation>
    </message>
    <message>
        <source>Lost contact with the bootloader. Power-cycle the receiver and run the update again.</source>
        <translation>Kontakt zum Bootloader verloren. Schalten Sie den Empfänger aus und wieder ein und starten Sie das Update erneut.</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>Check the wiring: cable TXD -&gt; J14 RX, RXD -&gt; J14 TX, GND. If it still fails, unplug the USB-UART cable as well while the board is off (the cable can keep the chip half-powered), or fit the BOOT jumper (JP1), then retry.</source>
        <translation>Prüfen Sie die Verkabelung: Kabel TXD -&gt; J14 RX, RXD -&gt; J14 TX, GND. Klappt es dann nicht, ziehen Sie auch das USB-UART-Kabel ab, solange die Platine aus ist (es kann den Chip halb versorgen), oder setzen Sie den BOOT-Jumper (JP1) und versuchen Sie es erneut.</translation>
    </message>
</context>
<context>
    <name>tavrix::RecordingRow</name>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Records the drive to a CSV file: time, controls, the 16 channels and telemetry.</source>
        <translation>Zeichnet die Fahrt in eine CSV-Datei auf: Zeit, Bedienelemente, die 16 Kanäle und Telemetrie.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufzeichnung beenden</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufzeichnen</translation>
    </message>
</context>
<context>
    <name>tavrix::RemoteServerBinder</name>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Turned off, or its port is taken by another program</source>
        <translation>Ausgeschaltet oder Port belegt</translation>
    </message>
    <message>
        <source>Port %1 on the local network</source>
        <translation>Port %1 im lokalen Netzwerk</translation>
    </message>
    <message>
        <source>Listening</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>1 app connected</source>
        <translation>1 App verbunden</translation>
    </message>
    <message>
        <source>%1 apps connected</source>
        <translation>%1 Apps verbunden</translation>
    </message>
</context>
<context>
    <name>tavrix::RemoteStatusDialog</name>
    <message>
        <source>Mobile app</source>
        <translation>Mobile App</translation>
    </message>
    <message>
        <source>App server</source>
        <translation>App-Server</translation>
    </message>
    <message>
        <source>Addresses</source>
        <translation>Adressen</translation>
    </message>
    <message>
        <source>Enter one of these in the mobile app.</source>
        <translation>Geben Sie eine davon in der mobilen App ein.</translation>
    </message>
    <message>
        <source>Connected apps</source>
        <translation>Verbundene Apps</translation>
    </message>
    <message>
        <source>In the order they connected</source>
        <translation>In der Reihenfolge ihrer Verbindung</translation>
    </message>
    <message>
        <source>No app is connected.</source>
        <translation>Keine App verbunden.</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
</context>
<context>
    <name>tavrix::SafetyNoticeDialog</name>
    <message>
        <source>Before the car moves</source>
        <translation>Bevor sich das Auto bewegt</translation>
    </message>
    <message>
        <source>I understand</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Transmission drives a real car</source>
        <translation>Die Übertragung steuert ein echtes Auto</translation>
    </message>
    <message>
        <source>From the first frame the car follows your wheel and pedals.</source>
        <translation>Ab dem ersten Frame folgt das Auto Ihrem Lenkrad und Ihren Pedalen.</translation>
    </message>
    <message>
        <source>Put the car on a stand with its wheels off the ground.</source>
        <translation>Stellen Sie das Auto auf einen Bock, sodass die Räder den Boden nicht berühren.</translation>
    </message>
    <message>
        <source>Keep a hand near the car&apos;s power switch.</source>
        <translation>Halten Sie eine Hand in der Nähe des Ein-/Ausschalters des Autos.</translation>
    </message>
    <message>
        <source>Stop transmission in the HUB, or switch off the transmitter, to stop the car.</source>
        <translation>Um das Auto anzuhalten, stoppen Sie die Übertragung im HUB oder schalten Sie den Sender aus.</translation>
    </message>
    <message>
        <source>Before the rotors turn</source>
        <translation>Bevor sich die Rotoren drehen</translation>
    </message>
    <message>
        <source>Transmission flies a real helicopter</source>
        <translation>Die Übertragung fliegt einen echten Hubschrauber</translation>
    </message>
    <message>
        <source>Once armed, the motor follows your collective.</source>
        <translation>Sobald er scharf geschaltet ist, folgt der Motor Ihrem Kollektiv.</translation>
    </message>
    <message>
        <source>For the first start, take the rotor blades off or tie the helicopter down.</source>
        <translation>Nehmen Sie für den ersten Start die Rotorblätter ab oder binden Sie den Hubschrauber fest.</translation>
    </message>
    <message>
        <source>Keep everyone clear of the rotor disc and a hand near the helicopter&apos;s power switch.</source>
        <translation>Halten Sie alle vom Rotorkreis fern und eine Hand am Hauptschalter des Hubschraubers.</translation>
    </message>
    <message>
        <source>Disarm, stop transmission in the HUB, or switch off the transmitter, to stop the motor.</source>
        <translation>Um den Motor anzuhalten, schalten Sie ihn unscharf, stoppen die Übertragung im HUB oder schalten den Sender aus.</translation>
    </message>
</context>
<context>
    <name>tavrix::SerialPortPicker</name>
    <message>
        <source>Baud rate</source>
        <translation>Baudrate</translation>
    </message>
    <message>
        <source>No ports</source>
        <translation>Keine Anschlüsse</translation>
    </message>
    <message>
        <source>%1 baud</source>
        <translation>%1 Baud</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
</context>
<context>
    <name>tavrix::ServiceFirmwareBinder</name>
    <message>
        <source>Orvane receiver</source>
        <translation>Orvane-Empfänger</translation>
    </message>
    <message>
        <source>Checks the update server for the receiver&apos;s latest firmware and writes it over the USB-UART cable on the receiver&apos;s J14 header. A receiver console open on that port is closed first.</source>
        <translation>Sucht auf dem Update-Server nach der neuesten Firmware des Empfängers und schreibt sie über das USB-UART-Kabel am J14-Stecker des Empfängers. Eine auf diesem Anschluss geöffnete Empfänger-Konsole wird zuerst geschlossen.</translation>
    </message>
    <message>
        <source>Stop transmission before updating firmware.</source>
        <translation>Beenden Sie die Übertragung, bevor Sie die Firmware aktualisieren.</translation>
    </message>
    <message>
        <source>Transmitter SoC (companion processor)</source>
        <translation>Sender-SoC (Begleitprozessor)</translation>
    </message>
    <message>
        <source>Receiver (from the update server)</source>
        <translation>Empfänger (vom Update-Server)</translation>
    </message>
    <message>
        <source>Receiver V4 (from a firmware file)</source>
        <translation>Empfänger V4 (aus einer Firmware-Datei)</translation>
    </message>
    <message>
        <source>Transmitter SoC</source>
        <translation>Sender-SoC</translation>
    </message>
    <message>
        <source>Checking</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Lade herunter</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Verbinde</translation>
    </message>
    <message>
        <source>Writing</source>
        <translation>Schreibe</translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation>Prüfe</translation>
    </message>
    <message>
        <source>Connect the receiver&apos;s cable and choose its port first.</source>
        <translation>Schließen Sie zuerst das Kabel des Empfängers an und wählen Sie seinen Anschluss.</translation>
    </message>
    <message>
        <source>Another firmware update is still in progress.</source>
        <translation>Ein anderes Firmware-Update ist noch im Gange.</translation>
    </message>
</context>
<context>
    <name>tavrix::SetupGuide</name>
    <message>
        <source>Setup guide</source>
        <translation>Einrichtungsassistent</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Which vehicle do you want to drive? The guide sets up a profile for it.</source>
        <translation>Welches Fahrzeug möchten Sie steuern? Der Assistent legt ein Profil dafür an.</translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
    <message>
        <source>Wheel, pedals and shifter</source>
        <translation>Lenkrad, Pedale und Schaltung</translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
    <message>
        <source>Joystick, throttle and pedals</source>
        <translation>Joystick, Schubhebel und Pedale</translation>
    </message>
    <message>
        <source>Plug the Orvane Transmitter into a USB port, pick its port and connect. The HUB remembers it.</source>
        <translation>Schließen Sie den Orvane Transmitter an einen USB-Anschluss an, wählen Sie seinen Port und verbinden Sie. Der HUB merkt sich den Port.</translation>
    </message>
    <message>
        <source>Pick a game controller for each role, or press Detect and move the controller you mean.</source>
        <translation>Wählen Sie für jede Rolle einen Game-Controller, oder drücken Sie „Erkennen“ und bewegen Sie den gemeinten Controller.</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Steuerung</translation>
    </message>
    <message>
        <source>Detect by moving</source>
        <translation>Durch Bewegen erkennen</translation>
    </message>
    <message>
        <source>Press Detect, then turn, press or shift the controller for that role.</source>
        <translation>Drücken Sie „Erkennen“ und drehen, drücken oder schalten Sie dann den Controller für diese Rolle.</translation>
    </message>
    <message>
        <source>Detect</source>
        <translation>Erkennen</translation>
    </message>
    <message>
        <source>The start refuses while a pedal is pressed: check that both pedals read their whole travel.</source>
        <translation>Solange ein Pedal gedrückt ist, startet die Übertragung nicht: Prüfen Sie, ob beide Pedale ihren ganzen Weg melden.</translation>
    </message>
    <message>
        <source>Start transmission</source>
        <translation>Übertragung starten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Move the controller now…</source>
        <translation>Bewegen Sie jetzt den Controller…</translation>
    </message>
    <message>
        <source>Transmitting: the car follows your wheel and pedals.</source>
        <translation>Übertragung läuft: Das Auto folgt Ihrem Lenkrad und Ihren Pedalen.</translation>
    </message>
    <message>
        <source>Not transmitting.</source>
        <translation>Keine Übertragung.</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>A first start with the vehicle safely held.</source>
        <translation>Ein erster Start mit sicher gehaltenem Fahrzeug.</translation>
    </message>
</context>
<context>
    <name>tavrix::SetupGuideBinder</name>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
    <message>
        <source>No game controller is attached.</source>
        <translation>Es ist kein Game-Controller angeschlossen.</translation>
    </message>
    <message>
        <source>%1, axis %2</source>
        <translation>%1, Achse %2</translation>
    </message>
    <message>
        <source>%1, button %2</source>
        <translation>%1, Taste %2</translation>
    </message>
</context>
<context>
    <name>tavrix::ShifterGearsView</name>
    <message>
        <source>Neutral</source>
        <translation>Neutral</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>Rückwärts</translation>
    </message>
    <message>
        <source>1st</source>
        <translation>1. Gang</translation>
    </message>
    <message>
        <source>2nd</source>
        <translation>2. Gang</translation>
    </message>
    <message>
        <source>3rd</source>
        <translation>3. Gang</translation>
    </message>
    <message>
        <source>4th</source>
        <translation>4. Gang</translation>
    </message>
    <message>
        <source>5th</source>
        <translation>5. Gang</translation>
    </message>
    <message>
        <source>6th</source>
        <translation>6. Gang</translation>
    </message>
    <message>
        <source>7th</source>
        <translation>7. Gang</translation>
    </message>
    <message>
        <source>Engaged now:</source>
        <translation>Jetzt eingelegt:</translation>
    </message>
    <message>
        <source>Detect waits for you to engage that gear on the shifter and assigns it. Without gears the shifter always reads neutral.</source>
        <translation>„Erkennen“ wartet, bis Sie diesen Gang am Schalthebel einlegen, und ordnet ihn zu. Ohne Gänge meldet der Schalthebel immer Neutral.</translation>
    </message>
    <message>
        <source>Detect</source>
        <translation>Erkennen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Engage this gear now…</source>
        <translation>Legen Sie diesen Gang jetzt ein…</translation>
    </message>
    <message>
        <source>Detected</source>
        <translation>Erkannt</translation>
    </message>
    <message>
        <source>No gear engaged in time</source>
        <translation>Kein Gang rechtzeitig eingelegt</translation>
    </message>
</context>
<context>
    <name>tavrix::SteeringEndpoints</name>
    <message>
        <source>Invalid steering trim: left must not exceed center and center must not exceed right</source>
        <translation>Ungültige Lenkungstrimmung: Links darf nicht größer als die Mitte und die Mitte nicht größer als Rechts sein</translation>
    </message>
</context>
<context>
    <name>tavrix::TavrixController</name>
    <message>
        <source>throttle</source>
        <translation>das Gaspedal</translation>
    </message>
    <message>
        <source>brake</source>
        <translation>das Bremspedal</translation>
    </message>
    <message>
        <source>Release the %1 and %2 pedals before starting transmission.</source>
        <translation>Lassen Sie %1 und %2 los, bevor Sie die Übertragung starten.</translation>
    </message>
    <message>
        <source>Release the %1 pedal before starting transmission.</source>
        <translation>Lassen Sie %1 los, bevor Sie die Übertragung starten.</translation>
    </message>
    <message>
        <source>Stop transmission before changing devices</source>
        <translation>Stoppen Sie die Übertragung, bevor Sie Geräte wechseln</translation>
    </message>
    <message>
        <source>Stop configuring before starting transmission</source>
        <translation>Beenden Sie die Konfiguration, bevor Sie die Übertragung starten</translation>
    </message>
    <message>
        <source>RP2040 Bridge not connected</source>
        <translation>RP2040-Bridge nicht verbunden</translation>
    </message>
    <message>
        <source>Transmission stopped for safety: %1. Verify the pedals and press Start Transmission again.</source>
        <translation>Übertragung aus Sicherheitsgründen gestoppt: %1. Prüfen Sie die Pedale und drücken Sie erneut auf „Übertragung starten“.</translation>
    </message>
    <message>
        <source>Stop transmission before configuring</source>
        <translation>Stoppen Sie die Übertragung, bevor Sie konfigurieren</translation>
    </message>
    <message>
        <source>Transmitter disconnected</source>
        <translation>Sender getrennt</translation>
    </message>
</context>
<context>
    <name>tavrix::TavrixSerialPort</name>
    <message>
        <source>%1: %2 stayed busy — it may be in use by another application, or the transmitter is still starting up. Wait a few seconds and try again.</source>
        <translation>%1: %2 blieb belegt – vielleicht nutzt eine andere Anwendung den Anschluss, oder der Sender startet noch. Warten Sie ein paar Sekunden und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Device disappeared from the system</source>
        <translation>Das Gerät ist aus dem System verschwunden</translation>
    </message>
</context>
<context>
    <name>tavrix::TelemetryGrid</name>
    <message>
        <source>%1 · stale</source>
        <translation>%1 · veraltet</translation>
    </message>
</context>
<context>
    <name>tavrix::TelemetryPlots</name>
    <message>
        <source>Lateral</source>
        <translation>Quer</translation>
    </message>
    <message>
        <source>Longitudinal</source>
        <translation>Längs</translation>
    </message>
    <message>
        <source>Vertical</source>
        <translation>Vertikal</translation>
    </message>
    <message>
        <source>Link quality</source>
        <translation>Verbindungsqualität</translation>
    </message>
    <message>
        <source>RSSI</source>
        <translation>RSSI</translation>
    </message>
    <message>
        <source>G forces</source>
        <translation>G-Kräfte</translation>
    </message>
    <message>
        <source>g</source>
        <translation>g</translation>
    </message>
    <message>
        <source>Radio link</source>
        <translation>Funkverbindung</translation>
    </message>
    <message>
        <source>LQ %</source>
        <translation>LQ %</translation>
    </message>
    <message>
        <source>dBm</source>
        <translation>dBm</translation>
    </message>
</context>
<context>
    <name>tavrix::ThemeSwitcher</name>
    <message>
        <source>The HUB restarts to change its colours.</source>
        <translation>Der HUB startet neu, um seine Farben zu ändern.</translation>
    </message>
    <message>
        <source>Transmission is running and will stop.</source>
        <translation>Die Übertragung läuft und wird gestoppt.</translation>
    </message>
    <message>
        <source>Dark mode from the next start</source>
        <translation>Dunkles Design ab dem nächsten Start</translation>
    </message>
    <message>
        <source>Light mode from the next start</source>
        <translation>Helles Design ab dem nächsten Start</translation>
    </message>
    <message>
        <source>Dark mode</source>
        <translation>Dunkles Design</translation>
    </message>
    <message>
        <source>Light mode</source>
        <translation>Helles Design</translation>
    </message>
    <message>
        <source>Restart now</source>
        <translation>Jetzt neu starten</translation>
    </message>
    <message>
        <source>Next time</source>
        <translation>Beim nächsten Mal</translation>
    </message>
</context>
<context>
    <name>tavrix::TransmissionDialog</name>
    <message>
        <source>Transmitter</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Auto-start transmission</source>
        <translation>Übertragung automatisch starten</translation>
    </message>
    <message>
        <source>Starts transmission once, as soon as the transmitter and the vehicle&apos;s controls are connected. A refused start (a pedal pressed) is not retried, and nothing starts again by itself after a stop.</source>
        <translation>Startet die Übertragung einmal, sobald Sender und Bedienelemente des Fahrzeugs verbunden sind. Ein verweigerter Start (Pedal getreten) wird nicht wiederholt, und nach einem Stopp startet nichts von selbst neu.</translation>
    </message>
    <message>
        <source>Radio settings</source>
        <translation>Funkeinstellungen</translation>
    </message>
    <message>
        <source>The ExpressLRS module&apos;s own settings, read and changed in configuration mode</source>
        <translation>Die eigenen Einstellungen des ExpressLRS-Moduls, im Konfigurationsmodus gelesen und geändert</translation>
    </message>
    <message>
        <source>Read settings</source>
        <translation>Einstellungen lesen</translation>
    </message>
    <message>
        <source>Nothing read yet. Reading keeps the transmitter in configuration mode until this dialog closes; transmission cannot start meanwhile.</source>
        <translation>Noch nichts gelesen. Das Lesen hält den Sender im Konfigurationsmodus, bis dieser Dialog schließt; so lange kann keine Übertragung starten.</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen…</translation>
    </message>
</context>
<context>
    <name>tavrix::TransmissionDialogBinder</name>
    <message>
        <source>Reading the radio settings stopped: configuration mode was left.</source>
        <translation>Lesen der Funkeinstellungen gestoppt: Der Konfigurationsmodus wurde verlassen.</translation>
    </message>
    <message>
        <source>Transmission is running. Stop it to read or change the radio settings: the module takes settings only while no channels are sent.</source>
        <translation>Die Übertragung läuft. Stoppen Sie sie, um die Funkeinstellungen zu lesen oder zu ändern: Das Modul nimmt Einstellungen nur an, solange keine Kanäle gesendet werden.</translation>
    </message>
    <message>
        <source>Connect the transmitter to read its radio settings.</source>
        <translation>Schließen Sie den Sender an, um seine Funkeinstellungen zu lesen.</translation>
    </message>
</context>
<context>
    <name>tavrix::TransmitterCard</name>
    <message>
        <source>Transmitter</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Orvane Transmitter over USB</source>
        <translation>Orvane Transmitter über USB</translation>
    </message>
    <message>
        <source>Plug the Orvane Transmitter in over USB; its port appears here.</source>
        <translation>Schließen Sie den Orvane Transmitter per USB an; sein Anschluss erscheint hier.</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Transmitter settings</source>
        <translation>Sender-Einstellungen</translation>
    </message>
</context>
<context>
    <name>tavrix::TransmitterLink</name>
    <message>
        <source>Lost connection to the Orvane Transmitter and could not reconnect. Check the USB cable and press Connect.</source>
        <translation>Die Verbindung zum Orvane Transmitter ist abgerissen und konnte nicht wiederhergestellt werden. Prüfen Sie das USB-Kabel und drücken Sie auf „Verbinden“.</translation>
    </message>
</context>
<context>
    <name>tavrix::VehiclePage</name>
    <message>
        <source>Vehicles</source>
        <translation>Fahrzeuge</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>The sixteen RC channels, sent every 7 ms while transmission runs</source>
        <translation>Die sechzehn RC-Kanäle, alle 7 ms gesendet, während die Übertragung läuft</translation>
    </message>
    <message>
        <source>Stop transmission</source>
        <translation>Übertragung stoppen</translation>
    </message>
    <message>
        <source>Start transmission</source>
        <translation>Übertragung starten</translation>
    </message>
    <message>
        <source>Transmitting</source>
        <translation>Sendet</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Gestoppt</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Profiles…</source>
        <translation>Profile…</translation>
    </message>
</context>
<context>
    <name>tavrix::VehiclePageBinder</name>
    <message>
        <source>Switch to a profile for this vehicle before starting transmission.</source>
        <translation>Wechseln Sie zu einem Profil für dieses Fahrzeug, bevor Sie die Übertragung starten.</translation>
    </message>
    <message>
        <source>The active profile “%1” drives a car.</source>
        <translation>Das aktive Profil „%1“ steuert ein Auto.</translation>
    </message>
    <message>
        <source>Fly with a helicopter profile</source>
        <translation>Mit Hubschrauberprofil fliegen</translation>
    </message>
    <message>
        <source>The active profile “%1” flies a helicopter.</source>
        <translation>Das aktive Profil „%1“ steuert einen Hubschrauber.</translation>
    </message>
    <message>
        <source>Drive with a car profile</source>
        <translation>Mit Autoprofil fahren</translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
</context>
<context>
    <name>tavrix::VehiclesPage</name>
    <message>
        <source>Vehicles</source>
        <translation>Fahrzeuge</translation>
    </message>
    <message>
        <source>Choose what you want to drive or fly.</source>
        <translation>Wählen Sie, was Sie fahren oder fliegen möchten.</translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
    <message>
        <source>Drive with a sim-racing wheel, pedals and shifter, with force feedback from the car&apos;s motion.</source>
        <translation>Fahren mit Sim-Racing-Lenkrad, Pedalen und Schaltknauf, mit Force Feedback aus der Bewegung des Autos.</translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
    <message>
        <source>Fly with a joystick, a throttle and pedals, with arming and rate modes.</source>
        <translation>Fliegen mit Joystick, Gashebel und Pedalen, mit Scharfschalten und Raten-Modi.</translation>
    </message>
    <message>
        <source>RC Airplane</source>
        <translation>RC-Flugzeug</translation>
    </message>
    <message>
        <source>Fixed-wing models with a joystick and throttle.</source>
        <translation>Flächenmodelle mit Joystick und Gashebel.</translation>
    </message>
    <message>
        <source>Coming soon</source>
        <translation>Demnächst</translation>
    </message>
</context>
<context>
    <name>tavrix::WheelFfbDialog</name>
    <message>
        <source>Wheel force feedback</source>
        <translation>Force Feedback des Lenkrads</translation>
    </message>
    <message>
        <source>Compatibility</source>
        <translation>Kompatibilität</translation>
    </message>
    <message>
        <source>What the wheel base allows; the first &quot;no&quot; is what to fix.</source>
        <translation>Was das Lenkrad erlaubt; das erste „Nein“ ist zu beheben.</translation>
    </message>
    <message>
        <source>Wheel detected</source>
        <translation>Lenkrad erkannt</translation>
    </message>
    <message>
        <source>Force feedback capable</source>
        <translation>Force-Feedback-fähig</translation>
    </message>
    <message>
        <source>Exclusive access</source>
        <translation>Exklusiver Zugriff</translation>
    </message>
    <message>
        <source>Steering FFB axis</source>
        <translation>FFB-Achse der Lenkung</translation>
    </message>
    <message>
        <source>Constant-force effect</source>
        <translation>Konstantkraft-Effekt</translation>
    </message>
    <message>
        <source>Run the check</source>
        <translation>Prüfung starten</translation>
    </message>
    <message>
        <source>Feel the car</source>
        <translation>Das Auto spüren</translation>
    </message>
    <message>
        <source>The car&apos;s lateral and longitudinal G, bumps as a vibration.</source>
        <translation>Quer- und Längs-G des Autos, Stöße als Vibration.</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Centering spring</source>
        <translation>Zentrierfeder</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Kraft</translation>
    </message>
    <message>
        <source>◀ Test Left</source>
        <translation>◀ Test links</translation>
    </message>
    <message>
        <source>Test Right ▶</source>
        <translation>Test rechts ▶</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>err %1</source>
        <translation>Fehler %1</translation>
    </message>
    <message>
        <source>FFB ON — streaming from car (click to stop)</source>
        <translation>FFB AN — Daten vom Auto (zum Stoppen klicken)</translation>
    </message>
    <message>
        <source>Enable force feedback</source>
        <translation>Force Feedback einschalten</translation>
    </message>
</context>
<context>
    <name>tavrix::WheelFfbDialogBinder</name>
    <message>
        <source>Could not enable FFB — re-check the wheel.</source>
        <translation>FFB ließ sich nicht einschalten — prüfen Sie das Lenkrad erneut.</translation>
    </message>
    <message>
        <source>No FFB-capable wheel connected</source>
        <translation>Kein FFB-fähiges Lenkrad verbunden</translation>
    </message>
</context>
</TS>
