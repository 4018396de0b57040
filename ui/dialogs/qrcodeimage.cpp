#include "qrcodeimage.h"

#include <QPainter>

#include <qrencode.h>

#include <memory>

namespace tavrix {

namespace {

// Scanners need this much blank margin around the code to find it.
constexpr int kQuietZoneModules = 4;

struct QrCodeDeleter
{
    void operator()(QRcode *code) const { QRcode_free(code); }
};

} // namespace

QImage qrCodeImage(const QString &text, int moduleSize)
{
    const QByteArray utf8 = text.toUtf8();
    if (utf8.isEmpty() || moduleSize <= 0)
        return {};
    // Medium error correction: a phone held at an angle to a screen still reads it.
    const std::unique_ptr<QRcode, QrCodeDeleter> code(
        QRcode_encodeString8bit(utf8.constData(), 0, QR_ECLEVEL_M));
    if (!code)
        return {};
    const int modules = code->width + 2 * kQuietZoneModules;
    QImage image(modules * moduleSize, modules * moduleSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int y = 0; y < code->width; ++y) {
        for (int x = 0; x < code->width; ++x) {
            // Bit 0 of each byte is the module's colour; the others are libqrencode's bookkeeping.
            if (code->data[y * code->width + x] & 1)
                painter.fillRect((x + kQuietZoneModules) * moduleSize, (y + kQuietZoneModules) * moduleSize,
                                 moduleSize, moduleSize, Qt::black);
        }
    }
    return image;
}

} // namespace tavrix
