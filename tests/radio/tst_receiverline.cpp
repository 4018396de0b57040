#include "receiverline.h"

#include <QTest>

using namespace tavrix::receiver;

namespace {

// One reply as a compact text, so a table row states everything a line must (and must
// not) report.
QString describe(const Reply &r)
{
    QStringList parts;
    if (r.version)
        parts << QStringLiteral("version=") + *r.version;
    if (r.telemetry) {
        QStringList items;
        for (const auto &[key, value] : *r.telemetry)
            items << QStringLiteral("%1:%2").arg(key).arg(value);
        parts << QStringLiteral("telem=") + items.join(QLatin1Char(','));
    }
    if (r.osd)
        parts << QStringLiteral("osd=%1").arg(*r.osd);
    if (r.gpsOn)
        parts << QStringLiteral("gpsOn=%1").arg(*r.gpsOn);
    if (r.gpsRate)
        parts << QStringLiteral("gpsRate=%1").arg(*r.gpsRate);
    if (r.imuAxes)
        parts << QStringLiteral("axes=") + *r.imuAxes;
    if (r.gpsStatus)
        parts << QStringLiteral("gps=%1,%2,%3")
                     .arg(r.gpsStatus->fix)
                     .arg(r.gpsStatus->satellites)
                     .arg(int(r.gpsStatus->antenna));
    if (r.orient != Reply::Step::None)
        parts << QStringLiteral("orient=%1(%2)").arg(int(r.orient)).arg(r.reason);
    if (r.gyroCal != Reply::GyroCal::None)
        parts << QStringLiteral("gyro=%1(%2)").arg(int(r.gyroCal)).arg(r.reason);
    return parts.join(QLatin1Char(' '));
}

} // namespace

class TestReceiverLine : public QObject
{
    Q_OBJECT

private slots:
    void cleaning_data();
    void cleaning();
    void replies_data();
    void replies();
    void mountingErrors_data();
    void mountingErrors();
    void gpsStatus_data();
    void gpsStatus();
};

void TestReceiverLine::cleaning_data()
{
    QTest::addColumn<QString>("raw");
    QTest::addColumn<QString>("clean"); // null: the line is dropped

    QTest::newRow("CR and control bytes go") << QStringLiteral("\tOSD_OK 1\r") << QStringLiteral("OSD_OK 1");
    QTest::newRow("non-ASCII goes") << QStringLiteral("Fix, 5 sats\u00b0") << QStringLiteral("Fix, 5 sats");
    QTest::newRow("binary frame before the text")
        << QStringLiteral("\x01$M<\x02\x65zTELEM:OSD:1") << QStringLiteral("TELEM:OSD:1");
    QTest::newRow("binary frame, text from the first reply word")
        << QStringLiteral("$M>IMU_AXES: X+ GPS") << QStringLiteral("IMU_AXES: X+ GPS");
    QTest::newRow("binary frame without text") << QStringLiteral("$M>\x03\x10"
                                                                 "abc")
                                               << QString();
    QTest::newRow("printable junk without a frame stays")
        << QStringLiteral("xyOrvane:4.4.3") << QStringLiteral("xyOrvane:4.4.3");
    QTest::newRow("overlong line is cut")
        << QString(600, QLatin1Char('A')) << QString(kMaxLineLength, QLatin1Char('A'));
}

void TestReceiverLine::cleaning()
{
    QFETCH(QString, raw);
    QFETCH(QString, clean);
    QCOMPARE(cleanLine(raw).value_or(QString()), clean);
    QCOMPARE(cleanLine(raw).has_value(), !clean.isNull());
}

