#include "drivesettingsdialogbinder.h"

#include "axissettingsjson.h"
#include "profileedits.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "profilesettings.h"
#include "shiftergearsbinder.h"
#include "steeringtrim.h"
#include "tavrixcontroller.h"

#include <QJsonArray>

namespace tavrix {

namespace {

namespace keys = profilekeys;

int upperLimit(QLatin1String key)
{
    return int(AxisSettingsJson::range(key).max);
}

DriveSettingsDialog::Values valuesOf(const DriveSettings &s)
{
    DriveSettingsDialog::Values v;
    v.escMode = DriveSettingsDialog::EscMode(int(s.escMode));
    v.escNeutral = s.escNeutral;
    v.escFullForward = s.escFullForward;
    v.escFullReverse = s.escFullReverse;
    v.softStartEnabled = s.softStartEnabled;
    v.softStartDurationSec = s.softStartDurationSec;
    v.softStartFloorPercent = s.softStartFloorPercent;
    v.reverseEnabled = s.reverseEnabled;
    v.reverseButtonIndex = s.reverseButtonIndex;
    v.reverseMaxPercent = s.reverseMaxPercent;
    v.gearLimitEnabled = s.gearThrottleLimitEnabled;
    for (int gear = 0; gear < DriveSettings::kGears; ++gear)
        v.gearLimitPercent[std::size_t(gear)] = s.gearThrottleLimitPercent[std::size_t(gear)];
    v.pitLimiterEnabled = s.pitLimiterEnabled;
    v.pitLimiterValue = s.pitLimiterValue;
    v.smoothDeceleration = s.smoothDeceleration;
    v.decelRate = s.decelRate;
    v.spikeRejection = s.throttleSpikeRejectionEnabled;
    v.stuckThrottleDetection = s.stuckThrottleDetectionEnabled;
    return v;
}

QJsonObject storedShape(const DriveSettingsDialog::Values &v)
{
    QJsonArray gears;
    for (int percent : v.gearLimitPercent)
        gears.append(percent);
    return {
        {keys::kEscMode, int(v.escMode)},
        {keys::kEscNeutral, v.escNeutral},
        {keys::kEscFullForward, v.escFullForward},
        {keys::kEscFullReverse, v.escFullReverse},
        {keys::kSoftStartEnabled, v.softStartEnabled},
        {keys::kSoftStartDurationSec, v.softStartDurationSec},
        {keys::kSoftStartFloorPercent, v.softStartFloorPercent},
        {keys::kReverseEnabled, v.reverseEnabled},
        {keys::kReverseButtonIndex, v.reverseButtonIndex},
        {keys::kReverseMaxPercent, v.reverseMaxPercent},
        {keys::kGearThrottleLimitEnabled, v.gearLimitEnabled},
        {keys::kGearThrottleLimitPercent, gears},
        {keys::kPitLimiterEnabled, v.pitLimiterEnabled},
        {keys::kPitLimiterValue, v.pitLimiterValue},
        {keys::kSmoothDeceleration, v.smoothDeceleration},
        {keys::kDecelRate, v.decelRate},
        {keys::kThrottleSpikeRejectionEnabled, v.spikeRejection},
        {keys::kStuckThrottleDetectionEnabled, v.stuckThrottleDetection},
    };
}

DriveSettingsDialog::Trim trimOf(const SteeringEndpoints &endpoints)
{
    return {endpoints.left, endpoints.center, endpoints.right};
}

} // namespace

DriveSettingsDialogBinder::DriveSettingsDialogBinder(DriveSettingsDialog *dialog,
                                                     TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_profiles(controller->profileManager())
    , m_trim(controller->steeringTrim())
{
    connect(dialog, &DriveSettingsDialog::edited, this, &DriveSettingsDialogBinder::apply);
    connect(dialog, &DriveSettingsDialog::escPresetChosen, this, &DriveSettingsDialogBinder::applyEscPreset);
    connect(dialog, &DriveSettingsDialog::trimEdited, this, &DriveSettingsDialogBinder::tryTrim);
    connect(dialog, &DriveSettingsDialog::trimSaveRequested, this, &DriveSettingsDialogBinder::saveTrim);
    connect(dialog, &DriveSettingsDialog::trimRevertRequested, this, &DriveSettingsDialogBinder::revertTrim);
    // A trim nobody saved must not stay on the car once its dialog is gone.
    connect(dialog, &QDialog::finished, this, [this] {
        if (m_tried)
            revertTrim();
    });
    // The controller heard of the change first, so the end points in force are already the new ones.
    connect(m_profiles, &ProfileManager::profileModified, this, &DriveSettingsDialogBinder::showSettings);
    connect(m_profiles, &ProfileManager::activeProfileChanged, this,
            &DriveSettingsDialogBinder::showSettings);
    connect(m_profiles, &ProfileManager::escPresetsChanged, this, &DriveSettingsDialogBinder::showEscPresets);
    showSettings();
    new ShifterGearsBinder(dialog, controller);
}

DriveSettingsDialog::Limits DriveSettingsDialogBinder::limits()
{
    DriveSettingsDialog::Limits l;
    l.channelMin = int(AxisSettingsJson::range(keys::kPitLimiterValue).min);
    l.channelMax = upperLimit(keys::kPitLimiterValue);
    l.decelRateMax = upperLimit(keys::kDecelRate);
    l.softStartSecondsMax = upperLimit(keys::kSoftStartDurationSec);
    l.buttonIndexMax = upperLimit(keys::kReverseButtonIndex);
    return l;
}

void DriveSettingsDialogBinder::showSettings()
{
    m_dialog->showValues(valuesOf(ProfileSettings::fromProfile(m_profiles->activeProfile()).drive));
    showEscPresets();
    showTrim();
}

void DriveSettingsDialogBinder::showEscPresets()
{
    const QJsonObject stored = m_profiles->setting(keys::kAxisSettings).toObject();
    const QString storedId = stored.value(keys::kEscPresetId).toString();
    QList<DriveSettingsDialog::EscPresetEntry> entries;
    QString selected;
    for (const EscPreset &preset : m_profiles->escPresets()->presets()) {
        entries.append({preset.id, preset.name});
        // The preset the values came from, while they are still its values: once they are
        // edited by hand (or the preset is updated) the car no longer runs on it.
        if (preset.id == storedId && preset.neutral == stored.value(keys::kEscNeutral).toInt() &&
            preset.fullForward == stored.value(keys::kEscFullForward).toInt() &&
            preset.fullReverse == stored.value(keys::kEscFullReverse).toInt())
            selected = preset.id;
    }
    m_dialog->showEscPresets(entries, selected);
}

void DriveSettingsDialogBinder::apply(const DriveSettingsDialog::Values &values)
{
    showOutcome(editAxisSettings(*m_profiles, storedShape(values)));
}

void DriveSettingsDialogBinder::applyEscPreset(const QString &presetId)
{
    showOutcome(storeRefusal(*m_profiles, [&] { return m_profiles->applyEscPreset(presetId); }));
}

void DriveSettingsDialogBinder::showOutcome(const QString &refusal)
{
    m_dialog->showError(refusal);
    // What the store kept (clamped, or unchanged when it refused) is what the dialog shows.
    showSettings();
}

void DriveSettingsDialogBinder::showTrim()
{
    const SteeringEndpoints inForce = m_trim.inForce();
    m_dialog->showTrim(trimOf(inForce), inForce != m_trim.saved());
}

std::optional<SteeringEndpoints> DriveSettingsDialogBinder::checkedTrim(const DriveSettingsDialog::Trim &trim)
{
    const std::optional<SteeringEndpoints> endpoints =
        SteeringEndpoints::checked(trim.left, trim.center, trim.right);
    m_dialog->showError(endpoints ? QString() : SteeringEndpoints::outOfOrderMessage());
    return endpoints;
}

void DriveSettingsDialogBinder::tryTrim(const DriveSettingsDialog::Trim &trim)
{
    if (const std::optional<SteeringEndpoints> endpoints = checkedTrim(trim)) {
        m_trim.applyLive(*endpoints);
        m_tried = true;
    }
    // Refused, the boxes go back to the end points in force.
    showTrim();
}

void DriveSettingsDialogBinder::saveTrim(const DriveSettingsDialog::Trim &trim)
{
    const std::optional<SteeringEndpoints> endpoints = checkedTrim(trim);
    if (!endpoints) {
        showTrim();
        return;
    }
    const QString refusal = storeRefusal(*m_profiles, [&] { return m_trim.save(*endpoints); });
    if (refusal.isEmpty())
        m_tried = false;
    showOutcome(refusal);
}

void DriveSettingsDialogBinder::revertTrim()
{
    m_trim.revert();
    m_tried = false;
    m_dialog->showError(QString());
    showTrim();
}

} // namespace tavrix
