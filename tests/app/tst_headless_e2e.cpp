// `orvanehub --headless` as a black box: the real program against `orvane-sim bridge` in its
// own process, a replay file for the controllers, and the simulator's log as the only evidence.
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

namespace {

const QString kHub = QStringLiteral(ORVANEHUB_EXECUTABLE);
const QString kSim = QStringLiteral(ORVANE_SIM_EXECUTABLE);

// MOZA devices: separate pedal axes, not inverted, so raw 0 is a released pedal. The pedals
// rest (and the wheel is centred) for 1.5 s, long enough for the hub to start; then full right
// lock and the throttle pressed in steps no spike rule objects to.
const QByteArray kReplay = R"(# wheel and pedals for the headless black-box test
{"device": {"name": "MOZA R9 Base", "product": "MOZA R9 Base", "axes": 2, "buttons": 32, "povs": 1}}
{"device": {"name": "MOZA SR-P Pedals", "product": "MOZA SR-P Pedals", "axes": 3}}
{"t": 0, "device": 0, "axes": {"lX": 32767}}
{"t": 0, "device": 1, "axes": {"lRx": 0, "lRy": 0, "lRz": 0}}
{"t": 1500, "device": 0, "axes": {"lX": 65535}}
{"t": 1500, "device": 1, "axes": {"lRx": 20000}}
{"t": 1600, "device": 1, "axes": {"lRx": 40000}}
{"t": 1700, "device": 1, "axes": {"lRx": 65535}}
)";

constexpr int kNeutral = 992;
constexpr int kFullForward = 1811;
// Soft start under the default profile: the throttle is capped at 10% rising to 100% over 30 s.
double softStartCap(double elapsedMs)
{
    return std::min(elapsedMs / 30000.0, 1.0) * 0.9 + 0.1;
}
// CH2 for a throttle fraction, past the 50-count dead zone.
double throttleChannel(double throttle)
{
    const double deadZone = 50.0 / 2047.0;
    return kNeutral + (throttle - deadZone) / (1.0 - deadZone) * (kFullForward - kNeutral);
}

struct Frame
{
    qint64 t = 0;
    QList<int> channels;
};

struct BridgeLogContents
{
    QStringList commands;
    // Frames received between START and STOP.
    QList<Frame> frames;
    qint64 startTime = -1;
    qint64 stopTime = -1;
    int framesBeforeStart = 0;
    int framesAfterStop = 0;
};

BridgeLogContents readBridgeLog(const QString &path)
{
    BridgeLogContents log;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return log;
    while (!file.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
        const QString kind = line.value(QStringLiteral("kind")).toString();
        const qint64 t = qint64(line.value(QStringLiteral("t")).toDouble());
        if (kind == QLatin1String("command")) {
            const QString command = line.value(QStringLiteral("command")).toString();
            log.commands.append(command);
            if (command == QLatin1String("START") && log.startTime < 0)
                log.startTime = t;
            if (command == QLatin1String("STOP") && log.startTime >= 0 && log.stopTime < 0)
                log.stopTime = t;
        } else if (kind == QLatin1String("frame") && line.value(QStringLiteral("type")).toInt() == 0x16) {
            if (log.startTime < 0) {
                ++log.framesBeforeStart;
            } else if (log.stopTime >= 0) {
                ++log.framesAfterStop;
            } else {
                Frame frame;
                frame.t = t;
                for (const QJsonValue &value : line.value(QStringLiteral("channels")).toArray())
                    frame.channels.append(value.toInt());
                log.frames.append(frame);
            }
        }
    }
    return log;
}

// The replay file in `home`, its path.
QString writeReplay(const QTemporaryDir &home)
{
    const QString path = home.filePath(QStringLiteral("drive.jsonl"));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(kReplay) == kReplay.size() ? path : QString();
}

// A private home, so the hub finds no profile of the person running the tests and leaves none.
QProcessEnvironment freshEnvironment(const QTemporaryDir &home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), home.path());
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    env.insert(QStringLiteral("XDG_DATA_HOME"), home.filePath(QStringLiteral("data")));
    env.insert(QStringLiteral("TMPDIR"), home.path());
    env.remove(QStringLiteral("ORVANEHUB_INPUT"));
    return env;
}

