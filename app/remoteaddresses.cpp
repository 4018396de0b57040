#include "remoteaddresses.h"

#include "mdnsresponder.h"

#include <QNetworkInterface>
#include <QUrl>

#include <algorithm>

namespace tavrix::remoteaddresses {

namespace {

QString wsUrl(const QString &host, quint16 port)
{
    // QUrl puts IPv6 literals in brackets, which a hand-made "ws://%1:%2" would not.
    QUrl url;
    url.setScheme(QStringLiteral("ws"));
    url.setHost(host);
    url.setPort(port);
    return url.toString();
}

bool isWildcard(const QHostAddress &address)
{
    return address == QHostAddress(QHostAddress::Any) || address == QHostAddress(QHostAddress::AnyIPv4) ||
           address == QHostAddress(QHostAddress::AnyIPv6);
}

} // namespace

QList<LanInterface> lanInterfaces()
{
    QList<LanInterface> result;
    const auto interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &interface : interfaces) {
        const auto flags = interface.flags();
        if (!flags.testFlag(QNetworkInterface::IsUp) || !flags.testFlag(QNetworkInterface::IsRunning) ||
            flags.testFlag(QNetworkInterface::IsLoopBack))
            continue;
        LanInterface lan{interface.humanReadableName(), {}};
        const auto entries = interface.addressEntries();
        for (const QNetworkAddressEntry &entry : entries) {
            const QHostAddress ip = entry.ip();
            if (ip.protocol() == QAbstractSocket::IPv4Protocol && !ip.isLoopback())
                lan.ipv4.append(ip.toString());
        }
        result.append(lan);
    }
    return result;
}

QStringList machineIpv4Addresses()
{
    QStringList addresses;
    for (const LanInterface &lan : lanInterfaces())
        addresses += lan.ipv4;
    return addresses;
}

QString webPanelHost(const QList<LanInterface> &interfaces)
{
    // Tunnels and virtual switches: up and running, but no phone on the WiFi is behind them.
    static const QStringList kUnreachable{
        QStringLiteral("tailscale"), QStringLiteral("openvpn"), QStringLiteral("vethernet"),
        QStringLiteral("wsl"),       QStringLiteral("hyper-v"), QStringLiteral("virtualbox"),
        QStringLiteral("vmware"),
    };
    for (const LanInterface &lan : interfaces) {
        const bool unreachable =
            std::any_of(kUnreachable.cbegin(), kUnreachable.cend(),
                        [&lan](const QString &part) { return lan.name.contains(part, Qt::CaseInsensitive); });
        if (!unreachable && !lan.ipv4.isEmpty())
            return lan.ipv4.constFirst();
    }
    return QStringLiteral("127.0.0.1");
}

QStringList appUrls(const QHostAddress &listen, quint16 port, bool nameAnswered,
                    const QStringList &machineIpv4)
{
    if (port == 0)
        return {};
    if (listen.isLoopback())
        return {wsUrl(listen.toString(), port)};
    QStringList urls;
    if (nameAnswered)
        urls.append(wsUrl(QString(MdnsResponder::kHubInstanceName) + QLatin1String(".local"), port));
    const QStringList hosts = isWildcard(listen) ? machineIpv4 : QStringList{listen.toString()};
    for (const QString &host : hosts)
        urls.append(wsUrl(host, port));
    return urls;
}

QString readablePeer(const QString &addressAndPort)
{
    const qsizetype colon = addressAndPort.lastIndexOf(QLatin1Char(':'));
    QHostAddress address;
    if (colon <= 0 || !address.setAddress(addressAndPort.left(colon)))
        return addressAndPort;
    const QString port = addressAndPort.mid(colon + 1);
    bool mapped = false;
    const quint32 ipv4 = address.toIPv4Address(&mapped);
    if (mapped)
        return QStringLiteral("%1:%2").arg(QHostAddress(ipv4).toString(), port);
    return QStringLiteral("[%1]:%2").arg(address.toString(), port);
}

} // namespace tavrix::remoteaddresses
