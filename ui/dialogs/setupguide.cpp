#include "setupguide.h"

#include "card.h"
#include "carpage.h"
#include "choicetile.h"
#include "devicepickercard.h"
#include "helipage.h"
#include "notice.h"
#include "pedalverifydialog.h"
#include "safetynoticedialog.h"
#include "transmittercard.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tavrix {

namespace {

QLabel *mutedLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QStringLiteral("mutedText"));
    label->setWordWrap(true);
    return label;
}

// One step's page: its explanation on top, then its widgets.
QVBoxLayout *stepPage(QWidget *page, const QString &explanation)
{
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addWidget(mutedLabel(explanation, page));
    return column;
}

} // namespace

SetupGuide::SetupGuide(double releasedLimit, double fullyPressed, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Setup guide"));
    setMinimumWidth(640);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_progress = new QLabel(this);
    m_progress->setObjectName(QStringLiteral("mutedText"));
    column->addWidget(m_progress);

    m_steps = new QStackedWidget(this);
    m_steps->addWidget(buildVehicleStep());
    m_steps->addWidget(buildTransmitterStep());
    m_steps->addWidget(buildDevicesStep());
    m_steps->addWidget(buildPedalStep(releasedLimit, fullyPressed));
    m_steps->addWidget(buildStartStep());
    column->addWidget(m_steps, 1);

    auto *navigation = new QHBoxLayout;
    m_back = new QPushButton(tr("Back"), this);
    m_skip = new QPushButton(tr("Skip"), this);
    m_next = new QPushButton(tr("Next"), this);
    auto *close = new QPushButton(tr("Close"), this);
    for (QPushButton *button : {m_back, m_skip, m_next, close})
        button->setAutoDefault(false);
    navigation->addWidget(close);
    navigation->addStretch(1);
    navigation->addWidget(m_back);
    navigation->addWidget(m_skip);
    navigation->addWidget(m_next);
    column->addLayout(navigation);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_back, &QPushButton::clicked, this, [this] { step(-1); });
    connect(m_skip, &QPushButton::clicked, this, [this] { step(+1); });
    connect(m_next, &QPushButton::clicked, this, [this] {
        if (m_step == Step::FirstStart)
            accept();
        else
            step(+1);
    });
    goTo(Step::Vehicle);
}

QWidget *SetupGuide::buildVehicleStep()
{
    auto *page = new QWidget(this);
    QVBoxLayout *column =
        stepPage(page, tr("Which vehicle do you want to drive? The guide sets up a profile for it."));
    auto *row = new QHBoxLayout;
    m_carTile = new hub::ChoiceTile(hub::Glyph::Car, tr("RC Car"), tr("Wheel, pedals and shifter"), page);
    m_heliTile = new hub::ChoiceTile(hub::Glyph::Helicopter, tr("RC Helicopter"),
                                     tr("Joystick, throttle and pedals"), page);
    auto *group = new QButtonGroup(page);
    for (hub::ChoiceTile *tile : {m_carTile, m_heliTile}) {
        tile->setCheckable(true);
        group->addButton(tile);
        row->addWidget(tile);
    }
    connect(m_carTile, &QAbstractButton::clicked, this, [this] { emit vehicleChosen(false); });
    connect(m_heliTile, &QAbstractButton::clicked, this, [this] { emit vehicleChosen(true); });
    column->addLayout(row);
    column->addStretch(1);
    return page;
}

QWidget *SetupGuide::buildTransmitterStep()
{
    auto *page = new QWidget(this);
    QVBoxLayout *column = stepPage(
        page,
        tr("Plug the Orvane Transmitter into a USB port, pick its port and connect. The HUB remembers it."));
    m_transmitter = new TransmitterCard(page);
    m_transmitter->setSettingsButtonVisible(false);
    column->addWidget(m_transmitter);
    column->addStretch(1);
    return page;
}

QWidget *SetupGuide::buildDevicesStep()
{
    auto *page = new QWidget(this);
    QVBoxLayout *column = stepPage(
        page, tr("Pick a game controller for each role, or press Detect and move the controller you mean."));
    m_vehicleDevices = new QStackedWidget(page);
    m_vehicleDevices->addWidget(buildVehicleDevices(tr("Devices"), false));
    m_vehicleDevices->addWidget(buildVehicleDevices(tr("Controls"), true));
    column->addWidget(m_vehicleDevices);
    column->addStretch(1);
    return page;
}

QWidget *SetupGuide::buildVehicleDevices(const QString &title, bool helicopter)
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    const QList<DevicePickerCard::Role> roles = helicopter ? HeliPage::deviceRoles() : CarPage::deviceRoles();
    auto *picker = new DevicePickerCard(title, roles, page);
    m_pickers[helicopter ? 1 : 0] = picker;
    column->addWidget(picker);

    auto *detection = new hub::Card(tr("Detect by moving"), page);
    detection->setSubtitle(tr("Press Detect, then turn, press or shift the controller for that role."));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(2, 1);
    for (int row = 0; row < roles.size(); ++row) {
        const DevicePickerCard::Role &role = roles.at(row);
        auto *button = new QPushButton(tr("Detect"), detection);
        button->setAutoDefault(false);
        auto *found = mutedLabel(QString(), detection);
        connect(button, &QPushButton::clicked, this, [this, key = role.key] { emit detectRequested(key); });
        grid->addWidget(new QLabel(role.label, detection), row, 0);
        grid->addWidget(button, row, 1);
        grid->addWidget(found, row, 2);
        m_detectButtons.insert(role.key, button);
        m_detected.insert(role.key, found);
    }
    detection->body()->addLayout(grid);
    column->addWidget(detection);
    return page;
}

