#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tavrix::mdns {

// The bytes of multicast DNS the hub's name responder reads and writes, kept apart from
// the socket so every rule about outside datagrams can be checked without a network.

inline constexpr quint16 kPort = 5353;
inline constexpr char kGroupAddress[] = "224.0.0.251";

inline constexpr int kHeaderSize = 12;
inline constexpr quint16 kTypeA = 1;
inline constexpr quint16 kTypeAny = 255;
inline constexpr quint16 kClassIn = 1;
// Set on a question's class when the asker would take a unicast reply; we answer by
// multicast anyway.
inline constexpr quint16 kUnicastResponseBit = 0x8000;
// Set on an answer's class: this record replaces whatever the asker cached for the name.
inline constexpr quint16 kCacheFlushBit = 0x8000;
inline constexpr quint16 kAnswerFlags = 0x8400; // response, authoritative
inline constexpr quint32 kAnswerTtlSeconds = 120;
// Type, class, TTL, data length and the IPv4 address that follow the name in an answer.
inline constexpr int kAnswerRecordTail = 2 + 2 + 4 + 2 + 4;

// "name.local" in DNS wire form: each dot-separated label behind its length byte, then a
// zero byte. Empty labels are dropped and labels are cut to the 63 bytes DNS allows.
[[nodiscard]] QByteArray wireName(const QString &hostName);

// The IDs to answer for one received datagram, one entry per question that asks for the
// A record (or ANY) of wireName in class IN, in any letter case. Responses, datagrams
// shorter than a header and anything malformed yield no answers; a question whose name
// starts with a compression pointer is never ours.
[[nodiscard]] QList<quint16> questionsForName(const QByteArray &datagram, const QByteArray &wireName);

// The answer datagram that gives wireName the IPv4 address (host byte order).
[[nodiscard]] QByteArray answerPacket(quint16 id, const QByteArray &wireName, quint32 ipv4Address);

} // namespace tavrix::mdns
