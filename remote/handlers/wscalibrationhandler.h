#pragma once

#include "receiverendpointcalibration.h"
#include "wstablehandler.h"

namespace tavrix {

// The remote app's calibration of the receiver's throttle and steering end points: it
// starts the calibration, starts, retries or skips each step's measurement, cancels, and
// reads where it stands. Each judgement of a measurement reaches subscribed apps as an
// "event_calibration_progress".
class WsCalibrationHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsCalibrationHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject startCalibration(const RemoteRequest &request);
    QJsonObject calibrationStep(const RemoteRequest &request);
    QJsonObject cancelCalibration(const RemoteRequest &request);
    QJsonObject status(const RemoteRequest &request);

    void pushProgress(const ReceiverEndpointCalibration::Progress &progress);
    [[nodiscard]] ReceiverEndpointCalibration *calibration() const;
};

} // namespace tavrix
