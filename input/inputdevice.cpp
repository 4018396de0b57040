#include "inputdevice.h"

#include "deviceguid.h"

#include <QDebug>

#include <algorithm>
#include <cmath>

namespace tavrix {

namespace {

const std::array<QLatin1StringView, AxisSlotCount> kSlotNames{
    QLatin1StringView("lX"),      QLatin1StringView("lRx"),    QLatin1StringView("lRy"),
    QLatin1StringView("lRz"),     QLatin1StringView("lY"),     QLatin1StringView("lZ"),
    QLatin1StringView("Slider0"), QLatin1StringView("Slider1")};

// Normalisation: the raw midpoint of 0..65535 is 32767.5, so both ends reach exactly -1 and +1.
constexpr double kRawHalfSpan = 32767.5;
// The device deadzone, radial around 0, applied to every axis before anything else.
constexpr float kDeviceDeadzone = 0.02f;
// An axis counts as touched (and stops reading -1.0) once it moves beyond this.
constexpr float kActivationThreshold = 0.1f;
constexpr int kDebouncePolls = 4;
constexpr quint8 kButtonDownBit = 0x80;
constexpr quint32 kPovCentredLowWord = 0xFFFF;

// Rest detection: an axis that holds still (within 0.05 between polls) for 15 polls is classified
// by where it holds: near 0 it is a centred axis (stick, wheel), near an end it is a pedal.
constexpr float kStillDelta = 0.05f;
constexpr qint32 kStillPollsToClassify = 15;
constexpr qint32 kStillCountCap = 1000;
constexpr float kRestsAtCentreBelow = 0.3f;
constexpr float kRestsAtEndAbove = 0.85f;

constexpr float kAxisButtonThreshold = 0.5f;
constexpr float kCombinedCentreLimit = 0.95f;
constexpr float kCombinedRestTolerance = 0.5f;

float normalise(qint32 raw)
{
    const float v = float(std::clamp((double(raw) - kRawHalfSpan) / kRawHalfSpan, -1.0, 1.0));
    const float magnitude = std::fabs(v);
    if (magnitude < kDeviceDeadzone)
        return 0.0f;
    return std::copysign((magnitude - kDeviceDeadzone) / (1.0f - kDeviceDeadzone), v);
}

bool validSlot(int slot)
{
    return slot >= 0 && slot < AxisSlotCount;
}

} // namespace

InputDevice::InputDevice(InputBackend *backend, QObject *parent)
    : QObject(parent)
    , m_backend(backend)
{
    resetReadings();
}

InputDevice::~InputDevice() = default;

QList<InputDeviceInfo> InputDevice::enumerateDevices(InputBackend &backend)
{
    QList<InputDeviceInfo> list;
    for (const DeviceListEntry &entry : backend.enumerate().devices)
        list.append(InputDeviceInfo::fromEntry(entry));
    return list;
}

QStringList InputDevice::unusableDevices(InputBackend &backend)
{
    QStringList problems;
    for (const DeviceProblem &problem : backend.enumerate().problems)
        problems.append(QString::fromStdString(problem.message));
    return problems;
}

QString InputDevice::axisSlotName(int slot)
{
    return validSlot(slot) ? QString(kSlotNames[slot]) : QString();
}

int InputDevice::axisSlotFromName(const QString &name)
{
    const auto it = std::find(kSlotNames.cbegin(), kSlotNames.cend(), name);
    return it == kSlotNames.cend() ? -1 : int(it - kSlotNames.cbegin());
}

bool InputDevice::open(int index)
{
    m_lastOpenError.clear();
    if (!m_backend) {
        m_lastOpenError = tr("No input backend");
        return false;
    }
    const Enumeration enumeration = m_backend->enumerate();
    if (index < 0 || index >= int(enumeration.devices.size())) {
        m_lastOpenError = tr("No game controller at position %1").arg(index);
        return false;
    }
    close();

    std::string error;
    std::unique_ptr<BackendDevice> device = m_backend->open(index, &error);
    if (!device) {
        m_lastOpenError =
            error.empty() ? tr("The game controller could not be opened") : QString::fromStdString(error);
        return false;
    }
    m_device = std::move(device);
    m_info = InputDeviceInfo::fromEntry(m_device->info());
    m_deviceIndex = index;
    m_connected = true;

    applyPreset(detectPreset(m_info.productName));

    emit connectedChanged(true);
    emit deviceNameChanged(m_info.instanceName);
    return true;
}

void InputDevice::close()
{
    if (!m_device)
        return;
    m_device->stopEffects();
    m_device.reset();
    m_info = InputDeviceInfo{};
    m_deviceIndex = -1;
    m_connected = false;
    m_preset = AxisPreset{};
    m_combinedCheckPolls = 0;
    m_combinedCheckDone = false;
    resetReadings();
    emit connectedChanged(false);
    emit deviceNameChanged(QString());
}

bool InputDevice::setConstantForce(float level)
{
    if (!m_device || !hasForceFeedback())
        return false;
    return m_device->playConstantForce(std::clamp(double(level), -1.0, 1.0));
}

bool InputDevice::setCentering(float strength)
{
    if (!m_device || !hasForceFeedback())
        return false;
    return m_device->playSpring(std::clamp(double(strength), 0.0, 1.0));
}

void InputDevice::setAutocenter(bool on)
{
    if (m_device && hasForceFeedback())
        m_device->setAutocenter(on ? 1.0 : 0.0);
}

void InputDevice::stopConstantForce()
{
    if (m_device)
        m_device->stopConstantForce();
}

void InputDevice::stopCentering()
{
    if (m_device)
        m_device->stopSpring();
}

void InputDevice::reacquireExclusive()
{
    if (m_device)
        m_device->reacquireExclusive();
}

ForceFeedbackCheck InputDevice::runCheck()
{
    ForceFeedbackCheck check;
    check.detected = m_device && m_connected;
    if (!check.detected)
        return check;
    check.capable = hasForceFeedback();
    if (!check.capable)
        return check;
    if (!m_device->isExclusive())
        m_device->reacquireExclusive();
    check.exclusive = m_device->isExclusive();
    const ForceFeedbackProbe probe = m_device->probeForceFeedback();
    check.hasFfbAxis = probe.actuatorAxes > 0;
    check.constantForce = probe.constantForce;
    check.errorCode = probe.errorCode;
    check.diagnostic = QString::fromStdString(probe.diagnostic);
    return check;
}

void InputDevice::shutdown()
{
    // The backend belongs to whoever created it; the device only lets go of what it opened.
    close();
}

QString InputDevice::instanceGuidString() const
{
    return guidToString(m_info.instanceGuid);
}

QString InputDevice::productGuidString() const
{
    return guidToString(m_info.productGuid);
}

QString InputDevice::sharingProblem() const
{
    return m_device ? QString::fromStdString(m_device->sharingProblem()) : QString();
}

bool InputDevice::isExclusive() const
{
    return m_device && m_device->isExclusive();
}

void InputDevice::resetReadings()
{
    m_raw = RawInputState{};
    m_axes.fill(0.0f);
    m_buttons.fill(false);
    m_debounce.fill(0);
    m_povs.fill(-1);
    for (AxisTrack &track : m_tracks) {
        track.lastValue = 0.0f;
        track.stableCount = 0;
    }
}

float InputDevice::axis(int slot) const
{
    if (!validSlot(slot))
        return 0.0f;
    // A pedal that was never pressed reads as released, whatever the driver reports at rest.
    return m_tracks[slot].active ? m_axes[slot] : -1.0f;
}

bool InputDevice::isAxisActive(int slot) const
{
    return validSlot(slot) && m_tracks[slot].active;
}

bool InputDevice::hasAxis(int slot) const
{
    return isOpen() && validSlot(slot) && ((m_info.axisSlots >> slot) & 1u) != 0;
}

void InputDevice::activateAxis(int slot)
{
    if (validSlot(slot))
        m_tracks[slot].active = true;
}

bool InputDevice::axisRestsAtCentre(int slot) const
{
    return validSlot(slot) && m_tracks[slot].restsAtCentre;
}

bool InputDevice::button(int n) const
{
    return n >= 0 && n < kButtonCount && m_buttons[n];
}

int InputDevice::pov(int hat) const
{
    return hat >= 0 && hat < kPovCount ? m_povs[hat] : -1;
}

bool InputDevice::isPressed(int index) const
{
    if (index < 0 || index >= kUnifiedIndexEnd)
        return false;
    if (index < kPovIndexBase)
        return m_buttons[index];
    if (index < kAxisButtonIndexBase) {
        const int angle = pov((index - kPovIndexBase) / 4);
        if (angle < 0)
            return false;
        // Inclusive bounds on purpose: a diagonal (45, 135, ...) presses both neighbours.
        switch ((index - kPovIndexBase) % 4) {
        case 0:
            return angle <= 45 || angle >= 315;
        case 1:
            return angle >= 45 && angle <= 135;
        case 2:
            return angle >= 135 && angle <= 225;
        default:
            return angle >= 225 && angle <= 315;
        }
    }
    const int slot = (index - kAxisButtonIndexBase) / 2;
    const AxisTrack &track = m_tracks[slot];
    if (!track.active || !track.restsAtCentre)
        return false;
    const bool positiveHalf = (index - kAxisButtonIndexBase) % 2 == 0;
    return positiveHalf ? m_axes[slot] >= kAxisButtonThreshold : m_axes[slot] <= -kAxisButtonThreshold;
}

void InputDevice::applyPreset(const AxisPreset &preset)
{
    m_preset = preset;
    const int steeringSlot = preset.slot(LogicalSteering);
    if (validSlot(steeringSlot))
        m_tracks[steeringSlot].active = true;
    const int throttleSlot = preset.slot(LogicalThrottle);
    if (preset.combinedPedals && validSlot(throttleSlot))
        m_tracks[throttleSlot].active = true;
    m_combinedCheckPolls = 0;
    m_combinedCheckDone = false;
}

float InputDevice::logicalValue(int index) const
{
    if (index >= LogicalInputCount && index < AxisSlotCount)
        return axis(index);
    if (index < 0 || index >= LogicalInputCount)
        return 0.0f;
    const auto input = LogicalInput(index);
    const int slot = m_preset.slot(input);
    if (!validSlot(slot))
        return 0.0f;
    const float x = axis(slot);
    if (m_preset.combinedPedals && (input == LogicalThrottle || input == LogicalBrake)) {
        const float r =
            std::clamp(m_preset.combinedPedalsCenter, -kCombinedCentreLimit, kCombinedCentreLimit);
        // Gas is above the rest value unless the throttle is inverted; the brake's own
        // inversion flag has no say here, so one flag flips the whole shared axis.
        const bool gasAbove = !m_preset.isInverted(LogicalThrottle);
        const bool inputAbove = (input == LogicalThrottle) == gasAbove;
        const float t =
            inputAbove ? std::max(0.0f, (x - r) / (1.0f - r)) : std::max(0.0f, (r - x) / (r + 1.0f));
        return std::clamp(2.0f * t - 1.0f, -1.0f, 1.0f);
    }
    return m_preset.isInverted(input) ? -x : x;
}

void InputDevice::poll()
{
    if (!m_device)
        return;
    if (m_device->poll(m_raw) == PollResult::Lost) {
        // The device stays open: the owner decides whether to close it or wait for it to come back.
        m_connected = false;
        emit deviceDisconnected();
        return;
    }
    m_connected = true;
    readAxes(m_raw);
    runCombinedPedalCheck();
    debounceButtons(m_raw);
    readPovs(m_raw);
    detectRest();
    emit stateChanged();
}

void InputDevice::readAxes(const RawInputState &raw)
{
    for (int slot = 0; slot < AxisSlotCount; ++slot) {
        const float v = normalise(raw.axes[slot]);
        m_axes[slot] = v;
        if (!m_tracks[slot].active && std::fabs(v) > kActivationThreshold)
            m_tracks[slot].active = true;
    }
}

void InputDevice::runCombinedPedalCheck()
{
    if (m_combinedCheckDone || ++m_combinedCheckPolls < kCombinedPedalCheckPoll)
        return;
    m_combinedCheckDone = true;
    if (!m_preset.combinedPedals)
        return;
    const int slot = m_preset.slot(LogicalThrottle);
    const float x = axis(slot);
    const float r = std::clamp(m_preset.combinedPedalsCenter, -kCombinedCentreLimit, kCombinedCentreLimit);
    if (std::fabs(x - r) > kCombinedRestTolerance) {
        // Pedals on separate axes under a combined preset would read half-pressed gas and brake.
        m_preset.combinedPedals = false;
        qWarning().noquote() << QStringLiteral(
                                    "InputDevice: combinedPedals disabled — axis %1 rests at %2 but "
                                    "preset declares center %3 (preset likely misapplied)")
                                    .arg(QString::number(slot), QString::number(x), QString::number(r));
    }
}

void InputDevice::debounceButtons(const RawInputState &raw)
{
    for (int n = 0; n < kButtonCount; ++n) {
        const bool down = (raw.buttons[n] & kButtonDownBit) != 0;
        if (down == m_buttons[n]) {
            m_debounce[n] = 0;
        } else if (++m_debounce[n] >= kDebouncePolls) {
            m_buttons[n] = down;
            m_debounce[n] = 0;
        }
    }
}

void InputDevice::readPovs(const RawInputState &raw)
{
    for (int hat = 0; hat < kPovCount; ++hat) {
        const quint32 value = raw.povs[hat];
        m_povs[hat] = (value & 0xFFFFu) == kPovCentredLowWord ? -1 : int(value / 100u);
    }
}

void InputDevice::detectRest()
{
    for (int slot = 0; slot < AxisSlotCount; ++slot) {
        AxisTrack &track = m_tracks[slot];
        if (!track.active)
            continue;
        const float v = m_axes[slot];
        if (std::fabs(v - track.lastValue) < kStillDelta) {
            if (track.stableCount < kStillCountCap)
                ++track.stableCount;
            if (track.stableCount >= kStillPollsToClassify) {
                if (std::fabs(v) < kRestsAtCentreBelow)
                    track.restsAtCentre = true;
                else if (std::fabs(v) > kRestsAtEndAbove)
                    track.restsAtCentre = false;
            }
        } else {
            track.stableCount = 0;
        }
        track.lastValue = v;
    }
}

} // namespace tavrix
