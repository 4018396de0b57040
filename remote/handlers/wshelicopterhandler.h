#pragma once

#include "wstablehandler.h"

namespace tavrix {

// The helicopter: choosing the vehicle, its joystick, throttle and rudder pedals, its
// settings and their calibration points, the flight channels as sent, the dual-rate mode
// and arming.
class WsHelicopterHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsHelicopterHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject getVehicleType(const RemoteRequest &request);
    QJsonObject selectHelicopter(const RemoteRequest &request);
    QJsonObject selectCar(const RemoteRequest &request);
    QJsonObject getDevices(const RemoteRequest &request);
    QJsonObject connectDevice(const RemoteRequest &request);
    QJsonObject disconnectDevice(const RemoteRequest &request);
    QJsonObject getConfig(const RemoteRequest &request);
    QJsonObject setConfig(const RemoteRequest &request);
    QJsonObject captureCalibration(const RemoteRequest &request);
    QJsonObject getOutput(const RemoteRequest &request);
    QJsonObject setRateMode(const RemoteRequest &request);
    QJsonObject getArmed(const RemoteRequest &request);
    QJsonObject setArmed(const RemoteRequest &request);
    QJsonObject saveHelicopterProfile(const RemoteRequest &request);

    QJsonObject selectVehicle(const RemoteRequest &request, QLatin1String vehicleType);
    [[nodiscard]] QJsonObject storedConfig() const;
    // Writes the active profile's helicopterConfig and has the controller read it again.
    bool saveConfig(const QJsonObject &config);
    void connectPushes();
};

} // namespace tavrix
