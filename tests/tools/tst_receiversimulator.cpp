#include "bridgeclient.h"
#include "receiversimulator.h"

#include <QRegularExpression>
#include <QTest>

#include <memory>

using tavrix::sim::ReceiverGpsStatus;
using tavrix::sim::ReceiverSimulator;
using tavrix::sim::ReceiverSimulatorSettings;
using MountingError = ReceiverSimulatorSettings::MountingError;
using GyroCalibration = ReceiverSimulatorSettings::GyroCalibration;

Q_DECLARE_METATYPE(MountingError)
Q_DECLARE_METATYPE(GyroCalibration)

namespace {

// Quiet unless a test asks for the periodic lines, so replies can be read in order.
ReceiverSimulatorSettings quietSettings()
{
    ReceiverSimulatorSettings settings;
    settings.telemetryIntervalMs = 0;
    settings.calibrationLineIntervalMs = 0;
    settings.mspFrameEveryTelemetry = 0;
    settings.gyroCalibrationMs = 20;
    return settings;
}

// The receiver's replies as the hub reads them.
const QRegularExpression kTelemetry(QStringLiteral("(?:^|[^_A-Z])TELEM:(.*)$"));
const QRegularExpression kGpsStatus(QStringLiteral("^(Fix|No fix), (\\d+) sats(?:, antenna (open|short))?$"));
const QRegularExpression kChannel1(QStringLiteral("CH1:(\\d+)us\\s+CRSF:(\\d+)"));
const QRegularExpression kChannel2(QStringLiteral("CH2:(\\d+)us\\s+CRSF:(\\d+)"));

QMap<QString, int> telemetryValues(const QString &line)
{
    QMap<QString, int> values;
    const QStringList items = kTelemetry.match(line).captured(1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &item : items)
        values.insert(item.section(QLatin1Char(':'), 0, 0), item.section(QLatin1Char(':'), 1).toInt());
    return values;
}

} // namespace

// The receiver console over a real pty, read by a QSerialPort as the hub reads it.
class TestReceiverSimulator : public QObject
{
    Q_OBJECT

    std::unique_ptr<ReceiverSimulator> m_receiver;
    std::unique_ptr<BridgeClient> m_client;

    void connectTo(const ReceiverSimulatorSettings &settings)
    {
        m_receiver = std::make_unique<ReceiverSimulator>(settings);
        QVERIFY2(m_receiver->start(), qPrintable(m_receiver->errorString()));
        m_client = std::make_unique<BridgeClient>();
        QVERIFY2(m_client->open(m_receiver->clientPath()), qPrintable(m_client->port.errorString()));
    }

    // Sends the commands and returns the first `count` lines that follow (fewer if they do not come).
    QStringList exchange(const QStringList &commands, qsizetype count)
    {
        const qsizetype from = m_client->parser.lines.size();
        m_client->send(commands.join(QLatin1Char('\n')).toLatin1() + '\n');
        [[maybe_unused]] const bool arrived =
            QTest::qWaitFor([&] { return m_client->parser.lines.size() >= from + count; }, 5000);
        return m_client->parser.lines.mid(from, count);
    }

    // The first line after `from` the pattern matches.
    QRegularExpressionMatch waitForMatch(const QRegularExpression &pattern, qsizetype from)
    {
        for (;;) {
            for (qsizetype i = from; i < m_client->parser.lines.size(); ++i)
                if (const auto match = pattern.match(m_client->parser.lines.at(i)); match.hasMatch())
                    return match;
            from = m_client->parser.lines.size();
            if (!m_client->waitForLine(QString(), 5000, from))
                return {};
        }
    }

private slots:
    void cleanup()
    {
        m_client.reset();
        m_receiver.reset();
    }