// Collects what a process prints, for waiting on and for failure messages.
struct RunningProcess
{
    std::unique_ptr<QProcess> process = std::make_unique<QProcess>();
    QByteArray out;
    QByteArray err;

    void start(const QString &program, const QStringList &arguments, const QProcessEnvironment &env)
    {
        process->setProcessEnvironment(env);
        QObject::connect(process.get(), &QProcess::readyReadStandardOutput, process.get(),
                         [this] { out += process->readAllStandardOutput(); });
        QObject::connect(process.get(), &QProcess::readyReadStandardError, process.get(),
                         [this] { err += process->readAllStandardError(); });
        process->start(program, arguments);
    }
    [[nodiscard]] QString transcript() const
    {
        return QString::fromUtf8("--- stdout:\n" + out + "--- stderr:\n" + err);
    }
    ~RunningProcess()
    {
        if (process->state() != QProcess::NotRunning) {
            process->kill();
            process->waitForFinished(5000);
        }
    }
};

// A private home with the replay in it, and the two programs started the way a person
// would: the bridge simulator on a link path, then the hub driving through it.
struct DriveBench
{
    QTemporaryDir home;
    QString link = home.filePath(QStringLiteral("ttyTransmitter"));
    QString replay = writeReplay(home);
    QProcessEnvironment env = freshEnvironment(home);

    [[nodiscard]] bool startBridge(RunningProcess &sim, const QString &log)
    {
        sim.start(kSim,
                  {QStringLiteral("bridge"), QStringLiteral("--log"), log, QStringLiteral("--link"), link},
                  env);
        return QTest::qWaitFor([&] { return sim.out.contains("link: "); }, 10000);
    }

    [[nodiscard]] bool startHub(RunningProcess &hub, const QString &wheel)
    {
        QProcessEnvironment hubEnv = env;
        hubEnv.insert(QStringLiteral("ORVANEHUB_INPUT"), QStringLiteral("virtual:") + replay);
        hub.start(kHub,
                  {QStringLiteral("--headless"), QStringLiteral("--transmitter"), link,
                   QStringLiteral("--wheel"), wheel, QStringLiteral("--pedals"), QStringLiteral("1"),
                   QStringLiteral("--start")},
                  hubEnv);
        return QTest::qWaitFor([&] { return hub.out.contains("transmission started"); }, 15000);
    }
};

} // namespace

class TestHeadlessEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void drivesTheSimulatedCarAndStopsOnSigterm();
    void lostBridgeComesBackWithoutAStart();
    void listDevicesPrintsTheReplaysLabels();
    void headlessDemoRunsWithoutADisplay();
    void badCommandLinesExitWithStatusTwo_data();
    void badCommandLinesExitWithStatusTwo();
};

void TestHeadlessEndToEnd::initTestCase()
{
    QVERIFY2(QFile::exists(kHub), qPrintable(kHub));
    QVERIFY2(QFile::exists(kSim), qPrintable(kSim));
}

