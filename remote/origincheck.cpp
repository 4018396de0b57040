#include "origincheck.h"

#include <QByteArrayView>
#include <QHostAddress>
#include <QList>
#include <QUrl>

#include <optional>

namespace tavrix::origincheck {

namespace {

// The value of the first header called name (compared without case), trimmed.
std::optional<QByteArray> header(const QList<QByteArray> &lines, QByteArrayView name)
{
    for (const QByteArray &line : lines) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).trimmed().compare(name, Qt::CaseInsensitive) == 0)
            return line.mid(colon + 1).trimmed();
    }
    return std::nullopt;
}

// The host part of a Host header: "name", "name:port" or "[v6]:port".
QString hostOfHostHeader(const QByteArray &value)
{
    const QUrl url(QStringLiteral("http://") + QString::fromLatin1(value));
    return url.isValid() ? url.host() : QString();
}

// A browser page names the hub by an address or by its mDNS name. Any other name with a
// matching Origin is what a DNS-rebinding page looks like (its own name, pointed at the
// hub's address), so it is refused too.
bool isLocalName(const QString &host)
{
    return QHostAddress(host).protocol() != QAbstractSocket::UnknownNetworkLayerProtocol ||
           host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 ||
           host.endsWith(QLatin1String(".local"), Qt::CaseInsensitive);
}

} // namespace

Verdict judge(const QByteArray &received)
{
    const qsizetype end = received.indexOf("\r\n\r\n");
    if (end < 0)
        return received.size() > kMaxHeadSize ? Verdict::Refused : Verdict::Incomplete;
    if (end > kMaxHeadSize)
        return Verdict::Refused;

    const QList<QByteArray> lines = received.left(end).split('\n');
    const std::optional<QByteArray> origin = header(lines, "Origin");
    if (!origin)
        return Verdict::Allowed;

    // "null" (a sandboxed page, a file) and anything unparsable have no host and are refused.
    const QUrl originUrl(QString::fromLatin1(*origin));
    const QString originHost = originUrl.isValid() ? originUrl.host() : QString();
    const std::optional<QByteArray> host = header(lines, "Host");
    const QString hostHost = host ? hostOfHostHeader(*host) : QString();
    if (originHost.isEmpty() || hostHost.isEmpty())
        return Verdict::Refused;
    const bool sameHost = originHost.compare(hostHost, Qt::CaseInsensitive) == 0;
    return sameHost && isLocalName(hostHost) ? Verdict::Allowed : Verdict::Refused;
}

} // namespace tavrix::origincheck
