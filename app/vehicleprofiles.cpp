#include "vehicleprofiles.h"

#include "profilemanager.h"

namespace tavrix {

bool activateProfileForVehicle(ProfileManager &profiles, const QString &vehicleType,
                               const QString &newProfileName)
{
    if (profiles.vehicleType() == vehicleType)
        return true;
    QString id = profiles.lastActiveProfileId(vehicleType);
    if (!profiles.hasProfile(id))
        id.clear();
    for (const ProfileSummary &summary : profiles.profiles()) {
        if (id.isEmpty() && summary.vehicleType == vehicleType)
            id = summary.id;
    }
    if (!id.isEmpty())
        return profiles.setActiveProfile(id);
    id = profiles.createProfile(profiles.uniqueName(newProfileName));
    // The store sets the vehicle type on the active profile only, so the new profile is
    // activated first; the controller follows the change of type while idle.
    if (id.isEmpty() || !profiles.setActiveProfile(id))
        return false;
    return profiles.setVehicleType(vehicleType);
}

} // namespace tavrix
