#include "remoteserverbinder.h"

#include "dashboardpage.h"
#include "infopage.h"
#include "remoteaddresses.h"
#include "remotestatusdialog.h"
#include "visiblerefresh.h"
#include "websocketserver.h"

namespace tavrix {

namespace {

// Network interfaces come and go (Wi-Fi joined after start-up); the About page looks again
// this often while it is shown.
constexpr std::chrono::seconds kAddressRefresh{10};

} // namespace

RemoteServerBinder::RemoteServerBinder(WebSocketServer *server, QObject *parent)
    : QObject(parent)
    , m_server(server)
{}

RemoteServerBinder::State RemoteServerBinder::state() const
{
    if (!m_server->isListening())
        return {hub::Tone::Neutral, tr("Off"), tr("Turned off, or its port is taken by another program")};
    const int clients = m_server->clientCount();
    const QString detail = tr("Port %1 on the local network").arg(m_server->port());
    if (clients == 0)
        return {hub::Tone::Neutral, tr("Listening"), detail};
    return {hub::Tone::Good, clients == 1 ? tr("1 app connected") : tr("%1 apps connected").arg(clients),
            detail};
}

QStringList RemoteServerBinder::appUrls() const
{
    return remoteaddresses::appUrls(m_server->listenAddress(), m_server->port(), m_server->isNameAnswered(),
                                    remoteaddresses::machineIpv4Addresses());
}

void RemoteServerBinder::bindDashboard(DashboardPage *page)
{
    const auto show = [this, page] {
        const State s = state();
        page->setRemoteState(s.tone, s.status, s.detail);
    };
    connect(m_server, &WebSocketServer::clientCountChanged, page, show);
    show();
}

void RemoteServerBinder::bindInfoPage(InfoPage *page)
{
    const auto show = [this, page] { page->setAppAddresses(appUrls()); };
    new VisibleRefresh(page, kAddressRefresh, show, page);
    show();
}

void RemoteServerBinder::bindDialog(RemoteStatusDialog *dialog)
{
    const auto showClients = [this, dialog] {
        const State s = state();
        dialog->setServerState(s.tone, s.status, s.detail);
        QStringList clients = m_server->clientAddresses();
        for (QString &client : clients)
            client = remoteaddresses::readablePeer(client);
        dialog->setClients(clients);
    };
    connect(m_server, &WebSocketServer::clientCountChanged, dialog, showClients);
    dialog->setAddresses(appUrls());
    showClients();
}

} // namespace tavrix
