#pragma once

namespace tavrix {

class FirmwareUpdateService;
class TavrixController;
class WebSocketServer;

// Makes every request handler of the hub, with the server as parent, and registers them
// in the order the app's requests are listed: device, transmission, input, axis, button,
// profile, ESC preset, firmware, SoC update, calibration, LED, helicopter, telemetry,
// receiver. Without a firmware update service (fuzzing, benchmarks) the two firmware
// handlers are left out, so nothing can reach the network.
void registerRemoteHandlers(WebSocketServer &server, TavrixController *controller,
                            FirmwareUpdateService *firmware = nullptr);

} // namespace tavrix
