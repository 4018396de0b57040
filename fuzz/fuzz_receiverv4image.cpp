// Fuzzes the receiver V4 image loader: what it accepts is all that ever reaches the board's
// flash. The first byte picks how the rest is used:
// - bit 0 clear: the rest is the firmware, with a description that matches it (its true size
//   and SHA-256, so the checks behind the checksum are reached at all); bits 1..4 spoil one
//   field of that description each, bit 5 claims a file larger than any firmware;
// - bit 0 set: the rest is a description and a firmware of the fuzzer's own, split at the
//   first NUL byte.
// An accepted image must be the firmware itself padded with 0xFF to whole write units, no
// larger than the flash share, with a vector table the chip can start; a refusal must give
// its reason, and never both.

#include "receiverv4image.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <cstdio>
#include <cstdlib>

using namespace tavrix;

namespace {

constexpr uint32_t kLowestStackPointer = 0x20000001;
constexpr uint32_t kHighestStackPointer = 0x20024000;
constexpr qsizetype kWriteUnit = 8;

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_receiverv4image: %s\n", what);
    std::abort();
}

QByteArray matchingDescription(const QByteArray &firmware, uint8_t spoil)
{
    QJsonObject description{
        {QStringLiteral("hardware"), QStringLiteral("Orvane-V4-G0B1")},
        {QStringLiteral("flash_address"), QStringLiteral("0x08000000")},
        {QStringLiteral("size"), double(firmware.size())},
        {QStringLiteral("sha256"),
         QString::fromLatin1(QCryptographicHash::hash(firmware, QCryptographicHash::Sha256).toHex())},
        {QStringLiteral("version"), QStringLiteral("4.4.0")},
    };
    if (spoil & 0x02)
        description.insert(QStringLiteral("hardware"), QStringLiteral("Orvane-V3-F411"));
    if (spoil & 0x04)
        description.insert(QStringLiteral("flash_address"), 0x08004000);
    if (spoil & 0x08)
        description.remove(QStringLiteral("version"));
    if (spoil & 0x10)
        description.insert(QStringLiteral("size"), double(firmware.size() + 1));
    return QJsonDocument(description).toJson(QJsonDocument::Compact);
}

void checkAccepted(const ReceiverV4Image &image, qint64 fileSize, const QByteArray &firmware)
{
    if (fileSize != firmware.size())
        fail("an image accepted whose file was not read whole");
    if (image.fileSize != fileSize || image.version.isEmpty())
        fail("an image accepted with the wrong size or no version");
    if (image.bytes.size() % kWriteUnit != 0 || image.bytes.size() - fileSize >= kWriteUnit ||
        image.bytes.size() < fileSize)
        fail("an image accepted that is not padded to whole write units");
    if (image.bytes.size() > ReceiverV4Image::kMaxFirmwareBytes)
        fail("an image accepted that is larger than the flash share");
    if (!image.bytes.startsWith(firmware) ||
        image.bytes.mid(fileSize).count(char(0xFF)) != image.bytes.size() - fileSize)
        fail("an image accepted that is not the firmware padded with 0xFF");
    const uint32_t stack = qFromLittleEndian<uint32_t>(image.bytes.constData());
    if (stack < kLowestStackPointer || stack > kHighestStackPointer)
        fail("an image accepted with its stack pointer outside the RAM");
    const uint32_t reset = qFromLittleEndian<uint32_t>(image.bytes.constData() + 4);
    if ((reset & 1u) == 0 || (reset & ~1u) < ReceiverV4Image::kFlashAddress ||
        (reset & ~1u) >= ReceiverV4Image::kFlashAddress + uint32_t(fileSize))
        fail("an image accepted whose reset address is not Thumb code inside it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const uint8_t mode = data[0];
    const QByteArray rest(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));

    QByteArray description;
    QByteArray firmware;
    qint64 fileSize = 0;
    if (mode & 0x01) {
        const qsizetype split = rest.indexOf('\0');
        description = split < 0 ? rest : rest.left(split);
        firmware = split < 0 ? QByteArray() : rest.mid(split + 1);
        fileSize = firmware.size();
    } else {
        firmware = rest;
        fileSize = (mode & 0x20) ? ReceiverV4Image::kMaxFirmwareBytes + 1 + firmware.size() : firmware.size();
        description = matchingDescription(firmware, mode);
    }

    const ReceiverV4ImageLoader::Result result =
        ReceiverV4ImageLoader::check(description, fileSize, firmware);
    if (result.image.has_value() == !result.error.isEmpty())
        fail("an image both accepted and refused, or neither");
    if (result.image)
        checkAccepted(*result.image, fileSize, firmware);
    return 0;
}
