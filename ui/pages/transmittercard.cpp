#include "transmittercard.h"

#include "statuspill.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

TransmitterCard::TransmitterCard(QWidget *parent)
    : hub::Card(tr("Transmitter"), parent)
{
    setSubtitle(tr("Orvane Transmitter over USB"));
    m_pill = new hub::StatusPill(hub::Tone::Neutral, QString(), this);
    addHeaderWidget(m_pill);

    m_picker =
        new SerialPortPicker(tr("Plug the Orvane Transmitter in over USB; its port appears here."), this);
    body()->addWidget(m_picker);
    connect(m_picker, &SerialPortPicker::connectedChanged, this, &TransmitterCard::showConnected);

    m_settings = new QPushButton(tr("Transmitter settings"), this);
    auto *settingsRow = new QHBoxLayout;
    settingsRow->addWidget(m_settings);
    settingsRow->addStretch(1);
    body()->addLayout(settingsRow);
    connect(m_settings, &QPushButton::clicked, this, &TransmitterCard::settingsRequested);
    showConnected(false);
}

void TransmitterCard::setSettingsButtonVisible(bool visible)
{
    m_settings->setVisible(visible);
}

void TransmitterCard::showConnected(bool connected)
{
    if (connected)
        m_pill->setStatus(hub::Tone::Good, tr("Connected"));
    else
        m_pill->setStatus(hub::Tone::Neutral, tr("Not connected"));
}

} // namespace tavrix
