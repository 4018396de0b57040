#pragma once

// The tests' one CRSF reference, written apart from the hub's codec and the
// simulator's: a CRC computed one bit at a time (the hub's is table-driven; the
// simulator's is also checked against frames from independent implementations),
// a packer and unpacker that move one bit at a time, and a host-side stream
// parser that resynchronises on bad bytes.

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <array>
#include <cstdint>

namespace crsftest {

using Channels = std::array<int32_t, 16>;

// CRC-8/DVB-S2 (polynomial 0xD5), bit by bit.
inline uint8_t crc8(QByteArrayView bytes)
{
    uint8_t crc = 0;
    for (const char byte : bytes) {
        crc ^= uint8_t(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80) ? uint8_t((crc << 1) ^ 0xD5) : uint8_t(crc << 1);
    }
    return crc;
}

inline QByteArray frame(uint8_t type, const QByteArray &payload, uint8_t address = 0xC8)
{
    QByteArray f;
    f.append(char(address));
    f.append(char(payload.size() + 2));
    f.append(char(type));
    f.append(payload);
    f.append(char(crc8(QByteArrayView(f).sliced(2))));
    return f;
}

// Channel n's bit b is stream bit 11n + b, i.e. bit (k % 8) of byte k / 8.
inline QByteArray channelFrame(const Channels &channels)
{
    QByteArray payload(22, '\0');
    int k = 0;
    for (const int32_t raw : channels) {
        const int32_t value = raw < 0 ? 0 : (raw > 2047 ? 2047 : raw);
        for (int b = 0; b < 11; ++b, ++k) {
            if ((value >> b) & 1)
                payload[k / 8] = char(uint8_t(payload[k / 8]) | (1 << (k % 8)));
        }
    }
    return frame(0x16, payload);
}

inline Channels unpackChannels(const QByteArray &payload)
{
    Channels channels{};
    for (int k = 0; k < 16 * 11; ++k)
        channels[size_t(k / 11)] |= ((uint8_t(payload.at(k / 8)) >> (k % 8)) & 1) << (k % 11);
    return channels;
}

// Host-side view of the bridge's output: frames (CRC-checked) and text lines.
class HostStreamParser
{
public:
    void feed(const QByteArray &bytes)
    {
        m_buffer += bytes;
        while (!m_buffer.isEmpty()) {
            const auto b = uint8_t(m_buffer[0]);
            if (b == 0xC8 || b == 0xEA || b == 0xEE) {
                if (m_buffer.size() < 2)
                    return;
                const int len = uint8_t(m_buffer[1]);
                if (len < 2 || len > 62) {
                    m_buffer.remove(0, 1);
                    continue;
                }
                if (m_buffer.size() < len + 2)
                    return;
                if (crc8(QByteArrayView(m_buffer).sliced(2, len - 1)) != uint8_t(m_buffer[len + 1])) {
                    ++badFrames;
                    m_buffer.remove(0, 1);
                    continue;
                }
                frames.append(m_buffer.left(len + 2));
                m_buffer.remove(0, len + 2);
                m_line.clear();
                continue;
            }
            if (b == '\n') {
                if (m_line.endsWith('\r'))
                    m_line.chop(1);
                if (!m_line.isEmpty())
                    lines.append(QString::fromLatin1(m_line));
                m_line.clear();
            } else if ((b >= 0x20 && b <= 0x7E) || b == '\r') {
                m_line.append(char(b));
            } else {
                m_line.clear();
            }
            m_buffer.remove(0, 1);
        }
    }

    [[nodiscard]] int countOfType(uint8_t type) const
    {
        int n = 0;
        for (const QByteArray &f : frames)
            n += uint8_t(f[2]) == type ? 1 : 0;
        return n;
    }

    QList<QByteArray> frames;
    QStringList lines;
    int badFrames = 0;

private:
    QByteArray m_buffer;
    QByteArray m_line;
};

} // namespace crsftest
