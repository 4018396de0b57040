#pragma once

#include "controllertypes.h"
#include "profilemanager.h"

#include <QHostAddress>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace tavrix {

// Exit status of a run that cannot go on (a port that does not open, a failed walk).
inline constexpr int kCannotRunExitCode = 1;
// Exit status of a command line that cannot be honoured (unknown option, bad value, conflict).
inline constexpr int kBadUsageExitCode = 2;

// Which game controller serves a role: its position in the enumeration (as the device lists
// and `--list-devices` show them, from 0) or its name.
struct DeviceChoice
{
    int index = -1;
    QString name;

    [[nodiscard]] bool isByIndex() const { return index >= 0; }
    // "#1" or "\"MOZA R9 Base\"", for messages.
    [[nodiscard]] QString describe() const;
    friend bool operator==(const DeviceChoice &, const DeviceChoice &) = default;
};

struct RoleChoice
{
    DeviceRole role = DeviceRole::WheelBase;
    DeviceChoice device;
    friend bool operator==(const RoleChoice &, const RoleChoice &) = default;
};

// What the command line asks of orvanehub, already checked for bad values and conflicts.
struct CommandLineOptions
{
    enum class Action
    {
        Window,      // the normal windowed hub
        Headless,    // no window: log lines only, stopped by SIGINT/SIGTERM
        ListDevices, // print the game-controller report and exit
        ElrsList,    // walk the transmitter module's ELRS parameters, write any asked, print them, exit
        FlashV4,     // write a firmware file into the receiver V4 over its USB-UART cable, exit
        ReadBoard,   // identify the receiver V4 on its cable, print it, exit
        CheckImage,  // run the receiver V4 image checks on a firmware file, print the verdict, exit
        Help,
        Version,
    };

    Action action = Action::Window;
    // The bridge simulator and a virtual rig instead of real hardware (window or headless).
    bool demo = false;
    // Empty: the port remembered in the active profile.
    QString transmitterPort;
    // Unset: 115200 with --transmitter, else the rate remembered with the port.
    std::optional<qint32> baudRate;
    // The car receiver's USB console, connected at the start; empty: left alone.
    QString receiverPort;
    // Unset: whatever the active profile is.
    std::optional<VehicleType> vehicle;
    // One per role named, in role order; roles not named use the device saved in the profile.
    QList<RoleChoice> devices;
    // Start transmission as soon as the transmitter and the devices are there.
    bool start = false;
    // Where the headless run records the drive; empty: no recording.
    QString recordingsFolder;
    // The mobile app's WebSocket server: its port (0: no server) and the address it listens
    // on (every interface unless told otherwise).
    quint16 remotePort = 12345;
    // ELRS selections to write by name before the parameters are printed ("NAME=OPTION").
    QStringList elrsSettings;
    QHostAddress remoteAddress{QHostAddress::Any};
    // Stream the car's motion to motion software at this address for this run (port 0: the
    // saved motion output settings decide).
    QString motionOutputHost;
    quint16 motionOutputPort = 0;
    // The firmware update manifest's address for this run; empty: the saved one.
    QUrl updateUrl;
    // The motion platform's controller board, connected at the start; empty: left alone.
    QString motionPort;
    // 2, 3 or 5 (degrees of freedom); unset: the platform chosen last time.
    std::optional<int> motionPlatform;
    // The motion web panel's first port to try; 0: the panel is not started.
    quint16 webPanelPort = 0;
    // Where the run's log goes on disk; empty: the state folder's rotating orvanehub.log.
    QString logFile;
    // The receiver V4's USB-UART cable (--flash-v4, --read-board).
    QString boardPort;
    // The receiver V4 firmware file, its description (.json) beside it (--flash-v4, --check-image).
    QString firmwareFile;
};

struct CommandLineParse
{
    CommandLineOptions options;
    // Why the command line cannot be used (exit with kBadUsageExitCode); empty when it can.
    QString error;

    [[nodiscard]] bool isValid() const { return error.isEmpty(); }
};

// Reads the program's arguments (the first is the program itself). Pure: prints nothing and
// needs no application object, so main() can decide between a window and none before making one.
[[nodiscard]] CommandLineParse parseCommandLine(const QStringList &arguments);

// The text `--help` prints, written from the option table (commandlinereference.h).
[[nodiscard]] QString commandLineHelp();

} // namespace tavrix
