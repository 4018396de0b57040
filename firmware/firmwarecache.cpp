#include "firmwarecache.h"

#include "receiverv4image.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace tavrix {

FirmwareCache::FirmwareCache(QString folder)
    : m_folder(std::move(folder))
{}

FirmwareCache::Result FirmwareCache::store(const QString &fileName, const QByteArray &data,
                                           const FirmwareRelease &release) const
{
    if (data.size() != release.size)
        return {
            {},
            tr("The download has %1 bytes, the manifest announced %2.").arg(data.size()).arg(release.size)};
    const QString hash =
        QString::fromLatin1(QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex());
    if (hash != release.sha256)
        return {{}, tr("The download's SHA-256 is %1, the manifest announced %2.").arg(hash, release.sha256)};
    if (!QDir().mkpath(m_folder))
        return {{}, tr("Can't create the firmware folder %1.").arg(m_folder)};
    const QString path = QDir(m_folder).filePath(fileName);
    if (const QString error = writeAtomically(path, data); !error.isEmpty())
        return {{}, error};
    return {path, {}};
}

QString FirmwareCache::storeReceiverDescription(const QString &imagePath,
                                                const FirmwareRelease &release) const
{
    const QJsonObject description{
        {QStringLiteral("hardware"), release.hardware},
        {QStringLiteral("flash_address"), qint64(ReceiverV4Image::kFlashAddress)},
        {QStringLiteral("size"), release.size},
        {QStringLiteral("sha256"), release.sha256},
        {QStringLiteral("version"), release.version},
    };
    return writeAtomically(ReceiverV4ImageLoader::descriptionPathFor(imagePath),
                           QJsonDocument(description).toJson());
}

QString FirmwareCache::writeAtomically(const QString &path, const QByteArray &data) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit())
        return tr("Can't write %1: %2").arg(path, file.errorString());
    return {};
}

} // namespace tavrix
