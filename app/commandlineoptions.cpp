#include "commandlineoptions.h"

#include "motionwebpanel.h"
#include "updateaddress.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <array>

namespace tavrix {

namespace {

constexpr qint32 kLowestBaudRate = 1200;
constexpr qint32 kHighestBaudRate = 12000000;
// Far more than any machine has game controllers; a bigger number is a typo.
constexpr int kHighestDeviceIndex = 255;

QString dashed(QLatin1StringView name)
{
    return QStringLiteral("--") + name;
}

// Digits (with an optional sign) are an index; anything else is a device name.
std::optional<DeviceChoice> parseDeviceChoice(const QString &value, QString *error, QLatin1StringView option)
{
    const QString text = value.trimmed();
    if (text.isEmpty()) {
        *error = QStringLiteral("%1 needs a device index (0, 1, ...) or a device name").arg(dashed(option));
        return std::nullopt;
    }
    static const QRegularExpression number(QStringLiteral("^[+-]?[0-9]+$"));
    if (!number.match(text).hasMatch())
        return DeviceChoice{-1, text};
    bool ok = false;
    const int index = text.toInt(&ok);
    if (!ok || index < 0 || index > kHighestDeviceIndex) {
        *error = QStringLiteral("%1: \"%2\" is not a device index (0 to %3, as --list-devices numbers them)")
                     .arg(dashed(option), text)
                     .arg(kHighestDeviceIndex);
        return std::nullopt;
    }
    return DeviceChoice{index, QString()};
}

// The options that only make sense without a window, by their dashed name, when set.
QStringList headlessOnlyOptions(const QCommandLineParser &parser)
{
    QStringList set;
    for (const char *name : {"transmitter", "baud", "receiver", "vehicle", "start"}) {
        if (parser.isSet(QLatin1String(name)))
            set.append(dashed(QLatin1StringView(name)));
    }
    for (const DeviceRoleInfo &role : deviceRoles()) {
        if (parser.isSet(role.option))
            set.append(dashed(role.option));
    }
    return set;
}

QString parseRemoteOptions(const QCommandLineParser &parser, CommandLineOptions &options)
{
    if (parser.isSet(QStringLiteral("remote-port"))) {
        const QString text = parser.value(QStringLiteral("remote-port"));
        bool ok = false;
        const uint port = text.trimmed().toUInt(&ok);
        if (!ok || port > 65535)
            return QStringLiteral("--remote-port: \"%1\" is not a port (0 to 65535; 0 turns the server off)")
                .arg(text);
        options.remotePort = quint16(port);
    }
    if (parser.isSet(QStringLiteral("remote-address"))) {
        const QString text = parser.value(QStringLiteral("remote-address"));
        if (!options.remoteAddress.setAddress(text.trimmed()))
            return QStringLiteral("--remote-address: \"%1\" is not an IP address").arg(text);
    }
    return {};
}

QString parseUpdateUrl(const QCommandLineParser &parser, CommandLineOptions &options)
{
    const QString option = QStringLiteral("update-url");
    if (!parser.isSet(option))
        return {};
    options.updateUrl = updateUrlFromText(parser.value(option));
    if (options.updateUrl.isEmpty())
        return QStringLiteral("--update-url: \"%1\" is not an http:// or https:// address")
            .arg(parser.value(option));
    return {};
}

// IP:PORT ("[::1]:20777" for IPv6): a name would need a lookup the
// sender never makes, so it is refused here rather than silently sent to this machine.
QString parseMotionOutput(const QCommandLineParser &parser, CommandLineOptions &options)
{
    const QString option = QStringLiteral("motion-output");
    if (!parser.isSet(option))
        return {};
    const QString text = parser.value(option).trimmed();
    const QString problem =
        QStringLiteral("--motion-output: \"%1\" is not IP:PORT, such as 127.0.0.1:20777").arg(text);
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    if (colon <= 0)
        return problem;
    QString host = text.left(colon);
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    bool ok = false;
    const uint port = text.mid(colon + 1).toUInt(&ok);
    if (!ok || port == 0 || port > 65535 || QHostAddress(host).isNull())
        return problem;
    options.motionOutputHost = host;
    options.motionOutputPort = quint16(port);
    return {};
}

// The board may sit beside the transmitter and the receiver, never on one of their ports.
QString parseMotionPlatform(const QCommandLineParser &parser, CommandLineOptions &options)
{
    const QString port = QStringLiteral("motion");
    const QString platform = QStringLiteral("motion-platform");
    if (parser.isSet(port)) {
        options.motionPort = parser.value(port).trimmed();
        if (options.motionPort.isEmpty())
            return QStringLiteral("--motion needs a serial port, such as /dev/ttyACM1 or COM5");
        if (options.motionPort == options.transmitterPort || options.motionPort == options.receiverPort)
            return QStringLiteral("--motion cannot share the port %1").arg(options.motionPort);
    }
    if (parser.isSet(platform)) {
        if (!parser.isSet(port))
            return QStringLiteral("--motion-platform needs --motion, the motion controller's port");
        const QString text = parser.value(platform).trimmed();
        if (text != QLatin1String("2") && text != QLatin1String("3") && text != QLatin1String("5"))
            return QStringLiteral("--motion-platform must be 2, 3 or 5 (degrees of freedom), not \"%1\"")
                .arg(text);
        options.motionPlatform = text.toInt();
    }
    return {};
}

// --web-panel starts the phone's motion page at its usual port; --web-panel-port picks another
// first port (and implies --web-panel).
QString parseWebPanel(const QCommandLineParser &parser, CommandLineOptions &options)
{
    const QString portOption = QStringLiteral("web-panel-port");
    if (parser.isSet(portOption)) {
        const QString text = parser.value(portOption);
        bool ok = false;
        const uint port = text.trimmed().toUInt(&ok);
        if (!ok || port == 0 || port > 65535)
            return QStringLiteral("--web-panel-port: \"%1\" is not a port (1 to 65535)").arg(text);
        options.webPanelPort = quint16(port);
    } else if (parser.isSet(QStringLiteral("web-panel"))) {
        options.webPanelPort = MotionWebPanel::kDefaultPort;
    }
    return {};
}

QString parseBaudRate(const QCommandLineParser &parser, CommandLineOptions &options)
{
    const QString baud = QStringLiteral("baud");
    if (parser.isSet(baud)) {
        bool ok = false;
        const qint32 rate = parser.value(baud).trimmed().toInt(&ok);
        if (!ok || rate < kLowestBaudRate || rate > kHighestBaudRate) {
            return QStringLiteral("--baud: \"%1\" is not a baud rate (a whole number from %2 to %3)")
                .arg(parser.value(baud))
                .arg(kLowestBaudRate)
                .arg(kHighestBaudRate);
        }
        options.baudRate = rate;
    }
    return {};
}

// --elrs-list and --elrs-set talk to the transmitter module and exit: they need its port.
QString parseElrsOptions(const QCommandLineParser &parser, CommandLineOptions &options)
{
    options.action = CommandLineOptions::Action::ElrsList;
    for (const QString &setting : parser.values(QStringLiteral("elrs-set"))) {
        const qsizetype equals = setting.indexOf(QLatin1Char('='));
        if (equals <= 0 || equals == setting.size() - 1)
            return QStringLiteral("--elrs-set: \"%1\" is not NAME=OPTION, such as \"Packet Rate=250Hz\"")
                .arg(setting);
        options.elrsSettings.append(setting);
    }
    options.transmitterPort = parser.value(QStringLiteral("transmitter")).trimmed();
    if (options.transmitterPort.isEmpty())
        return QStringLiteral("--elrs-list needs --transmitter, the transmitter's serial port");
    return {};
}

// The receiver V4 tools stand alone: anything else on the command line is a mistake.
QString parseReceiverV4Tools(const QCommandLineParser &parser, CommandLineOptions &options)
{
    const QString flash = QStringLiteral("flash-v4");
    const QString readBoard = QStringLiteral("read-board");
    const QString checkImage = QStringLiteral("check-image");
    const QString chosen = parser.isSet(flash) ? flash : parser.isSet(readBoard) ? readBoard : checkImage;
    for (const QString &name : parser.optionNames()) {
        if (name != chosen)
            return QStringLiteral("--%1 cannot be combined with --%2").arg(chosen, name);
    }
    const QStringList positional = parser.positionalArguments();
    if (chosen == flash) {
        options.action = CommandLineOptions::Action::FlashV4;
        options.boardPort = parser.value(flash).trimmed();
        options.firmwareFile = positional.value(0).trimmed();
        if (options.boardPort.isEmpty() || options.firmwareFile.isEmpty() || positional.size() != 1)
            return QStringLiteral("--flash-v4 needs the cable's port and one firmware file, such as "
                                  "--flash-v4 /dev/ttyUSB0 receiver-v4.bin");
        return {};
    }
    if (!positional.isEmpty())
        return QStringLiteral("unexpected argument \"%1\"").arg(positional.constFirst());
    if (chosen == readBoard) {
        options.action = CommandLineOptions::Action::ReadBoard;
        options.boardPort = parser.value(readBoard).trimmed();
        if (options.boardPort.isEmpty())
            return QStringLiteral("--read-board needs the cable's serial port, such as /dev/ttyUSB0");
        return {};
    }
    options.action = CommandLineOptions::Action::CheckImage;
    options.firmwareFile = parser.value(checkImage).trimmed();
    if (options.firmwareFile.isEmpty())
        return QStringLiteral("--check-image needs a firmware file");
    return {};
}

QString parseInto(QCommandLineParser &parser, const QStringList &arguments, CommandLineOptions &options)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help"), QStringLiteral("?")},
                                  QString());
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")}, QString());
    const QCommandLineOption headless(QStringLiteral("headless"), QString());
    const QCommandLineOption listDevices(QStringLiteral("list-devices"), QString());
    const QCommandLineOption demo(QStringLiteral("demo"), QString());
    const QCommandLineOption start(QStringLiteral("start"), QString());
    const QCommandLineOption transmitter(QStringLiteral("transmitter"), QString(), QStringLiteral("port"));
    const QCommandLineOption baud(QStringLiteral("baud"), QString(), QStringLiteral("rate"));
    const QCommandLineOption receiver(QStringLiteral("receiver"), QString(), QStringLiteral("port"));
    const QCommandLineOption vehicle(QStringLiteral("vehicle"), QString(), QStringLiteral("type"));
    const QCommandLineOption remotePort(QStringLiteral("remote-port"), QString(), QStringLiteral("port"));
    const QCommandLineOption remoteAddress(QStringLiteral("remote-address"), QString(),
                                           QStringLiteral("address"));
    const QCommandLineOption motionOutput(QStringLiteral("motion-output"), QString(),
                                          QStringLiteral("host:port"));
    const QCommandLineOption updateUrl(QStringLiteral("update-url"), QString(), QStringLiteral("url"));
    const QCommandLineOption motion(QStringLiteral("motion"), QString(), QStringLiteral("port"));
    const QCommandLineOption motionPlatform(QStringLiteral("motion-platform"), QString(),
                                            QStringLiteral("dof"));
    const QCommandLineOption webPanel(QStringLiteral("web-panel"), QString());
    const QCommandLineOption webPanelPort(QStringLiteral("web-panel-port"), QString(),
                                          QStringLiteral("port"));
    const QCommandLineOption logFile(QStringLiteral("log-file"), QString(), QStringLiteral("path"));
    const QCommandLineOption elrsList(QStringLiteral("elrs-list"), QString());
    const QCommandLineOption elrsSet(QStringLiteral("elrs-set"), QString(), QStringLiteral("setting"));
    const QCommandLineOption flashV4(QStringLiteral("flash-v4"), QString(), QStringLiteral("port"));
    const QCommandLineOption readBoard(QStringLiteral("read-board"), QString(), QStringLiteral("port"));
    const QCommandLineOption checkImage(QStringLiteral("check-image"), QString(), QStringLiteral("file"));
    parser.addOptions({help,         version,   headless, listDevices,    demo,       start,
                       transmitter,  baud,      receiver, vehicle,        remotePort, remoteAddress,
                       motionOutput, updateUrl, motion,   motionPlatform, webPanel,   webPanelPort,
                       logFile,      elrsList,  elrsSet,  flashV4,        readBoard,  checkImage});
    for (const DeviceRoleInfo &role : deviceRoles())
        parser.addOption(QCommandLineOption(QString(role.option), QString(), QStringLiteral("device")));

