#pragma once

#include "receiverendpointcalibration.h"

#include <QObject>

namespace tavrix {

class RadioCalibrationDialog;
class TavrixController;

// Binds one "radio-cal" dialog to the controller's end-point calibration, the same one the
// remote app drives, for as long as the dialog lives: the buttons take the calibration's
// steps, and its state, live channels and judgements are shown as they change.
class RadioCalibrationBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    RadioCalibrationBinder(RadioCalibrationDialog *dialog, TavrixController *controller);

private:
    void start();
    void act(ReceiverEndpointCalibration::Action action);
    void showRefusal(ReceiverEndpointCalibration::Refusal refusal);
    void showState();
    void showProgress(const ReceiverEndpointCalibration::Progress &progress);

    RadioCalibrationDialog *m_dialog;
    ReceiverEndpointCalibration *m_calibration;
    ReceiverEndpointCalibration::State m_lastState = ReceiverEndpointCalibration::State::Waiting;
};

} // namespace tavrix
