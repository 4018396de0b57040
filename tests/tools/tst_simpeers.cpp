#include "crsftestcodec.h"
#include "simulatedcar.h"
#include "simulatedparameterdevice.h"

#include <QTest>

#include <cmath>

using tavrix::sim::SimulatedCar;
using tavrix::sim::SimulatedParameterDevice;

namespace {

int be16(const QByteArray &p, int at)
{
    return int16_t(uint16_t(uint8_t(p[at]) << 8 | uint8_t(p[at + 1])));
}

qint64 be32(const QByteArray &p, int at)
{
    return int32_t(uint32_t(uint8_t(p[at])) << 24 | uint32_t(uint8_t(p[at + 1])) << 16 |
                   uint32_t(uint8_t(p[at + 2])) << 8 | uint32_t(uint8_t(p[at + 3])));
}

double metresBetween(double lat1, double lon1, double lat2, double lon2)
{
    const double dLat = (lat2 - lat1) * 111320.0;
    const double dLon = (lon2 - lon1) * 111320.0 * std::cos(lat1 * M_PI / 180.0);
    return std::hypot(dLat, dLon);
}

} // namespace

// The simulated car's payloads decoded the way the receiver's telemetry is laid
// out, and the simulated parameter devices read back through their own protocol.
class TestSimPeers : public QObject
{
    Q_OBJECT
private slots:
    void telemetryPayloadsHaveTheirWireSizes();
    void gpsMovesSlowlyAlongItsHeading();
    void motionRecordCarriesTheCarsMotion();
    void wrappedMotionHoldsTheRecordFromItsThirdByte();
    void walkLinesCarryEachFieldsData();
    void chunkedEntriesReassembleToTheFieldData_data();
    void chunkedEntriesReassembleToTheFieldData();
    void deviceInfoIdentifiesTheDevice_data();
    void deviceInfoIdentifiesTheDevice();
    void writesOutsideTheRangeAreRefused_data();
    void writesOutsideTheRangeAreRefused();
};

void TestSimPeers::telemetryPayloadsHaveTheirWireSizes()
{
    const SimulatedCar car;
    QCOMPARE(car.linkStatisticsPayload(3.0).size(), 10);
    QCOMPARE(car.batteryPayload(3.0).size(), 8);
    QCOMPARE(car.gpsPayload(3.0).size(), 15);
    QCOMPARE(car.attitudePayload(3.0).size(), 6);
    QCOMPARE(car.motionRecordPayload(3.0).size(), 7);
    QCOMPARE(car.wrappedMotionPayload(3.0).size(), 9);
}

void TestSimPeers::gpsMovesSlowlyAlongItsHeading()
{
    SimulatedCar::Settings settings;
    settings.speedKmh = 18.0; // 5 m/s
    const SimulatedCar car(settings);
    for (const double t : {0.0, 7.0, 30.0, 100.0}) {
        const QByteArray a = car.gpsPayload(t);
        const QByteArray b = car.gpsPayload(t + 1.0);
        const double lat1 = be32(a, 0) / 1e7, lon1 = be32(a, 4) / 1e7;
        const double lat2 = be32(b, 0) / 1e7, lon2 = be32(b, 4) / 1e7;
        QVERIFY(std::fabs(lat1 - settings.centreLatitudeDeg) < 0.01);
        QVERIFY(std::fabs(lon1 - settings.centreLongitudeDeg) < 0.01);
        const double moved = metresBetween(lat1, lon1, lat2, lon2);
        QVERIFY2(moved > 4.0 && moved < 6.0, qPrintable(QString::number(moved)));
        // The heading sent is where the car goes next.
        const double heading = uint16_t(be16(a, 10)) / 100.0;
        const double bearing = std::fmod(
            std::atan2((lon2 - lon1) * std::cos(lat1 * M_PI / 180.0), lat2 - lat1) * 180.0 / M_PI + 360.0,
            360.0);
        const double diff = std::fabs(std::remainder(heading - bearing, 360.0));
        QVERIFY2(diff < 10.0, qPrintable(QStringLiteral("heading %1 bearing %2").arg(heading).arg(bearing)));
        QCOMPARE(uint16_t(be16(a, 8)), uint16_t(180)); // km/h x 10
        QCOMPARE(uint8_t(a[14]), uint8_t(settings.satellites));
    }
}

void TestSimPeers::motionRecordCarriesTheCarsMotion()
{
    const SimulatedCar car;
    for (const double t : {0.5, 2.0, 11.0}) {
        const QByteArray p = car.motionRecordPayload(t);
        const SimulatedCar::Motion m = car.motion(t);
        QCOMPARE(be16(p, 1), int(std::lround(m.longitudinalG * 1000)));
        QCOMPARE(be16(p, 3), int(std::lround(m.lateralG * 1000)));
        QCOMPARE(be16(p, 5), int(std::lround(m.verticalG * 1000)));
    }
}

void TestSimPeers::wrappedMotionHoldsTheRecordFromItsThirdByte()
{
    const SimulatedCar car;
    const QByteArray wrapped = car.wrappedMotionPayload(4.0);
    QCOMPARE(uint8_t(wrapped[1]), uint8_t(0xCA));
    QCOMPARE(wrapped.mid(2), car.motionRecordPayload(4.0));
}

