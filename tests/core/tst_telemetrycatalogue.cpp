// The telemetry catalogue: what each CRSF telemetry payload reads as on the dashboard,
// by receiver generation, and how new readings merge into the ones already shown.
#include "crsfsamples.h"
#include "crsftypes.h"
#include "telemetrycatalogue.h"

#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

QString describe(const TelemetryCatalogue &catalogue)
{
    QStringList lines;
    for (const TelemetrySensor &sensor : catalogue)
        lines.append(sensor.key + QLatin1Char('=') + sensor.value);
    return lines.join(QLatin1String(" | "));
}

} // namespace

class TestTelemetryCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void catalogueReadings_data();
    void catalogueReadings();
    void catalogueReplacesInPlaceByKey();
};

void TestTelemetryCatalogue::catalogueReadings_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<int>("generation");
    QTest::addColumn<QString>("expected");

    const int unknown = crsf::kReceiverGenerationUnknown;
    const int classic = crsf::kReceiverGenerationClassic;
    const QByteArray battery = hex(kBatteryHex);
    const QByteArray zeros(15, '\0');
    const QString batteryRest = u" | Curr=29.6 A | Capa=1234 mAh | Bat%=67 %"_s;
    const QString dynamics = u"latA=0.03 g | yawR=0.30 rad/s | jerk=0.00 g"_s;

    QTest::newRow("link statistics")
        << 0x14 << hex(kLinkHex) << unknown
        << u"1RSS=-96 dBm | 2RSS=-96 dBm | RQly=100 % | RSNR=-10 dB | ANT=1 | RFMD=2 | TPWR=100 mW | "
           "TRSS=-96 dBm | TQly=80 % | TSNR=-5 dB"_s;
    QTest::newRow("gps fix")
        << 0x02 << hex(kGpsHex) << unknown
        << u"GPS=56.000000, 163.000000 | GSpd=58.7 km/h | Hdg=147.9\u00B0 | GAlt=2345 m | Sats=9"_s;
    QTest::newRow("gps without fix")
        << 0x02 << zeros << unknown
        << u"GPS=No fix | GSpd=0.0 km/h | Hdg=0.0\u00B0 | GAlt=-1000 m | Sats=0"_s;
    QTest::newRow("vehicle record") << 0x23 << hex("07fc1803e8000a") << unknown
                                    << u"GLon=-1.00 g | GLat=1.00 g | GVrt=0.01 g"_s;
    QTest::newRow("vehicle record, 6 bytes") << 0x23 << hex("07fc1803e800") << unknown << QString();
    QTest::newRow("attitude") << 0x1E << hex(kAttitudeHex) << unknown
                              << u"Ptch=67.8\u00B0 | Roll=149.5\u00B0 | Yaw=-179.9\u00B0"_s;
    QTest::newRow("battery, classic receiver") << 0x08 << battery << classic << u"RxBt=3.3 V"_s + batteryRest;
    QTest::newRow("battery, newer receiver")
        << 0x08 << battery << crsf::kReceiverGenerationNewer << u"RxBt=3.3 g"_s + batteryRest;
    QTest::newRow("battery, voltage marked absent")
        << 0x08 << hex("ffff01280004d243") << classic << u"RxBt=--"_s + batteryRest;
    QTest::newRow("0x08, receiver unknown") << 0x08 << battery << unknown << dynamics;
    QTest::newRow("0x08, 7 bytes, receiver known") << 0x08 << battery.left(7) << classic << dynamics;
    QTest::newRow("0x08, negative dynamics")
        << 0x08 << hex("ffe2fed404d2") << unknown << u"latA=-0.03 g | yawR=-0.30 rad/s | jerk=1.23 g"_s;
    QTest::newRow("0x08, 5 bytes") << 0x08 << battery.left(5) << unknown << QString();
    QTest::newRow("channels frame ignored") << 0x16 << QByteArray(22, '\0') << classic << QString();
}

void TestTelemetryCatalogue::catalogueReadings()
{
    QFETCH(int, type);
    QFETCH(QByteArray, payload);
    QFETCH(int, generation);
    QFETCH(QString, expected);

    const TelemetryCatalogue catalogue = telemetrycatalogue::update({}, uint8_t(type), payload, generation);
    QCOMPARE(describe(catalogue), expected);
    for (const TelemetrySensor &sensor : catalogue) {
        // Every reading a frame brings is one the dashboard offers.
        QVERIFY(telemetrycatalogue::allKeys().contains(sensor.key));
        QVERIFY(sensor.extra.isEmpty());
        QCOMPARE(sensor.updatedMs, 0);
    }
}

void TestTelemetryCatalogue::catalogueReplacesInPlaceByKey()
{
    TelemetryCatalogue catalogue;
    catalogue = telemetrycatalogue::update(catalogue, 0x23, hex("07fc1803e8000a"), 0);
    catalogue = telemetrycatalogue::update(catalogue, 0x14, hex(kLinkHex), 0);
    // What the controller keeps on an entry ("2RSS" here) survives a new reading.
    catalogue[4].updatedMs = 1234;
    catalogue[4].extra = QStringLiteral("kept");

    catalogue = telemetrycatalogue::update(catalogue, 0x14, hex("00004b00000000000000"), 0);
    QVERIFY(describe(catalogue).startsWith(
        u"GLon=-1.00 g | GLat=1.00 g | GVrt=0.01 g | 1RSS=0 dBm | 2RSS=0 dBm | "
        "RQly=75 %"_s));
    QCOMPARE(catalogue.size(), 13);
    QCOMPARE(catalogue.at(4).updatedMs, 1234);
    QCOMPARE(catalogue.at(4).extra, QStringLiteral("kept"));

    // A GPS frame appends its keys after the existing ones.
    catalogue = telemetrycatalogue::update(catalogue, 0x02, QByteArray(15, '\0'), 0);
    QCOMPARE(catalogue.size(), 18);
    QCOMPARE(catalogue.at(13).key, QStringLiteral("GPS"));
}

QTEST_GUILESS_MAIN(TestTelemetryCatalogue)
#include "tst_telemetrycatalogue.moc"
