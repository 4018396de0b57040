#include "helisettingsbinder.h"

#include "helicoptercomputation.h"
#include "profileedits.h"
#include "profilekeys.h"
#include "profilesettings.h"
#include "tavrixcontroller.h"

#include <cmath>

namespace tavrix {

HeliSettingsBinder::HeliSettingsBinder(HeliSettingsDialog *dialog, TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_controller(controller)
{}

HeliSettingsDialog::Limits HeliSettingsBinder::limits()
{
    using Settings = HelicopterSettings;
    using Computation = HelicopterComputation;
    HeliSettingsDialog::Limits l;
    l.lastAxisSlot = Settings::kLastAxisSlot;
    l.lastChannel = Settings::kLastChannel;
    l.percentMax = Settings::kPercentMax;
    l.softStartSecMax = Settings::kSoftStartSecMax;
    l.armMicrosMin = Settings::kArmMicrosMin;
    l.armMicrosMax = Settings::kArmMicrosMax;
    l.curvePoints = int(HelicopterCurve::straightLine().size());
    l.minCurvePoints = HelicopterCurve::kMinPoints;
    l.maxCurvePoints = Settings::kMaxCurvePoints;
    l.armIdlePercent = int(std::lround(Computation::kArmIdleLimit * 100.0f));
    l.spikePercent = int(std::lround(Computation::kSpikeThreshold * 100.0f));
    l.spikeHoldMs = Computation::kSpikeHoldTicks * Computation::kTickMs;
    return l;
}

void HeliSettingsBinder::follow()
{
    ProfileManager *profiles = m_controller->profileManager();
    connect(profiles, &ProfileManager::profileModified, this, &HeliSettingsBinder::showStored);
    connect(profiles, &ProfileManager::activeProfileChanged, this, &HeliSettingsBinder::showStored);
    connect(m_controller, &TavrixController::heliArmedChanged, this, &HeliSettingsBinder::showArmed);
    showArmed(m_controller->isHeliArmed());
    showStored();
}

void HeliSettingsBinder::showArmed(bool armed)
{
    if (lockedWhileArmed())
        m_dialog->setLocked(armed ? HelicopterSettings::disarmFirstText() : QString());
}

HelicopterSettings HeliSettingsBinder::stored() const
{
    return helicopterSettingsFromJson(
        m_controller->profileManager()->setting(profilekeys::kHelicopterConfig).toObject());
}

void HeliSettingsBinder::store(const HelicopterSettings &edited)
{
    // An edit that was on its way when the motor was armed is refused by the store's rule.
    m_dialog->showError(editHelicopterConfig(*m_controller->profileManager(), helicopterConfigToJson(edited),
                                             m_controller->isHeliArmed()));
    // What the store kept (clamped, or unchanged when it refused) is what the dialog shows.
    showStored();
}

void HeliSettingsBinder::showStored()
{
    show(stored());
}

} // namespace tavrix
