#include "pedalverification.h"

namespace tavrix {

PedalVerification::Step PedalVerification::next(Step step, float position)
{
    switch (step) {
    case Step::PressFully:
        return position >= kFullyPressed ? Step::Release : step;
    case Step::Release:
        // The same comparison as the start check: only above the limit counts as held.
        return position > kReleasedLimit ? step : Step::Done;
    case Step::Done:
        break;
    }
    return step;
}

void PedalVerification::feed(float throttle, float brake)
{
    m_steps[std::size_t(Pedal::Throttle)] = next(step(Pedal::Throttle), throttle);
    m_steps[std::size_t(Pedal::Brake)] = next(step(Pedal::Brake), brake);
}

bool PedalVerification::passed() const
{
    return step(Pedal::Throttle) == Step::Done && step(Pedal::Brake) == Step::Done;
}

} // namespace tavrix
