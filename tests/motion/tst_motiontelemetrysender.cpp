#include "motiontelemetrysender.h"

#include <QNetworkDatagram>
#include <QSettings>
#include <QTest>
#include <QUdpSocket>

#include <cmath>
#include <limits>
#include <memory>

using namespace tavrix;
namespace dr = tavrix::dirtrally;

namespace {

constexpr int kWait = 10000;

// The sender on a hand-stepped clock, streaming to a real UDP socket on the loopback.
struct Rig
{
    qint64 now = 1000;
    QUdpSocket motionSoftware;
    std::unique_ptr<MotionTelemetrySender> sender;

    explicit Rig(const QString &host = QStringLiteral("127.0.0.1"))
    {
        if (!motionSoftware.bind(QHostAddress::LocalHost, 0))
            qFatal("cannot bind the loopback");
        sender = std::make_unique<MotionTelemetrySender>([this] { return now; });
        sender->setTarget(host, motionSoftware.localPort());
        sender->setEnabled(true);
    }

    // Advances the clock, ticks once and returns the datagram that tick sent.
    QByteArray step(qint64 ms = 16)
    {
        now += ms;
        sender->tick();
        if (!motionSoftware.hasPendingDatagrams() && !motionSoftware.waitForReadyRead(kWait))
            return {};
        return motionSoftware.receiveDatagram().data();
    }
};

} // namespace

