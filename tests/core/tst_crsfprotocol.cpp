#include "crsfprotocol.h"
#include "crsfsamples.h"
#include "crsftestcodec.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Frame = QPair<uint8_t, QByteArray>;

ChannelValues filled(int32_t value)
{
    ChannelValues channels;
    channels.fill(value);
    return channels;
}

ChannelValues withChannels(std::initializer_list<int32_t> first, int32_t rest = 0)
{
    ChannelValues channels = filled(rest);
    std::copy(first.begin(), first.end(), channels.begin());
    return channels;
}

// Enough filler to end any wait for a long frame. Not zeros: a sync byte followed by
// zeros is itself a good frame, since zeros have a CRC of zero.
QByteArray filler()
{
    return QByteArray(crsf::kMaxFrameSize, '\x55');
}

QByteArray randomBytes(QRandomGenerator &rng, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &c : bytes)
        c = char(rng.bounded(256));
    return bytes;
}

// Collects every frame a parser reports.
struct FrameRecorder
{
    explicit FrameRecorder(CrsfProtocol &parser)
    {
        QObject::connect(&parser, &CrsfProtocol::frameReceived, &context,
                         [this](uint8_t type, const QByteArray &payload) {
                             frames.append({type, payload});
                         });
    }
    QObject context;
    QList<Frame> frames;
};

QJsonArray loadVectors()
{
    QFile file(QStringLiteral(ORVANE_TEST_DATA_DIR "/crsf/vectors.json"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).array();
}

QByteArray vectorFrame(const QString &name)
{
    for (const QJsonValue &entry : loadVectors()) {
        if (entry[QLatin1String("name")].toString() == name)
            return QByteArray::fromHex(entry[QLatin1String("hex")].toString().toLatin1());
    }
    return {};
}

// Payload of a stored frame, whatever its address byte.
QByteArray vectorPayload(const QString &name)
{
    const QByteArray frame = vectorFrame(name);
    return frame.size() < 4 ? QByteArray() : frame.mid(3, frame.size() - 4);
}

// "key=value | key=value ..." in catalogue order.
} // namespace

Q_DECLARE_METATYPE(tavrix::ChannelValues)

class TestCrsfProtocol : public QObject
{
    Q_OBJECT

private slots:
    void packsChannelFrame_data();
    void packsChannelFrame();
    void tableCrcMatchesBitwiseCrc();
    void buildsExtendedFrames_data();
    void buildsExtendedFrames();

    void decodersAtTheirEdges();
    void decodesGpsValidity_data();
    void decodesGpsValidity();

    void parserFindsFrames_data();
    void parserFindsFrames();
    void parserResultDoesNotDependOnSplits_data();
    void parserResultDoesNotDependOnSplits();
    void parserBufferStaysBounded();
    void emitsSignalsInOrder_data();
    void emitsSignalsInOrder();
    void feedingFromSlotKeepsFramesInOrder();

    void independentVectorsParse_data();
    void independentVectorsParse();
    void independentRcPayloadsUnpackAndRepack_data();
    void independentRcPayloadsUnpackAndRepack();
    void independentTelemetryMatchesTables();
    void independentExtendedFramesAnnounceAddresses();
};

// --- channel frame ---

void TestCrsfProtocol::packsChannelFrame_data()
{
    QTest::addColumn<ChannelValues>("channels");
    QTest::addColumn<QByteArray>("payload");

    QTest::newRow("all centre: every group 0x3E0")
        << filled(992) << hex("e0031ff8c0073ef0810f7ce0031ff8c0073ef0810f7c");
    QTest::newRow("ch1 full, rest 0") << withChannels({2047}) << hex("ff07") + QByteArray(20, '\0');
    QTest::newRow("clamped -5 and 5000") << withChannels({-5, 5000}) << hex("00f83f") + QByteArray(19, '\0');
    QTest::newRow("int extremes") << withChannels({std::numeric_limits<int32_t>::max()},
                                                  std::numeric_limits<int32_t>::min())
                                  << hex("ff07") + QByteArray(20, '\0');
    ChannelValues last = filled(0);
    last[15] = 2047;
    QTest::newRow("ch16 full") << last << QByteArray(20, '\0') + hex("e0ff");
    QTest::newRow("all full") << filled(2047) << QByteArray(22, '\xff');
}

