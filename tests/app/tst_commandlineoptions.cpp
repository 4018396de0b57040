#include "commandlineoptions.h"
#include "commandlinereference.h"
#include "manpage.h"

#include <QRegularExpression>
#include <QTest>

using namespace tavrix;
using Action = CommandLineOptions::Action;

Q_DECLARE_METATYPE(tavrix::CommandLineOptions::Action)

namespace {

QStringList words(const char *line)
{
    return (QStringLiteral("orvanehub ") + QString::fromUtf8(line))
        .split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TestCommandLineOptions : public QObject
{
    Q_OBJECT

private slots:
    // The parser takes its options from the reference table; asking it about a name the table
    // lacks only warns and reads as "not given", so every parse here would quietly lose it.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("option not defined"))); }

    void actions_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<Action>("action");
        QTest::addColumn<bool>("demo");
        QTest::addColumn<bool>("start");
        QTest::newRow("nothing: the window") << words("") << Action::Window << false << false;
        QTest::newRow("demo in the window starts") << words("--demo") << Action::Window << true << true;
        QTest::newRow("headless") << words("--headless") << Action::Headless << false << false;
        QTest::newRow("headless demo") << words("--headless --demo") << Action::Headless << true << true;
        QTest::newRow("headless demo --start is redundant")
            << words("--headless --demo --start") << Action::Headless << true << true;
        QTest::newRow("headless start") << words("--headless --start") << Action::Headless << false << true;
        QTest::newRow("list devices") << words("--list-devices") << Action::ListDevices << false << false;
        QTest::newRow("elrs set implies the list")
            << words("--elrs-set Telem=Off --transmitter P") << Action::ElrsList << false << false;
        QTest::newRow("flash the receiver V4")
            << words("--flash-v4 P fw.bin") << Action::FlashV4 << false << false;
        QTest::newRow("read the board") << words("--read-board P") << Action::ReadBoard << false << false;
        QTest::newRow("check an image")
            << words("--check-image fw.bin") << Action::CheckImage << false << false;
        QTest::newRow("help wins") << words("--headless --help") << Action::Help << false << false;
        QTest::newRow("-h") << words("-h") << Action::Help << false << false;
        QTest::newRow("version") << words("--version") << Action::Version << false << false;
        QTest::newRow("-v") << words("-v") << Action::Version << false << false;
    }

    void actions()
    {
        QFETCH(QStringList, arguments);
        QFETCH(Action, action);
        QFETCH(bool, demo);
        QFETCH(bool, start);
        const CommandLineParse parsed = parseCommandLine(arguments);
        QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
        QCOMPARE(parsed.options.action, action);
        QCOMPARE(parsed.options.demo, demo);
        QCOMPARE(parsed.options.start, start);
    }

    void headlessValues()
    {
        CommandLineParse parsed = parseCommandLine(words("--headless --transmitter /dev/ttyACM0 --start"));
        QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
        QCOMPARE(parsed.options.transmitterPort, QStringLiteral("/dev/ttyACM0"));
        QVERIFY(!parsed.options.baudRate); // the default is decided with the profile's port
        QVERIFY(!parsed.options.vehicle);
        QVERIFY(parsed.options.devices.isEmpty());

        parsed = parseCommandLine(words("--headless --transmitter=COM3 --baud 420000 --vehicle HELI"));
        QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
        QCOMPARE(parsed.options.transmitterPort, QStringLiteral("COM3"));
        QCOMPARE(parsed.options.receiverPort, QString());
        QCOMPARE(parsed.options.baudRate, std::optional<qint32>(420000));
        QCOMPARE(parsed.options.vehicle, std::optional<VehicleType>(VehicleType::Helicopter));
        QVERIFY(!parsed.options.start);

        parsed = parseCommandLine(words("--headless --receiver /dev/ttyUSB0"));
        QCOMPARE(parsed.options.receiverPort, QStringLiteral("/dev/ttyUSB0"));

        parsed = parseCommandLine(words("--headless --vehicle car"));
        QCOMPARE(parsed.options.vehicle, std::optional<VehicleType>(VehicleType::Car));

        parsed = parseCommandLine(words("--update-url http://127.0.0.1:8000/fw/manifest.json"));
        QCOMPARE(parsed.options.updateUrl, QUrl(QStringLiteral("http://127.0.0.1:8000/fw/manifest.json")));
        parsed = parseCommandLine(words("--flash-v4 /dev/ttyUSB0 rx.bin"));
        QCOMPARE(parsed.options.boardPort, QStringLiteral("/dev/ttyUSB0"));
        QCOMPARE(parsed.options.firmwareFile, QStringLiteral("rx.bin"));
        parsed = parseCommandLine(words("--headless --motion /dev/ttyACM1 --motion-platform 3"));
        QCOMPARE(parsed.options.motionPort, QStringLiteral("/dev/ttyACM1"));
        QCOMPARE(parsed.options.motionPlatform, std::optional<int>(3));
    }

    void webPanelPort_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("port");
        QTest::newRow("not asked: not started") << words("--headless") << 0;
        QTest::newRow("the usual ports") << words("--headless --web-panel") << 8090;
        QTest::newRow("another first port") << words("--web-panel-port 9100") << 9100;
        QTest::newRow("the port wins") << words("--web-panel --web-panel-port 9100") << 9100;
    }

