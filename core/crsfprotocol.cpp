#include "crsfprotocol.h"

#include <algorithm>
#include <cmath>

namespace tavrix {

namespace {

constexpr uint8_t kCrcPolynomial = 0xD5;
// Payload bytes that still fit behind one length byte (length counts type + payload + CRC).
constexpr qsizetype kMaxPlainPayload = 255 - 2;
// An extended frame spends two of those on the destination and origin addresses.
constexpr qsizetype kMaxExtendedPayload = kMaxPlainPayload - 2;

constexpr std::array<uint8_t, 256> makeCrcTable()
{
    std::array<uint8_t, 256> table{};
    for (int i = 0; i < 256; ++i) {
        uint8_t crc = static_cast<uint8_t>(i);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80) ? static_cast<uint8_t>((crc << 1) ^ kCrcPolynomial)
                               : static_cast<uint8_t>(crc << 1);
        table[i] = crc;
    }
    return table;
}
constexpr std::array<uint8_t, 256> kCrcTable = makeCrcTable();

bool isAcceptedSync(uint8_t byte)
{
    return byte == crsf::kSyncByte || byte == crsf::kAddressRadioTransmitter ||
           byte == crsf::kAddressTransmitterModule;
}

bool isExtendedType(uint8_t type)
{
    switch (type) {
    case crsf::kTypeDevicePing:
    case crsf::kTypeDeviceInfo:
    case crsf::kTypeParameterEntry:
    case crsf::kTypeParameterRead:
    case crsf::kTypeParameterWrite:
    case crsf::kTypeCommand:
        return true;
    default:
        return false;
    }
}

// Callers check the payload length first; these only read.
uint8_t byteAt(const QByteArray &payload, qsizetype index)
{
    return static_cast<uint8_t>(payload.at(index));
}

int16_t readSigned16(const QByteArray &payload, qsizetype offset)
{
    return static_cast<int16_t>(CrsfProtocol::readBigEndian16(payload, offset));
}

uint32_t readUnsigned24(const QByteArray &payload, qsizetype offset)
{
    return (uint32_t(byteAt(payload, offset)) << 16) | (uint32_t(byteAt(payload, offset + 1)) << 8) |
           uint32_t(byteAt(payload, offset + 2));
}

int32_t readSigned32(const QByteArray &payload, qsizetype offset)
{
    const uint32_t raw = (uint32_t(byteAt(payload, offset)) << 24) | readUnsigned24(payload, offset + 1);
    return static_cast<int32_t>(raw);
}

} // namespace

CrsfProtocol::CrsfProtocol(QObject *parent)
    : QObject(parent)
{}

// --- builders ---

QByteArray CrsfProtocol::buildRcChannelsFrame(const ChannelValues &channels)
{
    // Clamp all sixteen first, in one simple loop the compiler can vectorise.
    std::array<uint32_t, crsf::kChannelCount> clamped;
    for (int i = 0; i < crsf::kChannelCount; ++i)
        clamped[i] = static_cast<uint32_t>(std::clamp<int32_t>(channels[i], 0, crsf::kChannelMax));

    QByteArray frame(crsf::kChannelFrameSize, Qt::Uninitialized);
    auto *out = reinterpret_cast<uint8_t *>(frame.data());
    out[0] = crsf::kSyncByte;
    out[1] = crsf::kChannelFrameSize - 2;
    out[2] = crsf::kTypeRcChannelsPacked;

    // Least significant bit first: each value is shifted in above the bits still pending.
    uint64_t pending = 0;
    int pendingBits = 0;
    uint8_t *payload = out + 3;
    for (uint32_t value : clamped) {
        pending |= uint64_t(value) << pendingBits;
        pendingBits += 11;
        while (pendingBits >= 8) {
            *payload++ = static_cast<uint8_t>(pending);
            pending >>= 8;
            pendingBits -= 8;
        }
    }
    out[crsf::kChannelFrameSize - 1] = crc8(frame.constData() + 2, crsf::kChannelFrameSize - 3);
    return frame;
}