void TestCrsfProtocol::packsChannelFrame()
{
    QFETCH(ChannelValues, channels);
    QFETCH(QByteArray, payload);

    const QByteArray frame = CrsfProtocol::buildRcChannelsFrame(channels);
    QCOMPARE(frame.size(), 26);
    QCOMPARE(frame.left(3), hex("c81816"));
    QCOMPARE(frame.mid(3, 22).toHex(), payload.toHex());
    QCOMPARE(uint8_t(frame.back()), crsftest::crc8(frame.mid(2, 23)));
}

void TestCrsfProtocol::tableCrcMatchesBitwiseCrc()
{
    // The published check value of CRC-8/DVB-S2.
    QCOMPARE(CrsfProtocol::crc8("123456789", 9), uint8_t(0xBC));
    QCOMPARE(CrsfProtocol::crc8(nullptr, 0), uint8_t(0));
    QRandomGenerator rng(99);
    for (int round = 0; round < 3000; ++round) {
        const QByteArray bytes = randomBytes(rng, rng.bounded(0, 300));
        QCOMPARE(CrsfProtocol::crc8(bytes.constData(), bytes.size()), crsftest::crc8(bytes));
    }
}

void TestCrsfProtocol::buildsExtendedFrames_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("ping") << CrsfProtocol::buildPingFrame(0xEE, 0xEA) << crsftest::frame(0x28, hex("eeea"));
    QTest::newRow("read") << CrsfProtocol::buildParameterReadFrame(5, 1, 0xEE, 0xEA)
                          << crsftest::frame(0x2C, hex("eeea0501"));
    QTest::newRow("write") << CrsfProtocol::buildParameterWriteFrame(7, hex("0102"), 0xEC, 0xEA)
                           << crsftest::frame(0x2D, hex("ecea070102"));
    QTest::newRow("generic") << CrsfProtocol::buildExtendedFrame(0x2E, 0x62, 0x6C, hex("aabbcc"))
                             << crsftest::frame(0x2E, hex("626caabbcc"));
    QTest::newRow("plain, longest") << CrsfProtocol::buildFrame(0x7F, QByteArray(253, 'x'))
                                    << crsftest::frame(0x7F, QByteArray(253, 'x'));
    QTest::newRow("extended, longest") << CrsfProtocol::buildExtendedFrame(0x2D, 1, 2, QByteArray(251, 'x'))
                                       << crsftest::frame(0x2D, hex("0102") + QByteArray(251, 'x'));
    // A length byte cannot say more: refused rather than cut short.
    QTest::newRow("plain, too long") << CrsfProtocol::buildFrame(0x7F, QByteArray(254, 'x')) << QByteArray();
    QTest::newRow("extended, too long")
        << CrsfProtocol::buildExtendedFrame(0x2D, 1, 2, QByteArray(252, 'x')) << QByteArray();
}

void TestCrsfProtocol::buildsExtendedFrames()
{
    QFETCH(QByteArray, frame);
    QFETCH(QByteArray, expected);
    QCOMPARE(frame.toHex(' '), expected.toHex(' '));
}

// --- decoders ---

void TestCrsfProtocol::decodersAtTheirEdges()
{
    // Typical payloads are read field by field through the catalogue table.
    QCOMPARE(CrsfProtocol::rssiToDbm(0x00), 0); // no reading
    QCOMPARE(CrsfProtocol::rssiToDbm(0x7F), -127);
    QCOMPARE(CrsfProtocol::rssiToDbm(0x80), -128);
    QCOMPARE(CrsfProtocol::decodeLinkStatistics(hex(kLinkHex).left(9)).downlinkLinkQuality, uint8_t(0));
    // No battery field is signed.
    const BatterySensor battery = CrsfProtocol::decodeBattery(hex("ffffffffffffff64"));
    QCOMPARE(battery.voltage, 6553.5f);
    QCOMPARE(battery.current, 6553.5f);
    QCOMPARE(battery.capacity, 0xFFFFFFu);
    // Reading past the end gives nothing rather than stray bytes.
    QCOMPARE(CrsfProtocol::readBigEndian16(hex("12ff34"), 1), uint16_t(0xFF34));
    QCOMPARE(CrsfProtocol::readBigEndian16(hex("12ff34"), 2), uint16_t(0));
    QVERIFY(!CrsfProtocol::isAllFF(hex("ff"), 0, 2)); // bytes that are missing are not marked
}