    if (!parser.parse(arguments))
        return parser.errorText();
    if (parser.isSet(help)) {
        options.action = CommandLineOptions::Action::Help;
        return {};
    }
    if (parser.isSet(flashV4) || parser.isSet(readBoard) || parser.isSet(checkImage))
        return parseReceiverV4Tools(parser, options);
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst());
    if (parser.isSet(version)) {
        options.action = CommandLineOptions::Action::Version;
        return {};
    }
    if (parser.isSet(listDevices)) {
        options.action = CommandLineOptions::Action::ListDevices;
        return {};
    }

    if (parser.isSet(elrsList) || parser.isSet(elrsSet)) {
        if (const QString error = parseElrsOptions(parser, options); !error.isEmpty())
            return error;
        return parseBaudRate(parser, options);
    }
    options.demo = parser.isSet(demo);
    if (const QString error = parseRemoteOptions(parser, options); !error.isEmpty())
        return error;
    if (const QString error = parseMotionOutput(parser, options); !error.isEmpty())
        return error;
    if (const QString error = parseUpdateUrl(parser, options); !error.isEmpty())
        return error;
    if (const QString error = parseWebPanel(parser, options); !error.isEmpty())
        return error;
    if (parser.isSet(logFile)) {
        options.logFile = parser.value(logFile).trimmed();
        if (options.logFile.isEmpty())
            return QStringLiteral("--log-file needs a file path");
    }
    options.action =
        parser.isSet(headless) ? CommandLineOptions::Action::Headless : CommandLineOptions::Action::Window;

    const QStringList headlessOnly = headlessOnlyOptions(parser);
    if (options.action == CommandLineOptions::Action::Window && !headlessOnly.isEmpty())
        return QStringLiteral("%1 needs --headless (the window has its own controls)")
            .arg(headlessOnly.first());
    if (options.demo) {
        // The demo brings the bridge and the controllers, not the car's receiver.
        const QStringList ownRig =
            headlessOnly.filter(QRegularExpression(QStringLiteral("^--(?!start$|receiver$)")));
        if (!ownRig.isEmpty())
            return QStringLiteral(
                       "%1 cannot be used with --demo, which brings its own transmitter and devices")
                .arg(ownRig.first());
        options.start = true;
    }

    if (parser.isSet(transmitter)) {
        options.transmitterPort = parser.value(transmitter).trimmed();
        if (options.transmitterPort.isEmpty())
            return QStringLiteral("--transmitter needs a serial port, such as /dev/ttyACM0 or COM3");
    }
    if (const QString error = parseBaudRate(parser, options); !error.isEmpty())
        return error;
    if (parser.isSet(receiver)) {
        options.receiverPort = parser.value(receiver).trimmed();
        if (options.receiverPort.isEmpty())
            return QStringLiteral("--receiver needs a serial port, such as /dev/ttyUSB0 or COM4");
        if (options.receiverPort == options.transmitterPort)
            return QStringLiteral("--receiver and --transmitter cannot share the port %1")
                .arg(options.receiverPort);
    }
    if (parser.isSet(vehicle)) {
        const QString type = parser.value(vehicle).trimmed().toLower();
        if (type == QLatin1String("car"))
            options.vehicle = VehicleType::Car;
        else if (type == QLatin1String("heli"))
            options.vehicle = VehicleType::Helicopter;
        else
            return QStringLiteral("--vehicle must be car or heli, not \"%1\"").arg(parser.value(vehicle));
    }
    options.start = options.start || parser.isSet(start);
    if (const QString error = parseMotionPlatform(parser, options); !error.isEmpty())
        return error;

    const bool helicopter = options.vehicle == VehicleType::Helicopter;
    for (const DeviceRoleInfo &role : deviceRoles()) {
        if (!parser.isSet(role.option))
            continue;
        if (role.helicopter && !helicopter)
            return QStringLiteral("%1 is a helicopter role: add --vehicle heli").arg(dashed(role.option));
        if (!role.helicopter && helicopter)
            return QStringLiteral("%1 is a car role and cannot be used with --vehicle heli")
                .arg(dashed(role.option));
        QString error;
        const std::optional<DeviceChoice> choice =
            parseDeviceChoice(parser.value(role.option), &error, role.option);
        if (!choice)
            return error;
        options.devices.append(RoleChoice{role.role, *choice});
    }
    return {};
}

} // namespace

