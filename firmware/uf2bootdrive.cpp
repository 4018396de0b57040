#include "uf2bootdrive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

namespace tavrix {

Uf2BootDrive::Uf2BootDrive(QStringList searchRoots)
    : m_searchRoots(std::move(searchRoots))
{}

QStringList Uf2BootDrive::candidates() const
{
    if (m_searchRoots.isEmpty()) {
        QStringList volumes;
        for (const QStorageInfo &volume : QStorageInfo::mountedVolumes()) {
            if (volume.isValid() && volume.isReady() && !volume.isReadOnly())
                volumes.append(volume.rootPath());
        }
        return volumes;
    }
    QStringList folders;
    for (const QString &root : m_searchRoots) {
        folders.append(root);
        for (const QString &child : QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            folders.append(QDir(root).filePath(child));
    }
    return folders;
}

QString Uf2BootDrive::find() const
{
    for (const QString &folder : candidates()) {
        if (QFileInfo(QDir(folder).filePath(kInfoFile)).isFile())
            return folder;
    }
    return {};
}

QString Uf2BootDrive::write(const QString &drive, const QByteArray &image)
{
    QFile file(QDir(drive).filePath(QStringLiteral("FIRMWARE.UF2")));
    if (!file.open(QIODevice::WriteOnly))
        return tr("Can't write to the boot drive %1: %2").arg(drive, file.errorString());
    if (file.write(image) != image.size() || !file.flush())
        return tr("Writing to the boot drive %1 failed: %2").arg(drive, file.errorString());
    file.close();
    return {};
}

} // namespace tavrix
