// Fuzzes the CRSF stream parser with arbitrary bytes in arbitrary splits, and every
// decoder and the telemetry catalogue with every payload the parser reports.
//
// Input layout: byte 0 low nibble = number of split points n (0..15); the next n bytes are
// chunk lengths; everything after is the byte stream, fed chunk by chunk, the rest at once.

#include "crsfprotocol.h"
#include "telemetrycatalogue.h"

#include <QObject>
#include <QSet>

#include <cstdio>
#include <cstdlib>
#include <iterator>

using namespace tavrix;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_crsfparser: %s\n", what);
    std::abort();
}

void exerciseDecoders(uint8_t type, const QByteArray &payload)
{
    // Any payload is read by every decoder, whatever its type says.
    (void)CrsfProtocol::decodeLinkStatistics(payload);
    (void)CrsfProtocol::decodeBattery(payload);
    (void)CrsfProtocol::decodeGps(payload);
    (void)CrsfProtocol::decodeVehicleRecord(payload);
    for (qsizetype offset = -1; offset <= payload.size() + 1; ++offset) {
        (void)CrsfProtocol::readBigEndian16(payload, offset);
        (void)CrsfProtocol::isAllFF(payload, offset, 2);
    }
    // The catalogue reads the payload as its own type and, to reach every branch with odd
    // payloads, as one of the telemetry types chosen by the frame type.
    static constexpr uint8_t kTelemetryTypes[] = {crsf::kTypeGps, crsf::kTypeBattery,
                                                  crsf::kTypeLinkStatistics, crsf::kTypeAttitude,
                                                  crsf::kTypeVehicleRecord};
    const uint8_t otherType = kTelemetryTypes[type % std::size(kTelemetryTypes)];
    TelemetryCatalogue catalogue;
    for (int generation : {crsf::kReceiverGenerationUnknown, crsf::kReceiverGenerationClassic,
                           crsf::kReceiverGenerationNewer}) {
        catalogue = telemetrycatalogue::update(catalogue, type, payload, generation);
        catalogue = telemetrycatalogue::update(catalogue, otherType, payload, generation);
    }
    // Keys stay unique however many frames are merged in.
    QSet<QString> keys;
    for (const TelemetrySensor &sensor : catalogue)
        keys.insert(sensor.key);
    if (keys.size() != catalogue.size())
        fail("catalogue holds a key twice");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const size_t splits = std::min<size_t>(data[0] & 0x0F, size - 1);
    const uint8_t *chunkLengths = data + 1;
    const char *stream = reinterpret_cast<const char *>(data + 1 + splits);
    const qsizetype streamSize = qsizetype(size - 1 - splits);

    CrsfProtocol parser;
    QObject context;
    QObject::connect(&parser, &CrsfProtocol::frameReceived, &context,
                     [&parser](uint8_t type, const QByteArray &payload) {
                         if (payload.size() > 253)
                             fail("payload longer than a length byte allows");
                         if (parser.lastFrameType() != type || parser.lastPayload() != payload)
                             fail("last frame does not match the reported one");
                         exerciseDecoders(type, payload);
                     });
    QObject::connect(&parser, &CrsfProtocol::extendedFrameReceived, &context,
                     [](uint8_t, uint8_t, uint8_t, const QByteArray &payload) {
                         if (payload.size() > 251)
                             fail("extended payload longer than a frame allows");
                     });

    const auto feed = [&parser](const char *bytes, qsizetype count) {
        parser.feed(QByteArray(bytes, count));
        if (parser.bufferedBytes() > crsf::kMaxFrameSize)
            fail("receive buffer holds more than one longest frame");
    };

    qsizetype at = 0;
    for (size_t i = 0; i < splits && at < streamSize; ++i) {
        const qsizetype count = std::min<qsizetype>(chunkLengths[i], streamSize - at);
        feed(stream + at, count);
        at += count;
    }
    feed(stream + at, streamSize - at);
    return 0;
}