    // Each expected line is the start of the reply line at its place.
    void commandsAreAnsweredInOrder_data()
    {
        QTest::addColumn<bool>("oldFirmware");
        QTest::addColumn<MountingError>("mountingError");
        QTest::addColumn<GyroCalibration>("gyro");
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<QStringList>("expected");
        const auto none = MountingError::None;
        const auto ok = GyroCalibration::Succeeds;
        const auto row = [](const char *name) -> QTestData & { return QTest::newRow(name); };
        using L = QStringList;
        const auto s = [](const char *text) { return QString::fromLatin1(text); };

        row("version and hardware") << false << none << ok << L{s("VER"), s("HW")}
                                    << L{s("Orvane:4."), s("HW:")};
        row("OSD set and read, CR tolerated")
            << false << none << ok << L{s("SET_OSD 0\r"), s("GET_OSD")} << L{s("OSD_OK 0"), s("OSD:0")};
        row("GPS power and rate") << false << none << ok << L{s("SET_GPS 0"), s("GPS_RATE 10")}
                                  << L{s("GPS_OK 0"), s("GPS_RATE_OK 10")};
        row("bad values and commands")
            << false << none << ok << L{s("SET_MOTION_RATE 500"), s("SET_OSD x"), s("FOO 1")}
            << L{s("ERR "), s("ERR "), s("ERR unknown command: FOO 1")};
        row("mounting detected") << false << none << ok
                                 << L{s("GET_IMU_AXES"), s("IMU_ORIENT FLAT"), s("IMU_ORIENT NOSEUP"),
                                      s("GET_IMU_AXES")}
                                 << L{s("IMU_AXES:FWD=+X LEFT=+Y UP=+Z"), s("IMU_ORIENT_FLAT_OK"),
                                      s("IMU_ORIENT_OK"), s("IMU_AXES:FWD=-Y LEFT=+X UP=+Z")};
        row("step 2 before step 1") << false << none << ok << L{s("IMU_ORIENT NOSEUP")}
                                    << L{s("IMU_ORIENT_ERR (flat first)")};
        row("car not flat") << false << MountingError::NotFlat << ok << L{s("IMU_ORIENT FLAT")}
                            << L{s("IMU_ORIENT_ERR (not flat)")};
        row("no tilt keeps the old axes")
            << false << MountingError::NoTilt << ok
            << L{s("IMU_ORIENT FLAT"), s("IMU_ORIENT NOSEUP"), s("GET_IMU_AXES")}
            << L{s("IMU_ORIENT_FLAT_OK"), s("IMU_ORIENT_ERR (tilt not detected)"),
                 s("IMU_AXES:FWD=+X LEFT=+Y UP=+Z")};
        row("step 1 lost") << false << MountingError::FlatFirst << ok
                           << L{s("IMU_ORIENT FLAT"), s("IMU_ORIENT NOSEUP")}
                           << L{s("IMU_ORIENT_FLAT_OK"), s("IMU_ORIENT_ERR (flat first)")};
        row("reason the hub does not know") << false << MountingError::Other << ok << L{s("IMU_ORIENT FLAT")}
                                            << L{s("IMU_ORIENT_ERR (gyro busy)")};
        row("motion sensors off") << false << none << ok
                                  << L{s("SET_MOTION_SENSORS 0"), s("IMU_ORIENT FLAT"), s("IMU_CAL")}
                                  << L{s("MOTION_SENSORS_OK 0"), s("IMU_ORIENT_ERR (imu not running)"),
                                       s("IMU_CAL_ERR (imu not running)")};
        // The version reply comes first: nothing was said about the mounting step.
        row("mounting step unanswered")
            << false << MountingError::NoAnswer << ok << L{s("IMU_ORIENT FLAT"), s("VER")} << L{s("Orvane:")};
        row("gyro calibrated") << false << none << ok << L{s("IMU_CAL")}
                               << L{s("IMU_CAL_STARTED"), s("IMU_CAL_OK")};
        row("gyro disturbed") << false << none << GyroCalibration::CarMoved << L{s("IMU_CAL")}
                              << L{s("IMU_CAL_STARTED"), s("IMU_CAL_ERR (moved)")};
        row("LED push") << false << none << ok
                        << L{s("LED_ENABLE=1"),        s("LED_COUNT=30"),        s("LED_BRIGHTNESS=200"),
                             s("LED_MODE=RANGE"),      s("LED_PAYLOAD_COUNT=2"), s("LED_RANGE_START=1,50"),
                             s("LED_RANGE_END=1,100"), s("LED_COLOR=1,255,0,0")}
                        << L{s("LED_OK ENABLE=1"),        s("LED_OK COUNT=30"),
                             s("LED_OK BRIGHTNESS=200"),  s("LED_OK MODE=RANGE"),
                             s("LED_OK PAYLOAD_COUNT=2"), s("LED_OK RANGE_START=1,50"),
                             s("LED_OK RANGE_END=1,100"), s("LED_OK COLOR=1,255,0,0")};
        row("LED values refused") << false << none << ok
                                  << L{s("LED_COUNT=0"), s("LED_MODE=RAINBOW"), s("LED_COLOR=1,0,0,0"),
                                       s("LED_RANGE_END=0,101"), s("LED_BLINK=1")}
                                  << L{s("LED_ERR COUNT"), s("LED_ERR MODE"), s("LED_ERR COLOR"),
                                       s("LED_ERR RANGE_END"), s("LED_ERR BLINK")};
        row("older receiver ignores settings")
            << true << none << ok
            << L{s("SET_OSD 0"), s("GPS_RATE 2"),      s("GET_TELEM"),    s("GET_OSD"), s("GET_IMU_AXES"),
                 s("IMU_CAL"),   s("IMU_ORIENT FLAT"), s("LED_COUNT=10"), s("VER")}
            << L{s("LED_OK COUNT=10"), s("Orvane:3.")};
    }

