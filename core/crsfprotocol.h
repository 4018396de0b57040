#pragma once

#include "crsftypes.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>

namespace tavrix {

// The only place where CRSF bytes are made or taken apart: builders for outbound
// frames, decoders for telemetry payloads, and a resynchronising stream parser.
// Turning decoded payloads into named readings is the telemetry catalogue's job.
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