QByteArray CrsfProtocol::buildFrame(uint8_t type, const QByteArray &payload)
{
    if (payload.size() > kMaxPlainPayload)
        return {};
    QByteArray frame;
    frame.reserve(payload.size() + 4);
    frame.append(static_cast<char>(crsf::kSyncByte));
    frame.append(static_cast<char>(payload.size() + 2));
    frame.append(static_cast<char>(type));
    frame.append(payload);
    frame.append(static_cast<char>(crc8(frame.constData() + 2, frame.size() - 2)));
    return frame;
}

QByteArray CrsfProtocol::buildExtendedFrame(uint8_t type, uint8_t destination, uint8_t origin,
                                            const QByteArray &payload)
{
    if (payload.size() > kMaxExtendedPayload)
        return {};
    QByteArray frame;
    frame.reserve(payload.size() + 6);
    frame.append(static_cast<char>(crsf::kSyncByte));
    frame.append(static_cast<char>(payload.size() + 4));
    frame.append(static_cast<char>(type));
    frame.append(static_cast<char>(destination));
    frame.append(static_cast<char>(origin));
    frame.append(payload);
    frame.append(static_cast<char>(crc8(frame.constData() + 2, frame.size() - 2)));
    return frame;
}

QByteArray CrsfProtocol::buildPingFrame(uint8_t destination, uint8_t origin)
{
    return buildExtendedFrame(crsf::kTypeDevicePing, destination, origin, QByteArray());
}

QByteArray CrsfProtocol::buildParameterReadFrame(uint8_t field, uint8_t chunk, uint8_t destination,
                                                 uint8_t origin)
{
    QByteArray payload;
    payload.append(static_cast<char>(field));
    payload.append(static_cast<char>(chunk));
    return buildExtendedFrame(crsf::kTypeParameterRead, destination, origin, payload);
}

QByteArray CrsfProtocol::buildParameterWriteFrame(uint8_t field, const QByteArray &value, uint8_t destination,
                                                  uint8_t origin)
{
    QByteArray payload;
    payload.reserve(value.size() + 1);
    payload.append(static_cast<char>(field));
    payload.append(value);
    return buildExtendedFrame(crsf::kTypeParameterWrite, destination, origin, payload);
}

uint8_t CrsfProtocol::crc8(const char *data, qsizetype size)
{
    uint8_t crc = 0;
    for (qsizetype i = 0; i < size; ++i)
        crc = kCrcTable[crc ^ static_cast<uint8_t>(data[i])];
    return crc;
}

// --- decoders ---

int32_t CrsfProtocol::rssiToDbm(uint8_t raw)
{
    // Some transmitters send the magnitude (96), others the signed value (0xA0): both mean -96 dBm.
    if (raw == 0)
        return 0;
    if (raw & 0x80)
        return static_cast<int8_t>(raw);
    return -int32_t(raw);
}

LinkStatistics CrsfProtocol::decodeLinkStatistics(const QByteArray &payload)
{
    LinkStatistics stats;
    if (payload.size() < 10)
        return stats;
    stats.uplinkRssi1 = rssiToDbm(byteAt(payload, 0));
    stats.uplinkRssi2 = rssiToDbm(byteAt(payload, 1));
    stats.linkQuality = byteAt(payload, 2);
    stats.snr = static_cast<int8_t>(byteAt(payload, 3));
    stats.antenna = byteAt(payload, 4);
    stats.rfMode = byteAt(payload, 5);
    stats.txPower = byteAt(payload, 6);
    stats.downlinkRssi = rssiToDbm(byteAt(payload, 7));
    stats.downlinkLinkQuality = byteAt(payload, 8);
    stats.downlinkSnr = static_cast<int8_t>(byteAt(payload, 9));
    return stats;
}

BatterySensor CrsfProtocol::decodeBattery(const QByteArray &payload)
{
    BatterySensor battery;
    if (payload.size() < crsf::kBatteryPayloadSize)
        return battery;
    battery.voltage = readBigEndian16(payload, 0) / 10.0f;
    battery.current = readBigEndian16(payload, 2) / 10.0f;
    battery.capacity = readUnsigned24(payload, 4);
    battery.remaining = byteAt(payload, 7);
    // A receiver that does not measure its battery sends 0xFFFF as the voltage.
    battery.present = !isAllFF(payload, 0, 2);
    return battery;
}

