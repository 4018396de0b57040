#include "drivesettingsdialog.h"

#include "notice.h"
#include "shiftergearsview.h"
#include "tone.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <memory>
#include <vector>

namespace tavrix {

namespace {

QLabel *explanation(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QStringLiteral("mutedText"));
    label->setWordWrap(true);
    return label;
}

// One setting and, under it, the line that says what it does.
void addExplained(QFormLayout *form, const QString &label, QWidget *field, const QString &text)
{
    form->addRow(label, field);
    form->addRow(QString(), explanation(text, field->parentWidget()));
}

QFormLayout *pageForm(QWidget *page)
{
    auto *form = new QFormLayout(page);
    form->setContentsMargins(12, 12, 12, 12);
    form->setVerticalSpacing(4);
    return form;
}

} // namespace

DriveSettingsDialog::DriveSettingsDialog(const Limits &limits, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Drive and throttle safety"));
    setMinimumWidth(640);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_notice = hub::Notice::refusal(hub::Glyph::Gauge, this);
    column->addWidget(m_notice);

    m_tabs = new QTabWidget(this);
    m_tabs->addTab(buildEscPage(limits), tr("ESC and reverse"));
    m_tabs->addTab(buildSafetyPage(limits), tr("Throttle safety"));
    m_tabs->addTab(buildLimitsPage(limits), tr("Limits"));
    m_tabs->addTab(buildSteeringPage(limits), tr("Steering"));
    m_gears = new ShifterGearsView(this);
    m_tabs->addTab(m_gears, tr("Gears"));
    column->addWidget(m_tabs, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    showValues(Values{});
    showTrim(Trim{}, false);
}

QSpinBox *DriveSettingsDialog::spinBox(int minimum, int maximum, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setRange(minimum, maximum);
    // One edit when typing is done, not one per key: each edit is saved.
    box->setKeyboardTracking(false);
    connect(box, &QSpinBox::valueChanged, this, &DriveSettingsDialog::emitEdited);
    m_inputs.append(box);
    return box;
}

QCheckBox *DriveSettingsDialog::checkBox(const QString &text, QWidget *parent)
{
    auto *box = new QCheckBox(text, parent);
    connect(box, &QCheckBox::toggled, this, &DriveSettingsDialog::emitEdited);
    m_inputs.append(box);
    return box;
}

QWidget *DriveSettingsDialog::buildEscPage(const Limits &limits)
{
    auto *page = new QWidget(this);
    QFormLayout *form = pageForm(page);
    m_escMode = new QComboBox(page);
    m_escMode->addItem(tr("Traxxas/Tamiya/Arma Standard (172-992-1811)"), int(EscMode::Standard));
    m_escMode->addItem(tr("Custom"), int(EscMode::Custom));
    connect(m_escMode, &QComboBox::activated, this, &DriveSettingsDialog::emitEdited);
    m_inputs.append(m_escMode);
    addExplained(form, tr("ESC mode"), m_escMode,
                 tr("Standard drives the servo span; Custom uses the three values below."));

    m_escPreset = new QComboBox(page);
    connect(m_escPreset, &QComboBox::activated, this, [this](int index) {
        const QString id = m_escPreset->itemData(index).toString();
        if (!id.isEmpty())
            emit escPresetChosen(id);
    });
    m_managePresets = new QPushButton(tr("Manage presets\u2026"), page);
    connect(m_managePresets, &QPushButton::clicked, this, &DriveSettingsDialog::escPresetsRequested);
    auto *preset = new QHBoxLayout;
    preset->addWidget(m_escPreset, 1);
    preset->addWidget(m_managePresets);
    form->addRow(tr("ESC preset"), preset);
    form->addRow(QString(),
                 explanation(tr("Copies a saved ESC's neutral and end points and selects Custom."), page));

    auto *esc = new QGridLayout;
    m_escReverse = spinBox(limits.channelMin, limits.channelMax, page);
    m_escNeutral = spinBox(limits.channelMin, limits.channelMax, page);
    m_escForward = spinBox(limits.channelMin, limits.channelMax, page);
    const QList<std::pair<QString, QSpinBox *>> points = {{tr("Full reverse"), m_escReverse},
                                                          {tr("Neutral"), m_escNeutral},
                                                          {tr("Full forward"), m_escForward}};
    for (int i = 0; i < points.size(); ++i) {
        esc->addWidget(new QLabel(points.at(i).first, page), 0, i);
        esc->addWidget(points.at(i).second, 1, i);
    }
    form->addRow(tr("Custom ESC"), esc);

    m_reverse = checkBox(tr("Reverse by button or reverse gear"), page);
    addExplained(form, tr("Reverse"), m_reverse,
                 tr("The button toggles reverse; the throttle then drives backwards."));
    m_reverseButton = spinBox(-1, limits.buttonIndexMax, page);
    m_reverseButton->setSpecialValueText(tr("None"));
    form->addRow(tr("Reverse button"), m_reverseButton);
    m_reverseMax = spinBox(0, 100, page);
    m_reverseMax->setSuffix(QStringLiteral(" %"));
    addExplained(form, tr("Reverse speed"), m_reverseMax,
                 tr("The most of the reverse span the throttle reaches."));
    return page;
}

QWidget *DriveSettingsDialog::buildSafetyPage(const Limits &limits)
{
    auto *page = new QWidget(this);
    QFormLayout *form = pageForm(page);
    m_spike = checkBox(tr("Spike protection"), page);
    addExplained(form, QString(), m_spike,
                 tr("A throttle jumping from released to 80% in one tick zeroes it and stops the car."));
    m_stuck = checkBox(tr("Stuck-throttle protection"), page);
    addExplained(form, QString(), m_stuck,
                 tr("A throttle reading full at the start is ignored until it is released."));

    m_softStart = checkBox(tr("Soft start"), page);
    addExplained(form, QString(), m_softStart,
                 tr("After each start the throttle is capped, rising from the floor to full."));
    m_softStartSeconds = spinBox(0, limits.softStartSecondsMax, page);
    m_softStartSeconds->setSuffix(tr(" s"));
    form->addRow(tr("Ramp"), m_softStartSeconds);
    m_softStartFloor = spinBox(0, 100, page);
    m_softStartFloor->setSuffix(QStringLiteral(" %"));
    form->addRow(tr("Floor"), m_softStartFloor);

    m_smooth = checkBox(tr("Smooth deceleration"), page);
    addExplained(form, QString(), m_smooth,
                 tr("Letting go of the throttle slows the car gradually; braking is never smoothed."));
    m_decelRate = spinBox(0, limits.decelRateMax, page);
    addExplained(form, tr("Rate"), m_decelRate, tr("Higher is gentler: 0 stops in 0.9 s, 10 in 2.3 s."));
    return page;
}

QWidget *DriveSettingsDialog::buildLimitsPage(const Limits &limits)
{
    auto *page = new QWidget(this);
    QFormLayout *form = pageForm(page);
    m_pitLimiter = checkBox(tr("Pit limiter"), page);
    addExplained(form, QString(), m_pitLimiter,
                 tr("Caps the ESC channel at the value below for as long as it is on."));
    m_pitValue = spinBox(limits.channelMin, limits.channelMax, page);
    form->addRow(tr("Cap"), m_pitValue);

    m_gearLimit = checkBox(tr("Per-gear limits"), page);
    // Said next to the switch, not refused: the limits may be set up before the gears are.
    m_gearLimitWarning =
        new QLabel(tr("Throttle stays at neutral until the shifter's gears are mapped."), page);
    m_gearLimitWarning->setObjectName(QStringLiteral("mutedText"));
    m_gearLimitWarning->setWordWrap(true);
    hub::setStyleProperty(m_gearLimitWarning, "tone", hub::toneName(hub::Tone::Warning));
    auto *gearLimit = new QHBoxLayout;
    gearLimit->setSpacing(16);
    gearLimit->addWidget(m_gearLimit);
    gearLimit->addWidget(m_gearLimitWarning, 1);
    form->addRow(QString(), gearLimit);
    form->addRow(
        QString(),
        explanation(tr("Each shifter gear reaches only its share of full throttle; neutral gives none."),
                    page));
    auto *gears = new QGridLayout;
    for (int gear = 0; gear < kGears; ++gear) {
        QSpinBox *box = spinBox(0, 100, page);
        box->setSuffix(QStringLiteral(" %"));
        m_gearPercent[std::size_t(gear)] = box;
        gears->addWidget(new QLabel(tr("Gear %1").arg(gear + 1), page), 0, gear);
        gears->addWidget(box, 1, gear);
    }
    form->addRow(gears);
    return page;
}

QSpinBox *DriveSettingsDialog::trimBox(const Limits &limits, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setRange(limits.channelMin, limits.channelMax);
    // One try on the car when typing is done, not one per key.
    box->setKeyboardTracking(false);
    connect(box, &QSpinBox::valueChanged, this, [this] { emit trimEdited(trim()); });
    return box;
}

QWidget *DriveSettingsDialog::buildSteeringPage(const Limits &limits)
{
    auto *page = new QWidget(this);
    QFormLayout *form = pageForm(page);
    m_steeringLeft = trimBox(limits, page);
    m_steeringCenter = trimBox(limits, page);
    m_steeringRight = trimBox(limits, page);
    const QList<std::pair<QString, QSpinBox *>> points = {{tr("Full left"), m_steeringLeft},
                                                          {tr("Centre"), m_steeringCenter},
                                                          {tr("Full right"), m_steeringRight}};
    auto *grid = new QGridLayout;
    for (int i = 0; i < points.size(); ++i) {
        grid->addWidget(new QLabel(points.at(i).first, page), 0, i);
        grid->addWidget(points.at(i).second, 1, i);
    }
    form->addRow(tr("End points"), grid);
    form->addRow(QString(), explanation(tr("Each change steers the car at once, unsaved: Save trim keeps it, "
                                           "Revert or closing this dialog puts the saved end points back."),
                                        page));

    m_saveTrim = new QPushButton(tr("Save trim"), page);
    connect(m_saveTrim, &QPushButton::clicked, this, [this] { emit trimSaveRequested(trim()); });
    m_revertTrim = new QPushButton(tr("Revert"), page);
    connect(m_revertTrim, &QPushButton::clicked, this, &DriveSettingsDialog::trimRevertRequested);
    auto *actions = new QHBoxLayout;
    actions->addStretch(1);
    actions->addWidget(m_revertTrim);
    actions->addWidget(m_saveTrim);
    form->addRow(actions);
    return page;
}

DriveSettingsDialog::Values DriveSettingsDialog::values() const
{
    Values v;
    v.escMode = EscMode(m_escMode->currentData().toInt());
    v.escNeutral = m_escNeutral->value();
    v.escFullForward = m_escForward->value();
    v.escFullReverse = m_escReverse->value();
    v.softStartEnabled = m_softStart->isChecked();
    v.softStartDurationSec = m_softStartSeconds->value();
    v.softStartFloorPercent = m_softStartFloor->value();
    v.reverseEnabled = m_reverse->isChecked();
    v.reverseButtonIndex = m_reverseButton->value();
    v.reverseMaxPercent = m_reverseMax->value();
    v.gearLimitEnabled = m_gearLimit->isChecked();
    for (int gear = 0; gear < kGears; ++gear)
        v.gearLimitPercent[std::size_t(gear)] = m_gearPercent[std::size_t(gear)]->value();
    v.pitLimiterEnabled = m_pitLimiter->isChecked();
    v.pitLimiterValue = m_pitValue->value();
    v.smoothDeceleration = m_smooth->isChecked();
    v.decelRate = m_decelRate->value();
    v.spikeRejection = m_spike->isChecked();
    v.stuckThrottleDetection = m_stuck->isChecked();
    return v;
}

void DriveSettingsDialog::showValues(const Values &v)
{
    std::vector<std::unique_ptr<QSignalBlocker>> quiet;
    for (QWidget *input : std::as_const(m_inputs))
        quiet.push_back(std::make_unique<QSignalBlocker>(input));
    m_escMode->setCurrentIndex(m_escMode->findData(int(v.escMode)));
    m_escNeutral->setValue(v.escNeutral);
    m_escForward->setValue(v.escFullForward);
    m_escReverse->setValue(v.escFullReverse);
    m_softStart->setChecked(v.softStartEnabled);
    m_softStartSeconds->setValue(v.softStartDurationSec);
    m_softStartFloor->setValue(v.softStartFloorPercent);
    m_reverse->setChecked(v.reverseEnabled);
    m_reverseButton->setValue(v.reverseButtonIndex);
    m_reverseMax->setValue(v.reverseMaxPercent);
    m_gearLimit->setChecked(v.gearLimitEnabled);
    for (int gear = 0; gear < kGears; ++gear)
        m_gearPercent[std::size_t(gear)]->setValue(v.gearLimitPercent[std::size_t(gear)]);
    m_pitLimiter->setChecked(v.pitLimiterEnabled);
    m_pitValue->setValue(v.pitLimiterValue);
    m_smooth->setChecked(v.smoothDeceleration);
    m_decelRate->setValue(v.decelRate);
    m_spike->setChecked(v.spikeRejection);
    m_stuck->setChecked(v.stuckThrottleDetection);
    updateEnabled();
}

DriveSettingsDialog::Trim DriveSettingsDialog::trim() const
{
    return {m_steeringLeft->value(), m_steeringCenter->value(), m_steeringRight->value()};
}

void DriveSettingsDialog::showTrim(const Trim &trim, bool unsaved)
{
    const QSignalBlocker quietLeft(m_steeringLeft);
    const QSignalBlocker quietCenter(m_steeringCenter);
    const QSignalBlocker quietRight(m_steeringRight);
    m_steeringLeft->setValue(trim.left);
    m_steeringCenter->setValue(trim.center);
    m_steeringRight->setValue(trim.right);
    m_saveTrim->setEnabled(unsaved);
    m_revertTrim->setEnabled(unsaved);
}

void DriveSettingsDialog::showEscPresets(const QList<EscPresetEntry> &presets, const QString &selected)
{
    const QSignalBlocker quiet(m_escPreset);
    m_escPreset->clear();
    m_escPreset->addItem(presets.isEmpty() ? tr("No saved presets") : tr("Choose a preset"), QString());
    for (const EscPresetEntry &preset : presets)
        m_escPreset->addItem(preset.name, preset.id);
    m_escPreset->setCurrentIndex(std::max(0, m_escPreset->findData(selected)));
    m_escPreset->setEnabled(!presets.isEmpty());
}

void DriveSettingsDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

void DriveSettingsDialog::showForwardGearMapped(bool mapped)
{
    m_forwardGearMapped = mapped;
    updateEnabled();
}

void DriveSettingsDialog::emitEdited()
{
    updateEnabled();
    emit edited(values());
}

void DriveSettingsDialog::updateEnabled()
{
    // Settings of a switched-off feature stay visible but read as not in force.
    const bool custom = m_escMode->currentData().toInt() == int(EscMode::Custom);
    for (QSpinBox *box : {m_escNeutral, m_escForward, m_escReverse})
        box->setEnabled(custom);
    m_softStartSeconds->setEnabled(m_softStart->isChecked());
    m_softStartFloor->setEnabled(m_softStart->isChecked());
    m_reverseButton->setEnabled(m_reverse->isChecked());
    m_reverseMax->setEnabled(m_reverse->isChecked());
    m_pitValue->setEnabled(m_pitLimiter->isChecked());
    m_decelRate->setEnabled(m_smooth->isChecked());
    for (QSpinBox *box : m_gearPercent)
        box->setEnabled(m_gearLimit->isChecked());
    m_gearLimitWarning->setVisible(m_gearLimit->isChecked() && !m_forwardGearMapped);
}

} // namespace tavrix
