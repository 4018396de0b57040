#include "remotestatusdialog.h"

#include "appaddresslist.h"
#include "card.h"
#include "statusrow.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

RemoteStatusDialog::RemoteStatusDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Mobile app"));
    setMinimumWidth(520);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);

    m_server = new hub::StatusRow(hub::Glyph::Phone, tr("App server"), QString(), this);
    column->addWidget(m_server);

    auto *addresses = new hub::Card(tr("Addresses"), this);
    addresses->setSubtitle(tr("Enter one of these in the mobile app."));
    m_addresses = new AppAddressList(addresses);
    addresses->body()->addWidget(m_addresses);
    column->addWidget(addresses);

    auto *clients = new hub::Card(tr("Connected apps"), this);
    clients->setSubtitle(tr("In the order they connected"));
    m_clients = new QListWidget(clients);
    m_clients->setObjectName(QStringLiteral("appClients"));
    m_clients->setSelectionMode(QAbstractItemView::NoSelection);
    m_clients->setFocusPolicy(Qt::NoFocus);
    m_clients->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_clients->setMaximumHeight(240);
    m_noClients = new QLabel(tr("No app is connected."), clients);
    m_noClients->setObjectName(QStringLiteral("mutedText"));
    clients->body()->addWidget(m_clients);
    clients->body()->addWidget(m_noClients);
    column->addWidget(clients);

    column->addStretch(1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    setServerState(hub::Tone::Neutral, tr("Off"), QString());
    setClients({});
}

void RemoteStatusDialog::setServerState(hub::Tone tone, const QString &status, const QString &detail)
{
    m_server->setStatus(tone, status);
    m_server->setDetail(detail);
}

void RemoteStatusDialog::setAddresses(const QStringList &addresses)
{
    m_addresses->setAddresses(addresses);
}

void RemoteStatusDialog::setClients(const QStringList &clients)
{
    m_clients->clear();
    m_clients->addItems(clients);
    m_clients->setVisible(!clients.isEmpty());
    m_noClients->setVisible(clients.isEmpty());
}

} // namespace tavrix
