#pragma once

#include "motionsystemsettings.h"

namespace tavrix {

// Keeps the motion platform's settings and platform kind on this PC, under the
// "OrvaneLabs" / "MotionSystem" settings, between runs of the hub.
class MotionSettingsStore
{
public:
    // Missing or unreadable values come back as the defaults; everything comes back clamped.
    [[nodiscard]] static MotionSystemSettings loadSettings();
    static void saveSettings(const MotionSystemSettings &settings);

    // 2, 3 or 5 (degrees of freedom); 5 when nothing valid was stored.
    [[nodiscard]] static int loadPlatformKind();
    static void savePlatformKind(int kind);
};

} // namespace tavrix
