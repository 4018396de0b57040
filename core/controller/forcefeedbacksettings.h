#pragma once

namespace tavrix {

// How the steering wheel's force feedback is set up. Kept with the hub's own settings
// rather than in a profile: it belongs to the wheel on this desk, not to the car driven.
struct ForceFeedbackSettings
{
    // Share of the computed force the wheel receives, 0..1.
    float strength = 0.5f;
    // The return-to-centre spring while force feedback is on, 0..1 (0: no spring).
    float centering = 0.3f;
    // The wheel's own centering while force feedback is off; switching force feedback off
    // puts it back like this.
    bool nativeCentering = true;
    // Force feedback switches itself on at every start of transmission (with a capable
    // wheel); every stop switches it off, so without this the user switches it on per run.
    bool autoEngage = false;

    [[nodiscard]] static ForceFeedbackSettings load();
    void save() const;
};

} // namespace tavrix
