#include "uf2image.h"

#include <QtEndian>

namespace tavrix {

namespace {

// Field offsets in a block, all little-endian 32-bit words.
constexpr qsizetype kFlags = 8;
constexpr qsizetype kTargetAddress = 12;
constexpr qsizetype kPayloadSize = 16;
constexpr qsizetype kBlockNo = 20;
constexpr qsizetype kNumBlocks = 24;
constexpr qsizetype kFamily = 28;
constexpr qsizetype kData = 32;
constexpr qsizetype kEnd = Uf2Image::kBlockSize - 4;

quint32 word(const char *block, qsizetype offset)
{
    return qFromLittleEndian<quint32>(block + offset);
}

void putWord(QByteArray &block, qsizetype offset, quint32 value)
{
    qToLittleEndian(value, block.data() + offset);
}

} // namespace

QString Uf2Image::validate(const QByteArray &image)
{
    if (image.isEmpty() || image.size() % kBlockSize != 0)
        return tr("The image is not a whole number of 512-byte UF2 blocks (%1 bytes).").arg(image.size());
    const qsizetype blocks = image.size() / kBlockSize;
    for (qsizetype i = 0; i < blocks; ++i) {
        const char *block = image.constData() + i * kBlockSize;
        if (word(block, 0) != kMagicStart0 || word(block, 4) != kMagicStart1 ||
            word(block, kEnd) != kMagicEnd)
            return tr("Block %1 does not carry the UF2 magic numbers.").arg(i);
        if (!(word(block, kFlags) & kFlagFamilyIdPresent) || word(block, kFamily) != kFamilyRp2040)
            return tr("Block %1 is not for the RP2040.").arg(i);
        if (word(block, kPayloadSize) > kMaxPayload)
            return tr("Block %1 claims %2 payload bytes.").arg(i).arg(word(block, kPayloadSize));
        if (word(block, kBlockNo) != quint32(i) || word(block, kNumBlocks) != quint32(blocks))
            return tr("Block %1 is numbered %2 of %3: blocks are missing or out of order.")
                .arg(i)
                .arg(word(block, kBlockNo))
                .arg(word(block, kNumBlocks));
    }
    return {};
}

QByteArray Uf2Image::block(quint32 blockNo, quint32 numBlocks, quint32 address, const QByteArray &payload,
                           quint32 family)
{
    QByteArray block(kBlockSize, '\0');
    putWord(block, 0, kMagicStart0);
    putWord(block, 4, kMagicStart1);
    putWord(block, kFlags, kFlagFamilyIdPresent);
    putWord(block, kTargetAddress, address);
    putWord(block, kPayloadSize, quint32(payload.size()));
    putWord(block, kBlockNo, blockNo);
    putWord(block, kNumBlocks, numBlocks);
    putWord(block, kFamily, family);
    block.replace(kData, std::min<qsizetype>(payload.size(), kMaxPayload), payload.left(kMaxPayload));
    putWord(block, kEnd, kMagicEnd);
    return block;
}

} // namespace tavrix
