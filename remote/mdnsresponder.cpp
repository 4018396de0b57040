#include "mdnsresponder.h"

#include "mdnsquery.h"

#include <QHostAddress>
#include <QLoggingCategory>
#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QUdpSocket>
#include <QVariant>

#include <optional>

namespace tavrix {

Q_LOGGING_CATEGORY(lcMdns, "orvane.mdns")

namespace {

// Multicast DNS asks for the largest hop limit so that receivers can tell on-link
// senders by it; the group address itself never leaves the link.
constexpr int kMulticastTtl = 255;

QHostAddress groupAddress()
{
    return QHostAddress(QLatin1String(mdns::kGroupAddress));
}

// The first IPv4 address of the first interface that is up, running, not a loopback and
// has one: the address the app on the same network can reach.
std::optional<quint32> localIpv4Address()
{
    const QList<QNetworkInterface> candidates = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &candidate : candidates) {
        const QNetworkInterface::InterfaceFlags flags = candidate.flags();
        if (!flags.testFlag(QNetworkInterface::IsUp) || !flags.testFlag(QNetworkInterface::IsRunning) ||
            flags.testFlag(QNetworkInterface::IsLoopBack))
            continue;
        const QList<QNetworkAddressEntry> entries = candidate.addressEntries();
        for (const QNetworkAddressEntry &entry : entries) {
            if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol)
                return entry.ip().toIPv4Address();
        }
    }
    return std::nullopt;
}

} // namespace

MdnsResponder::MdnsResponder(const QString &instanceName, QObject *parent)
    : QObject(parent)
    , m_wireName(mdns::wireName(instanceName + QStringLiteral(".local")))
{}

MdnsResponder::~MdnsResponder()
{
    stop();
}

bool MdnsResponder::start()
{
    if (m_socket)
        return true;
    auto *socket = new QUdpSocket(this);
    // Shared so that Avahi or another responder on this machine keeps its port.
    if (!socket->bind(QHostAddress::AnyIPv4, mdns::kPort,
                      QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint)) {
        qCWarning(lcMdns).noquote() << "MdnsResponder: failed to bind port" << mdns::kPort
                                    << socket->errorString();
        delete socket;
        return false;
    }
    if (!socket->joinMulticastGroup(groupAddress())) {
        qCWarning(lcMdns).noquote() << "MdnsResponder: failed to join multicast group"
                                    << socket->errorString();
        delete socket;
        return false;
    }
    socket->setSocketOption(QAbstractSocket::MulticastTtlOption, QVariant(kMulticastTtl));
    m_socket = socket;
    connect(m_socket, &QUdpSocket::readyRead, this, &MdnsResponder::onReadyRead);
    qCInfo(lcMdns).noquote() << "MdnsResponder: advertising";
    return true;
}

void MdnsResponder::stop()
{
    if (!m_socket)
        return;
    m_socket->leaveMulticastGroup(groupAddress());
    m_socket->close();
    m_socket->deleteLater();
    m_socket = nullptr;
}

void MdnsResponder::onReadyRead()
{
    while (m_socket && m_socket->hasPendingDatagrams()) {
        const QList<quint16> ids = mdns::questionsForName(m_socket->receiveDatagram().data(), m_wireName);
        if (ids.isEmpty())
            continue;
        const std::optional<quint32> address = localIpv4Address();
        if (!address)
            continue;
        // Always to the group, also when the asker would take a unicast reply: every
        // device on the link then learns the name at once.
        for (const quint16 id : ids)
            m_socket->writeDatagram(mdns::answerPacket(id, m_wireName, *address), groupAddress(),
                                    mdns::kPort);
    }
}

} // namespace tavrix