void TestCrsfProtocol::decodesGpsValidity_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<bool>("valid");

    const auto gps = [](int32_t lat, int32_t lon) {
        QByteArray payload;
        for (int32_t raw : {lat, lon})
            for (int shift = 24; shift >= 0; shift -= 8)
                payload.append(char(uint32_t(raw) >> shift));
        return payload + hex("0000000003e805");
    };
    QTest::newRow("0/0 is no fix") << gps(0, 0) << false;
    QTest::newRow("latitude 91") << gps(910000000, 10000000) << false;
    QTest::newRow("latitude -91") << gps(-910000000, 10000000) << false;
    QTest::newRow("latitude 90") << gps(900000000, 0) << true;
    QTest::newRow("longitude -180") << gps(0, -1800000000) << true;
    QTest::newRow("longitude past 180") << gps(0, 1800000001) << false;
    QTest::newRow("only longitude zero") << gps(482000000, 0) << true;
    QTest::newRow("14 bytes") << gps(482000000, 163000000).left(14) << false;
}

void TestCrsfProtocol::decodesGpsValidity()
{
    QFETCH(QByteArray, payload);
    QFETCH(bool, valid);
    QCOMPARE(CrsfProtocol::decodeGps(payload).valid, valid);
}

// --- parser ---

void TestCrsfProtocol::parserFindsFrames_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QList<Frame>>("expected");

    const QByteArray link = crsftest::frame(0x14, hex(kLinkHex));
    const QByteArray ping = crsftest::frame(0x28, hex("eeea"));
    const QByteArray gps = crsftest::frame(0x02, hex(kGpsHex));
    const Frame linkFrame{0x14, hex(kLinkHex)};
    const Frame pingFrame{0x28, hex("eeea")};
    const Frame gpsFrame{0x02, hex(kGpsHex)};

    QByteArray badCrc = link;
    badCrc[badCrc.size() - 1] = char(badCrc.back() ^ 0x01);
    // A corrupt frame whose declared length swallows a whole good frame.
    QByteArray swallowing = hex("c80e14") + ping + hex("010203040506");
    swallowing.append(char(~crsftest::crc8(swallowing.mid(2))));

    QTest::newRow("one frame") << link << QList<Frame>{linkFrame};
    QTest::newRow("sync 0xEA") << crsftest::frame(0x14, linkFrame.second, 0xEA) << QList<Frame>{linkFrame};
    QTest::newRow("sync 0xEC refused") << crsftest::frame(0x14, linkFrame.second, 0xEC) << QList<Frame>{};
    QTest::newRow("bad crc dropped") << badCrc + gps << QList<Frame>{gpsFrame};
    QTest::newRow("good frame inside a bad one") << swallowing << QList<Frame>{pingFrame};
    QTest::newRow("length 0 and 1 skipped") << hex("c800c801") + ping << QList<Frame>{pingFrame};
    QTest::newRow("length 1 before a zero byte") << hex("c80100") + ping << QList<Frame>{pingFrame};
    QTest::newRow("empty payload") << crsftest::frame(0x16, {}) << QList<Frame>{{0x16, {}}};
    QTest::newRow("longest frame") << crsftest::frame(0x7F, QByteArray(253, 'x'))
                                   << QList<Frame>{{0x7F, QByteArray(253, 'x')}};
    QTest::newRow("three frames back to back")
        << link + ping + gps << QList<Frame>{linkFrame, pingFrame, gpsFrame};
    // A stray sync byte makes the parser wait for the length that follows it; once that
    // many bytes are in, the CRC fails and the frames inside are found.
    const QByteArray strays = hex("eeeac8") + link + hex("c8") + gps;
    QTest::newRow("stray sync bytes wait") << strays << QList<Frame>{};
    QTest::newRow("stray sync bytes, then enough data")
        << strays + filler() << QList<Frame>{linkFrame, gpsFrame};
    QTest::newRow("three bytes alone") << hex("c80216") << QList<Frame>{};
}

