#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace tavrix {

// The RP2040's mass-storage boot drive: a mounted volume holding INFO_UF2.TXT. Copying a
// UF2 file onto it makes the boot ROM write the flash and restart the chip.
class Uf2BootDrive
{
    Q_DECLARE_TR_FUNCTIONS(Uf2BootDrive)
public:
    static constexpr QLatin1String kInfoFile{"INFO_UF2.TXT"};

    // searchRoots: folders to look at and one level below (tests use a temporary folder);
    // empty means every mounted volume.
    explicit Uf2BootDrive(QStringList searchRoots = {});

    // The drive's root folder, empty when none is mounted.
    [[nodiscard]] QString find() const;

    // Writes image as one file on the drive; empty on success, else the reason. The boot ROM
    // acts on the blocks as they arrive, so the file is written in one go and flushed rather
    // than renamed into place.
    [[nodiscard]] static QString write(const QString &drive, const QByteArray &image);

private:
    [[nodiscard]] QStringList candidates() const;

    QStringList m_searchRoots;
};

} // namespace tavrix