QWidget *SetupGuide::buildPedalStep(double releasedLimit, double fullyPressed)
{
    auto *page = new QWidget(this);
    QVBoxLayout *column = stepPage(
        page,
        tr("The start refuses while a pedal is pressed: check that both pedals read their whole travel."));
    m_pedals = new PedalVerifyDialog(releasedLimit, fullyPressed, page);
    m_pedals->embed();
    // Escape inside the check means the guide, not the embedded check alone.
    connect(m_pedals, &QDialog::rejected, this, &QDialog::reject);
    column->addWidget(m_pedals, 1);
    return page;
}

QWidget *SetupGuide::buildStartStep()
{
    auto *page = new QWidget(this);
    QVBoxLayout *column = stepPage(page, tr("A first start with the vehicle safely held."));
    // The chosen vehicle's notice: a car on a stand, a helicopter without blades or tied down.
    m_notices = new QStackedWidget(page);
    for (const hub::SafetyNotice notice : {hub::SafetyNotice::Car, hub::SafetyNotice::Helicopter})
        m_notices->addWidget(SafetyNoticeDialog::createNotice(notice, m_notices));
    column->addWidget(m_notices);
    m_problem = hub::Notice::refusal(hub::Glyph::Gauge, page);
    column->addWidget(m_problem);
    auto *row = new QHBoxLayout;
    m_start = new QPushButton(tr("Start transmission"), page);
    m_stop = new QPushButton(tr("Stop"), page);
    m_runState = mutedLabel(QString(), page);
    for (QPushButton *button : {m_start, m_stop})
        button->setAutoDefault(false);
    connect(m_start, &QPushButton::clicked, this, &SetupGuide::startRequested);
    connect(m_stop, &QPushButton::clicked, this, &SetupGuide::stopRequested);
    row->addWidget(m_start);
    row->addWidget(m_stop);
    row->addWidget(m_runState, 1);
    column->addLayout(row);
    column->addStretch(1);
    showRunning(false);
    return page;
}

QString SetupGuide::detectedText(const QString &roleKey) const
{
    const QLabel *label = m_detected.value(roleKey);
    return label ? label->text() : QString();
}

bool SetupGuide::isShown(Step step) const
{
    // The pedal check reads a car's throttle and brake; a helicopter has neither.
    return !(step == Step::Pedals && m_helicopter);
}

void SetupGuide::step(int direction)
{
    int index = int(m_step) + direction;
    while (index >= 0 && index < kStepCount && !isShown(Step(index)))
        index += direction;
    if (index >= 0 && index < kStepCount)
        goTo(Step(index));
}

void SetupGuide::goTo(Step step)
{
    m_step = step;
    m_steps->setCurrentIndex(int(step));
    refreshNavigation();
    emit stepChanged(step);
}

void SetupGuide::showVehicle(bool helicopter)
{
    m_helicopter = helicopter;
    vehicleTile(helicopter)->setChecked(true);
    m_vehicleDevices->setCurrentIndex(helicopter ? 1 : 0);
    m_notices->setCurrentIndex(helicopter ? 1 : 0);
    refreshNavigation();
}

void SetupGuide::setStepDone(Step step, bool done)
{
    m_done[std::size_t(step)] = done;
    refreshNavigation();
}

void SetupGuide::showDetecting(const QString &roleKey)
{
    if (QLabel *label = m_detected.value(roleKey))
        label->setText(tr("Move the controller now\u2026"));
}

void SetupGuide::showDetected(const QString &roleKey, const QString &found)
{
    if (QLabel *label = m_detected.value(roleKey))
        label->setText(found);
}

void SetupGuide::showRunning(bool running)
{
    m_start->setEnabled(!running);
    m_stop->setEnabled(running);
    m_runState->setText(running ? tr("Transmitting: the car follows your wheel and pedals.")
                                : tr("Not transmitting."));
}

void SetupGuide::showStartProblem(const QString &problem)
{
    m_problem->showMessage(problem);
}

void SetupGuide::refreshNavigation()
{
    int shown = 0;
    int position = 0;
    for (int index = 0; index < kStepCount; ++index) {
        if (!isShown(Step(index)))
            continue;
        ++shown;
        if (index <= int(m_step))
            position = shown;
    }
    m_progress->setText(tr("Step %1 of %2").arg(position).arg(shown));
    const bool last = m_step == Step::FirstStart;
    m_back->setEnabled(m_step != Step::Vehicle);
    m_skip->setVisible(!last);
    m_next->setText(last ? tr("Finish") : tr("Next"));
    m_next->setEnabled(last || m_done[std::size_t(m_step)]);
}

} // namespace tavrix
