#pragma once

#include "wstablehandler.h"

namespace tavrix {

class InputDevice;

// The remote app's view of the controls: the processed driving inputs and channels, the
// raw axes, buttons and hats of one car device, and the pit limiter.
class WsInputHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsInputHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject inputState(const RemoteRequest &request);
    QJsonObject rawInputState(const RemoteRequest &request);
    QJsonObject buttonStates(const RemoteRequest &request);
    QJsonObject pitLimiter(const RemoteRequest &request);

    // Shared by "get_input_state" and "event_input_changed".
    [[nodiscard]] QJsonObject inputStateData() const;
    // The connected device the request's "device" names; null with the error reply in
    // refusal when the name is unknown or the device is not connected.
    [[nodiscard]] const InputDevice *namedDevice(const RemoteRequest &request, QJsonObject &refusal) const;
};

} // namespace tavrix
