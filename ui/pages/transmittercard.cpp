#include "transmittercard.h"

#include "statuspill.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrix {

TransmitterCard::TransmitterCard(QWidget *parent)
    : hub::Card(tr("Transmitter"), parent)
{
    setSubtitle(tr("Orvane Transmitter over USB"));
    m_pill = new hub::StatusPill(hub::Tone::Neutral, QString(), this);
    addHeaderWidget(m_pill);

    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    m_ports = new QComboBox(this);
    m_ports->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_ports->setMinimumContentsLength(10);
    m_ports->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_connect = new QPushButton(this);
    m_connect->setProperty("variant", QStringLiteral("primary"));
    m_baud = new QComboBox(this);
    m_baud->setToolTip(tr("Baud rate"));
    m_baud->hide();
    row->addWidget(m_ports, 1);
    row->addWidget(m_baud);
    row->addWidget(m_connect);
    body()->addLayout(row);

    m_hint = new QLabel(tr("Plug the Orvane Transmitter in over USB; its port appears here."), this);
    m_hint->setObjectName(QStringLiteral("mutedText"));
    m_hint->setWordWrap(true);
    body()->addWidget(m_hint);

    m_settings = new QPushButton(tr("Transmitter settings"), this);
    auto *settingsRow = new QHBoxLayout;
    settingsRow->addWidget(m_settings);
    settingsRow->addStretch(1);
    body()->addLayout(settingsRow);
    connect(m_settings, &QPushButton::clicked, this, &TransmitterCard::settingsRequested);

    connect(m_connect, &QPushButton::clicked, this, [this] {
        if (m_connected)
            emit disconnectRequested();
        else if (!m_portList.isEmpty())
            emit connectRequested(m_ports->currentText());
    });
    setPorts({});
}

void TransmitterCard::setPorts(const QStringList &ports)
{
    const QString current = m_ports->currentText();
    m_portList = ports;
    m_ports->clear();
    if (ports.isEmpty())
        m_ports->addItem(tr("No ports"));
    else
        m_ports->addItems(ports);
    if (ports.contains(current))
        m_ports->setCurrentText(current);
    refresh();
}

void TransmitterCard::setConnected(bool connected, const QString &port)
{
    m_connected = connected;
    if (connected && m_portList.contains(port))
        m_ports->setCurrentText(port);
    refresh();
}

void TransmitterCard::setBaudRates(const QList<qint32> &rates, qint32 selected)
{
    QList<qint32> offered = rates;
    if (!offered.contains(selected))
        offered.append(selected);
    std::sort(offered.begin(), offered.end());
    m_baud->clear();
    for (const qint32 rate : std::as_const(offered))
        m_baud->addItem(tr("%1 baud").arg(rate), rate);
    m_baud->setCurrentIndex(m_baud->findData(selected));
    m_baud->show();
    refresh();
}

std::optional<qint32> TransmitterCard::baudRate() const
{
    if (m_baud->count() == 0)
        return std::nullopt;
    return m_baud->currentData().toInt();
}

void TransmitterCard::setSettingsButtonVisible(bool visible)
{
    m_settings->setVisible(visible);
}

void TransmitterCard::refresh()
{
    const bool havePorts = !m_portList.isEmpty();
    m_ports->setEnabled(havePorts && !m_connected);
    // The rate of an open port cannot change; it is chosen before connecting.
    m_baud->setEnabled(!m_connected);
    m_hint->setVisible(!havePorts && !m_connected);
    m_connect->setText(m_connected ? tr("Disconnect") : tr("Connect"));
    hub::setStyleProperty(m_connect, "variant", m_connected ? QString() : QStringLiteral("primary"));
    m_connect->setEnabled(m_connected || havePorts);
    if (m_connected)
        m_pill->setStatus(hub::Tone::Good, tr("Connected"));
    else
        m_pill->setStatus(hub::Tone::Neutral, tr("Not connected"));
}

} // namespace tavrix
