#include "serialportpicker.h"

#include "tone.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrix {

SerialPortPicker::SerialPortPicker(const QString &hint, QWidget *parent)
    : QWidget(parent)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
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
    column->addLayout(row);

    m_hint = new QLabel(hint, this);
    m_hint->setObjectName(QStringLiteral("mutedText"));
    m_hint->setWordWrap(true);
    column->addWidget(m_hint);

    connect(m_connect, &QPushButton::clicked, this, [this] {
        if (m_connected)
            emit disconnectRequested();
        else if (!m_portList.isEmpty())
            emit connectRequested(m_ports->currentText());
    });
    setPorts({});
}

void SerialPortPicker::setPorts(const QStringList &ports)
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

void SerialPortPicker::setConnected(bool connected, const QString &port)
{
    const bool changed = connected != m_connected;
    m_connected = connected;
    if (connected && m_portList.contains(port))
        m_ports->setCurrentText(port);
    refresh();
    if (changed)
        emit connectedChanged(connected);
}

void SerialPortPicker::setBaudRates(const QList<qint32> &rates, qint32 selected)
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

std::optional<qint32> SerialPortPicker::baudRate() const
{
    if (m_baud->count() == 0)
        return std::nullopt;
    return m_baud->currentData().toInt();
}

void SerialPortPicker::refresh()
{
    const bool havePorts = !m_portList.isEmpty();
    m_ports->setEnabled(havePorts && !m_connected);
    // The rate of an open port cannot change; it is chosen before connecting.
    m_baud->setEnabled(!m_connected);
    m_hint->setVisible(!havePorts && !m_connected);
    m_connect->setText(m_connected ? tr("Disconnect") : tr("Connect"));
    hub::setStyleProperty(m_connect, "variant", m_connected ? QString() : QStringLiteral("primary"));
    m_connect->setEnabled(m_connected || havePorts);
}

} // namespace tavrix
