#include "receiverlinesplitter.h"
#include "transmitterlinesplitter.h"

#include <QTest>

using tavrix::ReceiverLineSplitter;
using tavrix::TransmitterLineSplitter;

using Chunks = QList<QByteArray>;

// A printable run in which every position is recognisable, so a kept tail can be
// checked to be exactly the newest bytes.
static QByteArray printablePattern(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = char(0x21 + (i % 0x5E)); // '!' .. '~'
    return bytes;
}

class TestTransmitterLineSplitter : public QObject
{
    Q_OBJECT
private slots:
    void splitsLines_data();
    void splitsLines();
    void splitsReceiverLines_data();
    void splitsReceiverLines();
};

void TestTransmitterLineSplitter::splitsLines_data()
{
    QTest::addColumn<Chunks>("chunks");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QByteArray>("pending");

    // Betaflight's attitude test frame: its printable bytes are ". 9 e Z".
    const QByteArray attitudeFrame = QByteArray::fromHex("c8081e2e3965ec855a05");
    // Betaflight's battery test frame: its length byte is 0x0A, a line feed.
    const QByteArray batteryFrame = QByteArray::fromHex("c80a08002101280004d243b2");

    QTest::newRow("LF line") << Chunks{"hello\n"} << QStringList{QStringLiteral("hello")} << QByteArray();
    QTest::newRow("CR LF line") << Chunks{"OK\r\n"} << QStringList{QStringLiteral("OK")} << QByteArray();
    QTest::newRow("no LF yet") << Chunks{"abc"} << QStringList{} << QByteArray("abc");
    QTest::newRow("LF in a later chunk")
        << Chunks{"abc", "def\n"} << QStringList{QStringLiteral("abcdef")} << QByteArray();
    QTest::newRow("CR and LF in separate chunks")
        << Chunks{"OK\r", "\n"} << QStringList{QStringLiteral("OK")} << QByteArray();
    QTest::newRow("only one trailing CR dropped")
        << Chunks{"x\r\r\n"} << QStringList{QStringLiteral("x\r")} << QByteArray();
    QTest::newRow("CR inside a line kept")
        << Chunks{"a\rb\n"} << QStringList{QStringLiteral("a\rb")} << QByteArray();
    QTest::newRow("several lines, empty ones skipped")
        << Chunks{"one\ntwo\r\n\n\r\nthree\nrest"}
        << QStringList{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}
        << QByteArray("rest");
    QTest::newRow("frame then CR LF line: printable frame bytes prefix the line")
        << Chunks{attitudeFrame + "OK\r\n"} << QStringList{QStringLiteral(".9eZOK")} << QByteArray();
    QTest::newRow("frame whose length byte is LF")
        << Chunks{batteryFrame + "OK\r\n"} << QStringList{QStringLiteral("!(COK")} << QByteArray();
    QTest::newRow("control, DEL and high bytes dropped")
        << Chunks{QByteArray("a\x01\x7f\x80\xff\tb\n")} << QStringList{QStringLiteral("ab")} << QByteArray();
    QTest::newRow("line of only binary bytes is empty")
        << Chunks{QByteArray("\x00\x01\x02\n", 4)} << QStringList{} << QByteArray();
    QTest::newRow("binary between chunks never ends a line")
        << Chunks{"PAR", QByteArray::fromHex("0000c8"), "AM\n"} << QStringList{QStringLiteral("PARAM")}
        << QByteArray();

    // The buffer is bounded: past 8 KiB without a line feed only the newest 4 KiB are kept.
    const QByteArray full = printablePattern(8192);
    const QByteArray over = printablePattern(8193);
    const QByteArray big = printablePattern(9000);

    QTest::newRow("8192 bytes are kept") << Chunks{full} << QStringList{} << full;
    QTest::newRow("8193 bytes keep the newest 4096") << Chunks{over} << QStringList{} << over.right(4096);
    QTest::newRow("overflow reached over several chunks")
        << Chunks{big.left(5000), big.mid(5000)} << QStringList{} << big.right(4096);
    QTest::newRow("line after overflow carries the kept tail")
        << Chunks{big, "Z\n"} << QStringList{QString::fromLatin1(big.right(4096) + "Z")} << QByteArray();
    QTest::newRow("bound applies after the lines are taken")
        << Chunks{"x\n" + big} << QStringList{QStringLiteral("x")} << big.right(4096);
    QTest::newRow("a finished long line is not trimmed")
        << Chunks{big + "\n"} << QStringList{QString::fromLatin1(big)} << QByteArray();
    QTest::newRow("dropped bytes do not count")
        << Chunks{QByteArray(20000, '\0')} << QStringList{} << QByteArray();
}

void TestTransmitterLineSplitter::splitsLines()
{
    QFETCH(Chunks, chunks);
    QFETCH(QStringList, lines);
    QFETCH(QByteArray, pending);

    TransmitterLineSplitter splitter;
    QStringList got;
    for (const QByteArray &chunk : chunks)
        got += splitter.feed(chunk);
    QCOMPARE(got, lines);
    QCOMPARE(splitter.pending(), pending);
}

void TestTransmitterLineSplitter::splitsReceiverLines_data()
{
    QTest::addColumn<Chunks>("chunks");
    QTest::addColumn<QStringList>("lines");

    const qsizetype max = ReceiverLineSplitter::kMaxLineLength;
    const QByteArray longLine = printablePattern(max + 300);

    QTest::newRow("split mid-line and between CR and LF")
        << Chunks{"Orv", "ane: 4.4.3\r", "\nTELEM:OSD=1", "\n"}
        << QStringList{QStringLiteral("Orvane: 4.4.3"), QStringLiteral("TELEM:OSD=1")};
    QTest::newRow("CR alone ends a line")
        << Chunks{"GPS_OK 1\rOSD 0\r"} << QStringList{QStringLiteral("GPS_OK 1"), QStringLiteral("OSD 0")};
    QTest::newRow("unfinished line waits") << Chunks{"abc"} << QStringList{};
    QTest::newRow("line of exactly the limit is whole")
        << Chunks{longLine.left(max) + "\n"} << QStringList{QString::fromLatin1(longLine.left(max))};
    QTest::newRow("over-long line is cut, the next one whole")
        << Chunks{longLine.left(400), longLine.mid(400), "\r\nNEXT\n"}
        << QStringList{QString::fromLatin1(longLine.left(max)), QStringLiteral("NEXT")};
    QTest::newRow("endless garbage stays bounded, then a line")
        << Chunks{QByteArray(100000, 'x'), "\nOK\n"}
        << QStringList{QString(max, QLatin1Char('x')), QStringLiteral("OK")};
}

void TestTransmitterLineSplitter::splitsReceiverLines()
{
    QFETCH(Chunks, chunks);
    QFETCH(QStringList, lines);

    ReceiverLineSplitter splitter;
    QStringList got;
    for (const QByteArray &chunk : chunks)
        got += splitter.feed(chunk);
    QCOMPARE(got, lines);
}

QTEST_APPLESS_MAIN(TestTransmitterLineSplitter)
#include "tst_transmitterlinesplitter.moc"
