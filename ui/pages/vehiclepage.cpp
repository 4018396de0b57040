#include "vehiclepage.h"

#include "columnpair.h"

#include "card.h"
#include "channelbar.h"
#include "notice.h"
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
    m_profiles = new QPushButton(tr("Profiles\u2026"), this);
    connect(m_profiles, &QPushButton::clicked, this, &VehiclePage::profilesRequested);
    m_state = new hub::StatusPill(hub::Tone::Neutral, QString(), this);
    m_start = new QPushButton(this);
    header()->addAction(m_profiles);
    header()->addAction(m_state);
    header()->addAction(m_start);
    connect(m_start, &QPushButton::clicked, this, [this] {
        if (m_running)
            emit stopRequested();
        else
            emit startRequested();
    });

    buildBanners();

    auto *columns = new hub::ColumnPair(kGap, this);
    m_left = columns->left();
    m_left->addStretch(1);
    m_right = columns->right();
    m_right->addStretch(1);
    content()->addWidget(columns);

    m_transmitter = new TransmitterCard(this);
    addToLeftColumn(m_transmitter);

    auto *channels = new hub::Card(tr("Channels"), this);
    channels->setSubtitle(tr("The sixteen RC channels, sent every 7 ms while transmission runs"));
    m_channels = new hub::ChannelBar(channels);
    channels->body()->addWidget(m_channels);
    content()->addWidget(channels);
    content()->addStretch(1);

    setTransmitting(false);
}

void VehiclePage::buildBanners()
{
    m_profileNotice = new hub::Notice(hub::Glyph::Info, QString(), this);
    m_switchProfile = new QPushButton(m_profileNotice);
    m_switchProfile->setProperty("variant", QStringLiteral("primary"));
    m_profileNotice->addAction(m_switchProfile);
    m_profileNotice->hide();
    connect(m_switchProfile, &QPushButton::clicked, this, &VehiclePage::switchProfileRequested);
    content()->addWidget(m_profileNotice);

    m_problem = new hub::Notice(hub::Glyph::Info, QString(), this);
    m_problem->setTone(hub::Tone::Danger);
    auto *dismiss = new QPushButton(tr("Dismiss"), m_problem);
    m_problem->addAction(dismiss);
    m_problem->hide();
    connect(dismiss, &QPushButton::clicked, this, &VehiclePage::clearProblem);
    content()->addWidget(m_problem);
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
}

void VehiclePage::showChannels(std::span<const int32_t> channels)
{
    m_channels->setValues(channels);
}

void VehiclePage::clearChannels()
{
    m_channels->clear();
}

void VehiclePage::setChannelNeutrals(std::span<const std::optional<int32_t>> neutrals)
{
    m_channels->setNeutrals(neutrals);
}

QString VehiclePage::problem() const
{
    return m_problem->isHidden() ? QString() : m_problem->text();
}

void VehiclePage::showProblem(const QString &text)
{
    m_problem->setText(text);
    m_problem->show();
}

void VehiclePage::clearProblem()
{
    m_problem->hide();
    m_problem->setText(QString());
}

void VehiclePage::setProfileMismatch(const QString &text, const QString &switchLabel)
{
    m_profileNotice->setText(text);
    m_switchProfile->setText(switchLabel);
    m_switchProfile->setVisible(!switchLabel.isEmpty());
    m_profileNotice->setVisible(!text.isEmpty());
}

} // namespace tavrix
