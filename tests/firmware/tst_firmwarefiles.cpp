#include "firmwaremanifest.h"
#include "uf2image.h"
#include "versioncompare.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QtEndian>

using namespace tavrix;
using namespace Qt::StringLiterals;

namespace {

const QString kHash = u"9f86d081884c7d659a2feaa0c55ad015a3bf4f1b2b0b822cd15d6c15b0f00a08"_s;
const QUrl kManifestUrl(u"http://127.0.0.1:8080/fw/manifest.json"_s);

QJsonObject goodEntry()
{
    return {{u"version"_s, u"4.4.0"_s},
            {u"notes"_s, u"Faster sync"_s},
            {u"url"_s, u"rx-4.4.0.bin"_s},
            {u"size"_s, 4096},
            {u"sha256"_s, kHash.toUpper()}};
}

QByteArray manifestWith(const QString &key, const QJsonValue &value)
{
    QJsonObject entry = goodEntry();
    if (value.isUndefined())
        entry.remove(key);
    else
        entry.insert(key, value);
    return QJsonDocument(QJsonObject{{u"devices"_s, QJsonObject{{u"receiver"_s, entry}}}}).toJson();
}

// A valid three-block RP2040 image with one word of one block changed (offset -1: none).
QByteArray uf2With(int block, int offset, quint32 value, qsizetype cut = 0)
{
    QByteArray image;
    for (quint32 i = 0; i < 3; ++i)
        image += Uf2Image::block(i, 3, 0x10000000 + i * 256, QByteArray(256, char('a' + i)));
    if (offset >= 0)
        qToLittleEndian(value, image.data() + block * Uf2Image::kBlockSize + offset);
    image.chop(cut);
    return image;
}

} // namespace

class TestFirmwareFiles : public QObject
{
    Q_OBJECT

private slots:
    void manifest_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("problemNames"); // empty: the manifest is accepted

        QTest::newRow("good") << manifestWith(u"hardware"_s, u"Orvane-V4-G0B1"_s) << QString();
        QTest::newRow("no version") << manifestWith(u"version"_s, QJsonValue::Undefined) << u"version"_s;
        QTest::newRow("no url") << manifestWith(u"url"_s, QJsonValue::Undefined) << u"url"_s;
        QTest::newRow("size missing") << manifestWith(u"size"_s, QJsonValue::Undefined) << u"size"_s;
        QTest::newRow("size zero") << manifestWith(u"size"_s, 0) << u"size"_s;
        QTest::newRow("size fractional") << manifestWith(u"size"_s, 10.5) << u"size"_s;
        QTest::newRow("size beyond any image") << manifestWith(u"size"_s, 17 * 1024 * 1024) << u"size"_s;
        QTest::newRow("hash missing") << manifestWith(u"sha256"_s, QJsonValue::Undefined) << u"sha256"_s;
        QTest::newRow("hash short") << manifestWith(u"sha256"_s, kHash.left(63)) << u"sha256"_s;
        QTest::newRow("hash not hex")
            << manifestWith(u"sha256"_s, QString(kHash).replace(0, 1, u"g"_s)) << u"sha256"_s;
        QTest::newRow("entry not an object")
            << QJsonDocument(QJsonObject{{u"devices"_s, QJsonObject{{u"soc"_s, 1}}}}).toJson() << u"soc"_s;
        QTest::newRow("no devices") << QByteArray(R"({"receiver": {}})") << u"devices"_s;
        QTest::newRow("not json") << QByteArray("<html>") << u"JSON"_s;
        QByteArray padded = manifestWith(u"notes"_s, QString(70 * 1024, u'x'));
        QTest::newRow("oversize") << padded << u"65536"_s;
    }

    void manifest()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, problemNames);

        const FirmwareManifest::Result parsed = FirmwareManifest::parse(json, kManifestUrl);
        if (!problemNames.isEmpty()) {
            QVERIFY(!parsed.manifest);
            QVERIFY2(parsed.error.contains(problemNames), qPrintable(parsed.error));
            return;
        }
        QVERIFY2(parsed.manifest, qPrintable(parsed.error));
        QVERIFY(!parsed.manifest->release(FirmwareDevice::Transmitter));
        const FirmwareRelease release = *parsed.manifest->release(FirmwareDevice::Receiver);
        QCOMPARE(release.imageUrl, QUrl(u"http://127.0.0.1:8080/fw/rx-4.4.0.bin"_s));
        QCOMPARE(release.sha256, kHash); // compared with a computed (lower-case) hash later
        QCOMPARE(release.size, 4096);
    }

    void uf2_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<bool>("valid");

        QTest::newRow("good") << uf2With(0, -1, 0) << true;
        QTest::newRow("first start magic") << uf2With(1, 0, 0x0A324654) << false;
        QTest::newRow("second start magic") << uf2With(2, 4, 0) << false;
        QTest::newRow("end magic") << uf2With(1, 508, 0x0AB16F31) << false;
        QTest::newRow("family flag cleared") << uf2With(1, 8, 0) << false;
        QTest::newRow("other family") << uf2With(0, 28, 0xADA52840) << false;
        QTest::newRow("payload over 476") << uf2With(2, 16, 477) << false;
        QTest::newRow("gap in block numbers") << uf2With(2, 20, 3) << false;
        QTest::newRow("block count disagrees") << uf2With(1, 24, 4) << false;
        QTest::newRow("short file") << uf2With(0, -1, 0, 1) << false;
        QTest::newRow("last block missing") << uf2With(0, -1, 0, Uf2Image::kBlockSize) << false;
        QTest::newRow("empty") << QByteArray() << false;
    }

    void uf2()
    {
        QFETCH(QByteArray, image);
        QFETCH(bool, valid);
        QCOMPARE(Uf2Image::validate(image).isEmpty(), valid);
    }

    void versions_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("order");

        QTest::newRow("numeric, not text") << u"4.10.0"_s << u"4.9.2"_s << 1;
        QTest::newRow("missing part is zero") << u"4.4"_s << u"4.4.0"_s << 0;
        QTest::newRow("older patch") << u"1.3.1"_s << u"1.3.2"_s << -1;
        QTest::newRow("suffix ignored") << u"2.0.1-beta"_s << u"2.0.1"_s << 0;
    }

    void versions()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, order);
        QCOMPARE(compareVersions(a, b), order);
        QCOMPARE(compareVersions(b, a), -order);
    }
};

QTEST_GUILESS_MAIN(TestFirmwareFiles)
#include "tst_firmwarefiles.moc"
