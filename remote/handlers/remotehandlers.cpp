#include "remotehandlers.h"

#include "websocketserver.h"
#include "wsaxishandler.h"
#include "wsbuttonhandler.h"
#include "wscalibrationhandler.h"
#include "wsdevicehandler.h"
#include "wsescpresethandler.h"
#include "wsfirmwarehandler.h"
#include "wshelicopterhandler.h"
#include "wsinputhandler.h"
#include "wsledhandler.h"
#include "wsprofilehandler.h"
#include "wsreceiverhandler.h"
#include "wssocupdatehandler.h"
#include "wstelemetryhandler.h"
#include "wstransmissionhandler.h"

namespace tavrix {

namespace {

template<class Handler> void add(WebSocketServer &server, TavrixController *controller)
{
    server.registerHandler(new Handler(controller, &server));
}

} // namespace

void registerRemoteHandlers(WebSocketServer &server, TavrixController *controller,
                            FirmwareUpdateService *firmware)
{
    add<WsDeviceHandler>(server, controller);
    add<WsTransmissionHandler>(server, controller);
    add<WsInputHandler>(server, controller);
    add<WsAxisHandler>(server, controller);
    add<WsButtonHandler>(server, controller);
    add<WsProfileHandler>(server, controller);
    add<WsEscPresetHandler>(server, controller);
    if (firmware) {
        server.registerHandler(new WsFirmwareHandler(controller, firmware, &server));
        server.registerHandler(new WsSocUpdateHandler(controller, firmware, &server));
    }
    add<WsCalibrationHandler>(server, controller);
    add<WsLedHandler>(server, controller);
    add<WsHelicopterHandler>(server, controller);
    add<WsTelemetryHandler>(server, controller);
    add<WsReceiverHandler>(server, controller);
}

} // namespace tavrix