void TestReceiverLine::replies_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("reply");

    QTest::newRow("version") << "Orvane:4.4.3 HW:V4"
                             << "version=4.4.3";
    QTest::newRow("settings, a bad and a bare item skipped")
        << "TELEM:GPS_ON:1  GPS_RATE:5 IMU:x MOTION OSD:0"
        << "telem=GPS_ON:1,GPS_RATE:5,OSD:0 osd=0";
    QTest::newRow("partial settings line") << "TELEM:MOTION:1 MOTION_RA"
                                           << "telem=MOTION:1";
    QTest::newRow("echoed query is no report") << "GET_TELEM"
                                               << "";
    QTest::newRow("echoed command is no report") << "SET_OSD:1 SET_GPS_OK 1"
                                                 << "";
    QTest::newRow("OSD reply") << "OSD_OK 1"
                               << "osd=1";
    QTest::newRow("OSD out of range") << "OSD:2"
                                      << "";
    QTest::newRow("GPS power") << "GPS_OK 0"
                               << "gpsOn=0";
    QTest::newRow("GPS rate is not GPS power") << "GPS_RATE_OK 10"
                                               << "gpsRate=10";
    QTest::newRow("axes trimmed") << "IMU_AXES:  X- Y+ Z+ "
                                  << "axes=X- Y+ Z+";
    QTest::newRow("fix") << "Fix, 9 sats"
                         << "gps=1,9,0";
    QTest::newRow("no fix, open antenna") << "No fix, 3 sats, antenna open"
                                          << "gps=0,3,1";
    QTest::newRow("shorted antenna") << "Fix, 12 sats, antenna short"
                                     << "gps=1,12,2";
    QTest::newRow("unknown antenna word") << "Fix, 12 sats, antenna broken"
                                          << "";
    QTest::newRow("level read") << "IMU_ORIENT_FLAT_OK"
                                << "orient=1()";
    QTest::newRow("mounting saved") << "IMU_ORIENT_OK"
                                    << "orient=2()";
    QTest::newRow("mounting error") << "IMU_ORIENT_ERR (not level)"
                                    << "orient=3(not level)";
    QTest::newRow("calibrated") << "IMU_CAL_OK"
                                << "gyro=1()";
    QTest::newRow("calibration refused") << "IMU_CAL_ERR (moving)"
                                         << "gyro=2(moving)";
}

void TestReceiverLine::replies()
{
    QFETCH(QString, line);
    QFETCH(QString, reply);
    QCOMPARE(describe(parseLine(line)), reply);
}

void TestReceiverLine::mountingErrors_data()
{
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("message");

    const QString notFlat =
        QStringLiteral("The car is not flat and still. Put it on a flat surface and try again.");
    const QString noTilt = QStringLiteral("No tilt seen: lift the front more (about 30°) and try again.");
    const QString stepOne = QStringLiteral("Start again from step 1.");
    const QString noImu = QStringLiteral("The receiver's IMU is not running.");
    QTest::newRow("not flat") << "not flat" << notFlat;
    QTest::newRow("not level, any case") << "Car NOT LEVEL" << notFlat;
    QTest::newRow("nose more") << "nose more" << noTilt;
    QTest::newRow("tilt not detected") << "tilt not detected" << noTilt;
    QTest::newRow("step 1") << "do step 1" << stepOne;
    QTest::newRow("flat first") << "flat first" << stepOne;
    QTest::newRow("no imu") << "no imu" << noImu;
    QTest::newRow("imu not running") << "imu not running" << noImu;
    QTest::newRow("anything else") << "gyro saturated"
                                   << "The receiver says: gyro saturated";
}

void TestReceiverLine::mountingErrors()
{
    QFETCH(QString, reason);
    QFETCH(QString, message);
    QCOMPARE(mountingErrorText(reason), message);
}

void TestReceiverLine::gpsStatus_data()
{
    using Antenna = GpsStatus::Antenna;
    QTest::addColumn<GpsStatus>("status");
    QTest::addColumn<bool>("gpsOn");
    QTest::addColumn<QString>("text");

    QTest::newRow("fix") << GpsStatus{true, 8, Antenna::Ok} << true << "fix, 8 satellites";
    QTest::newRow("no fix, antenna open")
        << GpsStatus{false, 2, Antenna::Open} << true
        << "no fix yet, 2 satellites (needs open sky) · antenna not detected, check the GPS antenna cable";
    QTest::newRow("antenna short") << GpsStatus{true, 5, Antenna::Short} << true
                                   << "fix, 5 satellites · antenna short circuit";
    QTest::newRow("off") << GpsStatus{true, 8, Antenna::Ok} << false << "off on the receiver";
}

void TestReceiverLine::gpsStatus()
{
    QFETCH(GpsStatus, status);
    QFETCH(bool, gpsOn);
    QFETCH(QString, text);
    QCOMPARE(gpsStatusText(status, gpsOn), text);
}

QTEST_GUILESS_MAIN(TestReceiverLine)
#include "tst_receiverline.moc"
