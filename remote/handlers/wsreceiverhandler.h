#pragma once

#include "wstablehandler.h"

namespace tavrix {

class ReceiverConfigManager;

// The receiver in the car as the remote app sees it: its settings, read and changed over
// the USB console or the radio, the two sensor steps (gyro calibration and mounting
// detection), the search over the radio and the raw console. Every change of the
// receiver's state reaches subscribed apps as one "event_receiver_config" per event-loop
// turn, however many signals the change fired.
class WsReceiverHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsReceiverHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject config(const RemoteRequest &request);
    QJsonObject setConfig(const RemoteRequest &request);
    QJsonObject sync(const RemoteRequest &request);
    QJsonObject calibrateGyro(const RemoteRequest &request);
    QJsonObject detectMounting(const RemoteRequest &request);
    QJsonObject searchElrs(const RemoteRequest &request);
    QJsonObject command(const RemoteRequest &request);

    [[nodiscard]] ReceiverConfigManager *manager() const;
    // The object of "get_receiver_config" and of its push.
    [[nodiscard]] QJsonObject configObject() const;
    [[nodiscard]] bool gyroReachable() const;
    [[nodiscard]] bool sensorStepRunning() const;
    void schedulePush();

    bool m_pushPending = false;
};

} // namespace tavrix
