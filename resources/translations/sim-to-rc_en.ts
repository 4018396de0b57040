<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>HelicopterComputation</name>
    <message>
        <source>Lower the collective before arming the motor.</source>
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
        <source>It drives with its saved values and defaults; the editors for them come in a later version.</source>
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
</context>
<context>
    <name>tavrix::HeliPageBinder</name>
    <message>
        <source>Start transmission before arming.</source>
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
        <source>Motion platforms come in a later version of the HUB. You can look at the platforms here; none of them can be connected or driven yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two actuators for pitch and roll. A compact start for a seat or a cockpit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Three actuators for pitch, roll and heave.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Five axes for full rigs: pitch, roll, heave, surge and sway.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1DOF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later version</source>
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
        <source>Motion platforms come in a later version of the HUB. This page shows no live controls.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Platform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Degrees of freedom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion controller</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not available yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting the USB motion controller, testing the actuators and the phone web panel come with motion platform support.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1DOF motion platform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What this platform will do once motion support arrives.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actuators</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the seat in pitch and roll.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the seat in pitch, roll and heave.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the seat in pitch, roll, heave, surge and sway.</source>
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
        <source>Disconnect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect</source>
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
        <source>No ports</source>
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
</TS>
