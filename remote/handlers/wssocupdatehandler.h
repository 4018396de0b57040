#pragma once

#include "wstablehandler.h"

namespace tavrix {

class FirmwareUpdateService;

// The A/B system update of the transmitter's companion processor (SoC) for the remote app.
// Its update channel is not known to the hub: the firmware update service refuses every
// check and start with the reason in the log, and these requests report that honestly.
class WsSocUpdateHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsSocUpdateHandler(TavrixController *controller, FirmwareUpdateService *updates, QObject *parent);

private:
    QJsonObject check(const RemoteRequest &request);
    QJsonObject start(const RemoteRequest &request);
    QJsonObject cancel(const RemoteRequest &request);
    QJsonObject reboot(const RemoteRequest &request);

    void publishProgress();

    FirmwareUpdateService *m_updates;
};

} // namespace tavrix
