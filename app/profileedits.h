#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

namespace tavrix {

class ProfileManager;

// Runs one change through the profile store and returns the refusal the store reported
// while it ran, word for word; empty when the change was taken. The dialogs show it as is.
[[nodiscard]] QString storeRefusal(ProfileManager &profiles, const std::function<bool()> &change);

// Takes changes to the active profile's axisSettings in their stored shape (an axis under
// its name, the drive keys) through the same clamps as the remote app's edits and stores
// them; the controller follows the store and applies them at once. The refusal, or empty.
[[nodiscard]] QString editAxisSettings(ProfileManager &profiles, const QJsonObject &changes);

// The same for the active profile's helicopterConfig, through the remote app's merge and
// its refusals (two functions on one channel, more than the rates while `armed`).
[[nodiscard]] QString editHelicopterConfig(ProfileManager &profiles, const QJsonObject &changes, bool armed);

} // namespace tavrix
