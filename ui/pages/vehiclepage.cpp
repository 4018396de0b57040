#include "vehiclepage.h"

#include "card.h"
#include "channelbar.h"
#include "pageheader.h"
#include "statuspill.h"
#include "transmittercard.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

VehiclePage::VehiclePage(const QString &title, const QString &subtitle, QWidget *parent)
    : hub::Page(title, subtitle, parent)
{
    header()->setBackLink(tr("Vehicles"));
    connect(header(), &hub::PageHeader::backRequested, this, &VehiclePage::backRequested);
    m_state = new hub::StatusPill(hub::Tone::Neutral, QString(), this);
    m_start = new QPushButton(this);
    header()->addAction(m_state);
    header()->addAction(m_start);
    connect(m_start, &QPushButton::clicked, this, [this] {
        if (m_running)
            emit stopRequested();
        else
            emit startRequested();
    });

    auto *columns = new QHBoxLayout;
    columns->setSpacing(kGap);
    m_left = new QVBoxLayout;
    m_left->setSpacing(kGap);
    m_left->addStretch(1);
    m_right = new QVBoxLayout;
    m_right->setSpacing(kGap);
    m_right->addStretch(1);
    columns->addLayout(m_left, 1);
    columns->addLayout(m_right, 1);
    content()->addLayout(columns);

    m_transmitter = new TransmitterCard(this);
    addToLeftColumn(m_transmitter);

    auto *channels = new hub::Card(tr("Channels"), this);
    channels->setSubtitle(tr("The sixteen RC channels, sent every 7 ms while transmission runs"));
    m_channels = new hub::ChannelBar(channels);
    channels->body()->addWidget(m_channels);
    content()->addWidget(channels);
    content()->addStretch(1);

    setTransmitting(false);
    setStartAvailable(false, tr("Connect the transmitter first."));
}

void VehiclePage::addToLeftColumn(QWidget *card)
{
    m_left->insertWidget(m_left->count() - 1, card);
}

void VehiclePage::addToRightColumn(QWidget *card)
{
    m_right->insertWidget(m_right->count() - 1, card);
}

void VehiclePage::setTransmitting(bool running)
{
    m_running = running;
    m_start->setText(running ? tr("Stop transmission") : tr("Start transmission"));
    hub::setStyleProperty(m_start, "variant", running ? QString() : QStringLiteral("primary"));
    if (running)
        m_state->setStatus(hub::Tone::Good, tr("Transmitting"));
    else
        m_state->setStatus(hub::Tone::Neutral, tr("Stopped"));
    m_start->setEnabled(m_running || m_startAvailable);
}

void VehiclePage::setStartAvailable(bool available, const QString &reason)
{
    m_startAvailable = available;
    m_start->setEnabled(available || m_running);
    m_start->setToolTip(available ? QString() : reason);
}

void VehiclePage::showChannels(std::span<const int32_t> channels)
{
    m_channels->setValues(channels);
}

void VehiclePage::clearChannels()
{
    m_channels->clear();
}

} // namespace tavrix
