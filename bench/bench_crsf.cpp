// CRSF codec figures: channel-frame build time and parser throughput on a realistic
// telemetry stream, each next to a straightforward implementation measured in the same run.
// Figures only; nothing here passes or fails on timing.

#include "crsfprotocol.h"

#include <benchmark/benchmark.h>

#include <QObject>

#include <array>

using tavrix::ChannelValues;
using tavrix::CrsfProtocol;

namespace {

uint8_t bitwiseCrc(const char *data, qsizetype size)
{
    uint8_t crc = 0;
    for (qsizetype i = 0; i < size; ++i) {
        crc ^= static_cast<uint8_t>(data[i]);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80) ? uint8_t((crc << 1) ^ 0xD5) : uint8_t(crc << 1);
    }
    return crc;
}

// --- baselines: what one writes first ---

QByteArray naiveChannelFrame(const ChannelValues &channels)
{
    QByteArray frame;
    frame.append(char(0xC8));
    frame.append(char(24));
    frame.append(char(0x16));
    QByteArray payload(22, '\0');
    int bit = 0;
    for (int32_t value : channels) {
        value = value < 0 ? 0 : (value > 2047 ? 2047 : value);
        for (int b = 0; b < 11; ++b, ++bit) {
            if ((value >> b) & 1)
                payload[bit / 8] = char(payload[bit / 8] | (1 << (bit % 8)));
        }
    }
    frame.append(payload);
    frame.append(char(bitwiseCrc(frame.constData() + 2, frame.size() - 2)));
    return frame;
}

class NaiveParser
{
public:
    void feed(const QByteArray &bytes)
    {
        m_buffer.append(bytes);
        while (m_buffer.size() >= 4) {
            const auto sync = uint8_t(m_buffer.at(0));
            if (sync != 0xC8 && sync != 0xEA && sync != 0xEE) {
                m_buffer.remove(0, 1);
                continue;
            }
            const int length = uint8_t(m_buffer.at(1));
            if (length < 2) {
                m_buffer.remove(0, 1);
                continue;
            }
            if (m_buffer.size() < length + 2)
                break;
            const QByteArray body = m_buffer.mid(2, length - 1);
            if (bitwiseCrc(body.constData(), body.size()) != uint8_t(m_buffer.at(length + 1))) {
                m_buffer.remove(0, 1);
                continue;
            }
            const QByteArray payload = body.mid(1);
            benchmark::DoNotOptimize(payload.constData());
            ++frames;
            m_buffer.remove(0, length + 2);
        }
    }
    qint64 frames = 0;

private:
    QByteArray m_buffer;
};

// --- inputs ---

std::array<ChannelValues, 64> channelSets()
{
    std::array<ChannelValues, 64> sets{};
    for (int s = 0; s < 64; ++s)
        for (int i = 0; i < 16; ++i)
            sets[s][i] = (s * 37 + i * 101) % 2300 - 100; // some outside 0..2047 on purpose
    return sets;
}

QByteArray bigEndian16(int value)
{
    QByteArray bytes;
    bytes.append(char((value >> 8) & 0xFF));
    bytes.append(char(value & 0xFF));
    return bytes;
}

