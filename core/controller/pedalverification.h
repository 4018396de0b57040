#pragma once

#include "tavrixcontroller.h"

#include <array>

namespace tavrix {

// Whether throttle and brake read their whole travel the way the start check reads them:
// each pedal must reach fully pressed and then come back to released. Fed with the
// calibrated positions (0..1); pure, no timers.
class PedalVerification
{
public:
    enum class Pedal
    {
        Throttle,
        Brake
    };
    enum class Step
    {
        PressFully,
        Release,
        Done
    };

    // Released as the start check means it: a pedal above this refuses the start.
    static constexpr float kReleasedLimit = TavrixController::kPedalReleasedLimit;
    // Calibrated pedals seldom read exactly 1: 95% of the travel counts as pressed fully,
    // well past the spike rule's 80% and the stuck-throttle check's 90%.
    static constexpr float kFullyPressed = 0.95f;

    void feed(float throttle, float brake);
    void restart() { m_steps.fill(Step::PressFully); }
    [[nodiscard]] Step step(Pedal pedal) const { return m_steps[std::size_t(pedal)]; }
    [[nodiscard]] bool passed() const;

private:
    static Step next(Step step, float position);

    std::array<Step, 2> m_steps{Step::PressFully, Step::PressFully};
};

} // namespace tavrix
