#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <optional>

// The simulators' own CRSF framing, written from the protocol description and kept
// apart from the hub's codec on purpose: a peer that shared our codec would repeat
// its mistakes instead of catching them.
namespace tavrix::sim {

// Sixteen 11-bit RC channel values, CH1 first.
using ChannelArray = std::array<int32_t, 16>;

namespace crsfwire {

inline constexpr uint8_t kAddressFlightController = 0xC8; // what the hub puts on every frame
inline constexpr uint8_t kAddressHandset = 0xEA;
inline constexpr uint8_t kAddressTransmitterModule = 0xEE;
inline constexpr uint8_t kAddressParameterClient = 0xEF;

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
inline constexpr uint8_t kTypeWrapper = 0x50;
inline constexpr uint8_t kWrapperInnerMarker = 0xCA; // second wrapper byte: a vehicle record follows

// A CRSF frame is at most 64 bytes on the wire, so its length byte is at most 62.
inline constexpr int kMaxFrameSize = 64;
inline constexpr int kMaxLengthByte = kMaxFrameSize - 2;
// The length byte counts the type byte and the CRC besides the payload.
inline constexpr int kMaxPayloadSize = kMaxLengthByte - 2;
// An extended frame's payload opens with its destination and origin addresses.
inline constexpr int kExtendedHeaderSize = 2;
// A parameter settings entry (0x2B) then names its field and the chunks still to come.
inline constexpr int kParameterEntryHeaderSize = kExtendedHeaderSize + 2;
// So this much field data fits in one entry; longer fields are sent in chunks.
inline constexpr int kParameterChunkSize = kMaxPayloadSize - kParameterEntryHeaderSize;
inline constexpr int kChannelPayloadSize = 22;

// CRC-8/DVB-S2 (polynomial 0xD5, initial 0, no reflection, no final XOR), bit by bit.
[[nodiscard]] uint8_t crc8(QByteArrayView bytes);

// address, length, type, payload, CRC. An over-long payload gives an empty array.
[[nodiscard]] QByteArray buildFrame(uint8_t type, QByteArrayView payload,
                                    uint8_t address = kAddressFlightController);

// The address bytes a peer may start a frame with.
[[nodiscard]] bool isSyncByte(uint8_t byte);

// True when `frame` is one whole frame: sync byte, sane length, exact size, good CRC.
[[nodiscard]] bool isValidFrame(QByteArrayView frame);

// Unpacks sixteen 11-bit values, least significant bit first; nullopt when the
// payload is shorter than 22 bytes.
[[nodiscard]] std::optional<ChannelArray> unpackChannels(QByteArrayView payload);

// Big-endian helpers for telemetry payloads.
void appendBigEndian16(QByteArray &out, uint16_t value);
void appendBigEndian24(QByteArray &out, uint32_t value);
void appendBigEndian32(QByteArray &out, uint32_t value);

} // namespace crsfwire
} // namespace tavrix::sim
