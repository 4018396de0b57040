#pragma once

namespace tavrix {

class TavrixController;
class WebSocketServer;

// Makes every request handler of the hub, with the server as parent, and registers them
// in the order the app's requests are listed: device, transmission, input, axis, button,
// profile, ESC preset, helicopter, telemetry.
void registerRemoteHandlers(WebSocketServer &server, TavrixController *controller);

} // namespace tavrix
