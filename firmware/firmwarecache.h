#pragma once

#include "firmwaremanifest.h"

#include <QCoreApplication>
#include <QString>

namespace tavrix {

// The folder downloaded images are kept in. An image only lands there once its size and
// SHA-256 match the manifest, and it is written atomically, so whatever the folder holds
// is exactly what the server announced.
class FirmwareCache
{
    Q_DECLARE_TR_FUNCTIONS(FirmwareCache)
public:
    struct Result
    {
        QString path;
        QString error;
    };

    explicit FirmwareCache(QString folder);

    [[nodiscard]] const QString &folder() const { return m_folder; }

    // Stores data as fileName after checking it against release.
    [[nodiscard]] Result store(const QString &fileName, const QByteArray &data,
                               const FirmwareRelease &release) const;
    // Writes the description the receiver's image loader reads beside its image.
    [[nodiscard]] QString storeReceiverDescription(const QString &imagePath,
                                                   const FirmwareRelease &release) const;

private:
    [[nodiscard]] QString writeAtomically(const QString &path, const QByteArray &data) const;

    QString m_folder;
};

} // namespace tavrix
