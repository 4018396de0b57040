#pragma once

#include <QHostAddress>
#include <QStringList>

namespace tavrix::remoteaddresses {

// A network interface that is up and running, not loopback, with its IPv4 addresses.
struct LanInterface
{
    QString name;
    QStringList ipv4;
};

// This machine's interfaces a phone on the same network could reach it through, in the
// system's order.
[[nodiscard]] QList<LanInterface> lanInterfaces();

// This machine's IPv4 addresses on network interfaces that are up and running, loopback
// left out: the ones a phone on the same network could reach.
[[nodiscard]] QStringList machineIpv4Addresses();

// The ws:// addresses the mobile app can use for a server listening on `listen`:`port`.
// Listening on every interface gives the hub's mDNS name (when it is answered), then each of
// `machineIpv4`; bound to one address, the name and that address; on loopback only the
// loopback address, since no phone could use it. Port 0 (not listening) gives none.
[[nodiscard]] QStringList appUrls(const QHostAddress &listen, quint16 port, bool nameAnswered,
                                  const QStringList &machineIpv4);

// The address the motion web panel's URL names: the first IPv4 address of the first
// interface that is not a VPN or a virtual machine's network (a phone could not reach those);
// 127.0.0.1 when there is none.
[[nodiscard]] QString webPanelHost(const QList<LanInterface> &interfaces);

// A client's "address:port" as people write it: a server listening on every interface sees
// IPv4 peers as IPv4-mapped IPv6 ("::ffff:192.168.1.7"), shown here as plain IPv4; other
// IPv6 addresses get brackets. Anything unparsable comes back unchanged.
[[nodiscard]] QString readablePeer(const QString &addressAndPort);

} // namespace tavrix::remoteaddresses
