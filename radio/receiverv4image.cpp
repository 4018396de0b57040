#include "receiverv4image.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

namespace tavrix {

namespace {

const QString kHardware = QStringLiteral("Orvane-V4-G0B1");

// A description is a handful of keys; anything much larger is not one.
constexpr qint64 kMaxDescriptionBytes = 64 * 1024;
constexpr qint64 kMinFirmwareBytes = 8; // the stack pointer and the reset address

// The STM32G0B1's 144 KB of RAM: the initial stack pointer lies above its start, at most at its end.
constexpr uint32_t kLowestStackPointer = 0x20000001;
constexpr uint32_t kHighestStackPointer = 0x20024000;

constexpr qsizetype kWriteUnit = 8;

std::optional<QJsonObject> parseDescription(const QByteArray &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        return std::nullopt;
    return document.object();
}

// The address may be written as a JSON number or as a hexadecimal text ("0x08000000").
bool isFlashAddress(const QJsonValue &value)
{
    if (value.isDouble())
        return value.toDouble() == double(ReceiverV4Image::kFlashAddress);
    bool ok = false;
    const qulonglong address = value.toString().toULongLong(&ok, 0);
    return ok && address == ReceiverV4Image::kFlashAddress;
}

// True when the file has the size and SHA-256 the description gives. Files too large to be a
// firmware are only compared by size: they are refused by their size anyway and never read.
bool matchesDescription(qint64 fileSize, const QByteArray &contents, const QJsonObject &description)
{
    const QJsonValue size = description.value(QLatin1String("size"));
    if (fileSize < 0 || !size.isDouble() || size.toDouble() != double(fileSize))
        return false;
    if (fileSize > ReceiverV4Image::kMaxFirmwareBytes)
        return true;
    if (contents.size() != fileSize)
        return false;
    const QByteArray sha = QCryptographicHash::hash(contents, QCryptographicHash::Sha256).toHex();
    return description.value(QLatin1String("sha256")).toString().toLower().toLatin1() == sha;
}

// The description's text; empty when it cannot be read or is larger than a description can be.
QByteArray readDescription(const QString &path)
{
    QFile file(path);
    if (QFileInfo(path).size() > kMaxDescriptionBytes || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(kMaxDescriptionBytes);
}

// The firmware's size and, when it can be a firmware's, its bytes; the size is -1 when the
// file cannot be read.
qint64 readFirmware(const QString &path, QByteArray &contents)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return -1;
    if (info.size() > ReceiverV4Image::kMaxFirmwareBytes)
        return info.size();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    contents = file.read(ReceiverV4Image::kMaxFirmwareBytes);
    return contents.size() == info.size() ? info.size() : -1;
}

QString hex32(uint32_t value)
{
    return QStringLiteral("%1").arg(value, 8, 16, QLatin1Char('0')).toUpper();
}

} // namespace

QString ReceiverV4ImageLoader::descriptionPathFor(const QString &firmwarePath)
{
    const QFileInfo info(firmwarePath);
    return info.dir().filePath(info.completeBaseName() + QLatin1String(".json"));
}

ReceiverV4ImageLoader::Result ReceiverV4ImageLoader::load(const QString &firmwarePath)
{
    return load(firmwarePath, descriptionPathFor(firmwarePath));
}

ReceiverV4ImageLoader::Result ReceiverV4ImageLoader::load(const QString &firmwarePath,
                                                          const QString &descriptionPath)
{
    QByteArray contents;
    const qint64 fileSize = readFirmware(firmwarePath, contents);
    return check(readDescription(descriptionPath), fileSize, contents);
}

ReceiverV4ImageLoader::Result ReceiverV4ImageLoader::check(const QByteArray &descriptionText, qint64 fileSize,
                                                           const QByteArray &firmware)
{
    const auto refuse = [](const QString &error) { return Result{std::nullopt, error}; };

    const std::optional<QJsonObject> description = parseDescription(descriptionText);
    if (!description)
        return refuse(tr("The firmware description (.json) can't be read."));
    const QString hardware = description->value(QLatin1String("hardware")).toString();
    if (hardware != kHardware)
        return refuse(tr("This firmware is for \"%1\", not a Orvane receiver V4.").arg(hardware));
    if (!isFlashAddress(description->value(QLatin1String("flash_address"))))
        return refuse(tr("The firmware's flash address is not 0x08000000."));
    if (!matchesDescription(fileSize, firmware, *description))
        return refuse(tr("The firmware file doesn't match its description (corrupted or wrong file)."));
    const QString version = description->value(QLatin1String("version")).toString();
    if (version.isEmpty())
        return refuse(tr("The firmware description has no version."));
    if (fileSize < kMinFirmwareBytes)
        return refuse(tr("The firmware file is too small."));
    if (fileSize > ReceiverV4Image::kMaxFirmwareBytes)
        return refuse(tr("The firmware file is larger than 256 KB."));

    // A Cortex-M vector table: the initial stack pointer, then the reset handler's Thumb address.
    const uint32_t stack = qFromLittleEndian<uint32_t>(firmware.constData());
    if (stack < kLowestStackPointer || stack > kHighestStackPointer)
        return refuse(tr("Not a Orvane receiver firmware (stack pointer 0x%1).").arg(hex32(stack)));
    const uint32_t reset = qFromLittleEndian<uint32_t>(firmware.constData() + 4);
    const uint32_t handler = reset & ~1u;
    const bool thumb = (reset & 1u) != 0;
    if (!thumb || handler < ReceiverV4Image::kFlashAddress ||
        handler >= ReceiverV4Image::kFlashAddress + uint32_t(fileSize))
        return refuse(tr("Not a Orvane receiver firmware (reset address 0x%1).").arg(hex32(reset)));

    QByteArray bytes = firmware;
    bytes.append((kWriteUnit - bytes.size() % kWriteUnit) % kWriteUnit, char(0xFF));
    return Result{ReceiverV4Image{bytes, fileSize, version}, QString()};
}

} // namespace tavrix
