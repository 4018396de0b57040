#include "buttonmappingengine.h"

#include "inputsource.h"

#include <algorithm>

namespace tavrix {

namespace {

bool isMappingOnChannel(const ButtonMapping &mapping, int channel)
{
    return mapping.isValid() && mapping.channel == channel;
}

// The highest-priority behaviour present among a channel's valid mappings, or none.
enum class Decider
{
    None,
    Switch,
    Toggle,
    Hold,
    Momentary
};

Decider deciderFor(const ButtonMappingList &mappings, int channel)
{
    bool hasToggle = false;
    bool hasHold = false;
    bool hasMomentary = false;
    for (const ButtonMapping &mapping : mappings) {
        if (!isMappingOnChannel(mapping, channel))
            continue;
        switch (mapping.mode) {
        case ButtonBehaviour::SwitchPosition:
            return Decider::Switch;
        case ButtonBehaviour::Toggle:
            hasToggle = true;
            break;
        case ButtonBehaviour::HoldToRaise:
        case ButtonBehaviour::HoldToLower:
            hasHold = true;
            break;
        case ButtonBehaviour::Momentary:
            hasMomentary = true;
            break;
        }
    }
    if (hasToggle)
        return Decider::Toggle;
    if (hasHold)
        return Decider::Hold;
    if (hasMomentary)
        return Decider::Momentary;
    return Decider::None;
}

const ButtonMapping *firstOf(const ButtonMappingList &mappings, int channel, ButtonBehaviour mode)
{
    for (const ButtonMapping &mapping : mappings) {
        if (isMappingOnChannel(mapping, channel) && mapping.mode == mode)
            return &mapping;
    }
    return nullptr;
}

const ButtonMapping *firstHoldOf(const ButtonMappingList &mappings, int channel)
{
    for (const ButtonMapping &mapping : mappings) {
        if (isMappingOnChannel(mapping, channel) && mapping.isHold())
            return &mapping;
    }
    return nullptr;
}

bool isValidChannel(int channel)
{
    return channel >= 0 && channel < 16;
}

} // namespace

void ButtonMappingEngine::reset(const ButtonMappingList &mappings)
{
    m_previousPressed.fill(false);
    m_toggleOn.fill(false);
    m_hasSwitchPosition.fill(false);
    m_switchPosition.fill(0);
    m_hasHoldValue.fill(false);
    m_holdValue.fill(0.0);
    for (int channel = 0; channel < kChannels; ++channel) {
        if (const ButtonMapping *first = firstHoldOf(mappings, channel)) {
            m_holdValue[channel] = first->startValue;
            m_hasHoldValue[channel] = true;
        }
    }
}

void ButtonMappingEngine::apply(const ButtonMappingList &mappings, ChannelValues &channels,
                                const ButtonSource &source, int firstChannel, int lastChannel, int tickMs)
{
    firstChannel = std::max(firstChannel, 0);
    lastChannel = std::min(lastChannel, kChannels - 1);
    for (int channel = firstChannel; channel <= lastChannel; ++channel) {
        switch (deciderFor(mappings, channel)) {
        case Decider::None:
            break;
        case Decider::Switch:
            channels[channel] = evaluateSwitch(mappings, channel, source);
            break;
        case Decider::Toggle:
            channels[channel] = evaluateToggle(mappings, channel, source);
            break;
        case Decider::Hold:
            channels[channel] = evaluateHold(mappings, channel, source, tickMs);
            break;
        case Decider::Momentary:
            channels[channel] = evaluateMomentary(mappings, channel, source);
            break;
        }
    }
}

bool ButtonMappingEngine::isPitLimiterActive(const ButtonMappingList &mappings, const ButtonSource &source)
{
    return std::any_of(mappings.cbegin(), mappings.cend(), [&source](const ButtonMapping &mapping) {
        return mapping.activatesPitLimiter && mapping.isValid() && isPressed(mapping, source);
    });
}

bool ButtonMappingEngine::ownsChannel(const ButtonMappingList &mappings, int channel)
{
    return std::any_of(mappings.cbegin(), mappings.cend(), [channel](const ButtonMapping &mapping) {
        return isMappingOnChannel(mapping, channel);
    });
}

std::optional<int32_t> ButtonMappingEngine::restValue(const ButtonMappingList &mappings, int channel)
{
    switch (deciderFor(mappings, channel)) {
    case Decider::None:
        return std::nullopt;
    case Decider::Switch:
        return firstOf(mappings, channel, ButtonBehaviour::SwitchPosition)->startValue;
    case Decider::Toggle:
        return firstOf(mappings, channel, ButtonBehaviour::Toggle)->startValue;
    case Decider::Hold:
        return firstHoldOf(mappings, channel)->startValue;
    case Decider::Momentary:
        return firstOf(mappings, channel, ButtonBehaviour::Momentary)->startValue;
    }
    return std::nullopt;
}

double ButtonMappingEngine::holdValue(int channel) const
{
    return isValidChannel(channel) && m_hasHoldValue[channel] ? m_holdValue[channel] : 0.0;
}

bool ButtonMappingEngine::isPressed(const ButtonMapping &mapping, const ButtonSource &source)
{
    if (!mapping.isValid())
        return false;
    if (source.isPressed(mapping.buttonIndex))
        return true;
    return std::any_of(mapping.extraButtons.cbegin(), mapping.extraButtons.cend(),
                       [&source](int32_t extra) { return extra >= 0 && source.isPressed(extra); });
}

bool ButtonMappingEngine::takeRisingEdge(int32_t unifiedIndex, const ButtonSource &source)
{
    // Indexes outside the source ranges are never pressed, so they never have an edge.
    if (unifiedIndex < 0 || unifiedIndex >= kSourceCount)
        return false;
    const bool pressed = source.isPressed(unifiedIndex);
    const bool rising = pressed && !m_previousPressed[unifiedIndex];
    // The memory is updated as each edge is looked at, so a source that appears in two
    // edge-driven mappings reports its press to the first one evaluated only.
    m_previousPressed[unifiedIndex] = pressed;
    return rising;
}

int ButtonMappingEngine::countRisingEdges(const ButtonMapping &mapping, const ButtonSource &source)
{
    int edges = takeRisingEdge(mapping.buttonIndex, source) ? 1 : 0;
    for (int32_t extra : mapping.extraButtons) {
        if (takeRisingEdge(extra, source))
            ++edges;
    }
    return edges;
}

int32_t ButtonMappingEngine::evaluateSwitch(const ButtonMappingList &mappings, int channel,
                                            const ButtonSource &source)
{
    for (const ButtonMapping &mapping : mappings) {
        if (!isMappingOnChannel(mapping, channel) || mapping.mode != ButtonBehaviour::SwitchPosition)
            continue;
        if (countRisingEdges(mapping, source) > 0) {
            m_switchPosition[channel] = mapping.outputValue;
            m_hasSwitchPosition[channel] = true;
        }
    }
    if (m_hasSwitchPosition[channel])
        return m_switchPosition[channel];
    return firstOf(mappings, channel, ButtonBehaviour::SwitchPosition)->startValue;
}

int32_t ButtonMappingEngine::evaluateToggle(const ButtonMappingList &mappings, int channel,
                                            const ButtonSource &source)
{
    for (const ButtonMapping &mapping : mappings) {
        if (!isMappingOnChannel(mapping, channel) || mapping.mode != ButtonBehaviour::Toggle)
            continue;
        // Every rising edge flips: two sources of one mapping pressed together flip twice.
        if (countRisingEdges(mapping, source) % 2 == 1)
            m_toggleOn[channel] = !m_toggleOn[channel];
    }
    const ButtonMapping *first = firstOf(mappings, channel, ButtonBehaviour::Toggle);
    return m_toggleOn[channel] ? first->outputValue : first->startValue;
}

int32_t ButtonMappingEngine::evaluateHold(const ButtonMappingList &mappings, int channel,
                                          const ButtonSource &source, int tickMs)
{
    const ButtonMapping *first = firstHoldOf(mappings, channel);
    if (!m_hasHoldValue[channel]) {
        m_holdValue[channel] = first->startValue;
        m_hasHoldValue[channel] = true;
    }

    int32_t low = first->minValue;
    int32_t high = first->maxValue;
    double value = m_holdValue[channel];
    for (const ButtonMapping &mapping : mappings) {
        if (!isMappingOnChannel(mapping, channel) || !mapping.isHold())
            continue;
        low = std::min(low, mapping.minValue);
        high = std::max(high, mapping.maxValue);
        if (!isPressed(mapping, source))
            continue;
        const double step = double(mapping.rateUnitsPerSec) * tickMs / 1000.0;
        value += mapping.mode == ButtonBehaviour::HoldToRaise ? step : -step;
    }
    // low > high cannot come from the dialog; if a file says so, low wins.
    value = std::max(double(low), std::min(value, double(high)));
    m_holdValue[channel] = value;
    return static_cast<int32_t>(value);
}

int32_t ButtonMappingEngine::evaluateMomentary(const ButtonMappingList &mappings, int channel,
                                               const ButtonSource &source)
{
    int32_t value = firstOf(mappings, channel, ButtonBehaviour::Momentary)->startValue;
    for (const ButtonMapping &mapping : mappings) {
        if (isMappingOnChannel(mapping, channel) && mapping.mode == ButtonBehaviour::Momentary &&
            isPressed(mapping, source))
            value = mapping.outputValue;
    }
    return value;
}

} // namespace tavrix