void TestHeadlessEndToEnd::drivesTheSimulatedCarAndStopsOnSigterm()
{
    DriveBench bench;
    QVERIFY(!bench.replay.isEmpty());
    const QString log = bench.home.filePath(QStringLiteral("bridge.jsonl"));
    RunningProcess sim;
    QVERIFY2(bench.startBridge(sim, log), qPrintable(sim.transcript()));
    RunningProcess hub;
    QVERIFY2(bench.startHub(hub, QStringLiteral("MOZA R9 Base")), qPrintable(hub.transcript()));
    // Run until the bridge has seen the steering and throttle of the replay for a while.
    const auto sawDrive = [&log] {
        const BridgeLogContents contents = readBridgeLog(log);
        return !contents.frames.isEmpty() && contents.frames.last().channels.value(0) == 2047 &&
               contents.frames.last().t - contents.startTime > 2500;
    };
    QTRY_VERIFY2_WITH_TIMEOUT(sawDrive(), qPrintable(hub.transcript()), 20000);

    hub.process->terminate(); // SIGTERM
    QVERIFY(hub.process->waitForFinished(10000));
    QCOMPARE(hub.process->exitStatus(), QProcess::NormalExit);
    QVERIFY2(hub.process->exitCode() == 0, qPrintable(hub.transcript()));
    QVERIFY2(hub.out.contains("stopping (SIGTERM)"), qPrintable(hub.transcript()));
    QTRY_VERIFY_WITH_TIMEOUT(readBridgeLog(log).stopTime >= 0, 5000);
    sim.process->terminate();
    QVERIFY(sim.process->waitForFinished(10000));
    QCOMPARE(sim.process->exitCode(), 0);

    BridgeLogContents contents = readBridgeLog(log);
    QCOMPARE(contents.commands.count(QStringLiteral("START")), 1);
    QCOMPARE(contents.commands.count(QStringLiteral("STOP")), 1);
    QVERIFY(contents.commands.indexOf(QStringLiteral("START")) <
            contents.commands.indexOf(QStringLiteral("STOP")));
    QCOMPARE(contents.framesBeforeStart, 0);
    QCOMPARE(contents.framesAfterStop, 0);
    QVERIFY(contents.frames.size() > 300);
    // Right before STOP: the neutral frame, wheel centred and ESC neutral, whatever the
    // wheel and pedals did last.
    const Frame neutral = contents.frames.takeLast();
    QCOMPARE(neutral.channels.value(0), 1023);
    QCOMPARE(neutral.channels.value(1), kNeutral);

    // The first frames: wheel centred, pedals released.
    const Frame &first = contents.frames.first();
    QVERIFY2(std::abs(first.channels.value(0) - 1023) <= 1,
             qPrintable(QString::number(first.channels.value(0))));
    QCOMPARE(first.channels.value(1), kNeutral);
    QCOMPARE(first.channels.value(2), 0);

    // Steering follows the wheel to full right; CH2 rises with the throttle but never above
    // what soft start allows at that moment.
    const Frame &last = contents.frames.last();
    QCOMPARE(last.channels.value(0), 2047);
    int highest = 0;
    for (const Frame &frame : contents.frames) {
        const int ch2 = frame.channels.value(1);
        const double allowed = throttleChannel(softStartCap(double(frame.t - contents.startTime) + 100.0));
        QVERIFY2(ch2 <= allowed + 1.0,
                 qPrintable(QStringLiteral("CH2 %1 above the soft-start cap %2 at %3 ms")
                                .arg(ch2)
                                .arg(allowed)
                                .arg(frame.t - contents.startTime)));
        highest = std::max(highest, ch2);
    }
    // The pedal is fully down by then: the car is driven forward. (How close CH2 rides to the
    // cap depends on how late a loaded machine runs the ticks, so it is not checked.)
    QVERIFY(highest > kNeutral + 50);
}

void TestHeadlessEndToEnd::lostBridgeComesBackWithoutAStart()
{
    DriveBench bench;
    QVERIFY(!bench.replay.isEmpty());
    RunningProcess first;
    QVERIFY2(bench.startBridge(first, bench.home.filePath(QStringLiteral("first.jsonl"))),
             qPrintable(first.transcript()));
    RunningProcess hub;
    QVERIFY2(bench.startHub(hub, QStringLiteral("0")), qPrintable(hub.transcript()));

    // The transmitter goes away mid-run (the simulator ends, its line hangs up) and a fresh
    // one appears under the same name: the hub reconnects, and waits for a person to start.
    first.process->terminate();
    QVERIFY(first.process->waitForFinished(10000));
    QTRY_VERIFY2_WITH_TIMEOUT(hub.err.contains("Transmitter disconnected"), qPrintable(hub.transcript()),
                              10000);
    QVERIFY2(hub.out.contains("will not start again by itself"), qPrintable(hub.transcript()));
    const QString secondLog = bench.home.filePath(QStringLiteral("second.jsonl"));
    RunningProcess second;
    QVERIFY2(bench.startBridge(second, secondLog), qPrintable(second.transcript()));
    QTRY_VERIFY2_WITH_TIMEOUT(hub.out.count("transmitter connected on") == 2, qPrintable(hub.transcript()),
                              15000);
    // The hub's keepalive (every 2 to 3 s of silence) shows it is talking to the new bridge;
    // a start would have come before it.
    const auto keptAlive = [&secondLog] {
        QFile file(secondLog);
        return file.open(QIODevice::ReadOnly) && file.readAll().contains("\"kind\":\"keepalive\"");
    };
    QTRY_VERIFY2_WITH_TIMEOUT(keptAlive(), qPrintable(hub.transcript()), 15000);
    const BridgeLogContents contents = readBridgeLog(secondLog);
    QVERIFY2(contents.commands.isEmpty(), qPrintable(contents.commands.join(QLatin1Char(','))));
    QCOMPARE(contents.framesBeforeStart, 0);

    hub.process->terminate();
    QVERIFY(hub.process->waitForFinished(10000));
    QCOMPARE(hub.process->exitCode(), 0);
}

