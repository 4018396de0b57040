#pragma once

#include <QObject>

namespace tavrix {

class TavrixController;
class WheelFfbDialog;
class WheelForceFeedback;

// Binds one force-feedback dialog to the controller's wheel force feedback for as long as
// the dialog lives: the check, on and off, strength and centering, the test pulses and the
// live level. Opening the dialog runs the check once, so it never shows a stale verdict.
class WheelFfbDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    WheelFfbDialogBinder(WheelFfbDialog *dialog, TavrixController *controller);

private:
    void runCheck();
    void setOn(bool on);
    void playTestPulse(double level);
    void showState();

    WheelFfbDialog *m_dialog;
    WheelForceFeedback *m_ffb;
};

} // namespace tavrix
