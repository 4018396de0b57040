#include "controllerrig.h"
#include "crsftypes.h"
#include "elrsparametermanager.h"

#include <QSignalSpy>
#include <QTest>

#include <numeric>

using namespace tavrix;
using namespace tavrix::testing;
using State = ElrsParameterManager::State;

namespace {

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the controller rig could not be set up")

// Generous on purpose: a resent read whose first answer was only late would be taken
// as the field's next chunk, so the success paths must not time out under load.
ControllerTimings patientTimings()
{
    ControllerTimings t = shortTimings();
    t.elrs.requestTimeout = std::chrono::milliseconds(5000);
    return t;
}

sim::BridgeSimulatorSettings bridgeWithWalkPace(int walkLineIntervalMs)
{
    sim::BridgeSimulatorSettings s = ControllerRig::quietBridge();
    s.walkLineIntervalMs = walkLineIntervalMs;
    return s;
}

QString describe(uint8_t id, const QString &name, int parent, int type, std::optional<int> value,
                 const QStringList &labels)
{
    return QStringLiteral("%1 %2 in %3, type %4 = %5 [%6]")
        .arg(id)
        .arg(name)
        .arg(parent)
        .arg(type)
        .arg(value ? QString::number(*value) : QStringLiteral("-"), labels.join(QLatin1Char(';')));
}

// One line per parameter with everything callers use, so a mismatch names the field.
QStringList described(const QList<elrs::Parameter> &parameters)
{
    QStringList lines;
    for (const elrs::Parameter &p : parameters) {
        QStringList labels;
        for (const elrs::Option &option : p.options)
            labels.append(option.label);
        lines.append(describe(p.id, p.name, p.parent, p.type, p.value, labels));
    }
    return lines;
}

// The same for the simulated module's own table, leaving out the fields not read.
QStringList described(const sim::SimulatedParameterDevice &module, const QList<int> &unread)
{
    using Device = sim::SimulatedParameterDevice;
    QStringList lines;
    for (const Device::Field &f : module.fields()) {
        if (unread.contains(f.id))
            continue;
        const bool hasValue =
            f.type == Device::Uint8 || f.type == Device::Int8 || f.type == Device::TextSelection;
        lines.append(describe(f.id, f.name, f.parent, f.type,
                              hasValue ? std::optional<int>(f.value) : std::nullopt, f.options));
    }
    return lines;
}

ElrsParameterManager *manager(const ControllerRig &rig)
{
    return rig.controller->elrsParameters();
}

// Enters configuration mode and runs one discovery to its end.
bool discover(ControllerRig &rig, bool overFrames = false)
{
    QSignalSpy complete(manager(rig), &ElrsParameterManager::discoveryComplete);
    if (!rig.controller->enterConfigMode())
        return false;
    if (overFrames)
        manager(rig)->startFrameDiscovery();
    else
        manager(rig)->startDiscovery();
    return complete.wait(10000) && manager(rig)->state() == State::Ready;
}

// Parameter write frames the bridge received, each as "field:value".
QStringList writesAtBridge(const QSignalSpy &frames)
{
    QStringList writes;
    for (const QList<QVariant> &args : frames) {
        const QByteArray frame = args.at(0).toByteArray();
        if (frame.size() > 6 && uint8_t(frame[2]) == crsf::kTypeParameterWrite)
            writes.append(QStringLiteral("%1:%2").arg(uint8_t(frame[5])).arg(uint8_t(frame[6])));
    }
    return writes;
}

} // namespace

class TestElrsParameterManager : public QObject
{
    Q_OBJECT

private slots:
    void discoveryReadsTheModuleAndItsWrites_data();
    void discoveryReadsTheModuleAndItsWrites();
    void writeByNameRefused_data();
    void writeByNameRefused();
    void writeByIdGoesOutThreeTimes();
    void leavingConfigModeMidWalkAborts();
    void silentBridgeEndsDiscovery_data();
    void silentBridgeEndsDiscovery();
    void walkLinesFromBridge_data();
    void walkLinesFromBridge();
};

void TestElrsParameterManager::discoveryReadsTheModuleAndItsWrites_data()
{
    QTest::addColumn<bool>("overFrames");
    QTest::addColumn<QList<int>>("readFailures");
    QTest::addColumn<QList<int>>("repeatedHeaders");

    // A folder unreadable (its children still name it); headers repeated on the long
    // selection, inside a folder and on an info text.
    QTest::newRow("walk with unreadable fields and repeated headers")
        << false << QList<int>{3, 7} << QList<int>{1, 5, 8};
    QTest::newRow("frames") << true << QList<int>{} << QList<int>{};
}