    void webPanelPort()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, port);
        const CommandLineParse parsed = parseCommandLine(arguments);
        QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
        QCOMPARE(int(parsed.options.webPanelPort), port);
    }

    void devicesByIndexAndName_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QList<RoleChoice>>("expected");
        QTest::newRow("car roles by index, in role order")
            << words("--headless --pedals 1 --shifter +2 --wheel 0")
            << QList<RoleChoice>{{DeviceRole::WheelBase, {0, {}}},
                                 {DeviceRole::Pedals, {1, {}}},
                                 {DeviceRole::Shifter, {2, {}}}};
        QTest::newRow("names keep their spaces")
            << QStringList{QStringLiteral("orvanehub"), QStringLiteral("--headless"),
                           QStringLiteral("--wheel"), QStringLiteral("MOZA R9 Base"),
                           QStringLiteral("--pedals=G29 Pedals 2")}
            << QList<RoleChoice>{{DeviceRole::WheelBase, {-1, QStringLiteral("MOZA R9 Base")}},
                                 {DeviceRole::Pedals, {-1, QStringLiteral("G29 Pedals 2")}}};
        QTest::newRow("helicopter roles")
            << words("--headless --vehicle heli --joystick T.16000M --throttle 1 --rudder 2")
            << QList<RoleChoice>{{DeviceRole::HeliJoystick, {-1, QStringLiteral("T.16000M")}},
                                 {DeviceRole::HeliThrottle, {1, {}}},
                                 {DeviceRole::HeliPedals, {2, {}}}};
        QTest::newRow("car roles with --vehicle car") << words("--headless --vehicle car --wheel 3")
                                                      << QList<RoleChoice>{{DeviceRole::WheelBase, {3, {}}}};
    }

    void devicesByIndexAndName()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QList<RoleChoice>, expected);
        const CommandLineParse parsed = parseCommandLine(arguments);
        QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
        QCOMPARE(parsed.options.devices, expected);
    }

    void badCommandLinesAreRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        // A piece of the message that tells the person what to change.
        QTest::addColumn<QString>("mentions");
        const auto row = [](const char *name, const char *line, const char *mentions) {
            QTest::newRow(name) << words(line) << QString::fromUtf8(mentions);
        };
        row("unknown option", "--bogus", "bogus");
        row("stray argument", "--headless now", "\"now\"");
        row("missing value", "--headless --transmitter", "transmitter");
        row("empty port", "--headless --transmitter=", "--transmitter needs a serial port");
        row("baud not a number", "--headless --transmitter P --baud fast", "\"fast\" is not a baud rate");
        row("baud too low", "--headless --transmitter P --baud 0", "is not a baud rate");
        row("baud too high", "--headless --transmitter P --baud 99999999", "is not a baud rate");
        row("empty receiver port", "--headless --receiver=", "--receiver needs a serial port");
        row("receiver without headless", "--receiver /dev/ttyUSB0", "--receiver needs --headless");
        row("receiver on the transmitter's port", "--headless --transmitter P --receiver P",
            "cannot share the port P");
        row("vehicle unknown", "--headless --vehicle boat", "--vehicle must be car or heli");
        row("helicopter role without heli", "--headless --joystick 0", "--joystick is a helicopter role");
        row("car role with heli", "--headless --vehicle heli --wheel 0", "--wheel is a car role");
        row("negative index", "--headless --wheel -1", "is not a device index");
        row("huge index", "--headless --pedals 100000", "is not a device index");
        row("empty device", "--headless --shifter=", "--shifter needs a device index");
        row("start without headless", "--start", "--start needs --headless");
        row("transmitter without headless", "--transmitter /dev/ttyACM0", "--transmitter needs --headless");
        row("role without headless", "--wheel 0", "--wheel needs --headless");
        row("record without headless", "--record /tmp/drives", "--record needs --headless");
        row("record into no folder", "--headless --record=", "--record needs a folder");
        row("demo brings its own transmitter", "--headless --demo --transmitter P",
            "--transmitter cannot be used with --demo");
        row("demo brings its own devices", "--headless --demo --pedals 1",
            "--pedals cannot be used with --demo");
        row("elrs list without transmitter", "--elrs-list", "--elrs-list needs --transmitter");
        row("elrs setting without option", "--elrs-set Rate= --transmitter P", "is not NAME=OPTION");
        row("elrs setting without name", "--elrs-set =250Hz --transmitter P", "is not NAME=OPTION");
        row("remote port too high", "--remote-port 70000", "is not a port");
        row("remote address not one", "--remote-address phone", "is not an IP address");
        row("motion output without port", "--motion-output 127.0.0.1", "is not IP:PORT");
        row("motion output to port 0", "--headless --motion-output 127.0.0.1:0", "is not IP:PORT");
        row("web panel port 0", "--web-panel-port 0", "is not a port");
        row("web panel port not a number", "--headless --web-panel-port http", "is not a port");
        row("motion output to a name", "--motion-output rig:20777", "is not IP:PORT");
        row("update address not web", "--update-url file:///tmp/manifest.json", "--update-url");
        row("update address relative", "--headless --update-url manifest.json", "--update-url");
        row("empty motion port", "--headless --motion=", "--motion needs a serial port");
        row("motion on the transmitter's port", "--headless --transmitter P --motion P",
            "--motion cannot share the port P");
        row("motion on the receiver's port", "--headless --receiver P --motion P", "cannot share the port P");
        row("motion platform without a board", "--headless --motion-platform 3", "needs --motion");
        row("motion platform of 4 DOF", "--motion M --motion-platform 4", "must be 2, 3 or 5");
        row("motion platform not a number", "--motion M --motion-platform 3dof", "must be 2, 3 or 5");
        row("flash without a firmware file", "--flash-v4 P",
            "--flash-v4 needs the cable's port and one firmware");
        row("flash with two files", "--flash-v4 P a.bin b.bin", "--flash-v4 needs");
        row("flash beside a headless run", "--headless --flash-v4 P a.bin",
            "cannot be combined with --headless");
        row("two receiver V4 tools", "--read-board P --check-image a.bin", "cannot be combined");
        row("check image with a stray argument", "--check-image a.bin b.bin", "\"b.bin\"");
    }

    void badCommandLinesAreRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, mentions);
        const CommandLineParse parsed = parseCommandLine(arguments);
        QVERIFY(!parsed.isValid());
        QVERIFY2(parsed.error.contains(mentions), qPrintable(parsed.error));
        // Nothing half-parsed is left to act on.
        QCOMPARE(parsed.options.action, Action::Window);
        QVERIFY(parsed.options.devices.isEmpty());
        QVERIFY(!parsed.options.start);
        QVERIFY(parsed.options.motionPort.isEmpty());
    }

    // Help and the manual page are both written from the reference: each lists every option
    // (the manual also every variable, file and exit status) the way its reader looks it up.
    void referenceReachesHelpAndManual_data()
    {
        QTest::addColumn<QString>("inManual");
        QTest::addColumn<QString>("inHelp");
        const CommandLineReference &reference = commandLineReference();
        for (const CommandLineOptionInfo &option : reference.allOptions()) {
            const QString dashed = QStringLiteral("--") + option.longName();
            QTest::newRow(qPrintable(dashed))
                << QStringLiteral(".TP\n\\fB") + roffEscaped(dashedNames(option)) + QStringLiteral("\\fR")
                << QStringLiteral("\n  ") + dashedNames(option);
        }
        const QList<CommandLineTerm> helpTerms = reference.environment + reference.exitStatuses;
        for (const CommandLineTerm &term : reference.environment + reference.files + reference.exitStatuses)
            QTest::newRow(qPrintable(term.name))
                << QStringLiteral(".TP\n\\fB") + roffEscaped(term.name) + QStringLiteral("\\fR\n")
                << (helpTerms.contains(term) ? QStringLiteral("\n  ") + term.name : QString());
    }

    void referenceReachesHelpAndManual()
    {
        QFETCH(QString, inManual);
        QFETCH(QString, inHelp);
        QVERIFY(commandLineManPage(QStringLiteral("1.0")).contains(inManual));
        QVERIFY(commandLineHelp().contains(inHelp));
    }
};

QTEST_GUILESS_MAIN(TestCommandLineOptions)
#include "tst_commandlineoptions.moc"
