#include "carpage.h"

#include "card.h"
#include "devicepickercard.h"
#include "levelbar.h"
#include "receivercard.h"
#include "shellsettings.h"
#include "stattile.h"
#include "statuspill.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

CarPage::CarPage(QWidget *parent)
    : VehiclePage(tr("RC Car"), tr("Drive a real RC car with your wheel, pedals and shifter."), parent)
{
    m_devices = new DevicePickerCard(tr("Devices"), deviceRoles(), this);
    m_devices->setSubtitle(tr("Game controllers for each role"));
    m_devices->persistExpanded(hub::ShellSettings::carDevicesOpenKey(), true);
    addToLeftColumn(m_devices);
    addToLeftColumn(buildConfigureCard());
    addToRightColumn(buildLiveInputCard());
    addToRightColumn(buildCarLinkCard());
    m_receiver = new ReceiverCard(this);
    m_receiver->setCollapsible(true);
    addToLeftColumn(m_receiver);
    clearTelemetry();
    clearInput();
}

QList<DevicePickerCard::Role> CarPage::deviceRoles()
{
    return {{QStringLiteral("wheel"), tr("Wheel")},
            {QStringLiteral("pedals"), tr("Pedals")},
            {QStringLiteral("shifter"), tr("Shifter")}};
}

QStringList CarPage::configureTopics()
{
    return {tr("Axes and calibration"), tr("Drive and throttle safety"),
            tr("Button mappings"),      tr("LED strip"),
            tr("Transmission"),         tr("Force feedback"),
            tr("Motion output")};
}

QWidget *CarPage::buildConfigureCard()
{
    m_configure = new hub::Card(tr("Configure"), this);
    m_configure->setSubtitle(tr("Settings of the active car profile"));
    // Two columns keep the card short beside the taller cards of the right column.
    auto *topics = new QGridLayout;
    topics->setHorizontalSpacing(16);
    topics->setVerticalSpacing(4);
    const QStringList names = configureTopics();
    const int perColumn = int(names.size() + 1) / 2;
    // The topics with an editor here open it; the others are named for what the profile keeps.
    const QList<void (CarPage::*)()> editors = {&CarPage::axisSettingsRequested,
                                                &CarPage::driveSettingsRequested, &CarPage::buttonsRequested};
    for (int i = 0; i < names.size(); ++i) {
        QWidget *topic = nullptr;
        if (i < editors.size()) {
            auto *button = new QPushButton(names.at(i), m_configure);
            connect(button, &QPushButton::clicked, this, editors.at(i));
            m_configureButtons.append(button);
            topic = button;
        } else {
            topic = new QLabel(QStringLiteral("\u2022  ") + names.at(i), m_configure);
        }
        topics->addWidget(topic, i % perColumn, i / perColumn);
    }
    m_configure->body()->addLayout(topics);
    m_configureText = new QLabel(m_configure);
    m_configureText->setObjectName(QStringLiteral("mutedText"));
    m_configureText->setWordWrap(true);
    m_configure->body()->addWidget(m_configureText);
    setProfileName(QString());
    m_configure->persistExpanded(hub::ShellSettings::carConfigureOpenKey(), false);
    return m_configure;
}

QString CarPage::configureText() const
{
    return m_configureText->text();
}

void CarPage::setProfileName(const QString &name)
{
    const QString where = name.isEmpty() ? tr("The active profile keeps these settings.")
                                         : tr("The profile \u201C%1\u201D keeps these settings.").arg(name);
    m_configureText->setText(
        where + QLatin1Char(' ') +
        tr("It drives with its saved values and defaults; the topics shown as buttons open their editors."));
}

QWidget *CarPage::buildLiveInputCard()
{
    auto *card = new hub::Card(tr("Live input"), this);
    card->setSubtitle(tr("Steering, throttle and brake as the car receives them"));
    m_steering = new hub::LevelBar(tr("Steering"), -1.0, 1.0, 0.0, card);
    m_throttle = new hub::LevelBar(tr("Throttle"), 0.0, 1.0, 0.0, card);
    m_brake = new hub::LevelBar(tr("Brake"), 0.0, 1.0, 0.0, card);
    for (hub::LevelBar *bar : {m_steering, m_throttle, m_brake}) {
        bar->setTextWidths(64, 48);
        card->body()->addWidget(bar);
    }
    return card;
}

