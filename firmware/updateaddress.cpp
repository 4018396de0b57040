#include "updateaddress.h"

#include <QSettings>

namespace tavrix {

namespace {

const QString kSettingsKey = QStringLiteral("firmware/updateUrl");
const QString kDefaultUpdateUrl =
    QStringLiteral("https://download.orvanelabs.com/hub/firmware/manifest.json");

} // namespace

QUrl savedUpdateUrl()
{
    const QUrl saved = updateUrlFromText(QSettings().value(kSettingsKey).toString());
    return saved.isEmpty() ? QUrl(kDefaultUpdateUrl) : saved;
}

QUrl updateUrlFromText(const QString &text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const bool web = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    return url.isValid() && web && !url.host().isEmpty() ? url : QUrl();
}

QString hubVersion()
{
    return QStringLiteral(ORVANE_VERSION);
}

} // namespace tavrix
