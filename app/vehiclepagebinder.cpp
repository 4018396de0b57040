#include "vehiclepagebinder.h"

#include "channelneutrals.h"
#include "repaintthrottle.h"
#include "startconfirmation.h"
#include "tavrixcontroller.h"
#include "transmittercardbinder.h"
#include "vehiclepage.h"
#include "vehicleprofiles.h"
#include "visiblerefresh.h"

namespace tavrix {

VehiclePageBinder::VehiclePageBinder(VehiclePage *page, TavrixController *controller, const Setup &setup,
                                     QObject *parent)
    : QObject(parent)
    , m_page(page)
    , m_controller(controller)
    , m_vehicle(setup.vehicle)
    , m_confirmation(setup.confirmation)
    , m_transmitter(new TransmitterCardBinder(page->transmitterCard(), controller, this))
    , m_devices(
          new DevicePickerBinder(setup.devices, controller, DevicePickerBinder::rolesOf(setup.vehicle), this))
    , m_repaint(new RepaintThrottle([this] { repaint(); }, this))
{
    new VisibleRefresh(
        page, kListRefreshInterval,
        [this] {
            m_transmitter->refreshPorts();
            m_devices->refresh();
        },
        this);

    connect(page, &VehiclePage::startRequested, controller, [this] {
        if (!isActiveVehicle()) {
            m_page->showProblem(tr("Switch to a profile for this vehicle before starting transmission."));
            return;
        }
        const auto start = [this] {
            if (m_controller->startTransmission())
                m_page->clearProblem();
        };
        if (m_confirmation)
            m_confirmation->request(start);
        else
            start();
    });
    connect(page, &VehiclePage::stopRequested, controller, &TavrixController::stopTransmission);
    connect(page, &VehiclePage::switchProfileRequested, this, &VehiclePageBinder::switchProfile);
    connect(controller, &TavrixController::runningChanged, this, &VehiclePageBinder::showRunning);
    connect(controller, &TavrixController::errorOccurred, this, &VehiclePageBinder::showProblem);
    connect(controller, &TavrixController::inputChanged, m_repaint, &RepaintThrottle::request);
    connect(controller, &TavrixController::frameSent, m_repaint, &RepaintThrottle::request);

    // The controller follows the store first (it connected earlier), so by the time these
    // arrive its vehicle type is the new one.
    ProfileManager *profiles = controller->profileManager();
    connect(profiles, &ProfileManager::errorOccurred, this, &VehiclePageBinder::showProblem);
    connect(profiles, &ProfileManager::activeProfileChanged, this, &VehiclePageBinder::showProfile);
    connect(profiles, &ProfileManager::profileModified, this, &VehiclePageBinder::showProfile);
    connect(controller, &TavrixController::profileChanged, this, &VehiclePageBinder::showProfile);

    showRunning(controller->isRunning());
    showProfile();
    repaint();
}

bool VehiclePageBinder::isActiveVehicle() const
{
    return m_controller->vehicleType() == m_vehicle;
}

void VehiclePageBinder::showRunning(bool running)
{
    m_page->setTransmitting(running && isActiveVehicle());
    repaint();
}

void VehiclePageBinder::showProblem(const QString &error)
{
    // Both vehicle pages hear every refusal; the one in front shows it.
    if (m_page->isVisible())
        m_page->showProblem(error);
}

void VehiclePageBinder::showProfile()
{
    const QString name = m_controller->profileManager()->activeProfileName();
    if (isActiveVehicle()) {
        m_page->setProfileMismatch(QString());
    } else if (m_vehicle == VehicleType::Helicopter) {
        m_page->setProfileMismatch(tr("The active profile \u201C%1\u201D drives a car.").arg(name),
                                   tr("Fly with a helicopter profile"));
    } else {
        m_page->setProfileMismatch(tr("The active profile \u201C%1\u201D flies a helicopter.").arg(name),
                                   tr("Drive with a car profile"));
    }
    m_page->setTransmitting(m_controller->isRunning() && isActiveVehicle());
    m_page->setChannelNeutrals(channelNeutrals(m_controller->settings()));
    m_devices->refresh();
}

void VehiclePageBinder::switchProfile()
{
    const bool heli = m_vehicle == VehicleType::Helicopter;
    activateProfileForVehicle(*m_controller->profileManager(),
                              heli ? QStringLiteral("rc_helicopter") : QStringLiteral("rc_car"),
                              heli ? tr("RC Helicopter") : tr("RC Car"));
}

void VehiclePageBinder::repaint()
{
    // Before the first frame the channels hold no computed values yet: show none rather
    // than sixteen zeros that look like full deflection.
    const bool sentAny = m_controller->isRunning() || m_controller->frameCount() > 0;
    if (isActiveVehicle() && sentAny)
        m_page->showChannels(m_controller->channels());
    else
        m_page->clearChannels();
    emit repaintDue();
}

} // namespace tavrix