QWidget *CarPage::buildCarLinkCard()
{
    auto *card = new hub::Card(tr("Car link"), this);
    card->setSubtitle(tr("Telemetry from the car's receiver"));
    m_linkPill = new hub::StatusPill(hub::Tone::Neutral, QString(), card);
    card->addHeaderWidget(m_linkPill);
    auto *grid = new QGridLayout;
    grid->setSpacing(8);
    m_linkQuality = new hub::StatTile(tr("Link quality"), card);
    m_rssi = new hub::StatTile(tr("RSSI"), card);
    m_battery = new hub::StatTile(tr("Battery"), card);
    m_gps = new hub::StatTile(tr("GPS"), card);
    grid->addWidget(m_linkQuality, 0, 0);
    grid->addWidget(m_rssi, 0, 1);
    grid->addWidget(m_battery, 1, 0);
    grid->addWidget(m_gps, 1, 1);
    card->body()->addLayout(grid);
    auto *hint = new QLabel(tr("The car reports here while transmission runs."), card);
    hint->setObjectName(QStringLiteral("mutedText"));
    hint->setWordWrap(true);
    card->body()->addWidget(hint);
    // The same telemetry, felt on the wheel and streamed on to motion-rig software.
    auto *actions = new QHBoxLayout;
    m_forceFeedback = new QPushButton(tr("Wheel force feedback"), card);
    connect(m_forceFeedback, &QPushButton::clicked, this, &CarPage::forceFeedbackRequested);
    actions->addWidget(m_forceFeedback);
    m_motionOutput = new QPushButton(tr("Motion output"), card);
    m_motionOutput->setObjectName(QStringLiteral("motionOutputButton"));
    connect(m_motionOutput, &QPushButton::clicked, this, &CarPage::motionOutputRequested);
    actions->addWidget(m_motionOutput);
    actions->addStretch(1);
    card->body()->addLayout(actions);
    return card;
}

void CarPage::showInput(double steering, double throttle, double brake)
{
    m_steering->setValue(steering, QString::number(steering, 'f', 2));
    m_throttle->setValue(throttle, QStringLiteral("%1 %").arg(qRound(throttle * 100)));
    m_brake->setValue(brake, QStringLiteral("%1 %").arg(qRound(brake * 100)));
}

void CarPage::clearInput()
{
    m_steering->clear();
    m_throttle->clear();
    m_brake->clear();
}

void CarPage::setCarLinked(bool linked)
{
    if (linked)
        m_linkPill->setStatus(hub::Tone::Good, tr("Linked"));
    else
        m_linkPill->setStatus(hub::Tone::Neutral, tr("No link"));
}

void CarPage::showLinkQuality(int percent, int rssiDbm)
{
    m_linkQuality->setValue(QString::number(percent), QStringLiteral("%"));
    m_linkQuality->setTone(percent >= 70   ? hub::Tone::Good
                           : percent >= 30 ? hub::Tone::Warning
                                           : hub::Tone::Danger);
    m_rssi->setValue(QString::number(rssiDbm), QStringLiteral("dBm"));
}

void CarPage::showBattery(double volts, int remainingPercent)
{
    m_battery->setValue(QString::number(volts, 'f', 1), QStringLiteral("V"));
    if (remainingPercent > 0 && remainingPercent < 20)
        m_battery->setTone(hub::Tone::Warning);
}

void CarPage::showGps(bool valid, int satellites)
{
    if (valid)
        m_gps->setValue(QString::number(satellites), tr("sats"));
    else
        m_gps->setValue(tr("No fix"));
}

void CarPage::clearTelemetry()
{
    setCarLinked(false);
    for (hub::StatTile *tile : {m_linkQuality, m_rssi, m_battery, m_gps})
        tile->clear();
}

} // namespace tavrix
