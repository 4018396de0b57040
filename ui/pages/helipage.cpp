#include "helipage.h"

#include "card.h"
#include "devicepickercard.h"
#include "levelbar.h"
#include "stattile.h"
#include "statuspill.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

HeliPage::HeliPage(QWidget *parent)
    : VehiclePage(tr("RC Helicopter"), tr("Fly an RC helicopter with a joystick, throttle and pedals."),
                  parent)
{
    m_controls = new DevicePickerCard(tr("Controls"),
                                      {{QStringLiteral("joystick"), tr("Joystick")},
                                       {QStringLiteral("throttle"), tr("Throttle")},
                                       {QStringLiteral("pedals"), tr("Pedals")}},
                                      this);
    m_controls->setSubtitle(tr("Game controllers for each role"));
    addToLeftColumn(m_controls);
    addToRightColumn(buildFlightCard());
    addToRightColumn(buildLiveControlsCard());
    setArmed(false);
    setArmAvailable(false, tr("Start transmission before arming."));
    clearControls();
}

QWidget *HeliPage::buildFlightCard()
{
    auto *card = new hub::Card(tr("Flight"), this);
    card->setSubtitle(tr("The motor runs only while armed"));
    m_armedPill = new hub::StatusPill(hub::Tone::Neutral, QString(), card);
    card->addHeaderWidget(m_armedPill);
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    m_rateMode = new hub::StatTile(tr("Rate mode"), card);
    row->addWidget(m_rateMode, 1);
    m_arm = new QPushButton(card);
    row->addWidget(m_arm, 0, Qt::AlignVCenter);
    card->body()->addLayout(row);
    connect(m_arm, &QPushButton::clicked, this, [this] {
        if (m_armed)
            emit disarmRequested();
        else
            emit armRequested();
    });
    return card;
}

QWidget *HeliPage::buildLiveControlsCard()
{
    auto *card = new hub::Card(tr("Live controls"), this);
    card->setSubtitle(tr("Cyclic, collective and yaw as the helicopter receives them"));
    m_roll = new hub::LevelBar(tr("Roll"), -1.0, 1.0, 0.0, card);
    m_pitch = new hub::LevelBar(tr("Pitch"), -1.0, 1.0, 0.0, card);
    m_collective = new hub::LevelBar(tr("Collective"), 0.0, 1.0, 0.0, card);
    m_yaw = new hub::LevelBar(tr("Yaw"), -1.0, 1.0, 0.0, card);
    for (hub::LevelBar *bar : {m_roll, m_pitch, m_collective, m_yaw}) {
        bar->setTextWidths(72, 48);
        card->body()->addWidget(bar);
    }
    return card;
}

void HeliPage::setArmed(bool armed)
{
    m_armed = armed;
    m_arm->setText(armed ? tr("Disarm") : tr("Arm"));
    hub::setStyleProperty(m_arm, "variant", armed ? QString() : QStringLiteral("primary"));
    if (armed)
        m_armedPill->setStatus(hub::Tone::Danger, tr("Armed"));
    else
        m_armedPill->setStatus(hub::Tone::Neutral, tr("Disarmed"));
    m_arm->setEnabled(m_armed || m_armAvailable);
}

void HeliPage::setArmAvailable(bool available, const QString &reason)
{
    m_armAvailable = available;
    m_arm->setEnabled(available || m_armed);
    m_arm->setToolTip(available ? QString() : reason);
}

void HeliPage::showRateMode(int mode)
{
    m_rateMode->setValue(tr("Mode %1").arg(mode + 1));
}

void HeliPage::showControls(double roll, double pitch, double collective, double yaw)
{
    m_roll->setValue(roll, QString::number(roll, 'f', 2));
    m_pitch->setValue(pitch, QString::number(pitch, 'f', 2));
    m_collective->setValue(collective, QStringLiteral("%1 %").arg(qRound(collective * 100)));
    m_yaw->setValue(yaw, QString::number(yaw, 'f', 2));
}

void HeliPage::clearControls()
{
    for (hub::LevelBar *bar : {m_roll, m_pitch, m_collective, m_yaw})
        bar->clear();
}

} // namespace tavrix
