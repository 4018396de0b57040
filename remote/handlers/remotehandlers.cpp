#include "remotehandlers.h"

#include "websocketserver.h"
#include "wsbuttonhandler.h"
#include "wsescpresethandler.h"
#include "wsprofilehandler.h"
#include "wstelemetryhandler.h"

namespace tavrix {

namespace {

template<class Handler>
void add(WebSocketServer &server, TavrixController *controller)
{
    server.registerHandler(new Handler(controller, &server));
}

} // namespace

void registerRemoteHandlers(WebSocketServer &server, TavrixController *controller)
{
    add<WsButtonHandler>(server, controller);
    add<WsProfileHandler>(server, controller);
    add<WsEscPresetHandler>(server, controller);
    add<WsTelemetryHandler>(server, controller);
}

} // namespace tavrix
