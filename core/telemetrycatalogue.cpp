#include "telemetrycatalogue.h"

#include "crsfprotocol.h"

#include <array>
#include <cmath>

namespace tavrix::telemetrycatalogue {

namespace {

// Every key the catalogue makes, named once: the frame readers below fill them and allKeys()
// offers them, so a choice of readings can never name one that no frame brings.
namespace key {
constexpr QLatin1String kUplinkRssi1{"1RSS"};
constexpr QLatin1String kUplinkRssi2{"2RSS"};
constexpr QLatin1String kLinkQuality{"RQly"};
constexpr QLatin1String kUplinkSnr{"RSNR"};
constexpr QLatin1String kAntenna{"ANT"};
constexpr QLatin1String kRfMode{"RFMD"};
constexpr QLatin1String kTxPower{"TPWR"};
constexpr QLatin1String kDownlinkRssi{"TRSS"};
constexpr QLatin1String kDownlinkQuality{"TQly"};
constexpr QLatin1String kDownlinkSnr{"TSNR"};
constexpr QLatin1String kGpsPosition{"GPS"};
constexpr QLatin1String kGpsSpeed{"GSpd"};
constexpr QLatin1String kHeading{"Hdg"};
constexpr QLatin1String kAltitude{"GAlt"};
constexpr QLatin1String kSatellites{"Sats"};
constexpr QLatin1String kLongitudinalG{"GLon"};
constexpr QLatin1String kLateralG{"GLat"};
constexpr QLatin1String kVerticalG{"GVrt"};
constexpr QLatin1String kPitch{"Ptch"};
constexpr QLatin1String kRoll{"Roll"};
constexpr QLatin1String kYaw{"Yaw"};
constexpr QLatin1String kBatteryVoltage{"RxBt"};
constexpr QLatin1String kCurrent{"Curr"};
constexpr QLatin1String kCapacity{"Capa"};
constexpr QLatin1String kBatteryRemaining{"Bat%"};
constexpr QLatin1String kLateralAcceleration{"latA"};
constexpr QLatin1String kYawRate{"yawR"};
constexpr QLatin1String kLateralJerk{"jerk"};

constexpr QLatin1String kAll[] = {kUplinkRssi1,
                                  kUplinkRssi2,
                                  kLinkQuality,
                                  kUplinkSnr,
                                  kAntenna,
                                  kRfMode,
                                  kTxPower,
                                  kDownlinkRssi,
                                  kDownlinkQuality,
                                  kDownlinkSnr,
                                  kGpsPosition,
                                  kGpsSpeed,
                                  kHeading,
                                  kAltitude,
                                  kSatellites,
                                  kLongitudinalG,
                                  kLateralG,
                                  kVerticalG,
                                  kPitch,
                                  kRoll,
                                  kYaw,
                                  kBatteryVoltage,
                                  kCurrent,
                                  kCapacity,
                                  kBatteryRemaining,
                                  kLateralAcceleration,
                                  kYawRate,
                                  kLateralJerk};
} // namespace key

constexpr double kDegreesPerRadian = 57.29577951308232;

int16_t readSigned16(const QByteArray &payload, qsizetype offset)
{
    return static_cast<int16_t>(CrsfProtocol::readBigEndian16(payload, offset));
}

// Fixed decimals without a "-0.0" for values that round to zero.
QString fixed(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    double rounded = std::round(value * scale) / scale;
    if (rounded == 0.0)
        rounded = 0.0;
    return QString::number(rounded, 'f', decimals);
}

QString degrees(double value)
{
    return QStringLiteral("%1\u00B0").arg(fixed(value, 1));
}

void upsert(TelemetryCatalogue &catalogue, const QString &key, const QString &value,
            const QString &detail = QString())
{
    for (TelemetrySensor &sensor : catalogue) {
        if (sensor.key == key) {
            sensor.value = value;
            sensor.detail = detail;
            return;
        }
    }
    TelemetrySensor sensor;
    sensor.key = key;
    sensor.value = value;
    sensor.detail = detail;
    catalogue.append(sensor);
}

// CRSF transmit power index to milliwatts; -1 for an index the table does not know.
int txPowerMilliwatts(uint8_t index)
{
    static constexpr std::array<int, 9> kPowers = {0, 10, 25, 100, 500, 1000, 2000, 250, 50};
    return index < kPowers.size() ? kPowers[index] : -1;
}

void addLinkStatistics(TelemetryCatalogue &catalogue, const QByteArray &payload)
{
    if (payload.size() < 10)
        return;
    const LinkStatistics stats = CrsfProtocol::decodeLinkStatistics(payload);
    const auto dbm = [](int32_t v) { return QStringLiteral("%1 dBm").arg(v); };
    const auto percent = [](int v) { return QStringLiteral("%1 %").arg(v); };
    const auto db = [](int v) { return QStringLiteral("%1 dB").arg(v); };

    upsert(catalogue, key::kUplinkRssi1, dbm(stats.uplinkRssi1));
    upsert(catalogue, key::kUplinkRssi2, dbm(stats.uplinkRssi2));
    upsert(catalogue, key::kLinkQuality, percent(stats.linkQuality));
    upsert(catalogue, key::kUplinkSnr, db(stats.snr));
    upsert(catalogue, key::kAntenna, QString::number(stats.antenna));
    upsert(catalogue, key::kRfMode, QString::number(stats.rfMode));
    const int milliwatts = txPowerMilliwatts(stats.txPower);
    if (milliwatts >= 0)
        upsert(catalogue, key::kTxPower, QStringLiteral("%1 mW").arg(milliwatts));
    else
        upsert(catalogue, key::kTxPower, QStringLiteral("? mW"),
               QStringLiteral("unknown power index %1").arg(stats.txPower));
    upsert(catalogue, key::kDownlinkRssi, dbm(stats.downlinkRssi));
    upsert(catalogue, key::kDownlinkQuality, percent(stats.downlinkLinkQuality));
    upsert(catalogue, key::kDownlinkSnr, db(stats.downlinkSnr));
}

void addGps(TelemetryCatalogue &catalogue, const QByteArray &payload)
{
    if (payload.size() < 15)
        return;
    const GpsFix fix = CrsfProtocol::decodeGps(payload);
    const QString position =
        fix.valid ? QStringLiteral("%1, %2").arg(fixed(fix.latitude, 6), fixed(fix.longitude, 6))
                  : QStringLiteral("No fix");
    upsert(catalogue, key::kGpsPosition, position);
    upsert(catalogue, key::kGpsSpeed, QStringLiteral("%1 km/h").arg(fixed(fix.speedKmh, 1)));
    upsert(catalogue, key::kHeading, degrees(fix.headingDeg));
    upsert(catalogue, key::kAltitude, QStringLiteral("%1 m").arg(fix.altitudeM));
    upsert(catalogue, key::kSatellites, QString::number(fix.satellites));
}

void addVehicleRecord(TelemetryCatalogue &catalogue, const QByteArray &payload)
{
    const VehicleRecord record = CrsfProtocol::decodeVehicleRecord(payload);
    if (!record.valid)
        return;
    const QString keys[3] = {key::kLongitudinalG, key::kLateralG, key::kVerticalG};
    for (int i = 0; i < 3; ++i)
        upsert(catalogue, keys[i], QStringLiteral("%1 g").arg(fixed(record.values[i], 2)));
}

void addAttitude(TelemetryCatalogue &catalogue, const QByteArray &payload)
{
    if (payload.size() < 6)
        return;
    // Sent as radians x 10000.
    const auto angle = [&](qsizetype offset) {
        return degrees(readSigned16(payload, offset) / 10000.0 * kDegreesPerRadian);
    };
    upsert(catalogue, key::kPitch, angle(0));
    upsert(catalogue, key::kRoll, angle(2));
    upsert(catalogue, key::kYaw, angle(4));
}

// Frame 0x08 is a battery only when the receiver is known to send one; an unknown
// receiver uses the same type for its lateral dynamics.
void addBatteryOrDynamics(TelemetryCatalogue &catalogue, const QByteArray &payload, int receiverGeneration)
{
    if (receiverGeneration != crsf::kReceiverGenerationUnknown &&
        payload.size() >= crsf::kBatteryPayloadSize) {
        const BatterySensor battery = CrsfProtocol::decodeBattery(payload);
        if (!battery.present) {
            upsert(catalogue, key::kBatteryVoltage, QStringLiteral("--"), QStringLiteral("not reported"));
        } else {
            // The newer receiver carries an acceleration in the voltage field.
            const QString unit = receiverGeneration >= crsf::kReceiverGenerationNewer
                                     ? QStringLiteral("%1 g")
                                     : QStringLiteral("%1 V");
            upsert(catalogue, key::kBatteryVoltage, unit.arg(fixed(battery.voltage, 1)));
        }
        upsert(catalogue, key::kCurrent, QStringLiteral("%1 A").arg(fixed(battery.current, 1)));
        upsert(catalogue, key::kCapacity, QStringLiteral("%1 mAh").arg(battery.capacity));
        upsert(catalogue, key::kBatteryRemaining, QStringLiteral("%1 %").arg(battery.remaining));
        return;
    }
    if (payload.size() < 6)
        return;
    // Three big-endian signed values in thousandths.
    const auto milli = [&](qsizetype offset) { return fixed(readSigned16(payload, offset) / 1000.0, 2); };
    upsert(catalogue, key::kLateralAcceleration, QStringLiteral("%1 g").arg(milli(0)),
           QStringLiteral("lateral"));
    upsert(catalogue, key::kYawRate, QStringLiteral("%1 rad/s").arg(milli(2)), QStringLiteral("yaw rate"));
    upsert(catalogue, key::kLateralJerk, QStringLiteral("%1 g").arg(milli(4)),
           QStringLiteral("lateral change"));
}

} // namespace

QStringList allKeys()
{
    QStringList keys;
    for (QLatin1String k : key::kAll)
        keys.append(k);
    return keys;
}

TelemetryCatalogue update(TelemetryCatalogue catalogue, uint8_t frameType, const QByteArray &payload,
                          int receiverGeneration)
{
    switch (frameType) {
    case crsf::kTypeLinkStatistics:
        addLinkStatistics(catalogue, payload);
        break;
    case crsf::kTypeGps:
        addGps(catalogue, payload);
        break;
    case crsf::kTypeVehicleRecord:
        addVehicleRecord(catalogue, payload);
        break;
    case crsf::kTypeAttitude:
        addAttitude(catalogue, payload);
        break;
    case crsf::kTypeBattery:
        addBatteryOrDynamics(catalogue, payload, receiverGeneration);
        break;
    default:
        break;
    }
    return catalogue;
}

} // namespace tavrix::telemetrycatalogue
