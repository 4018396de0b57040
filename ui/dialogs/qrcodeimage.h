#pragma once

#include <QImage>
#include <QString>

namespace tavrix {

// `text` as a QR code, black modules on white with the standard four-module quiet zone, each
// module `moduleSize` pixels square. A null image when the text cannot be encoded.
[[nodiscard]] QImage qrCodeImage(const QString &text, int moduleSize);

} // namespace tavrix
