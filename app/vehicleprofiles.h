#pragma once

#include <QString>

namespace tavrix {

class ProfileManager;

// Makes a profile of that vehicle type ("rc_car", "rc_helicopter") the active one: the one
// last used for it, else the first of that type, else a new profile of that name made for
// it. The user's other profiles are never changed. False when the store refused.
bool activateProfileForVehicle(ProfileManager &profiles, const QString &vehicleType,
                               const QString &newProfileName);

} // namespace tavrix
