#pragma once

#include <QString>

#include <functional>

namespace tavrix {

class TavrixController;

// The controller says why it refused an operation through errorOccurred, from inside the
// call. Runs the operation and returns the last such message (empty when none came), so a
// reply can tell the app the same reason the window shows.
[[nodiscard]] QString controllerRefusal(TavrixController *controller, const std::function<void()> &operation);

} // namespace tavrix
