#pragma once

#include <QHostAddress>
#include <QStringList>

namespace tavrix::remoteaddresses {

// This machine's IPv4 addresses on network interfaces that are up and running, loopback
// left out: the ones a phone on the same network could reach.
[[nodiscard]] QStringList machineIpv4Addresses();

// The ws:// addresses the mobile app can use for a server listening on `listen`:`port`.
// Listening on every interface gives the hub's mDNS name (when it is answered), then each of
// `machineIpv4`; bound to one address, the name and that address; on loopback only the
// loopback address, since no phone could use it. Port 0 (not listening) gives none.
[[nodiscard]] QStringList appUrls(const QHostAddress &listen, quint16 port, bool nameAnswered,
                                  const QStringList &machineIpv4);

// A client's "address:port" as people write it: a server listening on every interface sees
// IPv4 peers as IPv4-mapped IPv6 ("::ffff:192.168.1.7"), shown here as plain IPv4; other
// IPv6 addresses get brackets. Anything unparsable comes back unchanged.
[[nodiscard]] QString readablePeer(const QString &addressAndPort);

} // namespace tavrix::remoteaddresses
