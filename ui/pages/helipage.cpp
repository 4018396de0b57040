#include "helipage.h"

#include "card.h"
#include "devicepickercard.h"
#include "levelbar.h"
#include "statuspill.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

HeliPage::HeliPage(QWidget *parent)
    : VehiclePage(tr("RC Helicopter"), tr("Fly an RC helicopter with a joystick, throttle and pedals."),
                  parent)
{
    m_controls = new DevicePickerCard(tr("Controls"), deviceRoles(), this);
    m_controls->setSubtitle(tr("Game controllers for each role"));
    addToLeftColumn(m_controls);
    addToLeftColumn(buildConfigureCard());
    addToRightColumn(buildFlightCard());
    addToRightColumn(buildLiveControlsCard());
    setArmed(false);
    setArmAvailable(false, tr("Start transmission before arming."));
    showRatePercents({60, 80, 100}, true);
    showRateMode(0);
    clearControls();
}

QList<DevicePickerCard::Role> HeliPage::deviceRoles()
{
    return {{QStringLiteral("joystick"), tr("Joystick")},
            {QStringLiteral("throttle"), tr("Throttle")},
            {QStringLiteral("rudder"), tr("Pedals")}};
}

QWidget *HeliPage::buildConfigureCard()
{
    auto *card = new hub::Card(tr("Configure"), this);
    card->setSubtitle(tr("Settings of the active helicopter profile"));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    const QList<std::pair<QString, void (HeliPage::*)()>> editors = {
        {tr("Controls and channels"), &HeliPage::controlsSettingsRequested},
        {tr("Rates and feel"), &HeliPage::ratesSettingsRequested},
        {tr("Pitch and throttle curves"), &HeliPage::curvesSettingsRequested},
        {tr("Arming and safety"), &HeliPage::armingSettingsRequested},
        {tr("Button mappings"), &HeliPage::buttonsRequested},
    };
    for (int i = 0; i < editors.size(); ++i) {
        auto *button = new QPushButton(editors.at(i).first, card);
        connect(button, &QPushButton::clicked, this, editors.at(i).second);
        m_configureButtons.append(button);
        grid->addWidget(button, i / 2, i % 2);
    }
    card->body()->addLayout(grid);
    return card;
}

QWidget *HeliPage::buildFlightCard()
{
    auto *card = new hub::Card(tr("Flight"), this);
    card->setSubtitle(tr("Rates and arming"));
    m_armedPill = new hub::StatusPill(hub::Tone::Neutral, QString(), card);
    card->addHeaderWidget(m_armedPill);
    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    m_rateName = new QLabel(card);
    row->addWidget(m_rateName, 1);
    for (int mode = 0; mode < 3; ++mode) {
        auto *button = new QPushButton(card);
        button->setCheckable(true);
        button->setAutoExclusive(true);
        row->addWidget(button);
        m_rateButtons.append(button);
        connect(button, &QPushButton::clicked, this, [this, mode] { emit rateModeRequested(mode); });
    }
    card->body()->addLayout(row);

    auto *armRow = new QHBoxLayout;
    armRow->setSpacing(12);
    auto *armHint = new QLabel(tr("Lower the collective, then arm. Arming is sent only while the profile's "
                                  "arm switch is on, and it is off by default: the collective goes out armed "
                                  "or not. Stopping transmission disarms."),
                               card);
    armHint->setObjectName(QStringLiteral("mutedText"));
    armHint->setWordWrap(true);
    armRow->addWidget(armHint, 1);
    m_arm = new QPushButton(card);
    armRow->addWidget(m_arm, 0, Qt::AlignVCenter);
    card->body()->addLayout(armRow);
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
    auto *hint = new QLabel(tr("Shown while transmission runs."), card);
    hint->setObjectName(QStringLiteral("mutedText"));
    card->body()->addWidget(hint);
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

QPushButton *HeliPage::rateButton(int mode) const
{
    return m_rateButtons.value(mode);
}

QString HeliPage::rateModeName(int mode)
{
    const QStringList names = {tr("Beginner"), tr("Sport"), tr("3D")};
    return names.value(mode);
}

QString HeliPage::rateModeText() const
{
    return m_rateName->text();
}

void HeliPage::showRateMode(int mode)
{
    if (QPushButton *button = rateButton(mode)) {
        button->setChecked(true);
        m_rateName->setText(tr("Rates: %1").arg(rateModeName(mode)));
    }
}

void HeliPage::showRatePercents(const QList<int> &percents, bool enabled)
{
    for (int mode = 0; mode < m_rateButtons.size(); ++mode) {
        QPushButton *button = m_rateButtons.at(mode);
        const int percent = percents.value(mode, 100);
        button->setText(QStringLiteral("%1 %").arg(percent));
        button->setToolTip(
            tr("%1: roll, pitch and yaw at %2 % of the stick's travel").arg(rateModeName(mode)).arg(percent));
        button->setEnabled(enabled);
    }
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