    void commandsAreAnsweredInOrder()
    {
        QFETCH(bool, oldFirmware);
        QFETCH(MountingError, mountingError);
        QFETCH(GyroCalibration, gyro);
        QFETCH(QStringList, commands);
        QFETCH(QStringList, expected);
        ReceiverSimulatorSettings settings = quietSettings();
        settings.oldFirmware = oldFirmware;
        settings.mountingError = mountingError;
        settings.gyroCalibration = gyro;
        connectTo(settings);

        const QStringList replies = exchange(commands, expected.size());
        QCOMPARE(replies.size(), expected.size());
        for (qsizetype i = 0; i < expected.size(); ++i)
            QVERIFY2(replies.at(i).startsWith(expected.at(i)),
                     qPrintable(replies.join(QLatin1String(" | "))));
        QCOMPARE(m_receiver->commands().size(), commands.size()); // every command is recorded
        if (oldFirmware)
            QCOMPARE(m_receiver->setting(QStringLiteral("OSD")), 1);
    }

    void aSettingShowsInTheNextTelemetry_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("value");
        QTest::newRow("OSD") << QStringLiteral("SET_OSD 0") << QStringLiteral("OSD") << 0;
        QTest::newRow("GPS power") << QStringLiteral("SET_GPS 0") << QStringLiteral("GPS_ON") << 0;
        QTest::newRow("GPS rate") << QStringLiteral("GPS_RATE 10") << QStringLiteral("GPS_RATE") << 10;
        QTest::newRow("GPS telemetry") << QStringLiteral("SET_GPS_TELEM 0") << QStringLiteral("GPS") << 0;
        QTest::newRow("IMU telemetry") << QStringLiteral("SET_IMU_TELEM 0") << QStringLiteral("IMU") << 0;
        QTest::newRow("motion telemetry")
            << QStringLiteral("SET_MOTION_TELEM 0") << QStringLiteral("MOTION") << 0;
        QTest::newRow("motion rate") << QStringLiteral("SET_MOTION_RATE 20") << QStringLiteral("MOTION_RATE")
                                     << 20;
        QTest::newRow("motion sensors")
            << QStringLiteral("SET_MOTION_SENSORS 0") << QStringLiteral("MOTION_SENSORS") << 0;
    }

    void aSettingShowsInTheNextTelemetry()
    {
        QFETCH(QString, command);
        QFETCH(QString, key);
        QFETCH(int, value);
        ReceiverSimulatorSettings settings = quietSettings();
        settings.telemetryIntervalMs = 30;
        connectTo(settings);

        QMap<QString, int> expected = telemetryValues(waitForMatch(kTelemetry, 0).captured(0));
        QCOMPARE(expected.size(), 8);
        QVERIFY(expected.value(key) != value);
        expected.insert(key, value);
        const qsizetype from = m_client->parser.lines.size();
        m_client->send(command.toLatin1() + '\n');
        QVERIFY(m_client->waitForLine(QStringLiteral("_OK %1").arg(value), 5000, from));
        const qsizetype reply = m_client->parser.lines.size();
        QCOMPARE(telemetryValues(waitForMatch(kTelemetry, reply).captured(0)), expected);
    }

    void gpsStatusFollowsTelemetryWhileGpsIsOn_data()
    {
        QTest::addColumn<bool>("fix");
        QTest::addColumn<int>("satellites");
        QTest::addColumn<ReceiverGpsStatus::Antenna>("antenna");
        QTest::addColumn<QString>("antennaText");
        QTest::newRow("fix") << true << 9 << ReceiverGpsStatus::Antenna::Connected << QString();
        QTest::newRow("antenna open")
            << false << 0 << ReceiverGpsStatus::Antenna::Open << QStringLiteral("open");
        QTest::newRow("antenna short")
            << false << 3 << ReceiverGpsStatus::Antenna::Short << QStringLiteral("short");
    }

    void gpsStatusFollowsTelemetryWhileGpsIsOn()
    {
        QFETCH(bool, fix);
        QFETCH(int, satellites);
        QFETCH(ReceiverGpsStatus::Antenna, antenna);
        QFETCH(QString, antennaText);
        connectTo(quietSettings());
        m_receiver->setGpsStatus({fix, satellites, antenna});

        const QStringList lines = exchange({QStringLiteral("GET_TELEM"), QStringLiteral("SET_GPS 0"),
                                            QStringLiteral("GET_TELEM"), QStringLiteral("VER")},
                                           5);
        QVERIFY(kTelemetry.match(lines.at(0)).hasMatch());
        const QRegularExpressionMatch status = kGpsStatus.match(lines.at(1));
        QVERIFY2(status.hasMatch(), qPrintable(lines.at(1)));
        QCOMPARE(status.captured(1) == QLatin1String("Fix"), fix);
        QCOMPARE(status.captured(2).toInt(), satellites);
        QCOMPARE(status.captured(3), antennaText);
        QVERIFY(kTelemetry.match(lines.at(3)).hasMatch());
        QVERIFY2(lines.at(4).startsWith(QLatin1String("Orvane:")), qPrintable(lines.at(4))); // no status line
    }

    void channelLinesFollowTheSticks_data()
    {
        QTest::addColumn<int>("ch1Us");
        QTest::addColumn<int>("ch2Us");
        QTest::addColumn<int>("ch1Crsf");
        QTest::addColumn<int>("ch2Crsf");
        QTest::newRow("centred") << 1500 << 1500 << 992 << 992;
        QTest::newRow("full left, full throttle") << 1000 << 2000 << 192 << 1792;
        QTest::newRow("beyond the ends, clamped") << 900 << 2100 << 173 << 1811;
    }

    void channelLinesFollowTheSticks()
    {
        QFETCH(int, ch1Us);
        QFETCH(int, ch2Us);
        QFETCH(int, ch1Crsf);
        QFETCH(int, ch2Crsf);
        ReceiverSimulatorSettings settings = quietSettings();
        settings.calibrationLineIntervalMs = 10;
        connectTo(settings);
        QVERIFY(waitForMatch(kChannel1, 0).hasMatch());

        m_receiver->setSticks(ch1Us, ch2Us);
        const auto wanted = [&](int channel, int us, int crsf) {
            return QRegularExpression(QStringLiteral("^CH%1:%2us CRSF:%3$").arg(channel).arg(us).arg(crsf));
        };
        const int clamped1 = qBound(988, ch1Us, 2012);
        const int clamped2 = qBound(988, ch2Us, 2012);
        const qsizetype at = m_client->parser.lines.size();
        const QRegularExpressionMatch ch1 = waitForMatch(wanted(1, clamped1, ch1Crsf), at);
        QVERIFY(ch1.hasMatch());
        QCOMPARE(kChannel1.match(ch1.captured(0)).captured(2).toInt(), ch1Crsf);
        const QRegularExpressionMatch ch2 = waitForMatch(wanted(2, clamped2, ch2Crsf), at);
        QVERIFY(ch2.hasMatch());
        QCOMPARE(kChannel2.match(ch2.captured(0)).captured(2).toInt(), ch2Crsf);
    }

    // The receiver's binary MSP output lands in front of a text line, as on the real console.
    void mspFramesArriveBetweenLines()
    {
        ReceiverSimulatorSettings settings = quietSettings();
        settings.telemetryIntervalMs = 10;
        settings.mspFrameEveryTelemetry = 2;
        connectTo(settings);
        QTRY_VERIFY_WITH_TIMEOUT(m_client->raw.count("$M>") >= 2, 5000);

        const QByteArray &raw = m_client->raw;
        const qsizetype at = raw.indexOf("$M>");
        QVERIFY(at == 0 || raw.at(at - 1) == '\n');
        const int size = uint8_t(raw.at(at + 3));
        QVERIFY(raw.size() >= at + 6 + size);
        uint8_t checksum = 0;
        for (qsizetype i = at + 3; i < at + 5 + size; ++i)
            checksum ^= uint8_t(raw.at(i));
        QCOMPARE(uint8_t(raw.at(at + 5 + size)), checksum);
        QVERIFY(raw.mid(at + 6 + size).startsWith("TELEM:"));
        // Only every second telemetry line carries a frame.
        QVERIFY(raw.contains("\nTELEM:"));
    }
};

QTEST_GUILESS_MAIN(TestReceiverSimulator)
#include "tst_receiversimulator.moc"
