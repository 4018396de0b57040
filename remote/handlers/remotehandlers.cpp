#include "remotehandlers.h"

#include "websocketserver.h"

namespace tavrix {

void registerRemoteHandlers(WebSocketServer &server, TavrixController *controller)
{
    Q_UNUSED(server);
    Q_UNUSED(controller);
}

} // namespace tavrix
