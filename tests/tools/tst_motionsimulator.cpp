// The motion controller board simulator on its own, driven with frames written here byte by
// byte: what it answers, the states it goes through, and how fast its actuators may move.

#include "bridgeclient.h"
#include "motionsimulator.h"

#include <QTest>

#include <memory>

using tavrix::sim::MotionSimulator;
using tavrix::sim::MotionSimulatorSettings;

class TestMotionSimulator : public QObject
{
    Q_OBJECT

    std::unique_ptr<MotionSimulator> m_board;
    std::unique_ptr<BridgeClient> m_client;

    void connectTo(const MotionSimulatorSettings &settings)
    {
        m_board = std::make_unique<MotionSimulator>(settings);
        QVERIFY2(m_board->start(), qPrintable(m_board->errorString()));
        m_client = std::make_unique<BridgeClient>();
        QVERIFY2(m_client->open(m_board->clientPath()), qPrintable(m_client->port.errorString()));
    }

private slots:
    void cleanup()
    {
        m_client.reset();
        m_board.reset();
    }

    void answersAndStates_data()
    {
        QTest::addColumn<bool>("failFirst");
        QTest::addColumn<QByteArray>("frames");
        QTest::addColumn<QString>("expected"); // a line that must follow
        QTest::newRow("settings echoed")
            << false << QByteArray("PC\x00\x32\x00\x64\x00\x3c\x00\x46\x00\x50!!PQ!!", 19)
            << QStringLiteral("#CFG i=50 t=100 s=60 a=70 p=80");
        QTest::newRow("a broken frame is skipped")
            << false << QByteArray("PX!!PQ!P!PQ!!") << QStringLiteral("#CFG i=100 t=140 s=100 a=100 p=75");
        QTest::newRow("board test ends")
            << false << QByteArray("PT\xff\x50\x00\x32\x01!!", 9) << QStringLiteral("#TST done#");
        QTest::newRow("no test while failed")
            << true << QByteArray("PT\xff\x50\x00\x32\x01!!", 9) << QStringLiteral("#TST refused (FAIL)");
        QTest::newRow("homing leaves FAIL") << true << QByteArray("PH!!") << QStringLiteral("[ready]");
        QTest::newRow("release") << false << QByteArray("PR!!") << QStringLiteral("[released]");
    }

    void answersAndStates()
    {
        QFETCH(bool, failFirst);
        QFETCH(QByteArray, frames);
        QFETCH(QString, expected);
        MotionSimulatorSettings settings;
        settings.heartbeatIntervalMs = 20;
        settings.homingMs = 50;
        settings.testSecondMs = 20;
        connectTo(settings);
        if (failFirst)
            m_board->fail();
        const qsizetype from = m_client->parser.lines.size();
        m_client->send(frames);
        QVERIFY2(m_client->waitForLine(expected, 10000, from),
                 qPrintable(m_client->parser.lines.join(QLatin1Char('|'))));
    }

    // Actuator 1 is sent to the end of its stroke from its park position (75 mm).
    void actuatorsMoveNoFasterThanTheSpeedSetting_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QList<double>>("positions"); // after 100, 200 and 1000 ms more
        QTest::newRow("full speed, 250 mm/s") << QByteArray() << QList<double>{100.0, 125.0, 150.0};
        QTest::newRow("speed 50 %") << QByteArray("PC\x00\x64\x00\x8c\x00\x32\x00\x64\x00\x4b!!", 14)
                                    << QList<double>{87.5, 100.0, 150.0};
        QTest::newRow("released: motors off") << QByteArray("PR!!") << QList<double>{75.0, 75.0, 75.0};
    }

    void actuatorsMoveNoFasterThanTheSpeedSetting()
    {
        QFETCH(QByteArray, before);
        QFETCH(QList<double>, positions);
        MotionSimulatorSettings settings;
        settings.heartbeatIntervalMs = 0;
        settings.motionStepMs = 0; // time passes only through advance()
        connectTo(settings);
        m_client->send(before + QByteArray("PM\x00\x00\x96!!", 7));
        QTRY_VERIFY_WITH_TIMEOUT(!m_board->commands().isEmpty() && m_board->commands().last().code == 'M',
                                 10000);

        QList<double> reached;
        for (const int ms : {100, 100, 1000}) {
            m_board->advance(ms);
            reached.append(m_board->positions().at(0));
        }
        QCOMPARE(reached, positions);
        QCOMPARE(m_board->positions().at(1), 75.0); // the others stay parked
    }
};

QTEST_GUILESS_MAIN(TestMotionSimulator)
#include "tst_motionsimulator.moc"
