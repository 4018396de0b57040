#pragma once

#include <QObject>

namespace tavrix {

class CarPage;
class StartConfirmation;
class TavrixController;
class VehiclePageBinder;

// Binds the "rc-car" page to the controller: the shared vehicle parts, live steering,
// throttle and brake, the car's link, battery and GPS, and the car's receiver.
class CarPageBinder : public QObject
{
    Q_OBJECT
public:
    // confirmation: asked before the page's Start goes ahead (none asks nothing).
    CarPageBinder(CarPage *page, TavrixController *controller,
                  const StartConfirmation *confirmation = nullptr, QObject *parent = nullptr);

private:
    void showInput();
    void showCarLink(bool linked);
    void showBattery();
    void showProfileName();

    CarPage *m_page;
    TavrixController *m_controller;
    VehiclePageBinder *m_vehicle;
};

} // namespace tavrix
