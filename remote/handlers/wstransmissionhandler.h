#pragma once

#include "wstablehandler.h"

namespace tavrix {

// The remote app's transmission controls: start and stop, the channels and hand-set
// overrides of them, the frame count and the auto-start setting, and the transmitter
// module's ELRS parameters in configuration mode, with their push events.
class ElrsRemoteState;

class WsTransmissionHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsTransmissionHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject transmissionStatus(const RemoteRequest &request);
    QJsonObject start(const RemoteRequest &request);
    QJsonObject stop(const RemoteRequest &request);
    QJsonObject channels(const RemoteRequest &request);
    QJsonObject setChannel(const RemoteRequest &request);
    QJsonObject frameCount(const RemoteRequest &request);
    QJsonObject setAutoStart(const RemoteRequest &request);
    QJsonObject autoStart(const RemoteRequest &request);
    QJsonObject elrsStartConfig(const RemoteRequest &request);
    QJsonObject elrsStopConfig(const RemoteRequest &request);
    QJsonObject elrsState(const RemoteRequest &request);
    QJsonObject elrsParams(const RemoteRequest &request);
    QJsonObject setElrsParam(const RemoteRequest &request);

    [[nodiscard]] QJsonObject autoStartData() const;

    ElrsRemoteState *m_elrs;
};

} // namespace tavrix
