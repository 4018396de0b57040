#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>

namespace tavrix {

// A firmware for the receiver V4, checked against its description and the chip it is for,
// ready to be written from the start of the flash.
struct ReceiverV4Image
{
    static constexpr uint32_t kFlashAddress = 0x08000000;
    static constexpr qint64 kMaxFirmwareBytes = 0x40000;

    // The firmware bytes padded with 0xFF to a multiple of 8 bytes (the flash's write unit).
    QByteArray bytes;
    // The firmware file's size before padding.
    qint64 fileSize = 0;
    // The version the description announces and the new firmware will report.
    QString version;
};

// Loads a firmware file and its description (the ".json" beside it, same base name) and
// refuses anything that is not a sane image for the receiver V4, with a user-facing reason.
// Neither file is read into memory when it is larger than such a file can be.
class ReceiverV4ImageLoader
{
    Q_DECLARE_TR_FUNCTIONS(ReceiverV4ImageLoader)
public:
    struct Result
    {
        std::optional<ReceiverV4Image> image;
        QString error;
    };

    [[nodiscard]] static QString descriptionPathFor(const QString &firmwarePath);
    [[nodiscard]] static Result load(const QString &firmwarePath);
    [[nodiscard]] static Result load(const QString &firmwarePath, const QString &descriptionPath);
    // The checks themselves, on what was read: the description's text, the firmware file's
    // size (-1 when it cannot be read) and its bytes (left unread, and so empty, when the
    // size is beyond any firmware's).
    [[nodiscard]] static Result check(const QByteArray &description, qint64 fileSize,
                                      const QByteArray &firmware);
};

} // namespace tavrix
