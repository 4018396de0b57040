#pragma once

#include <QString>

#include <functional>

namespace tavrix {

class TavrixController;

// Runs a controller slot on the remote app's behalf and returns the refusal the
// controller reported through errorOccurred while it ran (empty when it reported none).
// The controller's own rules and texts then answer the app, as they answer the window.
[[nodiscard]] QString refusalOf(TavrixController *controller, const std::function<void()> &action);

} // namespace tavrix
