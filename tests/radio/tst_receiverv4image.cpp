#include "receiverv4image.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using tavrix::ReceiverV4ImageLoader;

namespace {

// A firmware of `size` bytes starting with its vector table (stack pointer, reset address).
QByteArray firmware(uint32_t stack, uint32_t reset, int size)
{
    QByteArray bytes(qMax(size, 8), '\x5A');
    qToLittleEndian(stack, bytes.data());
    qToLittleEndian(reset, bytes.data() + 4);
    return bytes.left(size);
}

const QByteArray kNoDescription = "(no description file)";
constexpr uint32_t kStack = 0x20010000;
constexpr uint32_t kReset = 0x08000041;

} // namespace

class TestReceiverV4Image : public QObject
{
    Q_OBJECT

private slots:
    // Each row breaks one rule (or several, where the order of the checks decides the reason).
    void loadsOnlySaneImages_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QJsonObject>("overrides"); // replaces keys of a matching description; null removes
        QTest::addColumn<QByteArray>("rawDescription");
        QTest::addColumn<QString>("error");
        QTest::addColumn<int>("paddedSize");

        const QByteArray good = firmware(kStack, kReset, 4096);
        const QString notFirmware = QStringLiteral("Not a Orvane receiver firmware (%1 0x%2).");
        const QString mismatch =
            QStringLiteral("The firmware file doesn't match its description (corrupted or wrong file).");
        const QString unreadable = QStringLiteral("The firmware description (.json) can't be read.");

        QTest::newRow("largest") << firmware(0x20024000, kReset, 262144) << QJsonObject() << QByteArray()
                                 << QString() << 262144;
        QTest::newRow("13 bytes padded")
            << firmware(kStack, 0x08000009, 13) << QJsonObject() << QByteArray() << QString() << 16;
        QTest::newRow("lowest reset")
            << firmware(kStack, 0x08000001, 64) << QJsonObject() << QByteArray() << QString() << 64;
        QTest::newRow("no description") << good << QJsonObject() << kNoDescription << unreadable << 0;
        QTest::newRow("description not an object")
            << good << QJsonObject() << QByteArray("[\"Orvane-V4-G0B1\"]") << unreadable << 0;
        QTest::newRow("hardware before checksum")
            << good
            << QJsonObject{{QStringLiteral("hardware"), QStringLiteral("Orvane-V3-F411")},
                           {QStringLiteral("sha256"), QStringLiteral("00")}}
            << QByteArray()
            << QStringLiteral("This firmware is for \"Orvane-V3-F411\", not a Orvane receiver V4.") << 0;
        QTest::newRow("flash address")
            << good << QJsonObject{{QStringLiteral("flash_address"), 0x08004000}} << QByteArray()
            << QStringLiteral("The firmware's flash address is not 0x08000000.") << 0;
        QTest::newRow("size") << good << QJsonObject{{QStringLiteral("size"), 4095}} << QByteArray()
                              << mismatch << 0;
        QTest::newRow("checksum before version")
            << good
            << QJsonObject{{QStringLiteral("sha256"), QString(64, QLatin1Char('0'))},
                           {QStringLiteral("version"), QJsonValue()}}
            << QByteArray() << mismatch << 0;
        QTest::newRow("version before size")
            << firmware(kStack, kReset, 7) << QJsonObject{{QStringLiteral("version"), QJsonValue()}}
            << QByteArray() << QStringLiteral("The firmware description has no version.") << 0;
        QTest::newRow("too small") << firmware(kStack, kReset, 7) << QJsonObject() << QByteArray()
                                   << QStringLiteral("The firmware file is too small.") << 0;
        QTest::newRow("too large") << firmware(kStack, kReset, 262145) << QJsonObject() << QByteArray()
                                   << QStringLiteral("The firmware file is larger than 256 KB.") << 0;
        QTest::newRow("stack above the RAM")
            << firmware(0x20024001, kReset, 64) << QJsonObject() << QByteArray()
            << notFirmware.arg(QStringLiteral("stack pointer"), QStringLiteral("20024001")) << 0;
        QTest::newRow("stack at the RAM's start")
            << firmware(0x20000000, kReset, 64) << QJsonObject() << QByteArray()
            << notFirmware.arg(QStringLiteral("stack pointer"), QStringLiteral("20000000")) << 0;
        QTest::newRow("even reset") << firmware(kStack, 0x08000000, 64) << QJsonObject() << QByteArray()
                                    << notFirmware.arg(QStringLiteral("reset address"),
                                                       QStringLiteral("08000000"))
                                    << 0;
        QTest::newRow("reset beyond the image")
            << firmware(kStack, 0x08000041, 64) << QJsonObject() << QByteArray()
            << notFirmware.arg(QStringLiteral("reset address"), QStringLiteral("08000041")) << 0;
    }

    void loadsOnlySaneImages()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QJsonObject, overrides);
        QFETCH(QByteArray, rawDescription);
        QFETCH(QString, error);
        QFETCH(int, paddedSize);

        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString firmwarePath = dir.filePath(QStringLiteral("rx-v4.bin"));
        QFile firmwareFile(firmwarePath);
        QVERIFY(firmwareFile.open(QIODevice::WriteOnly));
        QCOMPARE(firmwareFile.write(bytes), bytes.size());
        firmwareFile.close();

        QJsonObject description{
            {QStringLiteral("hardware"), QStringLiteral("Orvane-V4-G0B1")},
            {QStringLiteral("flash_address"), 0x08000000},
            {QStringLiteral("size"), bytes.size()},
            {QStringLiteral("sha256"),
             QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex())},
            {QStringLiteral("version"), QStringLiteral("4.4.0")},
        };
        for (auto it = overrides.constBegin(); it != overrides.constEnd(); ++it) {
            if (it.value().isNull())
                description.remove(it.key());
            else
                description.insert(it.key(), it.value());
        }
        if (rawDescription != kNoDescription) {
            QFile descriptionFile(dir.filePath(QStringLiteral("rx-v4.json")));
            QVERIFY(descriptionFile.open(QIODevice::WriteOnly));
            descriptionFile.write(rawDescription.isEmpty() ? QJsonDocument(description).toJson()
                                                           : rawDescription);
        }

        const ReceiverV4ImageLoader::Result result = ReceiverV4ImageLoader::load(firmwarePath);
        QCOMPARE(result.error, error);
        QCOMPARE(result.image.has_value(), error.isEmpty());
        if (!result.image)
            return;
        QCOMPARE(result.image->bytes.size(), paddedSize);
        QCOMPARE(result.image->bytes.left(bytes.size()), bytes);
        QCOMPARE(result.image->bytes.mid(bytes.size()), QByteArray(paddedSize - bytes.size(), char(0xFF)));
        QCOMPARE(result.image->fileSize, bytes.size());
        QCOMPARE(result.image->version, QStringLiteral("4.4.0"));
    }
};

QTEST_GUILESS_MAIN(TestReceiverV4Image)
#include "tst_receiverv4image.moc"