void TestCrsfProtocol::parserFindsFrames()
{
    QFETCH(QByteArray, stream);
    QFETCH(QList<Frame>, expected);

    CrsfProtocol parser;
    FrameRecorder recorder(parser);
    parser.feed(stream);
    QCOMPARE(recorder.frames, expected);
}

void TestCrsfProtocol::parserResultDoesNotDependOnSplits_data()
{
    QTest::addColumn<int>("chunk");
    for (int chunk : {1, 3, 7, 26})
        QTest::addRow("%d bytes per feed", chunk) << chunk;
}

void TestCrsfProtocol::parserResultDoesNotDependOnSplits()
{
    QFETCH(int, chunk);
    QByteArray stream = hex("0001");
    stream += CrsfProtocol::buildRcChannelsFrame(filled(992));
    stream += crsftest::frame(0x14, hex(kLinkHex), 0xEA);
    stream += hex("c80116");
    stream += crsftest::frame(0x2B, hex("eaee0100"), 0xEE);
    stream += crsftest::frame(0x08, hex("00a8001e0004d24b"));
    // Last, a stray sync byte that waits for 255 more bytes, then fails its CRC.
    stream += hex("c8ff") + filler();

    CrsfProtocol whole;
    FrameRecorder wholeFrames(whole);
    whole.feed(stream);

    CrsfProtocol split;
    FrameRecorder splitFrames(split);
    for (qsizetype at = 0; at < stream.size(); at += chunk)
        split.feed(stream.mid(at, chunk));

    QCOMPARE(splitFrames.frames, wholeFrames.frames);
    QCOMPARE(splitFrames.frames.size(), 4);
}

void TestCrsfProtocol::parserBufferStaysBounded()
{
    QRandomGenerator rng(7);
    CrsfProtocol parser;
    for (int round = 0; round < 5000; ++round) {
        QByteArray bytes = randomBytes(rng, rng.bounded(0, 600));
        if (round % 3 == 0)
            bytes.prepend(char(0xC8)).insert(1, char(0xFF)); // the longest possible wait
        parser.feed(bytes);
        QVERIFY2(parser.bufferedBytes() <= crsf::kMaxFrameSize, qPrintable(QString::number(round)));
    }
}

void TestCrsfProtocol::emitsSignalsInOrder_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("expected");

    for (int type : {0x28, 0x29, 0x2B, 0x2C, 0x2D, 0x2E})
        QTest::addRow("extended 0x%x", type) << type << hex("eeea0102") << u"extended ee>ea:0102 frame"_s;
    QTest::newRow("extended, addresses only") << 0x28 << hex("eeea") << u"extended ee>ea: frame"_s;
    QTest::newRow("extended, one byte") << 0x2C << hex("ee") << u"frame"_s;
    QTest::newRow("0x2a not extended") << 0x2A << hex("eeea01") << u"frame"_s;
    QTest::newRow("0x32 command") << 0x32 << hex("c8ec0a") << u"frame"_s;
    QTest::newRow("link statistics") << 0x14 << hex(kLinkHex) << u"frame link 100"_s;
    QTest::newRow("battery") << 0x08 << hex("00a8001e0004d24b") << u"frame battery 1234"_s;
    QTest::newRow("battery, 7 bytes: a zero record") << 0x08 << hex("00a8001e0004d2") << u"frame battery 0"_s;
    QTest::newRow("gps") << 0x02 << hex(kGpsHex) << u"frame"_s;
}

