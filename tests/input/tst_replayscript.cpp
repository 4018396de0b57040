#include "replayplayer.h"
#include "replayscript.h"
#include "virtualbackend.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrix;

namespace {

const QByteArray kTwoDevices = R"(# a wheel and pedals
{"device": {"name": "Wheel", "product": "MOZA R9 Base", "axes": 2, "buttons": 32, "povs": 1, "ffb": true}}
{"device": "Pedals", "product": "MOZA SR-P Pedals", "axes": 3}

{"t": 0, "device": "Pedals", "axes": {"lRx": 0, "lRy": 0}}
{"t": 100, "device": 0, "axes": {"lX": 50000}, "buttons": [2, 127], "povs": [9000]}
{"t": 100, "device": "Pedals", "axes": {"lRx": 65535}}
// steering moves; buttons and hats not given keep theirs
{"t": 250, "device": "Wheel", "axes": {"lX": 20000}}
{"t": 400, "device": "Wheel", "buttons": [], "povs": [-1]}
)";

ReplayScript parsed(const QByteArray &text)
{
    ReplayScript script = ReplayScript::parse(text);
    if (!script.isValid())
        qWarning("%s", qPrintable(script.errorString()));
    return script;
}

} // namespace

class TestReplayScript : public QObject
{
    Q_OBJECT

private slots:
    void malformedLinesGiveTheirLineNumber_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("message");
        // Rows whose error is past line 1 follow a line that declares one device, "W".
        const QByteArray declaration = QByteArray(R"({"device": {"name": "W"}})") + '\n';
        const auto row = [&declaration](const char *name, const QByteArray &lines, int line,
                                        const char *message) {
            QTest::newRow(name) << (line > 1 ? declaration + lines : lines) << line
                                << QString::fromUtf8(message);
        };
        row("state before declaration", R"({"t": 0, "device": "W"})", 1, "no device named \"W\"");
        row("too many axes", R"({"device": {"name": "W", "axes": 9}})", 1,
            "\"axes\" must be a whole number from 0 to 8");
        row("not JSON", "{\"t\": 1, ", 2, "not valid JSON");
        row("declared twice", R"({"device": {"name": "W"}})", 2, "declared twice");
        row("state without device", R"({"t": 0})", 2, "needs \"device\"");
        row("negative time", R"({"t": -5, "device": 0})", 2, "\"t\"");
        row("time goes back", "{\"t\": 10, \"device\": 0}\n{\"t\": 9, \"device\": 0}", 3, "back in time");
        row("unknown axis", R"({"t": 0, "device": 0, "axes": {"lW": 1}})", 2, "unknown axis \"lW\"");
        row("axis above range", R"({"t": 0, "device": 0, "axes": {"lX": 65536}})", 2, "0 to 65535");
        row("button 128", R"({"t": 0, "device": 0, "buttons": [128]})", 2, "0 to 127");
        row("over-long line", "{\"device\": {\"name\": \"" + QByteArray(70000, 'x') + "\"}}", 2,
            "longer than");
    }

    void malformedLinesGiveTheirLineNumber()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, line);
        QFETCH(QString, message);
        const ReplayScript script = ReplayScript::parse(text);
        QVERIFY(!script.isValid());
        QCOMPARE(script.errorLine(), line);
        QVERIFY2(script.errorString().startsWith(QStringLiteral("line %1: ").arg(line)),
                 qPrintable(script.errorString()));
        QVERIFY2(script.errorString().contains(message), qPrintable(script.errorString()));
        QVERIFY(script.devices().isEmpty());
        QVERIFY(script.events().empty());
    }

    void statesTakeEffectAtTheirTime_data()
    {
        QTest::addColumn<qint64>("at");
        QTest::addColumn<qint64>("round"); // 0: not looping
        QTest::addColumn<qint32>("wheelX");
        QTest::addColumn<bool>("button2");
        QTest::addColumn<quint32>("pov");
        QTest::addColumn<qint32>("throttle");
        const quint32 centred = kRawPovCentred;
        QTest::newRow("just before 100") << qint64(99) << qint64(0) << 32767 << false << centred << 0;
        QTest::newRow("at 100, by index and by name")
            << qint64(100) << qint64(0) << 50000 << true << 9000u << 65535;
        QTest::newRow("at 250 buttons and hats kept")
            << qint64(250) << qint64(0) << 20000 << true << 9000u << 65535;
        QTest::newRow("at 400 released") << qint64(400) << qint64(0) << 20000 << false << centred << 65535;
        // kTwoDevices lasts 400 ms; the wheel has no line at 0 ms, so only the new round's
        // centring brings it back.
        QTest::newRow("looping: end of the first round is the second's start")
            << qint64(400) << qint64(2) << 32767 << false << centred << 0;
        QTest::newRow("looping: second round, 100 ms in")
            << qint64(500) << qint64(2) << 50000 << true << 9000u << 65535;
        QTest::newRow("looping: fourth round, 50 ms in")
            << qint64(1250) << qint64(4) << 32767 << false << centred << 0;
    }

    void statesTakeEffectAtTheirTime()
    {
        QFETCH(qint64, at);
        QFETCH(qint64, round);
        QFETCH(qint32, wheelX);
        QFETCH(bool, button2);
        QFETCH(quint32, pov);
        QFETCH(qint32, throttle);
        VirtualBackend backend;
        ReplayPlayer player(parsed(kTwoDevices), &backend, [] { return qint64(0); });
        player.setLooping(round > 0);
        QSignalSpy finished(&player, &ReplayPlayer::finished);
        // Walk the clock in small steps, as the timer would.
        for (qint64 t = 0; t <= at; t += 10)
            player.advanceTo(t);
        player.advanceTo(at);
        if (round > 0) {
            QCOMPARE(player.round(), round);
            QVERIFY(!player.isFinished());
            QCOMPARE(finished.count(), 0);
        }
        const RawInputState wheel = backend.state(player.deviceIds()[0]);
        const RawInputState pedals = backend.state(player.deviceIds()[1]);
        QCOMPARE(wheel.axes[SlotX], wheelX);
        QCOMPARE(wheel.buttons[2] == 0x80, button2);
        QCOMPARE(wheel.buttons[127] == 0x80, button2);
        QCOMPARE(wheel.buttons[3], quint8(0));
        QCOMPARE(wheel.povs[0], pov);
        QCOMPARE(pedals.axes[SlotRx], throttle);
        QCOMPARE(pedals.axes[SlotRy], 0);
        QCOMPARE(pedals.axes[SlotRz], 32767); // never given: still centred
    }

    void finishesOnceOrLoopsByWholeRounds()
    {
        VirtualBackend backend;
        ReplayPlayer player(parsed(kTwoDevices), &backend, [] { return qint64(0); });
        QSignalSpy finished(&player, &ReplayPlayer::finished);
        player.advanceTo(399);
        QVERIFY(!player.isFinished());
        QCOMPARE(finished.count(), 0);
        player.advanceTo(400);
        player.advanceTo(500);
        player.advanceTo(10); // time never goes back
        QCOMPARE(finished.count(), 1);
        QCOMPARE(player.position(), 500);
        QCOMPARE(backend.state(player.deviceIds()[0]).axes[SlotX], 20000); // the last state holds

        ReplayPlayer looping(parsed(kTwoDevices), &backend, [] { return qint64(0); });
        looping.setLooping(true);
        QSignalSpy looped(&looping, &ReplayPlayer::looped);
        looping.advanceTo(10);
        // A stall of 25 rounds: one jump to the round that is due, not 25 replays.
        looping.advanceTo(10 * 1000 + 120);
        QCOMPARE(looped.count(), 1);
        QCOMPARE(looped.at(0).at(0).toLongLong(), qint64(26));
        QCOMPARE(looping.round(), qint64(26));
        QCOMPARE(backend.state(looping.deviceIds()[0]).axes[SlotX], 50000);
    }

    void playsInRealTime()
    {
        const QByteArray text = R"({"device": {"name": "Stick"}}
    {"t": 0, "device": 0, "axes": {"lY": 1000}}
    {"t": 30, "device": 0, "axes": {"lY": 2000}}
    {"t": 60, "device": "Stick", "axes": {"lY": 3000}}
    )";
        VirtualBackend backend;
        ReplayPlayer player(parsed(text), &backend);
        QSignalSpy finished(&player, &ReplayPlayer::finished);
        player.start();
        QCOMPARE(backend.state(player.deviceIds()[0]).axes[SlotY], 1000); // due at 0 ms: applied by start()
        QVERIFY(finished.wait(5000));
        QCOMPARE(backend.state(player.deviceIds()[0]).axes[SlotY], 3000);
        QVERIFY(player.position() >= 60);
    }

    void missingAndOversizeFiles()
    {
        const ReplayScript missing = ReplayScript::load(QStringLiteral("/nonexistent/drive.jsonl"));
        QVERIFY(!missing.isValid());
        QVERIFY(missing.errorString().contains(QStringLiteral("/nonexistent/drive.jsonl")));

        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QFile big(dir.filePath(QStringLiteral("big.jsonl")));
        QVERIFY(big.open(QIODevice::WriteOnly));
        QVERIFY(big.resize(ReplayScript::kMaxFileBytes + 1));
        big.close();
        const ReplayScript tooBig = ReplayScript::load(big.fileName());
        QVERIFY(!tooBig.isValid());
        QVERIFY(tooBig.errorString().contains(QStringLiteral("larger than")));

        QFile bad(dir.filePath(QStringLiteral("bad.jsonl")));
        QVERIFY(bad.open(QIODevice::WriteOnly));
        bad.write("{\"device\": {\"name\": \"A\"}}\n\n{\"t\": 0, \"device\": 3}\n");
        bad.close();
        const ReplayScript badScript = ReplayScript::load(bad.fileName());
        QCOMPARE(badScript.errorLine(), 3);
        QVERIFY(badScript.errorString().startsWith(bad.fileName() + QStringLiteral(": line 3: ")));
    }

    void shippedExamplesParse_data()
    {
        QTest::addColumn<QString>("path");
        const QDir dir(QStringLiteral(ORVANE_SOURCE_DIR "/tools/replays"));
        const QStringList files = dir.entryList({QStringLiteral("*.jsonl")});
        QVERIFY(files.size() >= 3);
        for (const QString &file : files)
            QTest::newRow(qPrintable(file)) << dir.filePath(file);
    }

    void shippedExamplesParse()
    {
        QFETCH(QString, path);
        const ReplayScript script = ReplayScript::load(path);
        QVERIFY2(script.isValid(), qPrintable(script.errorString()));
        QVERIFY(!script.devices().isEmpty());
        QVERIFY(script.durationMs() > 5000);
    }
};

QTEST_GUILESS_MAIN(TestReplayScript)
#include "tst_replayscript.moc"
