#include "carpagebinder.h"

#include "carpage.h"
#include "receivercardbinder.h"
#include "tavrixcontroller.h"
#include "vehiclepagebinder.h"

namespace tavrix {

CarPageBinder::CarPageBinder(CarPage *page, TavrixController *controller,
                             const StartConfirmation *confirmation, QObject *parent)
    : QObject(parent)
    , m_page(page)
    , m_controller(controller)
    , m_vehicle(
          new VehiclePageBinder(page, controller, {VehicleType::Car, page->deviceCard(), confirmation}, this))
{
    new ReceiverCardBinder(page->receiverCard(), controller, this);
    connect(m_vehicle, &VehiclePageBinder::repaintDue, this, &CarPageBinder::showInput);
    connect(controller, &TavrixController::carLinkChanged, this, &CarPageBinder::showCarLink);
    connect(controller, &TavrixController::linkStatisticsUpdated, page, [page](const LinkStatistics &stats) {
        page->showLinkQuality(stats.linkQuality, stats.uplinkRssi1);
    });
    connect(controller, &TavrixController::gpsUpdated, page,
            [page](const GpsFix &fix) { page->showGps(fix.valid, fix.satellites); });
    connect(controller, &TavrixController::telemetrySensorsUpdated, this, &CarPageBinder::showBattery);
    connect(controller, &TavrixController::profileChanged, this, &CarPageBinder::showProfileName);
    connect(controller->profileManager(), &ProfileManager::profileListChanged, this,
            &CarPageBinder::showProfileName);
    showCarLink(controller->telemetry()->isCarLinked());
    showProfileName();
    showInput();
}

void CarPageBinder::showInput()
{
    if (m_vehicle->isActiveVehicle() && m_controller->devices()->isConnected(DeviceRole::WheelBase))
        m_page->showInput(m_controller->steering(), m_controller->throttle(), m_controller->brake());
    else
        m_page->clearInput();
}

void CarPageBinder::showCarLink(bool linked)
{
    // Readings from a link that dropped would look current; clear them instead.
    if (!linked)
        m_page->clearTelemetry();
    m_page->setCarLinked(linked);
}

void CarPageBinder::showBattery()
{
    const BatterySensor battery = m_controller->telemetry()->battery();
    if (battery.present)
        m_page->showBattery(battery.voltage, battery.remaining);
}

void CarPageBinder::showProfileName()
{
    m_page->setProfileName(m_controller->profileManager()->activeProfileName());
}

} // namespace tavrix
