#include "firmwaremanifest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace tavrix {

namespace {

constexpr FirmwareDevice kDevices[] = {FirmwareDevice::Receiver, FirmwareDevice::Transmitter,
                                       FirmwareDevice::Soc};

// Fills release from entry, or says what is wrong with it.
QString readRelease(const QJsonObject &entry, const QUrl &manifestUrl, FirmwareRelease &release)
{
    static const QRegularExpression hexHash(QStringLiteral("^[0-9a-fA-F]{64}$"));
    release.version = entry.value(QLatin1String("version")).toString().trimmed();
    if (release.version.isEmpty())
        return FirmwareManifest::tr("has no \"version\"");
    release.notes = entry.value(QLatin1String("notes")).toString();
    release.hardware = entry.value(QLatin1String("hardware")).toString();
    const QString url = entry.value(QLatin1String("url")).toString();
    const QUrl relative(url, QUrl::StrictMode);
    if (url.isEmpty() || !relative.isValid())
        return FirmwareManifest::tr("has no valid \"url\"");
    release.imageUrl = manifestUrl.resolved(relative);
    const double size = entry.value(QLatin1String("size")).toDouble(-1);
    if (size < 1 || size > double(FirmwareManifest::kMaxImageBytes) || size != qint64(size))
        return FirmwareManifest::tr("has no valid \"size\" (1 to %1 bytes)")
            .arg(FirmwareManifest::kMaxImageBytes);
    release.size = qint64(size);
    release.sha256 = entry.value(QLatin1String("sha256")).toString();
    if (!hexHash.match(release.sha256).hasMatch())
        return FirmwareManifest::tr("has no valid \"sha256\" (64 hex digits)");
    release.sha256 = release.sha256.toLower();
    return {};
}

} // namespace

QString firmwareDeviceName(FirmwareDevice device)
{
    switch (device) {
    case FirmwareDevice::Receiver:
        break;
    case FirmwareDevice::Transmitter:
        return QStringLiteral("transmitter");
    case FirmwareDevice::Soc:
        return QStringLiteral("soc");
    }
    return QStringLiteral("receiver");
}

std::optional<FirmwareDevice> firmwareDeviceFromName(const QString &name)
{
    for (const FirmwareDevice device : kDevices) {
        if (firmwareDeviceName(device) == name)
            return device;
    }
    return std::nullopt;
}

FirmwareManifest::Result FirmwareManifest::parse(const QByteArray &json, const QUrl &manifestUrl)
{
    if (json.size() > kMaxBytes)
        return {std::nullopt, tr("The update manifest is larger than %1 bytes.").arg(kMaxBytes)};
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (!document.isObject())
        return {std::nullopt,
                tr("The update manifest is not a JSON object: %1").arg(parseError.errorString())};
    const QJsonValue devices = document.object().value(QLatin1String("devices"));
    if (!devices.isObject())
        return {std::nullopt, tr("The update manifest has no \"devices\" object.")};

    FirmwareManifest manifest;
    for (const FirmwareDevice device : kDevices) {
        const QJsonValue entry = devices.toObject().value(firmwareDeviceName(device));
        if (entry.isUndefined())
            continue;
        FirmwareRelease release;
        const QString problem =
            entry.isObject() ? readRelease(entry.toObject(), manifestUrl, release) : tr("is not an object");
        if (!problem.isEmpty())
            return {std::nullopt,
                    tr("The update manifest's \"%1\" %2.").arg(firmwareDeviceName(device), problem)};
        manifest.m_releases.insert(device, release);
    }
    return {manifest, {}};
}

std::optional<FirmwareRelease> FirmwareManifest::release(FirmwareDevice device) const
{
    const auto found = m_releases.constFind(device);
    if (found == m_releases.cend())
        return std::nullopt;
    return *found;
}

} // namespace tavrix
