#include "bridgeclient.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

// `orvane-sim bridge` (and `receiver`) as a user runs it: a separate process serving a link path, unplugged
// and replugged and stopped by signals. What its log holds is checked in-process (tst_bridgesimulator) and
// from this program by the headless end-to-end test.
class TestOrvaneSimBridge : public QObject
{
    Q_OBJECT
private slots:
    void servesTheLinkThroughUnplugAndReplugAndEndsCleanly()
    {
        QTemporaryDir dir;
        const QString log = dir.filePath(QStringLiteral("bridge.jsonl"));
        const QString link = dir.filePath(QStringLiteral("ttyORVANE"));
        QProcess sim;
        QByteArray printed;
        connect(&sim, &QProcess::readyReadStandardOutput, this,
                [&] { printed += sim.readAllStandardOutput(); });
        sim.start(QStringLiteral(ORVANE_SIM_EXECUTABLE),
                  {QStringLiteral("bridge"), QStringLiteral("--log"), log, QStringLiteral("--link"), link,
                   QStringLiteral("--motion-hz"), QStringLiteral("25")});
        QTRY_VERIFY_WITH_TIMEOUT(printed.contains("link: " + link.toUtf8()), 10000);
        QVERIFY(printed.startsWith("pty: /dev/pts/"));

        BridgeClient client;
        QVERIFY2(client.open(link), qPrintable(client.port.errorString()));
        client.send("START\n");
        QVERIFY(client.waitForLine(QStringLiteral("OK START"), 5000));
        client.send(crsftest::channelFrame(
            {172, 1811, 0, 2047, 200, 300, 400, 500, 600, 700, 800, 900, 1000, 1100, 1200, 1300}));
        // Telemetry comes back while transmitting, at the motion rate asked for, with good CRCs.
        QTRY_VERIFY_WITH_TIMEOUT(client.parser.countOfType(0x14) >= 2 && client.parser.countOfType(0x23) >= 2,
                                 5000);
        QCOMPARE(client.parser.badFrames, 0);
        client.send("STOP\n");
        QVERIFY(client.waitForLine(QStringLiteral("OK STOP"), 5000));

        // SIGUSR1 unplugs the bridge, SIGUSR2 plugs it back in under the same link path.
        ::kill(pid_t(sim.processId()), SIGUSR1);
        QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(link), 5000);
        // The first client must notice the unplug and let go of the port's lock first.
        QTRY_VERIFY_WITH_TIMEOUT(!client.port.isOpen(), 5000);
        ::kill(pid_t(sim.processId()), SIGUSR2);
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(link), 5000);
        BridgeClient again;
        QVERIFY2(again.open(link), qPrintable(again.port.errorString()));
        again.send("\n");
        QVERIFY(again.waitForLine(QStringLiteral("STATUS mode=idle"), 5000));

        sim.terminate(); // SIGTERM
        QVERIFY(sim.waitForFinished(10000));
        QCOMPARE(sim.exitStatus(), QProcess::NormalExit);
        QCOMPARE(sim.exitCode(), 0);
        QVERIFY(!QFileInfo::exists(link)); // the link does not outlive the bridge
        QFile file(log);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        QVERIFY(text.indexOf("\"unplugged\"") >= 0);
        QVERIFY(text.indexOf("\"plugged-in\"") > text.indexOf("\"unplugged\""));
        QVERIFY(text.contains("\"keepalive\""));
    }

    void radioOptionsShapeTheReceiverAndTheWalk()
    {
        QTemporaryDir dir;
        const QString link = dir.filePath(QStringLiteral("ttyORVANE"));
        QProcess sim;
        sim.start(QStringLiteral(ORVANE_SIM_EXECUTABLE),
                  {QStringLiteral("bridge"), QStringLiteral("--link"), link, QStringLiteral("--receiver"),
                   QStringLiteral("foreign"), QStringLiteral("--walk-read-failure"), QStringLiteral("2"),
                   QStringLiteral("--walk-read-failure"), QStringLiteral("6"),
                   QStringLiteral("--walk-repeat-header"), QStringLiteral("8")});
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(link), 10000);
        BridgeClient client;
        QVERIFY2(client.open(link), qPrintable(client.port.errorString()));

        client.send(crsftest::frame(0x28, QByteArray::fromHex("c8ea")));
        QTRY_COMPARE_WITH_TIMEOUT(client.parser.countOfType(0x29), 1, 5000);
        const QByteArray info = client.parser.frames.last();
        QVERIFY(info.mid(info.indexOf('\0', 5) + 1, 4) == "ELRS"); // the serial after the name

        client.send("CFGMODE ON\nWALKRF\n");
        QVERIFY(client.waitForLine(QStringLiteral("WALK: done"), 10000));
        const QStringList fields = client.parser.lines.filter(QStringLiteral("FIELD "));
        QCOMPARE(fields.filter(QStringLiteral("(read failed)")),
                 (QStringList{QStringLiteral("FIELD 2: (read failed)"),
                              QStringLiteral("FIELD 6: (read failed)")}));
        // Field 8, the info text "Version" at the top: its header twice, then its data.
        const QString header = QStringLiteral("00 0C 56 65 72 73 69 6F 6E 00");
        QVERIFY(fields.filter(QStringLiteral("FIELD 8: "))
                    .value(0)
                    .startsWith(QStringLiteral("FIELD 8: %1 %1 00 00").arg(header)));

        sim.terminate();
        QVERIFY(sim.waitForFinished(10000));
    }

    void receiverConsoleAnswersAndEndsCleanly()
    {
        QTemporaryDir dir;
        const QString log = dir.filePath(QStringLiteral("receiver.jsonl"));
        const QString link = dir.filePath(QStringLiteral("ttyRX"));
        QProcess sim;
        QByteArray printed;
        connect(&sim, &QProcess::readyReadStandardOutput, this,
                [&] { printed += sim.readAllStandardOutput(); });
        sim.start(QStringLiteral(ORVANE_SIM_EXECUTABLE),
                  {QStringLiteral("receiver"), QStringLiteral("--old-firmware"), QStringLiteral("--log"), log,
                   QStringLiteral("--link"), link});
        QTRY_VERIFY_WITH_TIMEOUT(printed.contains("link: " + link.toUtf8()), 10000);
        QVERIFY(printed.startsWith("pty: /dev/pts/"));

        BridgeClient client;
        QVERIFY2(client.open(link), qPrintable(client.port.errorString()));
        client.send("SET_OSD 0\nVER\n");
        QVERIFY(client.waitForLine(QStringLiteral("Orvane:3."), 5000));
        QVERIFY(client.parser.lines.filter(QStringLiteral("OSD_OK")).isEmpty());

        sim.terminate();
        QVERIFY(sim.waitForFinished(10000));
        QCOMPARE(sim.exitStatus(), QProcess::NormalExit);
        QCOMPARE(sim.exitCode(), 0);
        QFile file(log);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\"command\":\"SET_OSD 0\""));
    }

    void badOptionsAreRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no device") << QStringList{};
        QTest::newRow("negative motion rate")
            << QStringList{QStringLiteral("bridge"), QStringLiteral("--motion-hz"), QStringLiteral("-3")};
        QTest::newRow("unknown receiver")
            << QStringList{QStringLiteral("bridge"), QStringLiteral("--receiver"), QStringLiteral("orv9")};
        QTest::newRow("walk field id out of range") << QStringList{
            QStringLiteral("bridge"), QStringLiteral("--walk-repeat-header"), QStringLiteral("256")};
        QTest::newRow("unknown mounting error") << QStringList{
            QStringLiteral("receiver"), QStringLiteral("--mounting-error"), QStringLiteral("sideways")};
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
};

QTEST_GUILESS_MAIN(TestOrvaneSimBridge)
#include "tst_orvanesimbridge.moc"