// Ten seconds of what the bridge sends back while driving: link statistics every 100 ms,
// the car's motion record every 20 ms, attitude every 50 ms, GPS every 200 ms, battery
// every 500 ms, and a text line from the bridge every second.
QByteArray telemetryStream()
{
    QByteArray stream;
    uint32_t noise = 12345;
    const auto next = [&noise](int range) {
        noise = noise * 1103515245u + 12345u;
        return int((noise >> 16) % uint32_t(range));
    };
    for (int ms = 0; ms < 10000; ms += 10) {
        if (ms % 20 == 0) {
            QByteArray record(1, char(1));
            for (int axis = 0; axis < 3; ++axis)
                record += bigEndian16(next(4000) - 2000);
            stream += CrsfProtocol::buildFrame(tavrix::crsf::kTypeVehicleRecord, record);
        }
        if (ms % 50 == 0) {
            QByteArray attitude;
            for (int axis = 0; axis < 3; ++axis)
                attitude += bigEndian16(next(62830) - 31415);
            stream += CrsfProtocol::buildFrame(tavrix::crsf::kTypeAttitude, attitude);
        }
        if (ms % 100 == 0) {
            QByteArray link;
            for (int raw : {0x40 + next(30), 0x40 + next(30), 90 + next(10), next(20), 0, 5, 3,
                            0x50 + next(20), 95 + next(5), next(15)})
                link.append(char(raw));
            stream += CrsfProtocol::buildFrame(tavrix::crsf::kTypeLinkStatistics, link);
        }
        if (ms % 200 == 0) {
            QByteArray gps = QByteArray::fromHex("1cbe991a05f3c4c0");
            gps += bigEndian16(next(600)) + bigEndian16(next(36000)) + bigEndian16(1000 + next(300));
            gps.append(char(9));
            stream += CrsfProtocol::buildFrame(tavrix::crsf::kTypeGps, gps);
        }
        if (ms % 500 == 0)
            stream += CrsfProtocol::buildFrame(tavrix::crsf::kTypeBattery,
                                               bigEndian16(74 + next(10)) + bigEndian16(next(300)) +
                                                   QByteArray::fromHex("0004d2") + QByteArray(1, char(80)));
        if (ms % 1000 == 0)
            stream += QByteArrayLiteral("[BRIDGE] link ok, rate 500Hz, tx power 100mW\r\n");
    }
    return stream;
}

// About what one 15 ms serial poll brings at 115200 baud.
constexpr qsizetype kReadSize = 170;

// --- benchmarks ---

void BM_ChannelFrame(benchmark::State &state)
{
    const auto sets = channelSets();
    size_t i = 0;
    for (auto _ : state) {
        QByteArray frame = CrsfProtocol::buildRcChannelsFrame(sets[i++ & 63]);
        benchmark::DoNotOptimize(frame.data());
    }
    state.SetItemsProcessed(state.iterations());
    state.SetLabel("ns/frame = Time");
}
BENCHMARK(BM_ChannelFrame);

void BM_ChannelFrameNaiveBaseline(benchmark::State &state)
{
    const auto sets = channelSets();
    size_t i = 0;
    for (auto _ : state) {
        QByteArray frame = naiveChannelFrame(sets[i++ & 63]);
        benchmark::DoNotOptimize(frame.data());
    }
    state.SetItemsProcessed(state.iterations());
    state.SetLabel("bit by bit, bitwise CRC");
}
BENCHMARK(BM_ChannelFrameNaiveBaseline);

void BM_ParseTelemetry(benchmark::State &state)
{
    const QByteArray stream = telemetryStream();
    qint64 frames = 0;
    for (auto _ : state) {
        CrsfProtocol parser;
        QObject context;
        QObject::connect(&parser, &CrsfProtocol::frameReceived, &context,
                         [&frames](uint8_t, const QByteArray &) { ++frames; });
        for (qsizetype at = 0; at < stream.size(); at += kReadSize)
            parser.feed(stream.mid(at, kReadSize));
    }
    state.SetBytesProcessed(state.iterations() * stream.size());
    state.counters["frames/pass"] = double(frames) / double(state.iterations());
}
BENCHMARK(BM_ParseTelemetry);

void BM_ParseTelemetryNaiveBaseline(benchmark::State &state)
{
    const QByteArray stream = telemetryStream();
    qint64 frames = 0;
    for (auto _ : state) {
        NaiveParser parser;
        for (qsizetype at = 0; at < stream.size(); at += kReadSize)
            parser.feed(stream.mid(at, kReadSize));
        frames += parser.frames;
    }
    state.SetBytesProcessed(state.iterations() * stream.size());
    state.counters["frames/pass"] = double(frames) / double(state.iterations());
    state.SetLabel("bitwise CRC, copies");
}
BENCHMARK(BM_ParseTelemetryNaiveBaseline);

} // namespace

BENCHMARK_MAIN();