QString DeviceChoice::describe() const
{
    return isByIndex() ? QStringLiteral("#%1").arg(index) : QStringLiteral("\"%1\"").arg(name);
}

CommandLineParse parseCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    // "-platform" and friends are Qt's own, not a bundle of single-letter options.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    CommandLineParse result;
    result.error = parseInto(parser, arguments, result.options);
    if (!result.isValid())
        result.options = CommandLineOptions();
    return result;
}

QString commandLineHelp()
{
    return QStringLiteral(
        "Usage: orvanehub [options]\n"
        "\n"
        "OrvaneLabs HUB: drive an RC car or fly an RC helicopter with game controllers through the\n"
        "Orvane Transmitter. Without options it opens its window.\n"
        "\n"
        "Modes:\n"
        "  --headless             Run without a window, logging to stdout and stderr; SIGINT or\n"
        "                         SIGTERM stops transmission (\"STOP\" goes to the bridge) and\n"
        "                         exits with status 0.\n"
        "  --demo                 Run against the built-in bridge simulator and a virtual wheel,\n"
        "                         pedals and shifter playing a looping drive; needs no hardware and\n"
        "                         never touches your profiles. Works with and without --headless.\n"
        "  --list-devices         Print the game controllers (index, label, preset, GUID) and exit.\n"
        "  -h, --help             Print this help and exit.\n"
        "  -v, --version          Print the version and exit.\n"
        "\n"
        "  --elrs-list            With --transmitter: walk the transmitter module's ELRS\n"
        "                         parameters, print them as a tree and exit (1 when the walk fails).\n"
        "  --elrs-set NAME=OPTION Write a selection by name first (repeatable; implies --elrs-list).\n"
        "\n"
        "Receiver V4 firmware (over a USB-UART cable on its J14 header; each runs alone):\n"
        "  --flash-v4 <port> <firmware.bin>\n"
        "                         Check the firmware file (its description .json lies beside it),\n"
        "                         write it into the receiver and start it, printing the log and\n"
        "                         progress. Switch the board off and on when asked. SIGINT or\n"
        "                         SIGTERM cancels (the board stays in its bootloader). Exit status\n"
        "                         0 once the receiver runs the new version, 1 otherwise.\n"
        "  --read-board <port>    Identify the board: its firmware version and hardware, or the\n"
        "                         bootloader's chip ID when no firmware runs (1: no answer).\n"
        "  --check-image <firmware.bin>\n"
        "                         Run the firmware file's checks and print the verdict (1: refused);\n"
        "                         opens no port, writes nothing.\n"
        "\n"
        "Window and headless options:\n"
        "  --remote-port <port>   The mobile app's WebSocket port (default 12345; 0 turns the\n"
        "                         remote server off).\n"
        "  --remote-address <ip>  Listen only on this address (default: every interface). The\n"
        "                         hub's mDNS name is answered unless this is a loopback address.\n"
        "  --motion-output <ip:port>\n"
        "                         Stream the car's motion as DiRT Rally telemetry to motion\n"
        "                         software (SimHub, FlyPT Mover, SimTools) at this address for\n"
        "                         this run, such as 127.0.0.1:20777. The saved setting is kept.\n"
        "  --motion <port>        Connect the motion platform's controller board at the start.\n"
        "                         Headless without a transmitter, the hub runs the platform alone;\n"
        "                         SIGINT or SIGTERM sends it Release (motors off) before exiting.\n"
        "  --motion-platform 2|3|5\n"
        "                         With --motion: the platform (2DOF, 3DOF, 5DOF; default: the last\n"
        "                         one chosen).\n"
        "  --update-url <url>     Read the firmware update manifest from this http(s) address for\n"
        "                         this run instead of the saved one.\n"
        "  --web-panel            Start the motion platforms' web panel for phones on this\n"
        "                         network (first free port of 8090-8099; its address is logged).\n"
        "  --web-panel-port <port>\n"
        "                         Start it on the first free port of <port> and the nine after.\n"
        "  --log-file <path>      Write the log to this file instead of the state folder's\n"
        "                         orvanehub.log (~/.local/state/OrvaneLabs, rotated at 1 MiB,\n"
        "                         five files kept).\n"
        "\n"
        "Headless options:\n"
        "  --transmitter <port>   The transmitter's serial port (default: the port remembered in\n"
        "                         the active profile).\n"
        "  --baud <rate>          Its baud rate (default 115200, or the rate remembered with the\n"
        "                         profile's port).\n"
        "  --receiver <port>      The car receiver's USB serial console (115200 baud), connected\n"
        "                         at the start and remembered in the profile. It never starts or\n"
        "                         stops transmission.\n"
        "  --vehicle car|heli     Use the last used profile of that vehicle type (made when there\n"
        "                         is none) instead of the active one.\n"
        "  --wheel <device>       Car roles: wheel base, pedals, shifter.\n"
        "  --pedals <device>\n"
        "  --shifter <device>\n"
        "  --joystick <device>    Helicopter roles (with --vehicle heli): joystick, throttle,\n"
        "  --throttle <device>    rudder pedals.\n"
        "  --rudder <device>\n"
        "                         <device> is an index as --list-devices numbers the controllers\n"
        "                         (0, 1, ...) or a device name. Roles not given use the devices\n"
        "                         saved in the profile.\n"
        "  --start                Start transmission once, as soon as the transmitter and the\n"
        "                         devices are connected. The start checks still apply: a refusal\n"
        "                         (pedals pressed, a device missing) is printed and the start is\n"
        "                         tried again every 500 ms until it succeeds. After any stop it\n"
        "                         never starts again by itself: start deliberately (window, mobile\n"
        "                         app or a new process).\n"
        "\n"
        "Environment:\n"
        "  ORVANEHUB_INPUT=virtual:FILE   Play game controllers from a replay file instead of\n"
        "                                 using real ones (see tools/replays/README.md).\n"
        "\n"
        "Exit status: 0 after a clean stop, 1 when the run cannot go on, 2 for a bad command line.\n");
}

} // namespace tavrix
