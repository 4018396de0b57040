#pragma once

#include "wstablehandler.h"

namespace tavrix {

enum class DeviceRole;

// The remote app's connections: the transmitter's and the receiver's ports, the car's input
// devices by role,
// the one-tap auto-connect, and the news that one of them went away.
class WsDeviceHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsDeviceHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject serialPorts(const RemoteRequest &request);
    QJsonObject transmitterStatus(const RemoteRequest &request);
    QJsonObject connectTransmitter(const RemoteRequest &request);
    QJsonObject disconnectTransmitter(const RemoteRequest &request);
    QJsonObject receiverStatus(const RemoteRequest &request);
    QJsonObject connectReceiver(const RemoteRequest &request);
    QJsonObject disconnectReceiver(const RemoteRequest &request);
    QJsonObject inputDevices(const RemoteRequest &request);
    QJsonObject deviceStatus(const RemoteRequest &request, DeviceRole role);
    QJsonObject connectDevice(const RemoteRequest &request, DeviceRole role);
    QJsonObject disconnectDevice(const RemoteRequest &request, DeviceRole role);
    QJsonObject autoConnect(const RemoteRequest &request);
    QJsonObject appMode(const RemoteRequest &request);

    void pushDisconnected(QLatin1String device);
};

} // namespace tavrix
