#include "elrsfield.h"

#include <QTest>

using namespace tavrix::elrs;
using Kind = FieldLine::Kind;

Q_DECLARE_METATYPE(tavrix::elrs::FieldLine::Kind)

namespace {

QStringList labels(const char *joined)
{
    return QString::fromLatin1(joined).split(QLatin1Char(';'));
}

} // namespace

class TestElrsField : public QObject
{
    Q_OBJECT

private slots:
    void walkLine_data();
    void walkLine();
    void settingsEntry_data();
    void settingsEntry();
};

void TestElrsField::walkLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("fieldId");
    QTest::addColumn<QByteArray>("bytes"); // hex

    QTest::newRow("field") << "FIELD 3: 00 0B 41 00" << Kind::Data << 3 << QByteArray("000b4100");
    // Printable bytes of a binary frame land in front of the next text line.
    QTest::newRow("frame bytes before it")
        << "(x!FIELD 12 :  00   0b 41 00 " << Kind::Data << 12 << QByteArray("000b4100");
    QTest::newRow("read failed") << "FIELD 7: (read failed)" << Kind::ReadFailed << 7 << QByteArray();
    QTest::newRow("no colon") << "FIELD 7 00 09" << Kind::MissingColon << -1 << QByteArray();
    QTest::newRow("id not a number") << "FIELD x7: 00 09" << Kind::MalformedId << -1 << QByteArray();
    QTest::newRow("id signed") << "FIELD -7: 00 09" << Kind::MalformedId << -1 << QByteArray();
    QTest::newRow("not hex") << "FIELD 2: 00 ZZ 41" << Kind::UnparseableHex << 2 << QByteArray();
    QTest::newRow("above a byte") << "FIELD 2: 00 100 41" << Kind::UnparseableHex << 2 << QByteArray();
    QTest::newRow("no field") << "WALK: done" << Kind::NotAField << -1 << QByteArray();
    // The header "03 09 'Max' NUL" twice: the field is read from its second copy.
    QTest::newRow("repeated header")
        << "FIELD 4: 03 09 4D 61 78 00 03 09 4D 61 78 00 31 3B 32 00 01 00 01 00 00" << Kind::Data << 4
        << QByteArray("03094d617800313b32000100010000");
    // Without a name there is no header to find again; nothing is dropped.
    QTest::newRow("nameless not cut")
        << "FIELD 5: 00 0B 00 00 0B 00" << Kind::Data << 5 << QByteArray("000b00000b00");
    QTest::newRow("header once") << "FIELD 6: 00 09 41 00 00 09 41" << Kind::Data << 6
                                 << QByteArray("00094100000941");
}

void TestElrsField::walkLine()
{
    QFETCH(QString, line);
    QFETCH(Kind, kind);
    QFETCH(int, fieldId);
    QFETCH(QByteArray, bytes);

    const FieldLine parsed = parseFieldLine(line);
    QCOMPARE(parsed.kind, kind);
    QCOMPARE(parsed.fieldId, fieldId);
    QCOMPARE(parsed.bytes.toHex(), bytes);
}

void TestElrsField::settingsEntry_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("data"); // after parent and type
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("values"); // current, minimum, maximum, default; empty when unset
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("units");
    QTest::addColumn<bool>("readOnly");

    const QList<int> unset;
    QTest::newRow("uint8") << int(Uint8) << QByteArray("Rate\0\x32\x0a\x64\x32", 9) << "Rate"
                           << QList<int>{50, 10, 100, 50} << QStringList() << QString() << false;
    QTest::newRow("int8 signed") << int(Int8) << QByteArray("Trim\0\xfb\x80\x7f\x00", 9) << "Trim"
                                 << QList<int>{-5, -128, 127, 0} << QStringList() << QString() << false;
    QTest::newRow("uint8 short") << int(Uint8) << QByteArray("Rate\0\x32\x0a\x64", 8) << "Rate" << unset
                                 << QStringList() << QString() << true;
    QTest::newRow("selection") << int(TextSelection)
                               << QByteArray("Power\0"
                                             "10;;25\0\x02\x00\x02\x01mW\0",
                                             20)
                               << "Power" << QList<int>{2, 0, 2, 1} << labels("10;;25") << "mW" << false;
    QTest::newRow("selection cut in options") << int(TextSelection)
                                              << QByteArray("Power\0"
                                                            "10;2",
                                                            10)
                                              << "Power" << unset << labels("10;2") << QString() << true;
    QTest::newRow("selection name only") << int(TextSelection) << QByteArray("Power", 5) << "Power" << unset
                                         << QStringList() << QString() << true;
    QTest::newRow("info") << int(Info)
                          << QByteArray("Version\0\0\0"
                                        "3.4.1\0",
                                        16)
                          << "Version" << unset << QStringList() << "3.4.1" << true;
    QTest::newRow("unknown type") << 0x2A << QByteArray("Odd\0\x01\x02\x03\x04", 8) << "Odd" << unset
                                  << QStringList() << QString() << true;
}

void TestElrsField::settingsEntry()
{
    QFETCH(int, type);
    QFETCH(QByteArray, data);
    QFETCH(QString, name);
    QFETCH(QList<int>, values);
    QFETCH(QStringList, options);
    QFETCH(QString, units);
    QFETCH(bool, readOnly);

    const Parameter p = decodeSettingsEntry(9, 3, uint8_t(type), data);
    QCOMPARE(p.name, name);
    QCOMPARE(p.parent, uint8_t(3));
    QCOMPARE(p.type, uint8_t(type));
    QList<int> decoded;
    for (const std::optional<int> &v : {p.value, p.minimum, p.maximum, p.defaultValue}) {
        if (v)
            decoded.append(*v);
    }
    QCOMPARE(decoded, values);
    QStringList labels;
    for (const Option &o : p.options) {
        QCOMPARE(o.index, labels.size());
        labels.append(o.label);
    }
    QCOMPARE(labels, options);
    QCOMPARE(p.units, units);
    QCOMPARE(p.readOnly, readOnly);
}

QTEST_GUILESS_MAIN(TestElrsField)
#include "tst_elrsfield.moc"
