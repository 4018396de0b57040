#include "mdnsquery.h"

namespace tavrix::mdns {

namespace {

constexpr qsizetype kMaxLabelLength = 63;
// The two top bits of a length byte: both set is a compression pointer, one alone a
// label type that no question uses.
constexpr quint8 kLabelKindMask = 0xC0;
constexpr qsizetype kPointerSize = 2;
constexpr qsizetype kQuestionTail = 4; // type and class
constexpr quint8 kResponseBit = 0x80;  // in byte 2 of the header

// Callers check that offset + 2 lies inside the datagram.
quint16 read16(const QByteArray &bytes, qsizetype offset)
{
    return quint16(quint8(bytes[offset]) << 8 | quint8(bytes[offset + 1]));
}

// Only ASCII letters fold: DNS compares names without regard to ASCII case and nothing else.
char foldCase(char c)
{
    return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c;
}

bool nameMatchesAt(const QByteArray &datagram, qsizetype offset, const QByteArray &wireName)
{
    if (datagram.size() - offset < wireName.size())
        return false;
    for (qsizetype i = 0; i < wireName.size(); ++i) {
        if (foldCase(datagram[offset + i]) != foldCase(wireName[i]))
            return false;
    }
    return true;
}

// The offset just past the name starting at offset, or -1 when the name runs off the end
// of the datagram or uses a label kind a question never holds.
qsizetype skipName(const QByteArray &datagram, qsizetype offset)
{
    while (offset < datagram.size()) {
        const quint8 length = quint8(datagram[offset]);
        if (length == 0)
            return offset + 1;
        if ((length & kLabelKindMask) == kLabelKindMask)
            return datagram.size() - offset >= kPointerSize ? offset + kPointerSize : -1;
        if (length & kLabelKindMask)
            return -1;
        offset += 1 + length;
    }
    return -1;
}

} // namespace

QByteArray wireName(const QString &hostName)
{
    QByteArray wire;
    const QList<QByteArray> labels = hostName.toUtf8().split('.');
    for (QByteArray label : labels) {
        if (label.isEmpty())
            continue;
        label.truncate(kMaxLabelLength);
        wire.append(char(label.size())).append(label);
    }
    wire.append('\0');
    return wire;
}

QList<quint16> questionsForName(const QByteArray &datagram, const QByteArray &wireName)
{
    QList<quint16> ids;
    if (datagram.size() < kHeaderSize || (quint8(datagram[2]) & kResponseBit))
        return ids;
    const quint16 id = read16(datagram, 0);
    const int questionCount = read16(datagram, 4);
    qsizetype offset = kHeaderSize;
    for (int question = 0; question < questionCount && offset < datagram.size(); ++question) {
        if (nameMatchesAt(datagram, offset, wireName)) {
            const qsizetype tail = offset + wireName.size();
            if (datagram.size() - tail < kQuestionTail)
                break;
            const quint16 type = read16(datagram, tail);
            const quint16 questionClass = quint16(read16(datagram, tail + 2) & ~kUnicastResponseBit);
            if ((type == kTypeA || type == kTypeAny) && questionClass == kClassIn)
                ids.append(id);
        }
        const qsizetype nameEnd = skipName(datagram, offset);
        if (nameEnd < 0 || datagram.size() - nameEnd < kQuestionTail)
            break;
        offset = nameEnd + kQuestionTail;
    }
    return ids;
}

QByteArray answerPacket(quint16 id, const QByteArray &wireName, quint32 ipv4Address)
{
    QByteArray packet;
    packet.reserve(kHeaderSize + wireName.size() + kAnswerRecordTail);
    const auto put16 = [&packet](quint16 value) { packet.append(char(value >> 8)).append(char(value)); };
    const auto put32 = [&put16](quint32 value) {
        put16(quint16(value >> 16));
        put16(quint16(value));
    };
    put16(id);
    put16(kAnswerFlags);
    put16(0); // questions
    put16(1); // answers
    put16(0); // authority records
    put16(0); // additional records
    packet.append(wireName);
    put16(kTypeA);
    put16(kClassIn | kCacheFlushBit);
    put32(kAnswerTtlSeconds);
    put16(4); // data length: one IPv4 address
    put32(ipv4Address);
    return packet;
}

} // namespace tavrix::mdns
