#pragma once

#include "crsfchannels.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

#include <array>
#include <cstdint>

namespace tavrix {

// Sixteen RC channel values as the controller keeps them; packed as 11 bits each.
using ChannelValues = std::array<int32_t, 16>;

// Link statistics (frame 0x14); all zero when the payload is too short.
struct LinkStatistics
{
    int32_t uplinkRssi1 = 0;
    int32_t uplinkRssi2 = 0;
    uint8_t linkQuality = 0;
    int8_t snr = 0;
    uint8_t antenna = 0;
    uint8_t rfMode = 0;
    uint8_t txPower = 0;
    int32_t downlinkRssi = 0;
    uint8_t downlinkLinkQuality = 0;
    int8_t downlinkSnr = 0;
};

// Battery sensor (frame 0x08); all zero when the payload is too short.
struct BatterySensor
{
    float voltage = 0.0f;
    float current = 0.0f;
    uint32_t capacity = 0;
    uint8_t remaining = 0;
};

// GPS fix (frame 0x02).
struct GpsFix
{
    bool valid = false;
    double latitude = 0.0;
    double longitude = 0.0;
    float speedKmh = 0.0f;
    float headingDeg = 0.0f;
    int32_t altitudeM = 0;
    int32_t satellites = 0;
};

// Three-value vehicle record (frame 0x23 from the maker's receiver): the car's motion in g.
struct VehicleRecord
{
    bool valid = false;
    uint8_t tag = 0;
    float values[3] = {0.0f, 0.0f, 0.0f};
};

// One named reading of the telemetry sensor catalogue.
struct TelemetrySensor
{
    QString key;
    QString value;
    QString detail;
    QString extra;
    qint64 updatedMs = 0;
};
using TelemetryCatalogue = QList<TelemetrySensor>;

// CRSF frame types and addresses this program makes or reads.
namespace crsf {
inline constexpr uint8_t kSyncByte = 0xC8;
// Other sync/address bytes the parser accepts at the start of a frame.
inline constexpr uint8_t kAddressRadioTransmitter = 0xEA;
inline constexpr uint8_t kAddressTransmitterModule = 0xEE;
inline constexpr uint8_t kTypeGps = 0x02;
inline constexpr uint8_t kTypeBattery = 0x08;
inline constexpr uint8_t kTypeLinkStatistics = 0x14;
inline constexpr uint8_t kTypeRcChannelsPacked = 0x16;
inline constexpr uint8_t kTypeAttitude = 0x1E;
inline constexpr uint8_t kTypeVehicleRecord = 0x23;
inline constexpr uint8_t kTypeDevicePing = 0x28;
inline constexpr uint8_t kTypeDeviceInfo = 0x29;
inline constexpr uint8_t kTypeParameterEntry = 0x2B;
inline constexpr uint8_t kTypeParameterRead = 0x2C;
inline constexpr uint8_t kTypeParameterWrite = 0x2D;
inline constexpr uint8_t kTypeCommand = 0x2E;
inline constexpr uint8_t kTypeWrappedRecord = 0x50;
inline constexpr int kChannelFrameSize = 26;
inline constexpr int kChannelCount = 16;
// The longest frame on the wire: sync, length 255, then 255 bytes.
inline constexpr int kMaxFrameSize = 257;

// Receiver generation passed to the telemetry catalogue: it decides how a 0x08 frame is read.
inline constexpr int kReceiverGenerationUnknown = 0;
inline constexpr int kReceiverGenerationClassic = 1;
// Firmware major version 4 and later; any value at or above this counts as the newer kind.
inline constexpr int kReceiverGenerationNewer = 2;
} // namespace crsf

// The only place where CRSF bytes are made or taken apart: builders for outbound
// frames, decoders for telemetry payloads, and a resynchronising stream parser.
class CrsfProtocol : public QObject
{
    Q_OBJECT
public:
    explicit CrsfProtocol(QObject *parent = nullptr);

    // --- builders (pure) ---
    // Channel values outside 0..2047 are clamped. The frame builders return an empty
    // array when the payload cannot fit behind one length byte.
    [[nodiscard]] static QByteArray buildRcChannelsFrame(const ChannelValues &channels);
    [[nodiscard]] static QByteArray buildExtendedFrame(uint8_t type, uint8_t destination, uint8_t origin,
                                                       const QByteArray &payload);
    [[nodiscard]] static QByteArray buildPingFrame(uint8_t destination, uint8_t origin);
    [[nodiscard]] static QByteArray buildParameterReadFrame(uint8_t field, uint8_t chunk, uint8_t destination,
                                                            uint8_t origin);
    [[nodiscard]] static QByteArray buildParameterWriteFrame(uint8_t field, const QByteArray &value,
                                                             uint8_t destination, uint8_t origin);
    // A plain (non-extended) frame: sync, length, type, payload, CRC.
    [[nodiscard]] static QByteArray buildFrame(uint8_t type, const QByteArray &payload);
    // CRC-8/DVB-S2 (poly 0xD5) by table over the given bytes.
    [[nodiscard]] static uint8_t crc8(const char *data, qsizetype size);

    // --- decoders (pure) ---
    [[nodiscard]] static LinkStatistics decodeLinkStatistics(const QByteArray &payload);
    [[nodiscard]] static BatterySensor decodeBattery(const QByteArray &payload);
    [[nodiscard]] static GpsFix decodeGps(const QByteArray &payload);
    [[nodiscard]] static VehicleRecord decodeVehicleRecord(const QByteArray &payload);
    [[nodiscard]] static int32_t rssiToDbm(uint8_t raw);
    // Big-endian unsigned 16-bit read; 0 when fewer than offset + 2 bytes exist.
    [[nodiscard]] static uint16_t readBigEndian16(const QByteArray &payload, qsizetype offset);
    // True when every byte in [offset, offset + count) is 0xFF (true for an empty range).
    [[nodiscard]] static bool isAllFF(const QByteArray &payload, qsizetype offset, qsizetype count);

    // --- telemetry sensor catalogue ---
    // Merges the readings of one frame into the catalogue; receiverGeneration is 0
    // when unknown, otherwise the receiver's generation (see the battery rule).
    [[nodiscard]] static TelemetryCatalogue updateCatalogue(TelemetryCatalogue catalogue, uint8_t frameType,
                                                            const QByteArray &payload,
                                                            int receiverGeneration);

    // --- parser ---
    void feed(const QByteArray &bytes);
    bool hasReceivedValidFrame() const { return m_validFrameSeen; }
    uint8_t lastFrameType() const { return m_lastFrameType; }
    QByteArray lastPayload() const { return m_lastPayload; }
    qsizetype bufferedBytes() const { return m_buffer.size(); }

signals:
    void frameReceived(uint8_t frameType, const QByteArray &payload);
    void linkStatisticsReceived(const tavrix::LinkStatistics &stats);
    void batterySensorReceived(const tavrix::BatterySensor &battery);
    void extendedFrameReceived(uint8_t type, uint8_t dest, uint8_t origin, const QByteArray &payload);

private:
    // Emits the signals of one good frame in their fixed order.
    void announce(uint8_t type, const QByteArray &payload);

    QByteArray m_buffer;
    QByteArray m_lastPayload;
    uint8_t m_lastFrameType = 0;
    bool m_validFrameSeen = false;
};

} // namespace tavrix

Q_DECLARE_METATYPE(tavrix::LinkStatistics)
Q_DECLARE_METATYPE(tavrix::BatterySensor)
Q_DECLARE_METATYPE(tavrix::GpsFix)
Q_DECLARE_METATYPE(tavrix::VehicleRecord)
