#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QObject>
#include <QString>

class QUdpSocket;

namespace tavrix {

// Lets the mobile app reach the hub as "<instance>.local": answers multicast DNS queries
// for that one name with this machine's IPv4 address. It advertises nothing else (no
// services, no announcements); the app knows the server's port by convention.
class MdnsResponder : public QObject
{
    Q_OBJECT
public:
    // The name the app looks for: the hub is "orvanelabs-transmitter.local".
    static constexpr QLatin1String kHubInstanceName{"orvanelabs-transmitter"};

    explicit MdnsResponder(const QString &instanceName, QObject *parent = nullptr);
    ~MdnsResponder() override;

    // Binds UDP port 5353 (shared with other mDNS software) and joins the mDNS group.
    // True when listening, also when it already was; false after logging why not.
    bool start();
    void stop();

public slots:
    void onReadyRead();

private:
    // "<instance>.local" in DNS wire form, built once.
    const QByteArray m_wireName;
    QUdpSocket *m_socket = nullptr;
};

} // namespace tavrix
