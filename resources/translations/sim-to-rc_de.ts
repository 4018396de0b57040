<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>HelicopterComputation</name>
    <message>
        <source>Lower the collective before arming the motor.</source>
        <translation>Senke das Kollektiv ab, bevor du den Motor scharf schaltest.</translation>
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
    <name>tavrix::CarPage</name>
    <message>
        <source>RC Car</source>
        <translation>RC-Auto</translation>
    </message>
    <message>
        <source>Drive a real RC car with your wheel, pedals and shifter.</source>
        <translation>Fahre ein echtes RC-Auto mit Lenkrad, Pedalen und Schaltknauf.</translation>
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
        <source>It drives with its saved values and defaults; the editors for them come in a later version.</source>
        <translation>Es fährt mit seinen gespeicherten Werten und Vorgaben; die Editoren dafür folgen in einer späteren Version.</translation>
    </message>
</context>
<context>
    <name>tavrix::DashboardBinder</name>
    <message>
        <source>Choose them on the vehicle&apos;s page</source>
        <translation>Wähle sie auf der Fahrzeugseite</translation>
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
        <translation>Schließe den Orvane Transmitter per USB an</translation>
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
        <translation>Wähle sie auf der Fahrzeugseite</translation>
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
        <translation>Keine Gamecontroller gefunden. Schließe einen Controller per USB an, dann erscheint er in diesen Listen.</translation>
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
</context>
<context>
    <name>tavrix::HeliPage</name>
    <message>
        <source>RC Helicopter</source>
        <translation>RC-Hubschrauber</translation>
    </message>
    <message>
        <source>Fly an RC helicopter with a joystick, throttle and pedals.</source>
        <translation>Fliege einen RC-Hubschrauber mit Joystick, Gashebel und Pedalen.</translation>
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
        <translation>Starte die Übertragung vor dem Scharfschalten.</translation>
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
        <translation>Senke das Kollektiv ab und schalte dann scharf. Der scharfe Zustand wird nur gesendet, solange der Scharfschalter des Profils an ist, und er ist standardmäßig aus: das Kollektiv wird in jedem Fall gesendet. Stoppen der Übertragung entschärft.</translation>
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
</context>
<context>
    <name>tavrix::HeliPageBinder</name>
    <message>
        <source>Start transmission before arming.</source>
        <translation>Starte die Übertragung vor dem Scharfschalten.</translation>
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
        <translation>Fahre ein echtes RC-Auto oder fliege einen RC-Hubschrauber mit deinem Sim-Racing-Lenkrad, Pedalen, Schaltknauf oder Joystick. Erstellt mit Qt %1.</translation>
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
        <translation>Gib eine dieser Adressen in der mobilen App im selben Netzwerk ein.</translation>
    </message>
    <message>
        <source>The name works on most home networks; where it does not, use an IP address.</source>
        <translation>Der Name funktioniert in den meisten Heimnetzen; wo nicht, nimm eine IP-Adresse.</translation>
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
    <name>tavrix::MotionChooserPage</name>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>Motion platforms that move your seat with the car.</source>
        <translation>Bewegungsplattformen, die deinen Sitz mit dem Auto bewegen.</translation>
    </message>
    <message>
        <source>Motion platforms come in a later version of the HUB. You can look at the platforms here; none of them can be connected or driven yet.</source>
        <translation>Bewegungsplattformen kommen in einer späteren Version des HUB. Du kannst dir die Plattformen hier ansehen; noch keine davon lässt sich verbinden oder ansteuern.</translation>
    </message>
    <message>
        <source>Two actuators for pitch and roll. A compact start for a seat or a cockpit.</source>
        <translation>Zwei Aktuatoren für Nicken und Rollen. Ein kompakter Einstieg für einen Sitz oder ein Cockpit.</translation>
    </message>
    <message>
        <source>Three actuators for pitch, roll and heave.</source>
        <translation>Drei Aktuatoren für Nicken, Rollen und Heben.</translation>
    </message>
    <message>
        <source>Five axes for full rigs: pitch, roll, heave, surge and sway.</source>
        <translation>Fünf Achsen für komplette Rigs: Nicken, Rollen, Heben, Längs- und Querbewegung.</translation>
    </message>
    <message>
        <source>%1DOF</source>
        <translation>%1DOF</translation>
    </message>
    <message>
        <source>Later version</source>
        <translation>Spätere Version</translation>
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
        <source>Motion platforms come in a later version of the HUB. This page shows no live controls.</source>
        <translation>Bewegungsplattformen kommen in einer späteren Version des HUB. Diese Seite zeigt keine Live-Steuerung.</translation>
    </message>
    <message>
        <source>Platform</source>
        <translation>Plattform</translation>
    </message>
    <message>
        <source>Degrees of freedom</source>
        <translation>Freiheitsgrade</translation>
    </message>
    <message>
        <source>Motion controller</source>
        <translation>Bewegungscontroller</translation>
    </message>
    <message>
        <source>Not available yet</source>
        <translation>Noch nicht verfügbar</translation>
    </message>
    <message>
        <source>Connecting the USB motion controller, testing the actuators and the phone web panel come with motion platform support.</source>
        <translation>Das Verbinden des USB-Bewegungscontrollers, der Aktuatortest und das Web-Panel fürs Telefon kommen mit der Unterstützung für Bewegungsplattformen.</translation>
    </message>
    <message>
        <source>%1DOF motion platform</source>
        <translation>%1DOF-Bewegungsplattform</translation>
    </message>
    <message>
        <source>What this platform will do once motion support arrives.</source>
        <translation>Was diese Plattform können wird, sobald Bewegung unterstützt wird.</translation>
    </message>
    <message>
        <source>Actuators</source>
        <translation>Aktuatoren</translation>
    </message>
    <message>
        <source>Moves the seat in pitch and roll.</source>
        <translation>Bewegt den Sitz in Nicken und Rollen.</translation>
    </message>
    <message>
        <source>Moves the seat in pitch, roll and heave.</source>
        <translation>Bewegt den Sitz in Nicken, Rollen und Heben.</translation>
    </message>
    <message>
        <source>Moves the seat in pitch, roll, heave, surge and sway.</source>
        <translation>Bewegt den Sitz in Nicken, Rollen, Heben, Längs- und Querbewegung.</translation>
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
</context>
<context>
    <name>tavrix::RemoteServerBinder</name>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Turned off, or its port is taken by another program</source>
        <translation>Ausgeschaltet, oder ein anderes Programm belegt seinen Port</translation>
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
        <translation>Gib eine davon in der mobilen App ein.</translation>
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
        <translation>Lass %1 und %2 los, bevor du die Übertragung startest.</translation>
    </message>
    <message>
        <source>Release the %1 pedal before starting transmission.</source>
        <translation>Lass %1 los, bevor du die Übertragung startest.</translation>
    </message>
    <message>
        <source>Stop transmission before changing devices</source>
        <translation>Stoppe die Übertragung, bevor du Geräte wechselst</translation>
    </message>
    <message>
        <source>Stop configuring before starting transmission</source>
        <translation>Beende die Konfiguration, bevor du die Übertragung startest</translation>
    </message>
    <message>
        <source>RP2040 Bridge not connected</source>
        <translation>RP2040-Bridge nicht verbunden</translation>
    </message>
    <message>
        <source>Transmission stopped for safety: %1. Verify the pedals and press Start Transmission again.</source>
        <translation>Übertragung aus Sicherheitsgründen gestoppt: %1. Prüfe die Pedale und drücke erneut auf „Übertragung starten“.</translation>
    </message>
    <message>
        <source>Stop transmission before configuring</source>
        <translation>Stoppe die Übertragung, bevor du konfigurierst</translation>
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
        <translation>%1: %2 blieb belegt – vielleicht nutzt eine andere Anwendung den Anschluss, oder der Sender startet noch. Warte ein paar Sekunden und versuche es erneut.</translation>
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
        <translation>Schließe den Orvane Transmitter per USB an; sein Anschluss erscheint hier.</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
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
        <source>No ports</source>
        <translation>Keine Anschlüsse</translation>
    </message>
</context>
<context>
    <name>tavrix::TransmitterLink</name>
    <message>
        <source>Lost connection to the Orvane Transmitter and could not reconnect. Check the USB cable and press Connect.</source>
        <translation>Die Verbindung zum Orvane Transmitter ist abgerissen und konnte nicht wiederhergestellt werden. Prüfe das USB-Kabel und drücke auf „Verbinden“.</translation>
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
</context>
<context>
    <name>tavrix::VehiclePageBinder</name>
    <message>
        <source>Switch to a profile for this vehicle before starting transmission.</source>
        <translation>Wechsle zu einem Profil für dieses Fahrzeug, bevor du die Übertragung startest.</translation>
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
        <translation>Wähle, was du fahren oder fliegen möchtest.</translation>
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
</TS>
