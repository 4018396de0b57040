#include "commandlinereference.h"

#include "commandlineoptions.h"
#include "deviceroles.h"
#include "inputbackendfactory.h"
#include "motionwebpanel.h"
#include "screenshotmode.h"

namespace tavrix {

namespace {

CommandLineOptionInfo option(QStringList names, QString value, QString description)
{
    return CommandLineOptionInfo{std::move(names), std::move(value), std::move(description)};
}

CommandLineOptionInfo option(const char *name, QString value, QString description)
{
    return option(QStringList{QString::fromLatin1(name)}, std::move(value), std::move(description));
}

CommandLineSection modes()
{
    return {
        QStringLiteral("Modes"),
        {
            option(
                "headless", {},
                QStringLiteral("Run without a window, logging to stdout and stderr; SIGINT or SIGTERM "
                               "stops transmission (\"STOP\" goes to the bridge) and exits with status 0.")),
            option("demo", {},
                   QStringLiteral("Run against the built-in bridge simulator and a virtual wheel, pedals and "
                                  "shifter playing a looping drive; needs no hardware and never touches your "
                                  "profiles. Works with and without --headless.")),
            option("list-devices", {},
                   QStringLiteral("Print the game controllers (index, label, preset, GUID) and exit.")),
            option({QStringLiteral("h"), QStringLiteral("help"), QStringLiteral("?")}, {},
                   QStringLiteral("Print this help and exit.")),
            option({QStringLiteral("v"), QStringLiteral("version")}, {},
                   QStringLiteral("Print the version and exit.")),
            option("elrs-list", {},
                   QStringLiteral("With --transmitter: walk the transmitter module's ELRS parameters, print "
                                  "them as a tree and exit (1 when the walk fails).")),
            option("elrs-set", QStringLiteral("NAME=OPTION"),
                   QStringLiteral("Write a selection by name first (repeatable; implies --elrs-list).")),
            option(
                "flash-v4", QStringLiteral("<port> <firmware.bin>"),
                QStringLiteral("Write a firmware image (its .json description beside it) into the receiver "
                               "V4 on that USB-UART cable, printing the log and progress; exits 0 on "
                               "\"Update complete\", 1 otherwise. Stands alone on the command line.")),
            option("read-board", QStringLiteral("<port>"),
                   QStringLiteral("Identify the receiver V4 on that cable (its firmware, or its bootloader's "
                                  "chip) and exit.")),
            option(
                "check-image", QStringLiteral("<firmware.bin>"),
                QStringLiteral("Run the image checks on a receiver V4 firmware file and print the verdict; "
                               "writes nothing.")),
        },
        {},
    };
}

CommandLineSection windowAndHeadless()
{
    const QString firstPanelPort = QString::number(MotionWebPanel::kDefaultPort);
    const QString lastPanelPort = QString::number(MotionWebPanel::kDefaultPort + 9);
    return {
        QStringLiteral("Window and headless options"),
        {
            option("remote-port", QStringLiteral("<port>"),
                   QStringLiteral("The mobile app's WebSocket port (default 12345; 0 turns the remote server "
                                  "off).")),
            option("remote-address", QStringLiteral("<ip>"),
                   QStringLiteral("Listen only on this address (default: every interface). The hub's mDNS "
                                  "name is answered unless this is a loopback address.")),
            option(
                "motion-output", QStringLiteral("<ip:port>"),
                QStringLiteral("Stream the car's motion as DiRT Rally telemetry to motion software (SimHub, "
                               "FlyPT Mover, SimTools) at this address for this run, such as "
                               "127.0.0.1:20777. The saved setting is kept.")),
            option("motion", QStringLiteral("<port>"),
                   QStringLiteral("Connect the motion platform's controller board at the start. Headless "
                                  "without a transmitter, the hub runs the platform alone; SIGINT or SIGTERM "
                                  "sends it Release (motors off) before exiting.")),
            option("motion-platform", QStringLiteral("2|3|5"),
                   QStringLiteral("With --motion: the platform (2DOF, 3DOF, 5DOF; default: the last one "
                                  "chosen).")),
            option("update-url", QStringLiteral("<url>"),
                   QStringLiteral("Read the firmware update manifest from this http(s) address for this run "
                                  "instead of the saved one.")),
            option("web-panel", {},
                   QStringLiteral("Start the motion platforms' web panel for phones on this network (first "
                                  "free port of %1-%2; its address is logged).")
                       .arg(firstPanelPort, lastPanelPort)),
            option("web-panel-port", QStringLiteral("<port>"),
                   QStringLiteral("Start it on the first free port of <port> and the nine after.")),
            option("log-file", QStringLiteral("<path>"),
                   QStringLiteral("Write the log to this file instead of the state folder's orvanehub.log "
                                  "(rotated at 1 MiB, five files kept).")),
        },
        {},
    };
}

CommandLineSection headlessOnly()
{
    CommandLineSection section{
        QStringLiteral("Headless options"),
        {
            option("transmitter", QStringLiteral("<port>"),
                   QStringLiteral("The transmitter's serial port (default: the port remembered in the active "
                                  "profile).")),
            option("baud", QStringLiteral("<rate>"),
                   QStringLiteral("Its baud rate (default 115200, or the rate remembered with the profile's "
                                  "port).")),
            option(
                "receiver", QStringLiteral("<port>"),
                QStringLiteral("The car receiver's USB serial console (115200 baud), connected at the start "
                               "and remembered in the profile. It never starts or stops transmission.")),
            option("vehicle", QStringLiteral("car|heli"),
                   QStringLiteral("Use the last used profile of that vehicle type (made when there is none) "
                                  "instead of the active one.")),
            option(
                "start", {},
                QStringLiteral("Start transmission once, as soon as the transmitter and the devices are "
                               "connected. The start checks still apply: a refusal (pedals pressed, a device "
                               "missing) is printed and the start is tried again every 500 ms until it "
                               "succeeds. After any stop it never starts again by itself: start deliberately "
                               "(window, mobile app or a new process).")),
            option("record", QStringLiteral("<folder>"),
                   QStringLiteral("Record the drive into a new CSV file in this folder (one row per frame "
                                  "sent: controls, channels, telemetry), saved when the hub stops.")),
        },
        QStringLiteral(
            "<device> is an index as --list-devices numbers the controllers (0, 1, ...) or a device "
            "name. Roles not given use the devices saved in the profile."),
    };
    // The roles come from the role table, each taking a device.
    for (const DeviceRoleInfo &role : deviceRoles()) {
        const QString name(role.option);
        section.options.append(option(
            QStringList{name}, QStringLiteral("<device>"),
            role.helicopter ? QStringLiteral("The helicopter's %1 (with --vehicle heli).").arg(role.name)
                            : QStringLiteral("The car's %1.").arg(role.name)));
    }
    return section;
}

QList<CommandLineTerm> environment()
{
    const auto name = [](const char *variable) { return QString::fromLatin1(variable); };
    return {
        {name(kInputSelectionVariable) + QStringLiteral("=virtual:FILE"),
         QStringLiteral("Play game controllers from a replay file (JSON lines) instead of using real ones, "
                        "for demonstrations and tests without hardware.")},
        {name(ScreenshotMode::kDirectoryVariable),
         QStringLiteral("Write a picture of every page of the window into this folder and exit (the "
                        "screenshot mode).")},
        {name(ScreenshotMode::kSizeVariable),
         QStringLiteral("The window's size for those pictures, WIDTHxHEIGHT such as 1280x800.")},
        {name(ScreenshotMode::kDialogsVariable),
         QStringLiteral("When set, the screenshot mode also opens and saves every dialog.")},
        {QStringLiteral("QT_QPA_PLATFORM"),
         QStringLiteral(
             "Qt's display platform; offscreen runs the window without a display (as the screenshot "
             "mode does). The modes without a window need no display at all.")},
        {QStringLiteral("QT_LOGGING_RULES"),
         QStringLiteral(
             "Qt's logging rules; orvane.*.debug=true shows the debug lines the headless mode keeps "
             "off (serial link, drive, receiver, motion, remote server).")},
        {QStringLiteral("LANGUAGE, LC_ALL, LC_MESSAGES, LANG"),
         QStringLiteral("The window's language: German when the system asks for it, else English.")},
        {QStringLiteral("XDG_CONFIG_HOME, XDG_DATA_HOME, XDG_CACHE_HOME, XDG_STATE_HOME"),
         QStringLiteral("Where the settings, the profiles, the firmware downloads and the log are kept (see "
                        "FILES).")},
    };
}

QList<CommandLineTerm> files()
{
    return {
        {QStringLiteral("~/.config/OrvaneLabs/OrvaneLabs HUB.conf"),
         QStringLiteral("Settings outside the profiles, such as the theme and the firmware update address.")},
        {QStringLiteral("~/.config/OrvaneLabs/MotionSystem.conf"),
         QStringLiteral("The motion platform's settings.")},
        {QStringLiteral("~/.local/share/OrvaneLabs/OrvaneLabs HUB/profiles/"),
         QStringLiteral("The vehicle profiles (one JSON file each), the active profile (config.json) and the "
                        "ESC presets.")},
        {QStringLiteral("~/.cache/OrvaneLabs/OrvaneLabs HUB/firmware/"),
         QStringLiteral("Downloaded firmware images.")},
        {QStringLiteral("~/.local/state/OrvaneLabs/orvanehub.log"),
         QStringLiteral("The log of the window and headless runs, with orvanehub.log.1 to .4 before it "
                        "(--log-file picks another file).")},
        {QStringLiteral("/etc/default/orvanehub"),
         QStringLiteral("ORVANEHUB_OPTS, the options of the handle-mode service orvanehub-handle.service.")},
        {QStringLiteral("/var/lib/orvanehub/"),
         QStringLiteral(
             "The service's state folder: its settings and profiles, as ~/.config and ~/.local/share "
             "are for a user. It logs to the journal (journalctl -u orvanehub-handle).")},
    };
}

QList<CommandLineTerm> exitStatuses()
{
    return {
        {QStringLiteral("0"), QStringLiteral("A clean stop (the window closed, SIGINT or SIGTERM), or the "
                                             "information asked for was printed.")},
        {QString::number(kCannotRunExitCode),
         QStringLiteral("The run cannot go on (a port that does not open, a failed ELRS walk, a demo that "
                        "cannot start).")},
        {QString::number(kBadUsageExitCode),
         QStringLiteral("A bad command line, or an unusable game-controller selection.")},
    };
}

} // namespace

QString CommandLineOptionInfo::longName() const
{
    for (const QString &name : names) {
        if (name.size() > 1)
            return name;
    }
    return names.value(0);
}

QList<CommandLineOptionInfo> CommandLineReference::allOptions() const
{
    QList<CommandLineOptionInfo> options;
    for (const CommandLineSection &section : sections)
        options.append(section.options);
    return options;
}

const CommandLineReference &commandLineReference()
{
    static const CommandLineReference reference{
        QStringLiteral("drive an RC car or fly an RC helicopter with game controllers through the Orvane "
                       "Transmitter"),
        QStringLiteral(
            "OrvaneLabs HUB turns a sim-racing wheel, pedals, shifter or joystick into RC channels and "
            "streams them to the Orvane Transmitter every 7 ms. Without options it opens its "
            "window."),
        {modes(), windowAndHeadless(), headlessOnly()},
        environment(),
        files(),
        exitStatuses(),
    };
    return reference;
}

QString dashedNames(const CommandLineOptionInfo &option)
{
    QStringList dashed;
    for (const QString &name : option.names) {
        if (name == QLatin1String("?"))
            continue; // accepted for habit's sake, not worth a mention
        dashed.append((name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name);
    }
    return dashed.join(QStringLiteral(", "));
}

} // namespace tavrix
