#include "bridgestreamsplitter.h"
#include "crsftestcodec.h"
#include "crsfwire.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTest>

using tavrix::sim::BridgeStreamSplitter;
namespace crsfwire = tavrix::sim::crsfwire;
using Kind = BridgeStreamSplitter::Item::Kind;

// The simulator's own CRSF framing against frames from independent implementations
// and against the tests' packer, and its stream splitter against hostile byte streams.
class TestSimWire : public QObject
{
    Q_OBJECT
private slots:
    void crcAgreesWithIndependentFrames_data()
    {
        QTest::addColumn<QByteArray>("frame");
        const QJsonArray all = vectors();
        QVERIFY2(!all.isEmpty(), "the CRSF frames (tests/data/crsf/vectors.json) are missing");
        for (const QJsonValue &v : all) {
            const QJsonObject o = v.toObject();
            if (o.value(QStringLiteral("crc_ok")).toBool())
                QTest::newRow(qPrintable(o.value(QStringLiteral("name")).toString()))
                    << QByteArray::fromHex(o.value(QStringLiteral("hex")).toString().toLatin1());
        }
    }

    void crcAgreesWithIndependentFrames()
    {
        QFETCH(QByteArray, frame);
        const int len = uint8_t(frame[1]);
        QCOMPARE(frame.size(), len + 2);
        QCOMPARE(crsfwire::crc8(QByteArrayView(frame).sliced(2, len - 1)), uint8_t(frame.back()));
        QCOMPARE(crsftest::crc8(QByteArrayView(frame).sliced(2, len - 1)), uint8_t(frame.back()));
        // Rebuilding from type and payload gives the same bytes (address kept).
        QCOMPARE(crsfwire::buildFrame(uint8_t(frame[2]), QByteArrayView(frame).sliced(3, len - 2),
                                      uint8_t(frame[0])),
                 frame);
    }

    void unpacksWhatTheTestPackerPacks()
    {
        QRandomGenerator rng(7);
        for (int round = 0; round < 200; ++round) {
            crsftest::Channels sent{};
            for (int32_t &v : sent)
                v = int32_t(rng.bounded(2048));
            const QByteArray frame = crsftest::channelFrame(sent);
            QVERIFY(crsfwire::isValidFrame(frame));
            const auto got = crsfwire::unpackChannels(QByteArrayView(frame).sliced(3));
            QVERIFY(got.has_value());
            QCOMPARE(*got, sent);
        }
        QVERIFY(!crsfwire::unpackChannels(QByteArray(21, '\0')).has_value());
    }

    void splitterFindsFramesAndLines_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<int>("chunkSize");    // 0: all at once
        QTest::addColumn<QString>("expected"); // F<type> for a frame, L<text> for a line, | between

        const QByteArray channels = crsftest::channelFrame(
            {992, 992, 992, 992, 992, 992, 992, 992, 992, 992, 992, 992, 992, 992, 992, 992});
        crsftest::Channels ramp{};
        for (int i = 0; i < 16; ++i)
            ramp[size_t(i)] = 200 + 100 * i; // packs a 0xC8 into the payload
        const QByteArray rampFrame = crsftest::channelFrame(ramp);
        QByteArray badCrc = channels;
        badCrc.back() = char(badCrc.back() ^ 0x01);

        QTest::newRow("CR LF line end") << QByteArray("CFGMODE ON\r\n") << 0 << QStringLiteral("LCFGMODE ON");
        QTest::newRow("frame then command") << channels + "STOP\n" << 0 << QStringLiteral("F16|LSTOP");
        QTest::newRow("one byte at a time")
            << channels + "STOP\n" + channels << 1 << QStringLiteral("F16|LSTOP|F16");
        QTest::newRow("payload holding a sync byte")
            << rampFrame + rampFrame << 3 << QStringLiteral("F16|F16");
        QTest::newRow("binary noise before frame")
            << QByteArray::fromHex("00ff8081fe") + channels << 0 << QStringLiteral("F16");
        QTest::newRow("bad CRC frame, then good") << badCrc + channels << 0 << QStringLiteral("F16");
        QTest::newRow("printable noise before frame is no command")
            << QByteArray("xyz") + channels + "START\n"
            << 0 << QStringLiteral("F16|LSTART");
        QTest::newRow("binary byte breaks a line") << QByteArray("STA\x01RT\n") << 0 << QStringLiteral("LRT");
        QTest::newRow("over-long line is cut") << QByteArray(200, 'A') + "\n"
                                               << 0 << QStringLiteral("L") + QString(128, QLatin1Char('A'));
    }

    void splitterFindsFramesAndLines()
    {
        QFETCH(QByteArray, stream);
        QFETCH(int, chunkSize);
        QFETCH(QString, expected);

        BridgeStreamSplitter splitter;
        QList<BridgeStreamSplitter::Item> items;
        const int step = chunkSize > 0 ? chunkSize : int(stream.size());
        for (qsizetype i = 0; i < stream.size(); i += step)
            items +=
                splitter.feed(QByteArrayView(stream).sliced(i, qMin<qsizetype>(step, stream.size() - i)));

        QStringList got;
        for (const auto &item : items) {
            if (item.kind == Kind::Frame) {
                QVERIFY(crsftest::crc8(QByteArrayView(item.bytes).sliced(2, item.bytes.size() - 3)) ==
                        uint8_t(item.bytes.back()));
                got.append(QStringLiteral("F%1").arg(uint8_t(item.bytes[2]), 2, 16, QLatin1Char('0')));
            } else if (item.kind == Kind::Line) {
                got.append(QLatin1Char('L') + QString::fromLatin1(item.bytes));
            }
        }
        QCOMPARE(got.join(QLatin1Char('|')), expected);
        QVERIFY(!splitter.hasPartialFrame());
    }

    void splitterRecoversFromRandomNoise()
    {
        BridgeStreamSplitter splitter;
        QRandomGenerator rng(11);
        QByteArray noise(100000, Qt::Uninitialized);
        for (char &c : noise)
            c = char(rng.bounded(256));
        qsizetype garbage = 0;
        for (qsizetype i = 0; i < noise.size(); i += 997) {
            for (const auto &item :
                 splitter.feed(QByteArrayView(noise).sliced(i, qMin<qsizetype>(997, noise.size() - i))))
                garbage += item.kind == Kind::Garbage ? item.bytes.size() : 0;
        }
        // Whatever random bytes did, a good frame fed after them comes out.
        const QByteArray good =
            crsftest::channelFrame({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
        QList<BridgeStreamSplitter::Item> items = splitter.feed(good);
        while (splitter.hasPartialFrame())
            items += splitter.abandonPartialFrame();
        QVERIFY(std::any_of(items.cbegin(), items.cend(), [&](const auto &item) {
            return item.kind == Kind::Frame && item.bytes == good;
        }));
        QVERIFY(garbage > noise.size() / 2);
    }

private:
    static QJsonArray vectors()
    {
        QFile f(QStringLiteral(ORVANE_TEST_DATA_DIR "/crsf/vectors.json"));
        if (!f.open(QIODevice::ReadOnly))
            return {};
        return QJsonDocument::fromJson(f.readAll()).array();
    }
};

QTEST_GUILESS_MAIN(TestSimWire)
#include "tst_simwire.moc"
