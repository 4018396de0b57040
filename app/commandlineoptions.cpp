#include "commandlineoptions.h"

#include "commandlinereference.h"
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
    for (const char *name : {"transmitter", "baud", "receiver", "vehicle", "start", "record"}) {
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
    for (const CommandLineOptionInfo &info : commandLineReference().allOptions())
        parser.addOption(QCommandLineOption(info.names, info.description, info.value));
    const auto isSet = [&parser](const char *name) { return parser.isSet(QLatin1String(name)); };

    if (!parser.parse(arguments))
        return parser.errorText();
    if (isSet("help")) {
        options.action = CommandLineOptions::Action::Help;
        return {};
    }
    if (isSet("flash-v4") || isSet("read-board") || isSet("check-image"))
        return parseReceiverV4Tools(parser, options);
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst());
    if (isSet("version")) {
        options.action = CommandLineOptions::Action::Version;
        return {};
    }
    if (isSet("list-devices")) {
        options.action = CommandLineOptions::Action::ListDevices;
        return {};
    }

    if (isSet("elrs-list") || isSet("elrs-set")) {
        if (const QString error = parseElrsOptions(parser, options); !error.isEmpty())
            return error;
        return parseBaudRate(parser, options);
    }
    options.demo = isSet("demo");
    if (const QString error = parseRemoteOptions(parser, options); !error.isEmpty())
        return error;
    if (const QString error = parseMotionOutput(parser, options); !error.isEmpty())
        return error;
    if (const QString error = parseUpdateUrl(parser, options); !error.isEmpty())
        return error;
    if (const QString error = parseWebPanel(parser, options); !error.isEmpty())
        return error;
    if (isSet("log-file")) {
        options.logFile = parser.value(QStringLiteral("log-file")).trimmed();
        if (options.logFile.isEmpty())
            return QStringLiteral("--log-file needs a file path");
    }
    options.action =
        isSet("headless") ? CommandLineOptions::Action::Headless : CommandLineOptions::Action::Window;

    const QStringList headlessOnly = headlessOnlyOptions(parser);
    if (options.action == CommandLineOptions::Action::Window && !headlessOnly.isEmpty())
        return QStringLiteral("%1 needs --headless (the window has its own controls)")
            .arg(headlessOnly.first());
    if (options.demo) {
        // The demo brings the bridge and the controllers, not the car's receiver.
        const QStringList ownRig =
            headlessOnly.filter(QRegularExpression(QStringLiteral("^--(?!start$|receiver$|record$)")));
        if (!ownRig.isEmpty())
            return QStringLiteral(
                       "%1 cannot be used with --demo, which brings its own transmitter and devices")
                .arg(ownRig.first());
        options.start = true;
    }

    if (isSet("transmitter")) {
        options.transmitterPort = parser.value(QStringLiteral("transmitter")).trimmed();
        if (options.transmitterPort.isEmpty())
            return QStringLiteral("--transmitter needs a serial port, such as /dev/ttyACM0 or COM3");
    }
    if (const QString error = parseBaudRate(parser, options); !error.isEmpty())
        return error;
    if (isSet("receiver")) {
        options.receiverPort = parser.value(QStringLiteral("receiver")).trimmed();
        if (options.receiverPort.isEmpty())
            return QStringLiteral("--receiver needs a serial port, such as /dev/ttyUSB0 or COM4");
        if (options.receiverPort == options.transmitterPort)
            return QStringLiteral("--receiver and --transmitter cannot share the port %1")
                .arg(options.receiverPort);
    }
    if (isSet("vehicle")) {
        const QString type = parser.value(QStringLiteral("vehicle")).trimmed().toLower();
        if (type == QLatin1String("car"))
            options.vehicle = VehicleType::Car;
        else if (type == QLatin1String("heli"))
            options.vehicle = VehicleType::Helicopter;
        else
            return QStringLiteral("--vehicle must be car or heli, not \"%1\"")
                .arg(parser.value(QStringLiteral("vehicle")));
    }
    options.start = options.start || isSet("start");
    if (isSet("record")) {
        options.recordingsFolder = parser.value(QStringLiteral("record")).trimmed();
        if (options.recordingsFolder.isEmpty())
            return QStringLiteral("--record needs a folder for the recordings");
    }
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

// Help is laid out for an 80-column terminal: names on the left, their text from this column.
constexpr qsizetype kHelpDescriptionColumn = 26;
constexpr qsizetype kHelpWidth = 80;

// The words of text filled into lines of at most kHelpWidth, each indented by `indent`.
QString wrapped(const QString &text, qsizetype indent)
{
    const QString margin(indent, QLatin1Char(' '));
    QString result;
    QString line;
    for (const QString &word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!line.isEmpty() && indent + line.size() + 1 + word.size() > kHelpWidth) {
            result += margin + line + QLatin1Char('\n');
            line.clear();
        }
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    if (!line.isEmpty())
        result += margin + line + QLatin1Char('\n');
    return result;
}

// "  --name <value>    Text ...": the text starts beside a short label, below a long one.
QString helpEntry(const QString &label, const QString &description)
{
    const QString left = QStringLiteral("  ") + label;
    QString text = wrapped(description, kHelpDescriptionColumn);
    if (left.size() + 2 <= kHelpDescriptionColumn)
        text.replace(0, left.size(), left);
    else
        text.prepend(left + QLatin1Char('\n'));
    return text;
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
    const CommandLineReference &reference = commandLineReference();
    QString help = QStringLiteral("Usage: orvanehub [options]\n\n");
    help += wrapped(reference.description, 0);
    for (const CommandLineSection &section : reference.sections) {
        help += QLatin1Char('\n') + section.title + QStringLiteral(":\n");
        for (const CommandLineOptionInfo &option : section.options) {
            const QString label =
                dashedNames(option) + (option.takesValue() ? QLatin1Char(' ') + option.value : QString());
            help += helpEntry(label, option.description);
        }
        if (!section.note.isEmpty())
            help += wrapped(section.note, kHelpDescriptionColumn);
    }
    help += QStringLiteral("\nEnvironment:\n");
    for (const CommandLineTerm &variable : reference.environment)
        help += helpEntry(variable.name, variable.description);
    help += QStringLiteral("\nExit status:\n");
    for (const CommandLineTerm &status : reference.exitStatuses)
        help += helpEntry(status.name, status.description);
    return help;
}

} // namespace tavrix
