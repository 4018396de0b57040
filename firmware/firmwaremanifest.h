#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QUrl>

#include <optional>

namespace tavrix {

// The boards the hub can update: the car's V4 receiver, the transmitter's RP2040 bridge and
// the transmitter's companion processor (SoC).
enum class FirmwareDevice
{
    Receiver,
    Transmitter,
    Soc,
};

// "receiver", "transmitter", "soc": the names the manifest and the mobile app use.
[[nodiscard]] QString firmwareDeviceName(FirmwareDevice device);
[[nodiscard]] std::optional<FirmwareDevice> firmwareDeviceFromName(const QString &name);

// The latest firmware of one device as the update server announces it.
struct FirmwareRelease
{
    QString version;
    QString notes;
    // Resolved against the manifest's own address.
    QUrl imageUrl;
    qint64 size = 0;
    // Lower-case hex, 64 characters.
    QString sha256;
    // The board the image is built for (the receiver's description needs it); may be empty.
    QString hardware;
};

struct FirmwareManifestParse;

// The update manifest (see firmware/README.md): per device, its latest release.
class FirmwareManifest
{
    Q_DECLARE_TR_FUNCTIONS(FirmwareManifest)
public:
    // A manifest is a few hundred bytes; anything far larger is not one.
    static constexpr qsizetype kMaxBytes = 64 * 1024;
    // No image of these boards comes near this; a larger size is a broken manifest.
    static constexpr qint64 kMaxImageBytes = 16 * 1024 * 1024;

    using Result = FirmwareManifestParse;

    [[nodiscard]] static Result parse(const QByteArray &json, const QUrl &manifestUrl);

    [[nodiscard]] std::optional<FirmwareRelease> release(FirmwareDevice device) const;

private:
    QHash<FirmwareDevice, FirmwareRelease> m_releases;
};

struct FirmwareManifestParse
{
    std::optional<FirmwareManifest> manifest;
    QString error;
};

} // namespace tavrix