void TestCrsfProtocol::emitsSignalsInOrder()
{
    QFETCH(int, type);
    QFETCH(QByteArray, payload);
    QFETCH(QString, expected);

    CrsfProtocol parser;
    QStringList seen;
    QObject context;
    connect(&parser, &CrsfProtocol::frameReceived, &context, [&] { seen << u"frame"_s; });
    connect(&parser, &CrsfProtocol::extendedFrameReceived, &context,
            [&](uint8_t, uint8_t destination, uint8_t origin, const QByteArray &rest) {
                seen << u"extended %1>%2:%3"_s.arg(destination, 0, 16)
                            .arg(origin, 0, 16)
                            .arg(QString::fromLatin1(rest.toHex()));
            });
    connect(&parser, &CrsfProtocol::linkStatisticsReceived, &context,
            [&](const LinkStatistics &stats) { seen << u"link %1"_s.arg(stats.linkQuality); });
    connect(&parser, &CrsfProtocol::batterySensorReceived, &context,
            [&](const BatterySensor &battery) { seen << u"battery %1"_s.arg(battery.capacity); });

    parser.feed(crsftest::frame(uint8_t(type), payload));
    QCOMPARE(seen.join(QLatin1Char(' ')), expected);
}

void TestCrsfProtocol::feedingFromSlotKeepsFramesInOrder()
{
    // A listener that answers a frame by feeding more bytes must not corrupt the stream.
    const QList<Frame> sent{{0x28, hex("eeea")}, {0x14, hex(kLinkHex)}, {0x02, hex(kGpsHex)}};
    CrsfProtocol parser;
    FrameRecorder recorder(parser);
    QObject context;
    connect(&parser, &CrsfProtocol::frameReceived, &context, [&](uint8_t type) {
        if (type == 0x28 && recorder.frames.size() == 1)
            parser.feed(crsftest::frame(sent[2].first, sent[2].second));
    });
    parser.feed(crsftest::frame(sent[0].first, sent[0].second) +
                crsftest::frame(sent[1].first, sent[1].second));
    QCOMPARE(recorder.frames, sent);
    QCOMPARE(parser.bufferedBytes(), 0);
}

// --- frames from independent implementations ---

void TestCrsfProtocol::independentVectorsParse_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<bool>("crcOk");

    const QJsonArray vectors = loadVectors();
    QVERIFY2(!vectors.isEmpty(), "the CRSF frames (tests/data/crsf/vectors.json) are missing");
    for (const QJsonValue &entry : vectors) {
        QTest::newRow(qPrintable(entry[QLatin1String("name")].toString()))
            << QByteArray::fromHex(entry[QLatin1String("hex")].toString().toLatin1())
            << entry[QLatin1String("crc_ok")].toBool();
    }
}

void TestCrsfProtocol::independentVectorsParse()
{
    QFETCH(QByteArray, frame);
    QFETCH(bool, crcOk);

    const int length = uint8_t(frame.at(1));
    QCOMPARE(frame.size(), length + 2);
    QCOMPARE(CrsfProtocol::crc8(frame.constData() + 2, length - 1) == uint8_t(frame.back()), crcOk);

    const Frame carried{uint8_t(frame.at(2)), frame.mid(3, length - 2)};
    const uint8_t address = uint8_t(frame.at(0));
    const bool accepted = address == 0xC8 || address == 0xEA || address == 0xEE;

    CrsfProtocol verbatim;
    FrameRecorder verbatimFrames(verbatim);
    verbatim.feed(frame + filler());
    QCOMPARE(verbatimFrames.frames, (accepted && crcOk) ? QList<Frame>{carried} : QList<Frame>{});

    // Frames addressed with a byte we do not accept as sync (0x00, 0xEC) still carry
    // good payloads: the CRC does not cover the address, so a 0xC8 start makes them ours.
    QByteArray resynced = frame;
    resynced[0] = char(0xC8);
    CrsfProtocol parser;
    FrameRecorder frames(parser);
    parser.feed(resynced);
    QCOMPARE(frames.frames, crcOk ? QList<Frame>{carried} : QList<Frame>{});
}

void TestCrsfProtocol::independentRcPayloadsUnpackAndRepack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("leading");

    QTest::newRow("betaflight captured 0")
        << QStringLiteral("bf_rc_captured_0") << QList<int>{189, 993, 978, 983};
    QTest::newRow("betaflight captured 1")
        << QStringLiteral("bf_rc_captured_1") << QList<int>{189, 993, 978, 981};
    QTest::newRow("betaflight unpack bits")
        << QStringLiteral("bf_rc_unpack_bits")
        << QList<int>{2047, 31, 0, 172, 0, 992, 0, 1811, 0, 0, 0, 0, 0, 0, 0, 0};
    QTest::newRow("edgetx trainer") << QStringLiteral("edgetx_trainer_channels")
                                    << QList<int>{200,  300,  400,  500,  600,  700,  800,  900,
                                                  1000, 1100, 1200, 1300, 1400, 1500, 1600, 1700};
    QTest::newRow("extremes") << QStringLiteral("packed_extremes")
                              << QList<int>{172, 992, 1811, 0, 2047, 992};
}