void TestElrsParameterManager::discoveryReadsTheModuleAndItsWrites()
{
    QFETCH(bool, overFrames);
    QFETCH(QList<int>, readFailures);
    QFETCH(QList<int>, repeatedHeaders);

    sim::BridgeSimulatorSettings bridge = ControllerRig::quietBridge();
    bridge.walkReadFailures = QSet<uint8_t>(readFailures.cbegin(), readFailures.cend());
    bridge.walkRepeatedHeaders = QSet<uint8_t>(repeatedHeaders.cbegin(), repeatedHeaders.cend());
    ControllerRig rig(bridge);
    SET_UP_RIG(rig, QStringLiteral("rc_car"), patientTimings());
    QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);
    QVERIFY(discover(rig, overFrames));
    QCOMPARE(described(manager(rig)->parameters()), described(rig.sim.module(), readFailures));

    if (overFrames) {
        // The long selection came in as many entries as the most a frame holds makes it,
        // each asked for once and in turn.
        const uint8_t rate = manager(rig)->parameter(QStringLiteral("Packet Rate"))->id;
        QList<int> chunksRead;
        for (const QList<QVariant> &args : std::as_const(frames)) {
            const QByteArray f = args.at(0).toByteArray();
            if (uint8_t(f[2]) == crsf::kTypeParameterRead && uint8_t(f[5]) == rate)
                chunksRead.append(uint8_t(f[6]));
        }
        const int chunkSize = sim::crsfwire::kParameterChunkSize;
        const qsizetype size = rig.sim.module().fieldData(rate).size();
        QVERIFY(size > 2 * chunkSize); // a middle chunk too
        QList<int> expected((size + chunkSize - 1) / chunkSize);
        std::iota(expected.begin(), expected.end(), 0);
        QCOMPARE(chunksRead, expected);
    }

    // A write reaches the module, and the next discovery reads it back from there.
    QVERIFY(manager(rig)->setParameterByIndex(QStringLiteral("Packet Rate"), 5));
    rig.controller->exitConfigMode();
    QVERIFY(discover(rig, overFrames));
    QCOMPARE(manager(rig)->parameter(QStringLiteral("Packet Rate"))->value, 5);
    QCOMPARE(described(manager(rig)->parameters()), described(rig.sim.module(), readFailures));
}

void TestElrsParameterManager::writeByNameRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("errorPart");

    QTest::newRow("index equal to the option count") << "Packet Rate" << 6 << "out of range";
    QTest::newRow("negative index") << "Packet Rate" << -1 << "out of range";
    QTest::newRow("unknown name") << "Packet Rat" << 0 << "Unknown ELRS parameter";
    QTest::newRow("command") << "Bind" << 0 << "not an enum";
}

void TestElrsParameterManager::writeByNameRefused()
{
    QFETCH(QString, name);
    QFETCH(int, index);
    QFETCH(QString, errorPart);

    ControllerRig rig;
    SET_UP_RIG(rig);
    QVERIFY(discover(rig));
    QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);
    QSignalSpy errors(manager(rig), &ElrsParameterManager::error);

    QVERIFY(!manager(rig)->setParameterByIndex(name, index));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.at(0).at(0).toString().contains(errorPart), qPrintable(errors.at(0).at(0).toString()));
    QVERIFY(rig.flushToBridge());
    QCOMPARE(writesAtBridge(frames), QStringList());
    QCOMPARE(manager(rig)->parameter(QStringLiteral("Packet Rate"))->value, 3);
}

void TestElrsParameterManager::writeByIdGoesOutThreeTimes()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);
    QSignalSpy errors(manager(rig), &ElrsParameterManager::error);

    QVERIFY(!manager(rig)->writeParamRaw(2, 255)); // not configuring
    QVERIFY(rig.controller->enterConfigMode());
    QVERIFY(!manager(rig)->writeParamRaw(2, 256));
    QCOMPARE(errors.size(), 2);
    QVERIFY(manager(rig)->writeParamRaw(2, 255));
    QTRY_COMPARE_WITH_TIMEOUT(writesAtBridge(frames).size(), 3, 10000);
    QCOMPARE(writesAtBridge(frames), QStringList(3, QStringLiteral("2:255")));
}