void TestHeadlessEndToEnd::listDevicesPrintsTheReplaysLabels()
{
    QTemporaryDir home;
    const QString replay = writeReplay(home);
    QVERIFY(!replay.isEmpty());
    QProcessEnvironment env = freshEnvironment(home);
    env.insert(QStringLiteral("ORVANEHUB_INPUT"), QStringLiteral("virtual:") + replay);
    QProcess hub;
    hub.setProcessEnvironment(env);
    hub.start(kHub, {QStringLiteral("--list-devices")});
    QVERIFY(hub.waitForFinished(20000));
    const QString out = QString::fromUtf8(hub.readAllStandardOutput());
    const QString err = QString::fromUtf8(hub.readAllStandardError());
    QCOMPARE(hub.exitCode(), 0);
    QVERIFY2(out.contains(QLatin1String("[0] MOZA R9 Base (2 axes, 32 btn)")), qPrintable(out));
    QVERIFY2(out.contains(QLatin1String("[1] MOZA SR-P Pedals (3 axes, 0 btn)")), qPrintable(out));
    QVERIFY2(err.isEmpty(), qPrintable(err));

    env.insert(QStringLiteral("ORVANEHUB_INPUT"),
               QStringLiteral("virtual:") + home.filePath(QStringLiteral("none")));
    hub.setProcessEnvironment(env);
    hub.start(kHub, {QStringLiteral("--list-devices")});
    QVERIFY(hub.waitForFinished(20000));
    QCOMPARE(hub.exitCode(), 2);
}

void TestHeadlessEndToEnd::headlessDemoRunsWithoutADisplay()
{
    QTemporaryDir home;
    QProcessEnvironment env = freshEnvironment(home);
    // No display of any kind: a QApplication would abort here.
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        env.remove(QLatin1String(name));
    RunningProcess hub;
    hub.start(kHub, {QStringLiteral("--headless"), QStringLiteral("--demo")}, env);
    QTRY_VERIFY2_WITH_TIMEOUT(hub.out.contains("transmission started"), qPrintable(hub.transcript()), 15000);
    // Telemetry from the simulated car comes back.
    QTRY_VERIFY2_WITH_TIMEOUT(hub.out.contains("car link up"), qPrintable(hub.transcript()), 15000);
    hub.process->terminate();
    QVERIFY(hub.process->waitForFinished(10000));
    QCOMPARE(hub.process->exitStatus(), QProcess::NormalExit);
    QVERIFY2(hub.process->exitCode() == 0, qPrintable(hub.transcript()));
    QVERIFY2(hub.out.contains("transmission stopped after"), qPrintable(hub.transcript()));
    // The demo's profiles lived in its own folder: the user's data folder was never made.
    QVERIFY(!QDir(home.filePath(QStringLiteral("data/OrvaneLabs"))).exists());
    QVERIFY(QDir(home.path()).entryList({QStringLiteral("orvanehub-demo-*")}, QDir::Dirs).isEmpty());
}

void TestHeadlessEndToEnd::badCommandLinesExitWithStatusTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    // Every refusal is the parser's own test; here only that it ends the program with 2.
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--bogus")};
    QTest::newRow("start without headless") << QStringList{QStringLiteral("--start")};
}

void TestHeadlessEndToEnd::badCommandLinesExitWithStatusTwo()
{
    QFETCH(QStringList, arguments);
    QTemporaryDir home;
    QProcess hub;
    hub.setProcessEnvironment(freshEnvironment(home));
    hub.start(kHub, arguments);
    QVERIFY(hub.waitForFinished(20000));
    QCOMPARE(hub.exitCode(), 2);
    QVERIFY(hub.readAllStandardError().startsWith("orvanehub: "));
    QVERIFY(hub.readAllStandardOutput().isEmpty());
}

QTEST_GUILESS_MAIN(TestHeadlessEndToEnd)
#include "tst_headless_e2e.moc"
