#include "mdnsquery.h"
#include "mdnsresponder.h"

#include <QtTest>

using namespace tavrix;

namespace {

// Written out by hand rather than taken from the code under test.
const QByteArray kOurName = QByteArrayLiteral("\x16orvanelabs-transmitter\x05local\x00");
const QByteArray kOurNameInCapitals = QByteArrayLiteral("\x16ORVANELABS-TRANSMITTER\x05LOCAL\x00");
const QByteArray kOtherName = QByteArrayLiteral("\x07printer\x05local\x00");
constexpr quint16 kId = 0xBEEF;

QByteArray be16(quint16 value)
{
    return QByteArray().append(char(value >> 8)).append(char(value));
}

QByteArray question(const QByteArray &name, quint16 type = 1, quint16 questionClass = 1)
{
    return name + be16(type) + be16(questionClass);
}

QByteArray query(quint16 questionCount, const QByteArray &questions, quint16 flags = 0)
{
    return be16(kId) + be16(flags) + be16(questionCount) + QByteArray(6, '\0') + questions;
}

const QByteArray kWholeQuery = query(1, question(kOurName));

} // namespace

class TestMdnsQuery : public QObject
{
    Q_OBJECT
private slots:
    void answersOnlyARecordQuestionsForOurName_data()
    {
        QTest::addColumn<QByteArray>("datagram");
        QTest::addColumn<int>("answers");

        QTest::newRow("name in capitals") << query(1, question(kOurNameInCapitals)) << 1;
        QTest::newRow("ANY") << query(1, question(kOurName, 255)) << 1;
        QTest::newRow("unicast-response bit") << query(1, question(kOurName, 1, 0x8001)) << 1;
        QTest::newRow("AAAA") << query(1, question(kOurName, 28)) << 0;
        QTest::newRow("class CHAOS") << query(1, question(kOurName, 1, 3)) << 0;
        QTest::newRow("other name") << query(1, question(kOtherName)) << 0;
        QTest::newRow("our name followed by a further label")
            << query(1, question(kOurName.chopped(1) + QByteArrayLiteral("\x04evil\x00"))) << 0;
        QTest::newRow("second question ours") << query(2, question(kOtherName) + question(kOurName)) << 1;
        // The second name points back to the AAAA question for our name: answering it would
        // mean following compression, which a host-name responder does not do. The walk
        // still steps over the pointer to the third question.
        QTest::newRow("compressed name")
            << query(3, question(kOurName, 28) + question(QByteArrayLiteral("\xC0\x0C")) + question(kOurName))
            << 1;
        QTest::newRow("question count zero") << query(0, question(kOurName)) << 0;
        QTest::newRow("response") << query(1, question(kOurName), 0x8400) << 0;
        QTest::newRow("under 12 bytes") << query(1, {}).left(11) << 0;
        QTest::newRow("count beyond the datagram") << query(9, question(kOurName)) << 1;
        // Cut from a whole query, so reading past the end would find a valid class.
        QTest::newRow("our name without its class")
            << QByteArray::fromRawData(kWholeQuery.constData(), kWholeQuery.size() - 2) << 0;
    }

    void answersOnlyARecordQuestionsForOurName()
    {
        QFETCH(QByteArray, datagram);
        QFETCH(int, answers);
        const QList<quint16> ids = mdns::questionsForName(datagram, kOurName);
        QCOMPARE(ids, QList<quint16>(answers, kId));
    }

    void answerPacketMatchesTheWireLayout()
    {
        const QByteArray name =
            mdns::wireName(QString(MdnsResponder::kHubInstanceName) + QStringLiteral(".local"));
        QCOMPARE(name, kOurName);
        // ID 1234, response + authoritative, no questions, one answer; type A, class IN with
        // cache flush, TTL 120 s, four bytes of address: 10.77.0.1.
        const QByteArray expected = QByteArray::fromHex("1234 8400 0000 0001 0000 0000") + kOurName +
                                    QByteArray::fromHex("0001 8001 00000078 0004 0a4d0001");
        QCOMPARE(mdns::answerPacket(0x1234, name, 0x0A4D0001).toHex(' '), expected.toHex(' '));
    }
};

QTEST_GUILESS_MAIN(TestMdnsQuery)
#include "tst_mdnsquery.moc"