void TestCrsfProtocol::independentRcPayloadsUnpackAndRepack()
{
    QFETCH(QString, name);
    QFETCH(QList<int>, leading);

    const QByteArray payload = vectorPayload(name);
    QCOMPARE(payload.size(), 22);
    const ChannelValues channels = crsftest::unpackChannels(payload);
    for (int i = 0; i < leading.size(); ++i)
        QCOMPARE(channels[i], leading[i]);

    const QByteArray rebuilt = CrsfProtocol::buildRcChannelsFrame(channels);
    QCOMPARE(rebuilt.mid(3, 22).toHex(), payload.toHex());
    // Frames that other projects addressed with 0xC8 match byte for byte, CRC included.
    const QByteArray original = vectorFrame(name);
    if (uint8_t(original.at(0)) == 0xC8)
        QCOMPARE(rebuilt.toHex(), original.toHex());
}

void TestCrsfProtocol::independentTelemetryMatchesTables()
{
    // The catalogue table's expected readings for these payloads are what other
    // implementations sent: the payloads must be the same bytes.
    QCOMPARE(vectorPayload(QStringLiteral("bf_gps_values")).toHex(), QByteArray(kGpsHex));
    QCOMPARE(vectorPayload(QStringLiteral("bf_battery_values")).toHex(), QByteArray(kBatteryHex));
    QCOMPARE(vectorPayload(QStringLiteral("bf_attitude_values")).toHex(), QByteArray(kAttitudeHex));

    QCOMPARE(CrsfProtocol::decodeBattery(vectorPayload(QStringLiteral("elrs_battery_1"))).voltage, 25.6f);
    QCOMPARE(CrsfProtocol::decodeBattery(vectorPayload(QStringLiteral("elrs_battery_0"))).voltage, 0.0f);
    const LinkStatistics stats =
        CrsfProtocol::decodeLinkStatistics(vectorPayload(QStringLiteral("edgetx_linkstats")));
    QCOMPARE(stats.uplinkRssi1, 0);
    QCOMPARE(stats.antenna, uint8_t(0xFF));
    QCOMPARE(stats.rfMode, uint8_t(1));
    QCOMPARE(stats.txPower, uint8_t(3));
}

void TestCrsfProtocol::independentExtendedFramesAnnounceAddresses()
{
    CrsfProtocol parser;
    QSignalSpy extended(&parser, &CrsfProtocol::extendedFrameReceived);
    QSignalSpy frames(&parser, &CrsfProtocol::frameReceived);

    // The ExpressLRS parameter read, as our builder makes it: same bytes after the address.
    const QByteArray read = vectorFrame(QStringLiteral("elrs_param_read"));
    QCOMPARE(CrsfProtocol::buildExtendedFrame(0x2C, 0x62, 0x6C, {}).mid(1).toHex(), read.mid(1).toHex());

    parser.feed(vectorFrame(QStringLiteral("elrs_device_info_0x29")));
    parser.feed(vectorFrame(QStringLiteral("bf_cmd_baud"))); // 0x32 is not one of the parameter types

    QCOMPARE(frames.count(), 2);
    QCOMPARE(extended.count(), 1);
    QCOMPARE(extended.at(0).at(0).value<uint8_t>(), uint8_t(0x29));
    QCOMPARE(extended.at(0).at(1).value<uint8_t>(), uint8_t(0xEE));
    QCOMPARE(extended.at(0).at(2).value<uint8_t>(), uint8_t(0xEC));
    QVERIFY(extended.at(0).at(3).toByteArray().startsWith("RadioMstr RP3"));
}

QTEST_GUILESS_MAIN(TestCrsfProtocol)
#include "tst_crsfprotocol.moc"
