#include "helipagebinder.h"

#include "channelbar.h"
#include "helipage.h"
#include "profilesettings.h"
#include "tavrixcontroller.h"
#include "vehiclepagebinder.h"

#include <algorithm>

namespace tavrix {

namespace {

// A channel value back on the stick's scale: -1..+1 around the centre, or 0..1 from the low end.
double bipolar(int32_t value)
{
    return std::clamp((value - hub::ChannelBar::kCentre) /
                          double(hub::ChannelBar::kHigh - hub::ChannelBar::kCentre),
                      -1.0, 1.0);
}

double oneSided(int32_t value)
{
    return std::clamp(
        (value - hub::ChannelBar::kLow) / double(hub::ChannelBar::kHigh - hub::ChannelBar::kLow), 0.0, 1.0);
}

} // namespace

HeliPageBinder::HeliPageBinder(HeliPage *page, TavrixController *controller,
                               const StartConfirmation *confirmation, QObject *parent)
    : QObject(parent)
    , m_page(page)
    , m_controller(controller)
    , m_vehicle(new VehiclePageBinder(page, controller,
                                      {VehicleType::Helicopter, page->controlsCard(), confirmation}, this))
{
    connect(page, &HeliPage::armRequested, controller, [controller] { controller->setHeliArmed(true); });
    connect(page, &HeliPage::disarmRequested, controller, [controller] { controller->setHeliArmed(false); });
    connect(page, &HeliPage::rateModeRequested, controller, &TavrixController::setHeliRateMode);
    connect(controller, &TavrixController::heliArmedChanged, page, &HeliPage::setArmed);
    connect(controller, &TavrixController::heliRateModeChanged, page, &HeliPage::showRateMode);
    connect(controller, &TavrixController::runningChanged, this, &HeliPageBinder::showRunning);
    connect(controller, &TavrixController::profileChanged, this, &HeliPageBinder::readSettings);
    connect(controller->profileManager(), &ProfileManager::profileModified, this,
            &HeliPageBinder::readSettings);
    connect(m_vehicle, &VehiclePageBinder::repaintDue, this, &HeliPageBinder::showControls);
    readSettings();
    showRunning(controller->isRunning());
}

void HeliPageBinder::showRunning(bool running)
{
    const bool flying = running && m_vehicle->isActiveVehicle();
    m_page->setArmAvailable(flying, tr("Start transmission before arming."));
    m_page->setArmed(m_controller->isHeliArmed());
    showControls();
}

void HeliPageBinder::readSettings()
{
    m_settings = helicopterSettingsFromJson(
        m_controller->profileManager()->setting(QStringLiteral("helicopterConfig")).toObject());
    const HelicopterSettings::DualRates &rates = m_settings.dualRates;
    m_page->showRatePercents({rates.beginnerPct, rates.sportPct, rates.threeDPct},
                             rates.enabled && m_vehicle->isActiveVehicle());
    m_page->showRateMode(m_controller->heliRateMode());
    showRunning(m_controller->isRunning());
}

void HeliPageBinder::showControls()
{
    if (!m_controller->isRunning() || !m_vehicle->isActiveVehicle()) {
        m_page->clearControls();
        return;
    }
    const ChannelValues &channels = m_controller->channels();
    const auto channel = [&channels](int32_t index) {
        return index >= 0 && index < int32_t(channels.size()) ? channels.at(index) : hub::ChannelBar::kCentre;
    };
    const HelicopterSettings::Channels &map = m_settings.channels;
    m_page->showControls(bipolar(channel(map.roll)), bipolar(channel(map.pitch)),
                         oneSided(channel(map.throttle)), bipolar(channel(map.rudder)));
}

} // namespace tavrix
