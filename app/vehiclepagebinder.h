#pragma once

#include "controllertypes.h"
#include "devicepickerbinder.h"

#include <QObject>

namespace tavrix {

class DevicePickerCard;
class ProfileManager;
class RepaintThrottle;
class StartConfirmation;
class TavrixController;
class TransmitterCardBinder;
class VehiclePage;

// What binds the car and the helicopter page alike: transmitter card, device pickers,
// start/stop with every refusal shown on the page, the channels at a paintable rate and a
// banner with a way out when the active profile is for the other vehicle.
class VehiclePageBinder : public QObject
{
    Q_OBJECT
public:
    struct Setup
    {
        VehicleType vehicle;
        // One picker per role of the vehicle, keyed by the role's option name ("wheel").
        DevicePickerCard *devices;
        // Asked before the page's Start goes to the controller; none asks nothing.
        const StartConfirmation *confirmation = nullptr;
    };

    // How often the port and controller lists are read again while the page is visible.
    static constexpr std::chrono::milliseconds kListRefreshInterval{2000};

    VehiclePageBinder(VehiclePage *page, TavrixController *controller, const Setup &setup,
                      QObject *parent = nullptr);

    // True when the active profile is for this page's vehicle.
    bool isActiveVehicle() const;

signals:
    // The controls or channels moved; at most about 30 times a second.
    void repaintDue();

private:
    void showRunning(bool running);
    void showProblem(const QString &error);
    void showProfile();
    void switchProfile();
    void repaint();

    VehiclePage *m_page;
    TavrixController *m_controller;
    VehicleType m_vehicle;
    const StartConfirmation *m_confirmation;
    TransmitterCardBinder *m_transmitter;
    DevicePickerBinder *m_devices;
    RepaintThrottle *m_repaint;
};

} // namespace tavrix