class TestMotionTelemetrySender : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().remove(QStringLiteral("motionTelemetry")); }

    void datagramLayout()
    {
        Rig rig;
        rig.sender->setDriveStateProvider([] { return MotionDriveState{-0.5f, 0.25f, 0.75f, 1.0f, 3}; });
        QByteArray packet;
        rig.sender->setAttitude(0.0f, 0.0f, 0.0f);
        for (int i = 0; i < 120; ++i) {
            // Turned 90 degrees, nose up 30, leaning left 30.
            rig.sender->setAttitude(30.0f, -30.0f, 90.0f);
            rig.sender->setAcceleration(0.5f, -0.25f, 0.0f);
            packet = rig.step();
        }
        QCOMPARE(packet.size(), dr::kPacketSize);
        const QList<std::pair<int, float>> expected = {
            {0, 1.92f}, {1, 1.92f},   {11, 0.0f},   {12, 0.5f},   {13, -0.866f}, {14, 0.866f}, {15, 0.5f},
            {16, 0.0f}, {29, 0.25f},  {30, -0.5f},  {31, 0.75f},  {32, 1.0f},    {33, 3.0f},   {34, -0.25f},
            {35, 0.5f}, {37, 275.0f}, {63, 800.0f}, {64, 100.0f}, {65, 6.0f}};
        for (int index = 0; index < dr::kFieldCount; ++index) {
            const auto it = std::find_if(expected.cbegin(), expected.cend(),
                                         [index](const auto &e) { return e.first == index; });
            const float want = it == expected.cend() ? 0.0f : it->second;
            QVERIFY2(std::abs(dr::field(packet, index) - want) < 1e-3,
                     qPrintable(QStringLiteral("field %1: %2, expected %3")
                                    .arg(index)
                                    .arg(double(dr::field(packet, index)))
                                    .arg(double(want))));
        }
    }

    void gearAndEngine_data()
    {
        QTest::addColumn<bool>("provider");
        QTest::addColumn<int>("gear");
        QTest::addColumn<float>("gearField");
        QTest::addColumn<float>("rpm");
        QTest::newRow("reverse is the game's 10") << true << -1 << 10.0f << 450.0f;
        QTest::newRow("neutral") << true << 0 << 0.0f << 450.0f;
        QTest::newRow("second") << true << 2 << 2.0f << 450.0f;
        QTest::newRow("no provider: controls 0, idle") << false << 2 << 0.0f << 100.0f;
    }

    void gearAndEngine()
    {
        QFETCH(bool, provider);
        QFETCH(int, gear);
        QFETCH(float, gearField);
        QFETCH(float, rpm);
        Rig rig;
        if (provider)
            rig.sender->setDriveStateProvider([gear] {
                return MotionDriveState{0.0f, 0.5f, 0.0f, 0.0f, gear};
            });
        const QByteArray packet = rig.step();
        QCOMPARE(dr::field(packet, dr::Gear), gearField);
        QCOMPARE(dr::field(packet, dr::EngineRpm), rpm);
        QCOMPARE(dr::field(packet, dr::Throttle), provider ? 0.5f : 0.0f);
    }

    void headingUnwraps_data()
    {
        QTest::addColumn<float>("from");
        QTest::addColumn<float>("to");
        QTest::addColumn<float>("turn");
        QTest::newRow("179 to -179 turns +2") << 179.0f << -179.0f << 2.0f;
        QTest::newRow("-179 to 179 turns -2") << -179.0f << 179.0f << -2.0f;
        QTest::newRow("350 to 10 turns +20") << 350.0f << 10.0f << 20.0f;
        QTest::newRow("10 to 40 turns +30") << 10.0f << 40.0f << 30.0f;
    }

    void headingUnwraps()
    {
        QFETCH(float, from);
        QFETCH(float, to);
        QFETCH(float, turn);
        Rig rig;
        rig.sender->setAttitude(0.0f, 0.0f, from); // the first heading holds yaw where it is
        rig.sender->setAttitude(0.0f, 0.0f, to);
        float yaw = 0.0f;
        for (int i = 0; i < 60; ++i) {
            rig.step();
            yaw = rig.sender->snapshot().yawDeg;
            // Never the long way round.
            QVERIFY2(yaw * turn >= 0.0f && std::abs(yaw) <= std::abs(turn) + 1e-3f,
                     qPrintable(QString::number(yaw)));
        }
        QVERIFY2(std::abs(yaw - turn) < 0.02f * std::abs(turn), qPrintable(QString::number(yaw)));
    }

    void accelerationFreshness_data()
    {
        QTest::addColumn<qint64>("silenceMs");
        QTest::addColumn<bool>("fresh");
        QTest::newRow("300 ms: still the car's") << qint64(300) << true;
        QTest::newRow("301 ms: decays a quarter per tick") << qint64(301) << false;
    }

    void accelerationFreshness()
    {
        QFETCH(qint64, silenceMs);
        QFETCH(bool, fresh);
        Rig rig;
        rig.sender->setAcceleration(1.0f, -1.0f, 0.0f);
        for (int i = 0; i < 10; ++i)
            rig.step(10);
        const QByteArray before = rig.step(silenceMs - 100);
        QCOMPARE(rig.sender->snapshot().accelerationFresh, fresh);
        const QByteArray after = rig.step(0);
        for (const auto &[index, input] :
             {std::pair{dr::LongitudinalG, 1.0f}, std::pair{dr::LateralG, -1.0f}}) {
            const float was = dr::field(before, index);
            const float is = dr::field(after, index);
            if (fresh)
                QVERIFY(std::abs(input - is) < std::abs(input - was));
            else
                QVERIFY2(qFuzzyCompare(is, was * 0.75f),
                         qPrintable(QStringLiteral("%1 -> %2").arg(was).arg(is)));
        }
    }

    void nonsenseInputsStayBounded()
    {
        constexpr float nan = std::numeric_limits<float>::quiet_NaN();
        constexpr float inf = std::numeric_limits<float>::infinity();
        Rig rig;
        rig.sender->setDriveStateProvider([] { return MotionDriveState{nan, inf, -inf, nan, 99}; });
        rig.sender->setAcceleration(1e9f, -1e9f, 1e9f);
        rig.sender->setAcceleration(nan, 0.0f, 0.0f);
        rig.sender->setAttitude(nan, inf, 1e30f);
        rig.sender->setYawRate(inf);
        rig.sender->setYawRate(1e9f);
        QByteArray packet;
        for (int i = 0; i < 40; ++i)
            packet = rig.step(i == 20 ? 60000 : 16); // with a stalled loop in between
        for (int index = 0; index < dr::kFieldCount; ++index)
            QVERIFY2(std::isfinite(dr::field(packet, index)), qPrintable(QString::number(index)));
        for (int index : {dr::LateralG, dr::LongitudinalG, dr::Steering, dr::Throttle})
            QVERIFY(std::abs(dr::field(packet, index)) <= dr::kMaxG);
        QVERIFY(dr::field(packet, dr::Gear) <= dr::kReverseGear);
    }

    void switchingOnRestartsTimeAndCount()
    {
        Rig rig;
        for (int i = 0; i < 5; ++i)
            rig.step();
        QCOMPARE(rig.sender->packetsSent(), quint64(5));
        rig.sender->setEnabled(false);
        rig.now += 5000;
        rig.sender->setEnabled(true);
        QCOMPARE(rig.sender->packetsSent(), quint64(0));
        const QByteArray packet = rig.step(16);
        QCOMPARE(dr::field(packet, dr::TotalTime), 0.016f);
        QCOMPARE(dr::field(packet, dr::LapTime), 0.016f);
        QCOMPARE(rig.sender->packetsSent(), quint64(1));
    }

    void hostThatIsNoAddressSendsHere_data()
    {
        QTest::addColumn<QString>("host");
        QTest::newRow("a name") << QStringLiteral("motion-pc");
        QTest::newRow("empty") << QString();
    }

    void hostThatIsNoAddressSendsHere()
    {
        QFETCH(QString, host);
        Rig rig(host);
        QCOMPARE(rig.step().size(), dr::kPacketSize);
        QCOMPARE(rig.sender->host(), host);
    }

    void commandLineTargetIsNotSaved()
    {
        Rig rig(QStringLiteral("127.0.0.2"));
        rig.sender->setEnabled(false);
        rig.sender->streamForThisRun(QStringLiteral("127.0.0.1"), rig.motionSoftware.localPort());
        QCOMPARE(rig.step().size(), dr::kPacketSize);

        const MotionTelemetrySender nextRun([] { return qint64(0); });
        QCOMPARE(nextRun.host(), QStringLiteral("127.0.0.2"));
        QVERIFY(!nextRun.isEnabled());
        QVERIFY(!nextRun.isTicking());
    }
};

QTEST_GUILESS_MAIN(TestMotionTelemetrySender)
#include "tst_motiontelemetrysender.moc"
