#pragma once

#include "moveddevicedetection.h"
#include "setupguide.h"

#include <QObject>
#include <QString>

namespace tavrix {

class PedalVerifyDialogBinder;
class TavrixController;

// Ties a setup guide to the controller and the profile store. Each choice is saved the
// moment it is made, through the same calls the pages use (the vehicle's profile, the
// transmitter's connection, a device per role), so leaving the guide keeps exactly the
// steps taken. A start from the guide counts as the safety notice accepted (the notice is
// on the same step); closing the guide stops a transmission it started.
class SetupGuideBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the guide; the controller must outlive it.
    SetupGuideBinder(SetupGuide *guide, TavrixController *controller);
    ~SetupGuideBinder() override;

private:
    void chooseVehicle(bool helicopter);
    void detect(const QString &roleKey);
    void assignDetected(const MovedControl &control);
    void cancelDetection();
    void start();
    void onStepChanged(SetupGuide::Step step);
    void showDone();

    SetupGuide *m_guide;
    TavrixController *m_controller;
    PedalVerifyDialogBinder *m_pedals;
    // The role whose device is being looked for; empty while nothing is.
    QString m_detectingRole;
    bool m_startedHere = false;
};

} // namespace tavrix
