// `orvanehub --headless` as a black box: the real program against `orvane-sim bridge` in its
// own process, a replay file for the controllers, and the simulator's log as the only evidence.
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

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

    [[nodiscard]] bool startHub(RunningProcess &hub)
    {
        QProcessEnvironment hubEnv = env;
        hubEnv.insert(QStringLiteral("ORVANEHUB_INPUT"), QStringLiteral("virtual:") + replay);
        hub.start(kHub,
                  {QStringLiteral("--headless"), QStringLiteral("--transmitter"), link,
                   QStringLiteral("--wheel"), QStringLiteral("MOZA R9 Base"), QStringLiteral("--pedals"),
                   QStringLiteral("1"), QStringLiteral("--start"), QStringLiteral("--remote-port"),
                   QStringLiteral("0")},
                  hubEnv);
        return QTest::qWaitFor([&] { return hub.out.contains("transmission started"); }, 15000);
    }
};

// A receiver V4 firmware of a few pages announcing `version` (the board reports the first
// "Orvane:<version>" text of its image), its description beside it; the firmware file's path.
QString writeReceiverV4Firmware(const QTemporaryDir &dir, uint32_t resetAddress, const QByteArray &version,
                                QByteArray *image)
{
    QByteArray bytes(8, '\0');
    qToLittleEndian<uint32_t>(0x20010000, bytes.data());
    qToLittleEndian<uint32_t>(resetAddress, bytes.data() + 4);
    bytes += "Orvane:" + version + '\0';
    while (bytes.size() < 5001) // three pages, and not a whole number of write units
        bytes += char(bytes.size() * 7);
    const QJsonObject description{
        {QStringLiteral("hardware"), QStringLiteral("Orvane-V4-G0B1")},
        {QStringLiteral("flash_address"), QStringLiteral("0x08000000")},
        {QStringLiteral("size"), bytes.size()},
        {QStringLiteral("sha256"),
         QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex())},
        {QStringLiteral("version"), QString::fromLatin1(version)},
    };
    QFile firmware(dir.filePath(QStringLiteral("rx-v4.bin")));
    QFile json(dir.filePath(QStringLiteral("rx-v4.json")));
    if (!firmware.open(QIODevice::WriteOnly) || !json.open(QIODevice::WriteOnly))
        return {};
    firmware.write(bytes);
    json.write(QJsonDocument(description).toJson());
    *image = bytes;
    return firmware.fileName();
}

// The board's log records of one kind ("command", "bootloader").
QList<QJsonObject> boardRecords(const QString &path, const QString &kind)
{
    QList<QJsonObject> records;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        while (!file.atEnd()) {
            const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
            if (line.value(QStringLiteral("kind")).toString() == kind)
                records.append(line);
        }
    }
    return records;
}

} // namespace

class TestHeadlessEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(QFile::exists(kHub), qPrintable(kHub));
        QVERIFY2(QFile::exists(kSim), qPrintable(kSim));
    }

    void drivesTheSimulatedCarAndStopsOnSigterm()
    {
        DriveBench bench;
        QVERIFY(!bench.replay.isEmpty());
        const QString log = bench.home.filePath(QStringLiteral("bridge.jsonl"));
        RunningProcess sim;
        QVERIFY2(bench.startBridge(sim, log), qPrintable(sim.transcript()));
        RunningProcess hub;
        QVERIFY2(bench.startHub(hub), qPrintable(hub.transcript()));
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

        // Steering follows the wheel to full right and the pedal, fully down by then, drives the car
        // forward. (How far soft start lets CH2 rise is the drive computation's own test.)
        const Frame &last = contents.frames.last();
        QCOMPARE(last.channels.value(0), 2047);
        int highest = 0;
        for (const Frame &frame : contents.frames)
            highest = std::max(highest, frame.channels.value(1));
        QVERIFY(highest > kNeutral + 50);
    }

    void headlessDemoRunsWithoutADisplay()
    {
        QTemporaryDir home;
        QProcessEnvironment env = freshEnvironment(home);
        // No display of any kind: a QApplication would abort here.
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            env.remove(QLatin1String(name));
        // The car's receiver on its own cable beside the demo's bridge.
        RunningProcess receiver;
        const QString receiverLink = home.filePath(QStringLiteral("ttyReceiver"));
        const QString receiverLog = home.filePath(QStringLiteral("receiver.jsonl"));
        receiver.start(kSim,
                       {QStringLiteral("receiver"), QStringLiteral("--link"), receiverLink,
                        QStringLiteral("--log"), receiverLog},
                       env);
        QTRY_VERIFY2_WITH_TIMEOUT(receiver.out.contains("link: "), qPrintable(receiver.transcript()), 10000);
        RunningProcess hub;
        const QString logFile = home.filePath(QStringLiteral("logs/hub.log"));
        const QString drives = home.filePath(QStringLiteral("drives"));
        hub.start(kHub,
                  {QStringLiteral("--headless"), QStringLiteral("--demo"), QStringLiteral("--receiver"),
                   receiverLink, QStringLiteral("--remote-port"), QStringLiteral("0"),
                   QStringLiteral("--log-file"), logFile, QStringLiteral("--record"), drives},
                  env);
        QTRY_VERIFY2_WITH_TIMEOUT(hub.out.contains("transmission started"), qPrintable(hub.transcript()),
                                  15000);
        // Telemetry from the simulated car comes back.
        QTRY_VERIFY2_WITH_TIMEOUT(hub.out.contains("car link up"), qPrintable(hub.transcript()), 15000);
        // The receiver's console is opened and its settings are asked for.
        QTRY_VERIFY2_WITH_TIMEOUT(hub.out.contains("receiver connected on"), qPrintable(hub.transcript()),
                                  15000);
        const auto receiverAsked = [&receiverLog] {
            QFile log(receiverLog);
            return log.open(QIODevice::ReadOnly) && log.readAll().contains("\"GET_TELEM\"");
        };
        QTRY_VERIFY2_WITH_TIMEOUT(receiverAsked(), qPrintable(receiver.transcript()), 15000);
        hub.process->terminate();
        QVERIFY(hub.process->waitForFinished(10000));
        QCOMPARE(hub.process->exitStatus(), QProcess::NormalExit);
        QVERIFY2(hub.process->exitCode() == 0, qPrintable(hub.transcript()));
        QVERIFY2(hub.out.contains("transmission stopped after"), qPrintable(hub.transcript()));
        // The run's own lines and its services' messages were kept on disk up to the last one.
        QFile log(logFile);
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray kept = log.readAll();
        for (const char *line : {"car link up", "receiver connected on", "transmission stopped after"})
            QVERIFY2(kept.contains(line), line);
        // The drive went to the folder asked for, whole: a header and a row per frame sent.
        const QStringList recordings = QDir(drives).entryList(QDir::Files);
        QCOMPARE(recordings.size(), 1);
        QFile recording(QDir(drives).filePath(recordings[0]));
        QVERIFY(recording.open(QIODevice::ReadOnly));
        const QByteArrayList rows = recording.readAll().trimmed().split('\n');
        QVERIFY2(hub.out.contains(QStringLiteral("drive saved to %1: %2 rows")
                                      .arg(recording.fileName())
                                      .arg(rows.size() - 1)
                                      .toUtf8()),
                 qPrintable(hub.transcript()));
        QVERIFY(rows.size() > 10);
        // The demo's profiles lived in its own folder: the user's data folder was never made.
        QVERIFY(!QDir(home.filePath(QStringLiteral("data/OrvaneLabs"))).exists());
        QVERIFY(QDir(home.path()).entryList({QStringLiteral("orvanehub-demo-*")}, QDir::Dirs).isEmpty());
    }

    void elrsParametersAreListedAndWrittenByName()
    {
        DriveBench bench;
        RunningProcess sim;
        const QString log = bench.home.filePath(QStringLiteral("bridge.jsonl"));
        QVERIFY(bench.startBridge(sim, log));
        const auto run = [&bench](const QStringList &arguments, QByteArray *out) {
            QProcess hub;
            hub.setProcessEnvironment(bench.env);
            hub.start(kHub, arguments + QStringList{QStringLiteral("--transmitter"), bench.link});
            if (!hub.waitForFinished(60000))
                return -1;
            *out = hub.readAllStandardOutput() + hub.readAllStandardError();
            return hub.exitCode();
        };
        QByteArray out;
        QCOMPARE(run({QStringLiteral("--elrs-list")}, &out), 0);
        QVERIFY2(out.contains("Packet Rate: 250Hz(-108dBm) [50Hz(-115dBm) |"), out.constData());
        QVERIFY2(out.contains("TX Power/\n  Max Power: "), out.constData());
        QCOMPARE(run({QStringLiteral("--elrs-set"), QStringLiteral("packet rate=500hz")}, &out), 0);
        QCOMPARE(run({QStringLiteral("--elrs-list")}, &out), 0);
        QVERIFY2(out.contains("Packet Rate: 500Hz(-105dBm)"), out.constData());
        QCOMPARE(run({QStringLiteral("--elrs-set"), QStringLiteral("Packet Rate=9000Hz")}, &out), 1);
        QVERIFY2(out.contains("has no option \"9000Hz\""), out.constData());
        // Configuration mode is left every time, also after the refused write.
        QFile bridgeLog(log);
        QVERIFY(bridgeLog.open(QIODevice::ReadOnly));
        const QByteArray commands = bridgeLog.readAll();
        QCOMPARE(commands.count("\"CFGMODE ON\""), 4);
        QCOMPARE(commands.count("\"CFGMODE OFF\""), 4);
    }

    // No transmitter anywhere: the hub runs the motion board alone, and a stop by signal
    // switches the seat's motors off before the process goes.
    void motionPlatformAloneIsReleasedOnSigterm()
    {
        QTemporaryDir home;
        const QProcessEnvironment env = freshEnvironment(home);
        const QString link = home.filePath(QStringLiteral("ttyMotion"));
        const QString log = home.filePath(QStringLiteral("motion.jsonl"));
        RunningProcess board;
        board.start(kSim,
                    {QStringLiteral("motion"), QStringLiteral("--log"), log, QStringLiteral("--link"), link,
                     QStringLiteral("--platform"), QStringLiteral("3dof")},
                    env);
        QTRY_VERIFY2_WITH_TIMEOUT(board.out.contains("link: "), qPrintable(board.transcript()), 10000);
        const auto commands = [&log] {
            QStringList seen;
            QFile file(log);
            if (file.open(QIODevice::ReadOnly)) {
                while (!file.atEnd()) {
                    const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
                    if (line.value(QStringLiteral("kind")).toString() == QLatin1String("command"))
                        seen.append(line.value(QStringLiteral("command")).toString());
                }
            }
            return seen;
        };

        RunningProcess hub;
        hub.start(kHub,
                  {QStringLiteral("--headless"), QStringLiteral("--motion"), link,
                   QStringLiteral("--motion-platform"), QStringLiteral("3"), QStringLiteral("--remote-port"),
                   QStringLiteral("0")},
                  env);
        // The first heartbeat is answered with the settings and the question for their echo.
        QTRY_VERIFY2_WITH_TIMEOUT(hub.out.contains("#CFG i="), qPrintable(hub.transcript()), 15000);
        QVERIFY2(hub.out.contains("state ready"), qPrintable(hub.transcript()));
        QVERIFY2(commands().contains(QStringLiteral("Q")), qPrintable(commands().join(u',')));
        QCOMPARE(hub.process->state(), QProcess::Running);

        hub.process->terminate();
        QVERIFY(hub.process->waitForFinished(10000));
        QCOMPARE(hub.process->exitStatus(), QProcess::NormalExit);
        QVERIFY2(hub.process->exitCode() == 0, qPrintable(hub.transcript()));
        QTRY_COMPARE_WITH_TIMEOUT(commands().value(commands().size() - 1), QStringLiteral("R"), 5000);
        QCOMPARE(commands().count(QStringLiteral("R")), 1);

        // With neither a transmitter nor a board to run, there is nothing to wait for.
        QProcess alone;
        alone.setProcessEnvironment(env);
        alone.start(kHub, {QStringLiteral("--headless"), QStringLiteral("--motion"),
                           home.filePath(QStringLiteral("ttyNone")), QStringLiteral("--remote-port"),
                           QStringLiteral("0")});
        QVERIFY(alone.waitForFinished(20000));
        QCOMPARE(alone.exitCode(), 1);
    }

    // `orvanehub --check-image` and `--flash-v4` against `orvane-sim v4`: a good image ends up
    // in the flash exactly, its vector table page written last, and the new firmware runs; an
    // image with an even (non-Thumb) reset address is refused by both with its reason before
    // a single byte reaches the board.
    void receiverV4IsFlashedFromTheCommandLine_data()
    {
        QTest::addColumn<uint32_t>("resetAddress");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("lastWords");
        QTest::newRow("good image") << uint32_t(0x08000041) << 0
                                    << QByteArray("Update complete: running 9.9.1.");
        QTest::newRow("even reset address")
            << uint32_t(0x08000040) << 1
            << QByteArray("Not a Orvane receiver firmware (reset address 0x08000040).");
    }

    void receiverV4IsFlashedFromTheCommandLine()
    {
        QFETCH(uint32_t, resetAddress);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, lastWords);
        QTemporaryDir home;
        const QProcessEnvironment env = freshEnvironment(home);
        QByteArray image;
        const QString firmware = writeReceiverV4Firmware(home, resetAddress, "9.9.1", &image);
        QVERIFY(!firmware.isEmpty());
        const QString link = home.filePath(QStringLiteral("ttyV4"));
        const QString log = home.filePath(QStringLiteral("v4.jsonl"));
        const QString dump = home.filePath(QStringLiteral("flash.bin"));
        RunningProcess board;
        board.start(kSim,
                    {QStringLiteral("v4"), QStringLiteral("--link"), link, QStringLiteral("--log"), log,
                     QStringLiteral("--flash-dump"), dump},
                    env);
        QTRY_VERIFY2_WITH_TIMEOUT(board.out.contains("link: "), qPrintable(board.transcript()), 10000);

        const QStringList checkImage{QStringLiteral("--check-image"), firmware};
        const QStringList flashV4{QStringLiteral("--flash-v4"), link, firmware};
        for (const QStringList &arguments : {checkImage, flashV4}) {
            RunningProcess hub;
            hub.start(kHub, arguments, env);
            QVERIFY(hub.process->waitForFinished(120000));
            QCOMPARE(hub.process->exitStatus(), QProcess::NormalExit);
            QVERIFY2(hub.process->exitCode() == exitCode, qPrintable(hub.transcript()));
            // A refusal names its reason; a flash ends with the version the board runs now.
            const QByteArray &lastLines = exitCode != 0 ? hub.err : hub.out;
            if (exitCode != 0 || arguments == flashV4)
                QVERIFY2(lastLines.trimmed().endsWith(lastWords), qPrintable(hub.transcript()));
        }

        board.process->terminate();
        QVERIFY(board.process->waitForFinished(10000));
        QCOMPARE(board.process->exitCode(), 0);
        QFile flash(dump);
        QVERIFY(flash.open(QIODevice::ReadOnly));
        const QByteArray contents = flash.readAll();
        const QList<QJsonObject> writes = boardRecords(log, QStringLiteral("bootloader"));
        if (exitCode != 0) {
            // The port was never opened: not even the firmware's console heard a line.
            QVERIFY(boardRecords(log, QStringLiteral("command")).isEmpty());
            QVERIFY(writes.isEmpty());
            QVERIFY(!contents.contains("Orvane:9.9.1"));
            return;
        }
        const QByteArray padded = image + QByteArray((8 - image.size() % 8) % 8, char(0xFF));
        QCOMPARE(contents.left(padded.size()), padded);
        QList<int> pagesWritten;
        for (const QJsonObject &record : writes) {
            if (record.value(QStringLiteral("command")).toString() != QLatin1String("WRITE"))
                continue;
            const uint address = record.value(QStringLiteral("address")).toString().toUInt(nullptr, 16);
            const int page = int((address - 0x08000000) / 2048);
            if (pagesWritten.isEmpty() || pagesWritten.constLast() != page)
                pagesWritten.append(page);
        }
        QCOMPARE(pagesWritten, (QList<int>{1, 2, 0}));
    }

    void badCommandLineExitsWithStatusTwo()
    {
        // Every refusal is the parser's own test; here only that it ends the program with 2.
        QTemporaryDir home;
        QProcess hub;
        hub.setProcessEnvironment(freshEnvironment(home));
        hub.start(kHub, {QStringLiteral("--bogus")});
        QVERIFY(hub.waitForFinished(20000));
        QCOMPARE(hub.exitCode(), 2);
        QVERIFY(hub.readAllStandardError().startsWith("orvanehub: "));
        QVERIFY(hub.readAllStandardOutput().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestHeadlessEndToEnd)
#include "tst_headless_e2e.moc"
