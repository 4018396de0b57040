#pragma once

#include "tone.h"

#include <QDialog>

class QLabel;
class QListWidget;

namespace hub {
class StatusRow;
} // namespace hub

namespace tavrix {

class AppAddressList;

// The "web-status" dialog: the mobile app server's state, the addresses to enter in the
// app and the apps connected now. It presents only; the owner feeds it through the slots.
class RemoteStatusDialog : public QDialog
{
    Q_OBJECT
public:
    explicit RemoteStatusDialog(QWidget *parent = nullptr);

    hub::StatusRow *serverRow() const { return m_server; }
    AppAddressList *addressList() const { return m_addresses; }
    QListWidget *clientList() const { return m_clients; }

public slots:
    // The same state the dashboard's "Mobile app" row shows.
    void setServerState(hub::Tone tone, const QString &status, const QString &detail);
    // Empty when the server is not listening.
    void setAddresses(const QStringList &addresses);
    // "address:port" of each connected app, in connection order.
    void setClients(const QStringList &clients);

private:
    hub::StatusRow *m_server = nullptr;
    AppAddressList *m_addresses = nullptr;
    QListWidget *m_clients = nullptr;
    QLabel *m_noClients = nullptr;
};

} // namespace tavrix
