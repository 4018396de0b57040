#pragma once

#include "wstablehandler.h"

namespace tavrix {

// The remote app's transmission controls: start and stop, the channels and hand-set
// overrides of them, the frame count and the auto-start setting, with their push events.
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

    [[nodiscard]] QJsonObject autoStartData() const;
};

} // namespace tavrix