void TestSimPeers::walkLinesCarryEachFieldsData()
{
    const SimulatedParameterDevice module = SimulatedParameterDevice::transmitterModule();
    const QStringList lines = module.walkLines();
    QCOMPARE(lines.size(), module.fields().size());
    for (const QString &line : lines) {
        QVERIFY(line.startsWith(QLatin1String("FIELD ")));
        const int colon = int(line.indexOf(QLatin1Char(':')));
        bool ok = false;
        const int id = line.mid(6, colon - 6).trimmed().toInt(&ok);
        QVERIFY(ok);
        QByteArray bytes;
        for (const QString &part : line.mid(colon + 1).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const uint v = part.toUInt(&ok, 16);
            QVERIFY(ok && v <= 0xFF);
            bytes.append(char(v));
        }
        QCOMPARE(bytes, module.fieldData(uint8_t(id)));
    }
    // A selection field: parent, type 9, name, options, value, min, max, default, units.
    QCOMPARE(module.fieldData(4), QByteArray("\x03\x09Max Power\0"
                                             "10;25;50;100;250\0\x03\x00\x04\x03mW\0",
                                             36));
}

void TestSimPeers::chunkedEntriesReassembleToTheFieldData_data()
{
    QTest::addColumn<int>("chunkSize");
    QTest::newRow("one chunk") << 56;
    QTest::newRow("small chunks") << 5;
    QTest::newRow("one byte per chunk") << 1;
}

void TestSimPeers::chunkedEntriesReassembleToTheFieldData()
{
    QFETCH(int, chunkSize);
    SimulatedParameterDevice module = SimulatedParameterDevice::transmitterModule();
    for (const auto &field : module.fields()) {
        QByteArray data;
        for (uint8_t chunk = 0;; ++chunk) {
            const QByteArray read = QByteArray::fromHex("eeef") + char(field.id) + char(chunk);
            const QList<QByteArray> answers = module.handleExtendedFrame(0x2C, read, chunkSize);
            QCOMPARE(answers.size(), 1);
            const QByteArray &f = answers.first();
            QCOMPARE(crsftest::crc8(QByteArrayView(f).sliced(2, f.size() - 3)), uint8_t(f.back()));
            QCOMPARE(uint8_t(f[2]), uint8_t(0x2B));
            QCOMPARE(uint8_t(f[3]), uint8_t(0xEF)); // back to the reader
            QCOMPARE(uint8_t(f[4]), uint8_t(0xEE));
            QCOMPARE(uint8_t(f[5]), field.id);
            data += f.mid(7, f.size() - 8);
            if (uint8_t(f[6]) == 0)
                break;
            QVERIFY(chunk < 100);
        }
        QCOMPARE(data, module.fieldData(field.id));
    }
    // Reads of unknown fields or chunks past the end go unanswered.
    QVERIFY(module.handleExtendedFrame(0x2C, QByteArray::fromHex("eeef6300"), chunkSize).isEmpty());
    QVERIFY(module.handleExtendedFrame(0x2C, QByteArray::fromHex("eeef01ff"), chunkSize).isEmpty());
}

void TestSimPeers::deviceInfoIdentifiesTheDevice_data()
{
    QTest::addColumn<bool>("receiver");
    QTest::addColumn<uint8_t>("origin");
    QTest::addColumn<QByteArray>("serial");
    QTest::newRow("transmitter module") << false << uint8_t(0xEE) << QByteArray("ELRS");
    QTest::newRow("Orvane receiver") << true << uint8_t(0xC8) << QByteArray("ORV4");
}

void TestSimPeers::deviceInfoIdentifiesTheDevice()
{
    QFETCH(bool, receiver);
    QFETCH(uint8_t, origin);
    QFETCH(QByteArray, serial);
    SimulatedParameterDevice device =
        receiver ? SimulatedParameterDevice::orvaneReceiver() : SimulatedParameterDevice::transmitterModule();
    const QList<QByteArray> answers = device.handleExtendedFrame(0x28, QByteArray::fromHex("00ea"));
    QCOMPARE(answers.size(), 1);
    const QByteArray f = answers.first();
    QCOMPARE(uint8_t(f[2]), uint8_t(0x29));
    QCOMPARE(uint8_t(f[3]), uint8_t(0xEA));
    QCOMPARE(uint8_t(f[4]), origin);
    const QByteArray body = f.mid(5, f.size() - 6);
    const qsizetype nul = body.indexOf('\0');
    QVERIFY(nul > 0);
    QCOMPARE(body.size(), nul + 1 + 14); // serial, hardware, software (4 each), count, version
    QCOMPARE(body.mid(nul + 1, 4), serial);
    QCOMPARE(int(uint8_t(body[nul + 13])), int(device.fields().size()));
}

void TestSimPeers::writesOutsideTheRangeAreRefused_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("last option") << 1 << 5 << true;
    QTest::newRow("past the last option") << 1 << 6 << false;
    QTest::newRow("folder has no value") << 3 << 0 << false;
    QTest::newRow("unknown field") << 99 << 0 << false;
}

void TestSimPeers::writesOutsideTheRangeAreRefused()
{
    QFETCH(int, field);
    QFETCH(int, value);
    QFETCH(bool, accepted);
    SimulatedParameterDevice module = SimulatedParameterDevice::transmitterModule();
    const QByteArray before = module.fieldData(uint8_t(field));
    QCOMPARE(module.write(uint8_t(field), uint8_t(value)), accepted);
    if (accepted)
        QCOMPARE(module.fields().at(0).value, uint8_t(value));
    else
        QCOMPARE(module.fieldData(uint8_t(field)), before);
}

QTEST_GUILESS_MAIN(TestSimPeers)
#include "tst_simpeers.moc"
