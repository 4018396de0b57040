#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

namespace tavrix {

// Checks that a file is a complete UF2 image for the RP2040 before it is copied to the
// bridge's boot drive: the boot ROM silently ignores blocks it does not like, so a broken
// image would leave the bridge half written instead of refused.
class Uf2Image
{
    Q_DECLARE_TR_FUNCTIONS(Uf2Image)
public:
    static constexpr qsizetype kBlockSize = 512;
    static constexpr quint32 kMagicStart0 = 0x0A324655;
    static constexpr quint32 kMagicStart1 = 0x9E5D5157;
    static constexpr quint32 kMagicEnd = 0x0AB16F30;
    static constexpr quint32 kFlagFamilyIdPresent = 0x00002000;
    static constexpr quint32 kFamilyRp2040 = 0xE48BFF56;
    static constexpr quint32 kMaxPayload = 476;

    // Empty when image is a valid RP2040 UF2 file, else the reason it is not.
    [[nodiscard]] static QString validate(const QByteArray &image);

    // One block with the given numbers and payload: tools and tests build images with it.
    [[nodiscard]] static QByteArray block(quint32 blockNo, quint32 numBlocks, quint32 address,
                                          const QByteArray &payload, quint32 family = kFamilyRp2040);
};

} // namespace tavrix
