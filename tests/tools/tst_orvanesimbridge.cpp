#include "bridgeclient.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

// `orvane-sim bridge` as a user runs it: a separate process serving a link path, stopped
// by a signal. What its log holds is checked in-process (tst_bridgesimulator) and from
// this program by the headless end-to-end test.
class TestOrvaneSimBridge : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        m_log = m_dir->filePath(QStringLiteral("bridge.jsonl"));
        m_link = m_dir->filePath(QStringLiteral("ttyORVANE"));
        m_stdout.clear();
    }

    void cleanup()
    {
        if (m_sim && m_sim->state() != QProcess::NotRunning) {
            m_sim->kill();
            m_sim->waitForFinished(5000);
        }
        m_sim.reset();
    }

    void servesTheLinkAndEndsCleanlyOnSigterm()
    {
        QVERIFY(startSim({QStringLiteral("--motion-hz"), QStringLiteral("25")}));
        QTRY_VERIFY_WITH_TIMEOUT(m_stdout.contains("link: " + m_link.toUtf8()), 10000);
        QVERIFY(m_stdout.startsWith("pty: /dev/pts/"));

        BridgeClient client;
        QVERIFY2(client.open(m_link), qPrintable(client.port.errorString()));
        client.send("START\n");
        QVERIFY(client.waitForLine(QStringLiteral("OK START"), 5000));
        client.send(crsftest::channelFrame(
            {172, 1811, 0, 2047, 200, 300, 400, 500, 600, 700, 800, 900, 1000, 1100, 1200, 1300}));
        // Telemetry comes back while transmitting, with good CRCs.
        QTRY_VERIFY_WITH_TIMEOUT(client.parser.countOfType(0x14) >= 2 && client.parser.countOfType(0x23) >= 2,
                                 5000);
        QCOMPARE(client.parser.badFrames, 0);
        client.send("STOP\n");
        QVERIFY(client.waitForLine(QStringLiteral("OK STOP"), 5000));

        m_sim->terminate(); // SIGTERM
        QVERIFY(m_sim->waitForFinished(10000));
        QCOMPARE(m_sim->exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_sim->exitCode(), 0);
        QVERIFY(!QFileInfo::exists(m_link)); // the link does not outlive the bridge
    }

    void signalsUnplugAndReplugTheBridge()
    {
        QVERIFY(startSim());
        QTRY_VERIFY_WITH_TIMEOUT(m_stdout.contains("link: "), 10000);
        QVERIFY(QFileInfo::exists(m_link));

        ::kill(pid_t(m_sim->processId()), SIGUSR1);
        QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(m_link), 5000);
        ::kill(pid_t(m_sim->processId()), SIGUSR2);
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(m_link), 5000);

        BridgeClient client;
        QVERIFY2(client.open(m_link), qPrintable(client.port.errorString()));
        client.send("\n");
        QVERIFY(client.waitForLine(QStringLiteral("STATUS mode=idle"), 5000));

        ::kill(pid_t(m_sim->processId()), SIGINT);
        QVERIFY(m_sim->waitForFinished(10000));
        QCOMPARE(m_sim->exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_sim->exitCode(), 0);

        QFile log(m_log);
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray text = log.readAll();
        QVERIFY(text.indexOf("\"unplugged\"") >= 0);
        QVERIFY(text.indexOf("\"plugged-in\"") > text.indexOf("\"unplugged\""));
        QVERIFY(text.contains("\"keepalive\""));
    }

    void badOptionsAreRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no device") << QStringList{};
        QTest::newRow("negative motion rate")
            << QStringList{QStringLiteral("bridge"), QStringLiteral("--motion-hz"), QStringLiteral("-3")};
    }

    void badOptionsAreRefused()
    {
        QFETCH(QStringList, arguments);
        QProcess sim;
        sim.start(QStringLiteral(ORVANE_SIM_EXECUTABLE), arguments);
        QVERIFY(sim.waitForFinished(10000));
        QCOMPARE(sim.exitStatus(), QProcess::NormalExit);
        QVERIFY(sim.exitCode() != 0);
        QVERIFY(!sim.readAllStandardError().isEmpty());
    }

private:
    bool startSim(const QStringList &extra = {})
    {
        m_sim = std::make_unique<QProcess>();
        connect(m_sim.get(), &QProcess::readyReadStandardOutput, this,
                [this] { m_stdout += m_sim->readAllStandardOutput(); });
        m_sim->setProcessChannelMode(QProcess::SeparateChannels);
        m_sim->start(QStringLiteral(ORVANE_SIM_EXECUTABLE),
                     QStringList{QStringLiteral("bridge"), QStringLiteral("--log"), m_log,
                                 QStringLiteral("--link"), m_link} +
                         extra);
        return m_sim->waitForStarted(5000);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QProcess> m_sim;
    QString m_log;
    QString m_link;
    QByteArray m_stdout;
};

QTEST_GUILESS_MAIN(TestOrvaneSimBridge)
#include "tst_orvanesimbridge.moc"
