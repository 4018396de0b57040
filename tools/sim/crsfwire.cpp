#include "crsfwire.h"

namespace tavrix::sim::crsfwire {

uint8_t crc8(QByteArrayView bytes)
{
    uint8_t crc = 0;
    for (const char c : bytes) {
        crc ^= uint8_t(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80) ? uint8_t((crc << 1) ^ 0xD5) : uint8_t(crc << 1);
    }
    return crc;
}

QByteArray buildFrame(uint8_t type, QByteArrayView payload, uint8_t address)
{
    const qsizetype lengthByte = payload.size() + 2; // type + payload + CRC
    if (lengthByte > kMaxLengthByte)
        return {};
    QByteArray frame;
    frame.reserve(lengthByte + 2);
    frame.append(char(address));
    frame.append(char(lengthByte));
    frame.append(char(type));
    frame.append(payload.data(), payload.size());
    frame.append(char(crc8(QByteArrayView(frame).sliced(2))));
    return frame;
}

bool isSyncByte(uint8_t byte)
{
    return byte == kAddressFlightController || byte == kAddressHandset || byte == kAddressTransmitterModule;
}

bool isValidFrame(QByteArrayView frame)
{
    if (frame.size() < 4 || !isSyncByte(uint8_t(frame[0])))
        return false;
    const int lengthByte = uint8_t(frame[1]);
    if (lengthByte < 2 || lengthByte > kMaxLengthByte || frame.size() != lengthByte + 2)
        return false;
    return crc8(frame.sliced(2, lengthByte - 1)) == uint8_t(frame[lengthByte + 1]);
}

std::optional<ChannelArray> unpackChannels(QByteArrayView payload)
{
    if (payload.size() < kChannelPayloadSize)
        return std::nullopt;
    ChannelArray channels{};
    // Walk the bit stream: bit n of the stream is bit (n % 8) of byte (n / 8).
    for (int channel = 0; channel < 16; ++channel) {
        int32_t value = 0;
        for (int bit = 0; bit < 11; ++bit) {
            const int n = channel * 11 + bit;
            if (uint8_t(payload[n / 8]) & (1u << (n % 8)))
                value |= 1 << bit;
        }
        channels[size_t(channel)] = value;
    }
    return channels;
}

void appendBigEndian16(QByteArray &out, uint16_t value)
{
    out.append(char(value >> 8));
    out.append(char(value & 0xFF));
}

void appendBigEndian24(QByteArray &out, uint32_t value)
{
    out.append(char((value >> 16) & 0xFF));
    appendBigEndian16(out, uint16_t(value & 0xFFFF));
}

void appendBigEndian32(QByteArray &out, uint32_t value)
{
    appendBigEndian16(out, uint16_t(value >> 16));
    appendBigEndian16(out, uint16_t(value & 0xFFFF));
}

} // namespace tavrix::sim::crsfwire
