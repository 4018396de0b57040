#pragma once

#include "deviceroles.h"
#include "wstablehandler.h"

#include <optional>

namespace tavrix {

struct SteeringEndpoints;

// Axis settings, ESC mode, axis mappings of the wheel base and pedals, the shifter's
// gear mapping and the learning of shifter gears and buttons by their press, and the
// steering trim tried out live before it is saved, and the wheel's force feedback.
class WsAxisHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsAxisHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject getAxisSettings(const RemoteRequest &request);
    QJsonObject setAxisSettings(const RemoteRequest &request);
    QJsonObject setSteeringTrimLive(const RemoteRequest &request);
    QJsonObject applySteeringTrim(const RemoteRequest &request);
    QJsonObject revertSteeringTrim(const RemoteRequest &request);
    QJsonObject getWheelFfb(const RemoteRequest &request);
    QJsonObject setWheelFfb(const RemoteRequest &request);
    QJsonObject checkWheelFfb(const RemoteRequest &request);
    QJsonObject testWheelFfb(const RemoteRequest &request);
    QJsonObject getEscMode(const RemoteRequest &request);
    QJsonObject setEscMode(const RemoteRequest &request);
    QJsonObject getEscModes(const RemoteRequest &request);
    QJsonObject getWheelBaseAxisMapping(const RemoteRequest &request);
    QJsonObject setWheelBaseAxisMapping(const RemoteRequest &request);
    QJsonObject getPedalsAxisMapping(const RemoteRequest &request);
    QJsonObject setPedalsAxisMapping(const RemoteRequest &request);
    QJsonObject getAvailablePresets(const RemoteRequest &request);
    QJsonObject getShifterMapping(const RemoteRequest &request);
    QJsonObject setShifterMapping(const RemoteRequest &request);
    QJsonObject startShifterDetection(const RemoteRequest &request);
    QJsonObject cancelShifterDetection(const RemoteRequest &request);
    QJsonObject startButtonDetection(const RemoteRequest &request);
    QJsonObject stopButtonDetection(const RemoteRequest &request);

    QJsonObject axisMapping(const RemoteRequest &request, DeviceRole role);
    QJsonObject setAxisMapping(const RemoteRequest &request, DeviceRole role);
    // The end points the request names, each missing one taken from those in force.
    [[nodiscard]] std::optional<SteeringEndpoints> requestedTrim(const RemoteRequest &request) const;
    [[nodiscard]] QJsonObject storedAxisSettings() const;
    // Writes the active profile's axisSettings and has the controller read them again.
    bool saveAxisSettings(const QJsonObject &axisSettings);
    [[nodiscard]] QJsonObject shifterMappingJson() const;
    [[nodiscard]] QJsonObject wheelFfbJson() const;
    void connectPushes();
};

} // namespace tavrix
