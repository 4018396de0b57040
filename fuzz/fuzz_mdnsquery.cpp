// Fuzzes the mDNS question walk with arbitrary datagrams. The sanitizers watch that it
// never reads outside the datagram; the checks below that it only ever answers a query
// for our name, once per question at most, and that every answer it asks for is one
// fixed-size A record carrying the query's ID.

#include "mdnsquery.h"

#include <cstdio>
#include <cstdlib>

using namespace tavrix;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_mdnsquery: %s\n", what);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QByteArray name = mdns::wireName(QStringLiteral("orvanelabs-transmitter.local"));
    // The fuzzer's own buffer, not a copy with a terminator behind it, so that reading
    // one byte too far is a sanitizer report.
    const QByteArray datagram =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    const QList<quint16> ids = mdns::questionsForName(datagram, name);
    if (ids.isEmpty())
        return 0;

    if (size < mdns::kHeaderSize || (data[2] & 0x80))
        fail("answered a response or a datagram shorter than a header");
    const quint16 queryId = quint16(data[0] << 8 | data[1]);
    const qsizetype questionCount = data[4] << 8 | data[5];
    const qsizetype shortestQuestion = name.size() + 4;
    if (ids.size() > questionCount || ids.size() > (datagram.size() - mdns::kHeaderSize) / shortestQuestion)
        fail("more answers than questions for our name fit");
    if (!datagram.toLower().contains(name.toLower()))
        fail("answered a datagram that does not hold our name");

    for (const quint16 id : ids) {
        if (id != queryId)
            fail("answer does not carry the query's ID");
        const QByteArray answer = mdns::answerPacket(id, name, 0x0A4D0001);
        if (answer.size() != mdns::kHeaderSize + name.size() + mdns::kAnswerRecordTail)
            fail("answer is not one fixed-size A record");
        if (quint8(answer[0]) != data[0] || quint8(answer[1]) != data[1])
            fail("answer packet does not start with the query's ID");
        if (!mdns::questionsForName(answer, name).isEmpty())
            fail("our own answer would be answered");
    }
    return 0;
}