GpsFix CrsfProtocol::decodeGps(const QByteArray &payload)
{
    GpsFix fix;
    if (payload.size() < 15)
        return fix;
    const int32_t rawLatitude = readSigned32(payload, 0);
    const int32_t rawLongitude = readSigned32(payload, 4);
    fix.latitude = rawLatitude / 10'000'000.0;
    fix.longitude = rawLongitude / 10'000'000.0;
    fix.speedKmh = readBigEndian16(payload, 8) / 10.0f;
    fix.headingDeg = readBigEndian16(payload, 10) / 100.0f;
    fix.altitudeM = int32_t(readBigEndian16(payload, 12)) - 1000;
    fix.satellites = byteAt(payload, 14);
    // 0/0 is what a receiver without a fix sends.
    if (rawLatitude == 0 && rawLongitude == 0)
        fix.valid = false;
    else
        fix.valid = std::abs(fix.latitude) <= 90.0 && std::abs(fix.longitude) <= 180.0;
    return fix;
}

VehicleRecord CrsfProtocol::decodeVehicleRecord(const QByteArray &payload)
{
    VehicleRecord record;
    if (payload.size() < 7)
        return record;
    record.valid = true;
    record.tag = byteAt(payload, 0);
    for (int i = 0; i < 3; ++i)
        record.values[i] = readSigned16(payload, 1 + 2 * i) / 1000.0f;
    return record;
}

uint16_t CrsfProtocol::readBigEndian16(const QByteArray &payload, qsizetype offset)
{
    if (offset < 0 || payload.size() < offset + 2)
        return 0;
    return static_cast<uint16_t>((byteAt(payload, offset) << 8) | byteAt(payload, offset + 1));
}

bool CrsfProtocol::isAllFF(const QByteArray &payload, qsizetype offset, qsizetype count)
{
    if (count <= 0)
        return true;
    // Bytes that are not there are not marked absent.
    if (offset < 0 || offset > payload.size() - count)
        return false;
    return std::all_of(payload.cbegin() + offset, payload.cbegin() + offset + count,
                       [](char byte) { return static_cast<uint8_t>(byte) == 0xFF; });
}

// --- parser ---

void CrsfProtocol::feed(const QByteArray &bytes)
{
    m_buffer.append(bytes);

    // Skipped bytes are counted in `skipped` and removed in one go; a good frame removes
    // everything before it and itself before any signal, so a slot that feeds again sees
    // a consistent buffer.
    qsizetype skipped = 0;
    while (m_buffer.size() - skipped >= 4) {
        const auto *data = reinterpret_cast<const uint8_t *>(m_buffer.constData()) + skipped;
        if (!isAcceptedSync(data[0])) {
            ++skipped;
            continue;
        }
        const int length = data[1];
        if (length < 2) {
            ++skipped;
            continue;
        }
        // No upper bound on the length: a corrupt length byte costs a wait until the
        // following bytes fail the CRC, which keeps the rule simple.
        if (m_buffer.size() - skipped < length + 2)
            break;
        if (crc8(reinterpret_cast<const char *>(data) + 2, length - 1) != data[length + 1]) {
            // Drop only the first byte: a good frame may start inside the bad one.
            ++skipped;
            continue;
        }
        const uint8_t type = data[2];
        const QByteArray payload(reinterpret_cast<const char *>(data) + 3, length - 2);
        m_buffer.remove(0, skipped + length + 2);
        skipped = 0;

        m_lastFrameType = type;
        m_lastPayload = payload;
        m_validFrameSeen = true;
        announce(type, payload);
    }
    m_buffer.remove(0, skipped);
}

void CrsfProtocol::announce(uint8_t type, const QByteArray &payload)
{
    if (isExtendedType(type) && payload.size() >= 2)
        emit extendedFrameReceived(type, byteAt(payload, 0), byteAt(payload, 1), payload.mid(2));
    emit frameReceived(type, payload);
    if (type == crsf::kTypeLinkStatistics)
        emit linkStatisticsReceived(decodeLinkStatistics(payload));
    else if (type == crsf::kTypeBattery)
        emit batterySensorReceived(decodeBattery(payload));
}

} // namespace tavrix
