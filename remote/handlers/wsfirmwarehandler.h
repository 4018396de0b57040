#pragma once

#include "firmwaremanifest.h"
#include "wstablehandler.h"

#include <optional>

namespace tavrix {

class FirmwareUpdateService;

// Firmware checks and updates of the receiver, the transmitter's bridge and its SoC for the
// remote app, run by the hub's firmware update service; every step of a run reaches
// subscribed apps as "event_firmware_progress". Also the hub's own version.
class WsFirmwareHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsFirmwareHandler(TavrixController *controller, FirmwareUpdateService *updates, QObject *parent);

private:
    QJsonObject checkFirmware(const RemoteRequest &request);
    QJsonObject updateFirmware(const RemoteRequest &request);
    QJsonObject status(const RemoteRequest &request);
    QJsonObject appVersion(const RemoteRequest &request);

    // The device a check or an update may start on, or the refusal.
    struct Target
    {
        std::optional<FirmwareDevice> device;
        QString refusal;
    };
    [[nodiscard]] Target target(const RemoteRequest &request) const;
    [[nodiscard]] bool isConnected(FirmwareDevice device) const;
    [[nodiscard]] QString runningVersion(FirmwareDevice device) const;
    // The fields of "get_firmware_status" and of the progress push.
    [[nodiscard]] QJsonObject statusObject() const;

    FirmwareUpdateService *m_updates;
};

} // namespace tavrix