void TestElrsParameterManager::leavingConfigModeMidWalkAborts()
{
    // One FIELD line every half second: the walk is surely under way after the first.
    ControllerRig rig(bridgeWithWalkPace(500));
    SET_UP_RIG(rig);
    QSignalSpy progress(manager(rig), &ElrsParameterManager::discoveryProgress);
    QSignalSpy aborted(manager(rig), &ElrsParameterManager::discoveryAborted);
    QVERIFY(rig.controller->enterConfigMode());
    manager(rig)->startDiscovery();
    QTRY_VERIFY_WITH_TIMEOUT(!progress.isEmpty() && progress.last().at(0).toInt() > 0, 10000);

    rig.controller->exitConfigMode();
    QCOMPARE(manager(rig)->state(), State::Aborted);
    QCOMPARE(aborted.size(), 1);
    // The bridge stops walking on CFGMODE OFF, and a late line no longer counts.
    manager(rig)->onTransmitterLine(QStringLiteral("FIELD 8: 00 0C 41 00 00 00 00"));
    manager(rig)->onTransmitterLine(QStringLiteral("WALK: done"));
    QCOMPARE(manager(rig)->state(), State::Aborted);
    QVERIFY(!manager(rig)->parameter(QStringLiteral("A")));
}

void TestElrsParameterManager::silentBridgeEndsDiscovery_data()
{
    QTest::addColumn<bool>("overFrames");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("pings");

    QTest::newRow("walk") << false << "ELRS walk timed out" << 0;
    QTest::newRow("frames: first ping and ten retries")
        << true << "ELRS module did not respond to device ping." << 11;
}

void TestElrsParameterManager::silentBridgeEndsDiscovery()
{
    QFETCH(bool, overFrames);
    QFETCH(QString, message);
    QFETCH(int, pings);

    ControllerTimings t = shortTimings();
    t.elrs.requestTimeout = std::chrono::milliseconds(20);
    t.elrs.walkTimeout = std::chrono::milliseconds(200);
    ControllerRig rig;
    SET_UP_RIG(rig, QStringLiteral("rc_car"), t);
    QVERIFY(rig.controller->enterConfigMode());
    QVERIFY(rig.flushToBridge());
    rig.sim.setStalled(true);
    QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);
    QSignalSpy errors(manager(rig), &ElrsParameterManager::error);

    overFrames ? manager(rig)->startFrameDiscovery() : manager(rig)->startDiscovery();
    QVERIFY(errors.wait(10000));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), message);
    QCOMPARE(manager(rig)->state(), State::Idle);
    QVERIFY(rig.flushToBridge());
    const auto isPing = [](const QList<QVariant> &args) {
        return uint8_t(args.at(0).toByteArray().at(2)) == crsf::kTypeDevicePing;
    };
    QCOMPARE(std::count_if(frames.cbegin(), frames.cend(), isPing), pings);
}

void TestElrsParameterManager::walkLinesFromBridge_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("parameters");
    QTest::addColumn<State>("state");
    QTest::addColumn<int>("errors");
    QTest::addColumn<int>("linesCounted");

    QTest::newRow("send-only: nothing readable")
        << QByteArray("WALK: starting\r\nFIELD 7: (read failed)\r\nWALK: done\r\n") << 0 << State::Idle << 1
        << 1;
    QTest::newRow("bad lines dropped whole, good one kept")
        << QByteArray("WALK: starting\r\nFIELD 1 00 0C 41 00\r\nFIELD x: 00 0C 42 00\r\n"
                      "FIELD 3: 00 0C 43 00 GG\r\nFIELD 4: 00 0C 44 00 00 00 00\r\nWALK: done\r\n")
        << 1 << State::Ready << 0 << 2;
}

void TestElrsParameterManager::walkLinesFromBridge()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, parameters);
    QFETCH(State, state);
    QFETCH(int, errors);
    QFETCH(int, linesCounted);

    ControllerRig rig;
    SET_UP_RIG(rig);
    QSignalSpy errorSpy(manager(rig), &ElrsParameterManager::error);
    QSignalSpy progress(manager(rig), &ElrsParameterManager::discoveryProgress);
    QSignalSpy done(manager(rig), &ElrsParameterManager::discoveryComplete);
    rig.sim.injectToHost(lines);
    QTRY_VERIFY_WITH_TIMEOUT(errorSpy.size() + done.size() > 0, 10000);

    QCOMPARE(manager(rig)->state(), state);
    QCOMPARE(manager(rig)->parameters().size(), parameters);
    QCOMPARE(errorSpy.size(), errors);
    // Every FIELD line with a good id counts towards progress, read or not.
    QCOMPARE(progress.last(), (QList<QVariant>{linesCounted, 8}));
}

QTEST_GUILESS_MAIN(TestElrsParameterManager)
#include "tst_elrsparametermanager.moc"
