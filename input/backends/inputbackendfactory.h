#pragma once

#include "inputbackend.h"

#include <QString>

#include <memory>

namespace tavrix {

// Environment variable that picks the game-controller source: "virtual:FILE" plays a replay file
// through virtual devices; unset or empty uses the platform's own backend.
inline constexpr char kInputSelectionVariable[] = "ORVANEHUB_INPUT";

// Never returns nullptr. When the selection cannot be honoured (unreadable or malformed replay,
// unknown selection) *error explains why and the result is a backend without devices, so the
// hub still starts and shows the reason instead of driving with surprise inputs.
// nativeWindow is the main window's native handle (0 without one): on Windows the DirectInput
// backend ties the devices it opens to it; the other backends have no use for it.
[[nodiscard]] std::unique_ptr<InputBackend>
createInputBackend(const QString &selection, QString *error = nullptr, quintptr nativeWindow = 0);
// The same, with the selection read from ORVANEHUB_INPUT.
[[nodiscard]] std::unique_ptr<InputBackend> createInputBackend(QString *error = nullptr,
                                                               quintptr nativeWindow = 0);

} // namespace tavrix
