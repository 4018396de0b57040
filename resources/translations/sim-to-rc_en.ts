<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>BlockingSerialLink</name>
    <message>
        <source>can&apos;t switch the parity of %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the serial port is closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>serial write timeout</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FirmwareCache</name>
    <message>
        <source>The download has %1 bytes, the manifest announced %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The download&apos;s SHA-256 is %1, the manifest announced %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t create the firmware folder %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t write %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FirmwareManifest</name>
    <message>
        <source>has no &quot;version&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>has no valid &quot;url&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>has no valid &quot;size&quot; (1 to %1 bytes)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>has no valid &quot;sha256&quot; (64 hex digits)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update manifest is larger than %1 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update manifest is not a JSON object: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update manifest has no &quot;devices&quot; object.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>is not an object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update manifest&apos;s &quot;%1&quot; %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ForceFeedbackCheck</name>
    <message>
        <source>FULL — ready for force feedback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PARTIAL — close other sim software (it holds the wheel)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PARTIAL — limited support</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>INCOMPATIBLE — no force feedback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No wheelbase connected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HelicopterComputation</name>
    <message>
        <source>Lower the collective before arming the motor.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HelicopterSettings</name>
    <message>
        <source>Roll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Collective</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rudder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arm switch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 and %2 would both drive CH%3. Give each its own channel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disarm the motor to change these settings.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>OrvaneLabs HUB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dashboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The log is not written to disk in this run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No file manager could open %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>&amp;Select All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step &amp;down</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Ctrl</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReceiverV4ImageLoader</name>
    <message>
        <source>The firmware description (.json) can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This firmware is for &quot;%1&quot;, not a Orvane receiver V4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware&apos;s flash address is not 0x08000000.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware file doesn&apos;t match its description (corrupted or wrong file).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware description has no version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware file is too small.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware file is larger than 256 KB.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a Orvane receiver firmware (stack pointer 0x%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a Orvane receiver firmware (reset address 0x%1).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Stm32BootloaderClient</name>
    <message>
        <source>cancelled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no reply from the bootloader</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GET: no length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GET: short reply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GET_ID: no length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GET_ID: short reply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>READ: short data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bootloader NACK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unexpected byte 0x%1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Uf2BootDrive</name>
    <message>
        <source>Can&apos;t write to the boot drive %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing to the boot drive %1 failed: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Uf2Image</name>
    <message>
        <source>The image is not a whole number of 512-byte UF2 blocks (%1 bytes).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block %1 does not carry the UF2 magic numbers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block %1 is not for the RP2040.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block %1 claims %2 payload bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block %1 is numbered %2 of %3: blocks are missing or out of order.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>hub::Card</name>
    <message>
        <source>Show or hide</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>hub::Sidebar</name>
    <message>
        <source>Collapse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expand</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ActiveProfileFollower</name>
    <message>
        <source>The new profile takes effect when transmission stops</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::AppAddressList</name>
    <message>
        <source>The app server is not listening, so the mobile app cannot connect.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::AxisEditor</name>
    <message>
        <source>Invert the direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deadzone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output from</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exponent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The output range moves the centre too: from 0.2 the wheel rests at 0.2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A pedal keeps at least a 2% deadzone against rest noise.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use the calibration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use the calibrated floor and ceiling</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set minimum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set centre</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set maximum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the control to its ends (and let the wheel centre), then set each point.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raw %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raw —</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output —</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Softens the wheel around the centre and keeps full lock at the ends.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::AxisMappingDialog</name>
    <message>
        <source>Axis mapping: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the axis that feeds each input, or press Detect and move the control. The mapping is saved for this product in the profile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brake</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clutch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inverted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: move the control well away from where it rests…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::AxisMappingDialogBinder</name>
    <message>
        <source>No axis moved far enough. Press Detect again and move the control further.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::AxisSettingsDialog</name>
    <message>
        <source>Axes and calibration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brake</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clutch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel and pedal presets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Which axis feeds each input; saved for this product in the profile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel base</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gas and brake on one axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verify pedals…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Customise…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the axis of each input yourself</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ButtonMappingBook</name>
    <message>
        <source>Too many button mappings (max %1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Index %1 out of range (count: %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel must be %1-%2 (0-%3 carry the flight controls)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel must be %1-%2 (0-%3 reserved for steering/throttle)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ButtonMappingEditor</name>
    <message>
        <source>Horn, lights, …</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick the control by pressing it on the wheel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CH%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pressed value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Released value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> per s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lowest value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Highest value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Activate Pit Limiter when pressed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Button %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hat %1 up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hat %1 right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hat %1 down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hat %1 left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axis %1 +</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axis %1 −</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Momentary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold to raise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold to lower</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switch position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 pressed, %2 released</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%2/s in %3–%4, from %5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>on %1, off %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, from %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, pit limiter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ON value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OFF value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a further control by pressing it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Also pressed by</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ButtonMappingsDialog</name>
    <message>
        <source>Button mappings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press a button or a hat direction on the wheel…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add by pressing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CH%1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::CarPage</name>
    <message>
        <source>RC Car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive a real RC car with your wheel, pedals and shifter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shifter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Game controllers for each role</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings of the active car profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force feedback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Live input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering, throttle and brake as the car receives them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brake</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Car link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Telemetry from the car&apos;s receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Link quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RSSI</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GPS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The car reports here while transmission runs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sats</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No fix</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axes and calibration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive and throttle safety</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Button mappings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LED strip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The active profile keeps these settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The profile “%1” keeps these settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It drives with its saved values and defaults; the topics shown as buttons open their editors.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel force feedback</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DashboardBinder</name>
    <message>
        <source>Choose them on the vehicle&apos;s page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looked for over the radio while transmitting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking the car&apos;s receiver to answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, firmware %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware %1, reached over the radio</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DashboardPage</name>
    <message>
        <source>Dashboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connections, transmission and telemetry at a glance.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Companion app on the local network</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connections</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Car link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mobile app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vehicle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive a car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fly a helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Telemetry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No telemetry yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Readings from the car&apos;s sensors appear here while transmission runs and the car is linked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orvane Transmitter on %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug the Orvane Transmitter in over USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radio link to the car&apos;s receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose them on the vehicle&apos;s page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Game controllers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The car&apos;s sensors the profile shows, stale readings dimmed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose tiles…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Live telemetry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The car&apos;s G forces and radio link over the last minute</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DashboardSettingsDialog</name>
    <message>
        <source>Dashboard tiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tick the readings the dashboard shows as tiles and put them in order. The active profile keeps the choice; with none ticked, every reading the car sends is shown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The sensor&apos;s own name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Label of the highlighted reading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add readings the car reports for the first time to the list</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DebugConsole</name>
    <message>
        <source>Debug console</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DevicePickerCard</name>
    <message>
        <source>No game controllers found. Connect a controller over USB and it appears in these lists.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No device found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DeviceRoles</name>
    <message>
        <source>Wheel base disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open wheel base device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel base not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pedals disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open pedals device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pedals not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shifter disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open shifter device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shifter not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joystick disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open joystick device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joystick not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open throttle device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle not connected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DriveComputation</name>
    <message>
        <source>impossible throttle spike detected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DriveRecorder</name>
    <message>
        <source>Cannot record the drive: the folder %1 cannot be made.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot record the drive to %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording stopped: writing %1 failed (%2). The rows recorded before are kept.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DriveRecorderBinder</name>
    <message>
        <source>Recording to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved %1: %2 rows.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 rows were dropped because the disk fell behind.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DriveSettings</name>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traxxas/Tamiya/Arma Standard (172-992-1811)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::DriveSettingsDialog</name>
    <message>
        <source>Drive and throttle safety</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC and reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle safety</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Limits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traxxas/Tamiya/Arma Standard (172-992-1811)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standard drives the servo span; Custom uses the three values below.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copies a saved ESC&apos;s neutral and end points and selects Custom.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Neutral</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full forward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom ESC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse by button or reverse gear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The button toggles reverse; the throttle then drives backwards.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The most of the reverse span the throttle reaches.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spike protection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A throttle jumping from released to 80% in one tick zeroes it and stops the car.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stuck-throttle protection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A throttle reading full at the start is ignored until it is released.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Soft start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After each start the throttle is capped, rising from the floor to full.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Floor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smooth deceleration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Letting go of the throttle slows the car gradually; braking is never smoothed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Higher is gentler: 0 stops in 0.9 s, 10 in 2.3 s.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pit limiter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Caps the ESC channel at the value below for as long as it is on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cap</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Per-gear limits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each shifter gear reaches only its share of full throttle; neutral gives none.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gear %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No saved presets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manage presets…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Centre</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each change steers the car at once, unsaved: Save trim keeps it, Revert or closing this dialog puts the saved end points back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save trim</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gears</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle stays at neutral until the shifter&apos;s gears are mapped.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ElrsParameterManager</name>
    <message>
        <source>Start configuring to read/change ELRS RF settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ELRS parameter manager: no CRSF protocol bound.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No ELRS parameters could be read — this transmitter may be send-only (no half-duplex).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ELRS walk timed out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ELRS module returned a malformed DEVICE_INFO frame.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>device ping</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>parameter read (field %1, chunk %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ELRS module did not respond to %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ELRS parameters are not yet discovered.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown ELRS parameter: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter &apos;%1&apos; is not an enum (text selection).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Option index %1 out of range for &apos;%2&apos;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ELRS parameter manager: no serial writer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ELRS option index %1 out of byte range.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::EscPresetStore</name>
    <message>
        <source>ESC preset name cannot be empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC preset not found: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to save ESC presets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Too many ESC presets (max %1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid ESC values. Must be 0-2047.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::EscPresetsDialog</name>
    <message>
        <source>ESC presets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as new</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update with current values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 — reverse %2, neutral %3, forward %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current ESC values: reverse %1, neutral %2, forward %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::FirmwareDialog</name>
    <message>
        <source>Firmware update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No serial port found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read board</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power-cycle the board now: switch its power off and on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Waiting %n more second(s).</source>
        <translation>
            <numerusform>Waiting %n more second.</numerusform>
            <numerusform>Waiting %n more seconds.</numerusform>
        </translation>
    </message>
    <message>
        <source>Closing: cancelling the update first. The dialog closes once it stopped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a firmware file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware (*.bin);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::FirmwareDownloader</name>
    <message>
        <source>%1 is larger than the %2 bytes expected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading %1 failed: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::FirmwareUpdateService</name>
    <message>
        <source>No serial port for the receiver.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not start the update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not check for updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The transmitter&apos;s companion processor (SoC) takes its updates over a channel this hub does not know, so its version can neither be read nor changed from here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update manifest lists no firmware for the %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware %1 is available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware is up to date (%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading firmware %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unplug the transmitter, hold its BOOTSEL button and plug it in again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for the transmitter&apos;s boot drive (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The transmitter&apos;s boot drive did not appear. Nothing was written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing firmware %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for the transmitter to restart</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The transmitter did not come back after the firmware was written. Unplug it and plug it in again; if it stays in its boot drive, copy the image again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware %1 was written and the transmitter is back. It does not report its version, so check it in the transmitter&apos;s own menu.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking the receiver to restart into its bootloader</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver flasher is busy.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing firmware %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliArmingDialog</name>
    <message>
        <source>Arming and safety</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arming</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The arm switch the flight controller reads</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send the arm switch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The page&apos;s Arm button sets it; stopping transmission always sends it safe.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> µs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Armed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Safe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arm only at idle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arming is refused while the collective lever is above %1 %.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Safety</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How the collective comes up, and glitches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Soft start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After each start the collective and the motor rise from zero to the lever&apos;s position over the ramp (at least one second).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spike protection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Always on: a control that jumps by more than %1 % from one tick to the next is held for up to %2 ms; a jump that lasts longer is real and is taken.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliConfigDialog</name>
    <message>
        <source>Roll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Collective</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rudder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Helicopter controls and channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axes and channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Function</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joystick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two pedals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The right pedal&apos;s axis; the rudder&apos;s axis is then the left pedal.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detect, then move the control that should drive the function. Two pedals steer the rudder by right minus left. A function whose channel is “Not sent” leaves its channel to the button mappings; no two functions may share a channel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Centre</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move it…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take the axis&apos;s position now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raw positions of each axis, -1 to +1: hold the control there and press Set. The collective reads its minimum as bottom and its maximum as top; the centre is not used.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliConfigDialogBinder</name>
    <message>
        <source>Choose the device on the helicopter page first, then detect its axis.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no axis to read for this function: choose its device on the helicopter page and its axis here first.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliCurvesDialog</name>
    <message>
        <source>Pitch and throttle curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shapes the collective channel; off, the channel follows the lever.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drives the motor channel from the collective lever; off, no motor channel is sent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use this curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motor channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Points</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliFlyDialog</name>
    <message>
        <source>Rates and feel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How much of its travel roll, pitch and yaw reach</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate modes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The mode in use scales roll, pitch and yaw; the collective always keeps its full travel, so a lower rate never costs lift.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Attitude display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The helicopter&apos;s reported attitude, as the hub shows it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invert pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invert roll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invert yaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only the display turns; the channels sent are not affected.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliPage</name>
    <message>
        <source>RC Helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fly an RC helicopter with a joystick, throttle and pedals.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controls</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joystick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pedals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Game controllers for each role</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start transmission before arming.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rates and arming</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Live controls</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cyclic, collective and yaw as the helicopter receives them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Collective</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disarm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Armed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disarmed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lower the collective, then arm. Arming is sent only while the profile&apos;s arm switch is on, and it is off by default: the collective goes out armed or not. Stopping transmission disarms.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shown while transmission runs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>3D</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rates: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: roll, pitch and yaw at %2 % of the stick&apos;s travel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings of the active helicopter profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controls and channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rates and feel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch and throttle curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arming and safety</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Button mappings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliPageBinder</name>
    <message>
        <source>Start transmission before arming.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HeliSettingsDialog</name>
    <message>
        <source>Not sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CH%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::HubServices</name>
    <message>
        <source>Web panel started at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web panel failed to start (ports %1-%2 all in use)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::InfoPage</name>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OrvaneLabs HUB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive a real RC car or fly an RC helicopter with your sim-racing wheel, pedals, shifter or joystick. Built with Qt %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reduce motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turns off animations such as the sliding sidebar.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open debug console</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OrvaneLabs HUB is built with these components.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Qt %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Qt Company Ltd and contributors. Used under the GNU Lesser General Public License version 3 (LGPL-3.0), linked dynamically so it can be replaced.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Geist and Geist Mono</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vercel, in collaboration with basement.studio. Used under the SIL Open Font License 1.1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SIL Open Font License 1.1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version, preferences, the mobile app and licences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mobile app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter one of these addresses in the mobile app on the same network.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name works on most home networks; where it does not, use an IP address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setup guide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open log folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::InputDevice</name>
    <message>
        <source>No input backend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No game controller at position %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The game controller could not be opened</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::LedConfigPush</name>
    <message>
        <source>The receiver did not answer LED_%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver&apos;s USB connection closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver refused LED_%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LED settings sent to the receiver</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::LedDialog</name>
    <message>
        <source>LED strip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Idle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power travels on CH12; the rest is sent to the receiver.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LED power on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LEDs on the strip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A colour per LED</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zones</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LED</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add zone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Needs the receiver on its USB cable.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send to receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LED colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 % to %2 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::LedDialogBinder</name>
    <message>
        <source>Sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A push is already running.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect the receiver&apos;s USB cable first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a zone first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Idle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, item %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sending</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionActuatorsCard</name>
    <message>
        <source>Actuators</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Positions from the board&apos;s heartbeat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Free mode: move each actuator by hand</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speed and smoothness of the moves follow the platform settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actuator %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Target position of actuator %1, mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionChooserPage</name>
    <message>
        <source>Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion platforms that move your seat with the car.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two actuators for pitch and roll. A compact start for a seat or a cockpit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1DOF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Four lifting actuators for pitch, roll and heave.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Six actuators for full rigs: pitch, roll and heave, with yaw and surge.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionConnectionCard</name>
    <message>
        <source>Motion controller</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orvane Motion Controller over USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug the motion controller in over USB; its port appears here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Runs the homing sequence; also the way out of the FAIL state.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calibration mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switches the board&apos;s calibration mode on or off.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionOutputBinder</name>
    <message>
        <source>Not available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Output stopped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>waiting for car telemetry (start a transmission) — output at rest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>car telemetry live</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>car telemetry lost %1 s ago — output at rest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Streaming to %1:%2 — %3 packets sent · %4</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionOutputDialog</name>
    <message>
        <source>Motion output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion platforms move — clear the area around the rig and start with low intensity in your motion software.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion software</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SimHub, FlyPT Mover or SimTools with DiRT Rally chosen as the game</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UDP port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Streaming — click to stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start motion output</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionPanelBinder</name>
    <message>
        <source>Intensity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Travel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smoothness</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Park position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The %1DOF platform cannot be chosen while a test runs on the %2DOF platform: let it finish or press Release first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for heartbeat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for the first heartbeat…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last heartbeat %1 s ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full system test stopped</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionPanelPage</name>
    <message>
        <source>Motion platform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1DOF motion platform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web panel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run tests and settings from a phone&apos;s browser.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Release</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stops every test at once and switches the motors off. Auto home to resume.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controller log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect the motion controller, home the platform, then test it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionSettingsCard</name>
    <message>
        <source>Platform settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kept on this PC and given to the board when it connects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionSystemController</name>
    <message>
        <source>all actuators</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>actuator %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full test [%1:%2 left]: %3 — travel %4%, %5 Hz, %6 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Surge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Heave</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pattern %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>traction loss (opposed)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No heartbeat from the controller within 3.5 s — wrong port, or the ST-LINK is wedged (unplug and replug the USB).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Heartbeats stopped — link may be wedged (unplug and replug the USB if it persists).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Board test assumed finished (no #TST done# seen)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orvane Motion Controller</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is in use by another program (PuTTY? a test script?). Close it and connect again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected to %1 — waiting for heartbeat…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion controller disconnected (port lost)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial writes failing — this is the known ST-LINK USB wedge. Unplug and replug the controller USB.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controller alive — state [%1]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test running — wait for it to finish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Homing requested</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Release requested — motion disabled, Home to resume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test already running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for controller status (heartbeat) — try again in a moment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (use Auto Home after fixing the cause)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controller is in &quot;%1&quot; state — tests need &quot;ready&quot;%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Testing %1 — travel %2%, %3 Hz, %4 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test finished — recentered to park</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no actuator %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full system test started — %1 min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full system test stopped (controller left ready state)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full system test complete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionTestCard</name>
    <message>
        <source> % travel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tests</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tests need the board in the &quot;ready&quot; state; Release stops any of them at once</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run pattern</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run board test</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Board test</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Full System test</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All actuators</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actuator %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionWebDialog</name>
    <message>
        <source>Motion System Web Panel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the Web Panel on your phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1. Make sure the phone is on the same WiFi network as this PC

2. Scan the QR code with the phone camera — the panel opens in the
   browser (no app needed) — or type the URL by hand

3. DOF tests, actuator bars and settings work live from the phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QR Code unavailable</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::MotionWebDialogBinder</name>
    <message>
        <source>Web panel running at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>! Web panel failed to start (ports %1-%2 in use)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web panel started at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web panel stopped</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::PedalVerifyDialog</name>
    <message>
        <source>Verify pedals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press each pedal fully, then release it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Released means at most %1 (the start refuses above it); fully pressed at least %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brake</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 full and back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start over</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press fully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Now release</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verified</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Both pedals cover their travel and come back to released.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for both pedals to go full and back.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ProfileEdits</name>
    <message>
        <source>The profile was not changed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ProfileManager</name>
    <message>
        <source>Source profile not found: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile name cannot be empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot delete the last profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to delete profile: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid profile file format</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid profile data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to save profile: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No active profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown profile setting: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC preset not found: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to save the active profile choice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile not found: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Too many button mappings (max %1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to write file: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Too many profiles (max %1)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ProfilesDialog</name>
    <message>
        <source>Profiles (*.json)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the profile “%1” and its file? This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each profile keeps a vehicle&apos;s settings. Transmission drives with the active one; a switch while it runs takes effect once it stops.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ProfilesDialogBinder</name>
    <message>
        <source>RC Car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::RadioCalibrationBinder</name>
    <message>
        <source>Connect the car&apos;s receiver over USB first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not possible right now: the calibration has moved on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All six end points are measured.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put the control in place, then press Measure.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measuring… hold the control still.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Good! Keep holding...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unstable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold steady! Input moving too much...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value recorded: CRSF %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calibration cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::RadioCalibrationDialog</name>
    <message>
        <source>Full throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold full throttle and keep it there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Throttle neutral</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Let go of the throttle so it rests at neutral.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold full brake / reverse and keep it there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn the steering fully left and hold it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering centre</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Let the steering return to the centre.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn the steering fully right and hold it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver end points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Idle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold each end point still until the countdown runs out.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold for</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CH1 steer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CH2 throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CRSF values as the receiver sees them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step %1 of %2 · %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All end points measured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start again to measure them all anew.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug the car&apos;s receiver in over USB and switch the radio on, then press Start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 µs · CRSF %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CRSF %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>—</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::RadioSettingsView</name>
    <message>
        <source>Command, run on the module itself</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverCard</name>
    <message>
        <source>Receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Orvane receiver in the car, over its USB cable or the radio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug the receiver in over USB; its port appears here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calibrate end points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LED strip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1. Car flat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put the car on a flat surface, then read the level</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2. Front lifted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lift the front of the car about 30° and hold it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mounting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calibrate gyro</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Console</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A command for the receiver, such as HELP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GPS: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverCardBinder</name>
    <message>
        <source>GPS on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GPS update rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send GPS as telemetry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send attitude (IMU) as telemetry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send motion as telemetry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion telemetry rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video overlay (OSD)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion sensors on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Over ELRS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GPS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IMU</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Axes: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not sent: connect the receiver&apos;s USB cable first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not sent: the console does not send empty lines or DFU, which would stop the receiver.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverConfigManager</name>
    <message>
        <source>Level read. Now lift the FRONT of the car about 30° and hold it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mounting saved. Put the car down and keep it still for a second.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No answer from the receiver. Try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected · reading the receiver&apos;s settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected · no reply to settings commands (older receiver?)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected · applying settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected%1 · this receiver has no GPS/IMU settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected · firmware %1 · settings applied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected · firmware %1 · settings go over the USB cable while it is plugged in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected over ELRS · firmware %1 · settings applied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected over ELRS · getting the receiver&apos;s settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected · settings not reachable over ELRS yet, trying again (needs receiver firmware 4.3.0 or later). Changes are saved and applied once they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver not connected. Start transmitting to reach it over ELRS, or plug in the J14 cable. Changes are saved and applied the next time it is reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The car is not flat and still. Put it on a flat surface and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No tilt seen: lift the front more (about 30°) and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start again from step 1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver&apos;s IMU is not running.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver says: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>off on the receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>fix, %1 satellites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no fix yet, %1 satellites (needs open sky)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> · antenna not detected, check the GPS antenna cable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> · antenna short circuit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverGyroCalibration</name>
    <message>
        <source>Calibrating: keep the car still…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gyro calibrated, yaw reset to 0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No answer from the receiver. Try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver did not calibrate.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver says: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starting over ELRS…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not finished: the car must stand still. Try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lost the receiver during calibration.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverV4FirmwareBinder</name>
    <message>
        <source>Connecting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Programming</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orvane receiver V4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wire a USB-UART cable to the receiver&apos;s J14 header (cable TXD to RX, RXD to TX, GND) and choose the firmware file; its description (.json) must lie beside it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none (the board is in its bootloader)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orvane receiver V4 (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a firmware file first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect the USB-UART cable and choose its port first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another run is still in progress.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ReceiverV4FlashSession</name>
    <message>
        <source>Firmware %1, %2 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Running firmware: %1 on %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No reply from the firmware (continuing; it may be in OSD mode or too old).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The board is in the bootloader (no firmware running).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The board does not answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t open %1: %2. Close any other program using it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[%1 s] Lost contact with the board (it may have reset). Starting over.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lost contact with the board.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking the firmware to restart into the bootloader (DFU).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The board is already in the bootloader.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>POWER-CYCLE THE BOARD NOW (switch its power off and on). Listening for %1 s...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bootloader found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The board did not enter the bootloader.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a Orvane receiver V4 (chip ID 0x%1, expected 0x467). Nothing was written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The board&apos;s readout protection is on, so it can&apos;t be updated over the cable.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bootloader protocol %1.%2, chip ID 0x%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Erasing page 0 (vector table).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Programmed and verified %1 bytes (%2 retries).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page %1: write failed, rewriting (attempt %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page %1: verify failed, rewriting (attempt %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page %1 could not be programmed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  [%1 s] write 0x%2: %3 - resyncing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GO: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware was written and verified, but the receiver did not answer after starting. Power-cycle it and check the version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver reports %1, expected %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update complete: running %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>giving up after %1 attempts: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  [%1 s] %2 - resyncing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lost contact with the bootloader</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lost contact with the bootloader. Power-cycle the receiver and run the update again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check the wiring: cable TXD -&gt; J14 RX, RXD -&gt; J14 TX, GND. If it still fails, unplug the USB-UART cable as well while the board is off (the cable can keep the chip half-powered), or fit the BOOT jumper (JP1), then retry.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::RecordingRow</name>
    <message>
        <source>Open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Records the drive to a CSV file: time, controls, the 16 channels and telemetry.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::RemoteServerBinder</name>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turned off, or its port is taken by another program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port %1 on the local network</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Listening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 app connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 apps connected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::RemoteStatusDialog</name>
    <message>
        <source>Mobile app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>App server</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter one of these in the mobile app.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected apps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In the order they connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No app is connected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::SafetyNoticeDialog</name>
    <message>
        <source>Before the car moves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>I understand</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission drives a real car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From the first frame the car follows your wheel and pedals.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put the car on a stand with its wheels off the ground.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep a hand near the car&apos;s power switch.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop transmission in the HUB, or switch off the transmitter, to stop the car.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Before the rotors turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission flies a real helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Once armed, the motor follows your collective.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>For the first start, take the rotor blades off or tie the helicopter down.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep everyone clear of the rotor disc and a hand near the helicopter&apos;s power switch.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disarm, stop transmission in the HUB, or switch off the transmitter, to stop the motor.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::SerialPortPicker</name>
    <message>
        <source>Baud rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No ports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 baud</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ServiceFirmwareBinder</name>
    <message>
        <source>Orvane receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checks the update server for the receiver&apos;s latest firmware and writes it over the USB-UART cable on the receiver&apos;s J14 header. A receiver console open on that port is closed first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop transmission before updating firmware.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitter SoC (companion processor)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver (from the update server)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver V4 (from a firmware file)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitter SoC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verifying</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect the receiver&apos;s cable and choose its port first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another firmware update is still in progress.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::SetupGuide</name>
    <message>
        <source>Setup guide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Which vehicle do you want to drive? The guide sets up a profile for it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel, pedals and shifter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joystick, throttle and pedals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug the Orvane Transmitter into a USB port, pick its port and connect. The HUB remembers it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick a game controller for each role, or press Detect and move the controller you mean.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controls</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detect by moving</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Detect, then turn, press or shift the controller for that role.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The start refuses while a pedal is pressed: check that both pedals read their whole travel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start transmission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the controller now…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitting: the car follows your wheel and pedals.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not transmitting.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A first start with the vehicle safely held.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::SetupGuideBinder</name>
    <message>
        <source>RC Helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No game controller is attached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, axis %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, button %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ShifterGearsView</name>
    <message>
        <source>Neutral</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1st</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2nd</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>3rd</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>4th</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5th</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>6th</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>7th</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Engaged now:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detect waits for you to engage that gear on the shifter and assigns it. Without gears the shifter always reads neutral.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Engage this gear now…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No gear engaged in time</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::SteeringEndpoints</name>
    <message>
        <source>Invalid steering trim: left must not exceed center and center must not exceed right</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TavrixController</name>
    <message>
        <source>throttle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>brake</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Release the %1 and %2 pedals before starting transmission.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Release the %1 pedal before starting transmission.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop transmission before changing devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop configuring before starting transmission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RP2040 Bridge not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission stopped for safety: %1. Verify the pedals and press Start Transmission again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop transmission before configuring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitter disconnected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TavrixSerialPort</name>
    <message>
        <source>%1: %2 stayed busy — it may be in use by another application, or the transmitter is still starting up. Wait a few seconds and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device disappeared from the system</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TelemetryGrid</name>
    <message>
        <source>%1 · stale</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TelemetryPlots</name>
    <message>
        <source>Lateral</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Longitudinal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vertical</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Link quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RSSI</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>G forces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>g</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radio link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LQ %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dBm</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::ThemeSwitcher</name>
    <message>
        <source>The HUB restarts to change its colours.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission is running and will stop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark mode from the next start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light mode from the next start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restart now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next time</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TransmissionDialog</name>
    <message>
        <source>Transmitter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto-start transmission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starts transmission once, as soon as the transmitter and the vehicle&apos;s controls are connected. A refused start (a pedal pressed) is not retried, and nothing starts again by itself after a stop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radio settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The ExpressLRS module&apos;s own settings, read and changed in configuration mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing read yet. Reading keeps the transmitter in configuration mode until this dialog closes; transmission cannot start meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TransmissionDialogBinder</name>
    <message>
        <source>Reading the radio settings stopped: configuration mode was left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission is running. Stop it to read or change the radio settings: the module takes settings only while no channels are sent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect the transmitter to read its radio settings.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TransmitterCard</name>
    <message>
        <source>Transmitter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orvane Transmitter over USB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug the Orvane Transmitter in over USB; its port appears here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitter settings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::TransmitterLink</name>
    <message>
        <source>Lost connection to the Orvane Transmitter and could not reconnect. Check the USB cable and press Connect.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::VehiclePage</name>
    <message>
        <source>Vehicles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The sixteen RC channels, sent every 7 ms while transmission runs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop transmission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start transmission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmitting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profiles…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::VehiclePageBinder</name>
    <message>
        <source>Switch to a profile for this vehicle before starting transmission.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The active profile “%1” drives a car.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fly with a helicopter profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The active profile “%1” flies a helicopter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive with a car profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::VehiclesPage</name>
    <message>
        <source>Vehicles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose what you want to drive or fly.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive with a sim-racing wheel, pedals and shifter, with force feedback from the car&apos;s motion.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Helicopter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fly with a joystick, a throttle and pedals, with arming and rate modes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RC Airplane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fixed-wing models with a joystick and throttle.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Coming soon</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::WheelFfbDialog</name>
    <message>
        <source>Wheel force feedback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compatibility</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the wheel base allows; the first &quot;no&quot; is what to fix.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel detected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force feedback capable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exclusive access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering FFB axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Constant-force effect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run the check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Feel the car</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The car&apos;s lateral and longitudinal G, bumps as a vibration.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strength</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Centering spring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>◀ Test Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test Right ▶</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>err %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FFB ON — streaming from car (click to stop)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enable force feedback</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>tavrix::WheelFfbDialogBinder</name>
    <message>
        <source>Could not enable FFB — re-check the wheel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No FFB-capable wheel connected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
