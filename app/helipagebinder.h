#pragma once

#include "helicoptersettings.h"

#include <QObject>

namespace tavrix {

class HeliPage;
class StartConfirmation;
class TavrixController;
class VehiclePageBinder;

// Binds the "rc-heli" page to the controller: the shared vehicle parts, arming (refusals
// show on the page), the rate modes with the profile's percentages, and the cyclic,
// collective and yaw read back from the channels being sent.
class HeliPageBinder : public QObject
{
    Q_OBJECT
public:
    // `confirmation`, when given, is asked before the page's Start starts transmission.
    HeliPageBinder(HeliPage *page, TavrixController *controller,
                   const StartConfirmation *confirmation = nullptr, QObject *parent = nullptr);

private:
    void showRunning(bool running);
    void readSettings();
    void showControls();

    HeliPage *m_page;
    TavrixController *m_controller;
    VehiclePageBinder *m_vehicle;
    HelicopterSettings m_settings;
};

} // namespace tavrix
