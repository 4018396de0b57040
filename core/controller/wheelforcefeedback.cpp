#include "wheelforcefeedback.h"

#include "deviceroleset.h"
#include "inputdevice.h"

#include <QTimer>

#include <algorithm>

namespace tavrix {

WheelForceFeedback::WheelForceFeedback(DeviceRoleSet *devices, std::function<float()> steering,
                                       QObject *parent)
    : QObject(parent)
    , m_devices(devices)
    , m_steering(std::move(steering))
    , m_tickTimer(new QTimer(this))
    , m_pulseTimer(new QTimer(this))
    , m_settings(ForceFeedbackSettings::load())
{
    m_clock.start();
    // The filters are tuned to this period: a coarse timer would stretch them.
    m_tickTimer->setTimerType(Qt::PreciseTimer);
    m_tickTimer->setInterval(ForceFeedbackComputation::kTickMs);
    connect(m_tickTimer, &QTimer::timeout, this, &WheelForceFeedback::onTick);
    m_pulseTimer->setSingleShot(true);
    m_pulseTimer->setInterval(kTestPulseMs);
    connect(m_pulseTimer, &QTimer::timeout, this, &WheelForceFeedback::endTestPulse);

    // Whatever happens to the wheel (closed, lost, another one opened in its place), the
    // hub lets go of it; only the user switches force feedback on again. A close is
    // announced while the wheel can still be told to centre itself.
    InputDevice *device = wheel();
    connect(device, &InputDevice::connectedChanged, this, &WheelForceFeedback::disable);
    connect(device, &InputDevice::deviceDisconnected, this, &WheelForceFeedback::disable);
    connect(devices, &DeviceRoleSet::aboutToClose, this, [this](DeviceRole role) {
        if (role == DeviceRole::WheelBase)
            disable();
    });
}

InputDevice *WheelForceFeedback::wheel() const
{
    return m_devices->device(DeviceRole::WheelBase);
}

bool WheelForceFeedback::isWheelCapable() const
{
    return m_devices->isConnected(DeviceRole::WheelBase) && wheel()->hasForceFeedback();
}

bool WheelForceFeedback::isTicking() const
{
    return m_tickTimer->isActive();
}

bool WheelForceFeedback::enable()
{
    InputDevice *device = wheel();
    if (!isWheelCapable() || !device->setConstantForce(0.0f))
        return false;
    m_pulseTimer->stop();
    m_computation.setWheelForce(0.0f);
    device->setAutocenter(false);
    if (m_settings.centering > 0.0f)
        device->setCentering(m_settings.centering);
    else
        device->stopCentering();
    if (!m_enabled) {
        m_enabled = true;
        emit stateChanged();
    }
    return true;
}

void WheelForceFeedback::disable()
{
    const bool wasEnabled = m_enabled;
    m_enabled = false;
    m_pulseTimer->stop();
    InputDevice *device = wheel();
    device->stopConstantForce();
    device->stopCentering();
    device->setAutocenter(m_settings.nativeCentering);
    m_computation.setWheelForce(0.0f);
    if (wasEnabled)
        emit stateChanged();
}

void WheelForceFeedback::setStrength(float strength)
{
    m_settings.strength = std::clamp(strength, 0.0f, 1.0f);
    store();
}

void WheelForceFeedback::setCentering(float centering)
{
    m_settings.centering = std::clamp(centering, 0.0f, 1.0f);
    if (m_enabled && m_settings.centering > 0.0f)
        wheel()->setCentering(m_settings.centering);
    else if (m_enabled)
        wheel()->stopCentering();
    store();
}

void WheelForceFeedback::setNativeCentering(bool on)
{
    m_settings.nativeCentering = on;
    if (!m_enabled)
        wheel()->setAutocenter(on);
    store();
}

void WheelForceFeedback::setAutoEngage(bool on)
{
    m_settings.autoEngage = on;
    store();
}

void WheelForceFeedback::store()
{
    m_settings.save();
    emit stateChanged();
}

bool WheelForceFeedback::playTestPulse(float level)
{
    const float clamped = std::clamp(level, -1.0f, 1.0f);
    if (!isWheelCapable() || !wheel()->setConstantForce(clamped))
        return false;
    m_computation.setWheelForce(clamped);
    m_pulseTimer->start();
    return true;
}

void WheelForceFeedback::endTestPulse()
{
    if (m_enabled) {
        wheel()->setConstantForce(0.0f);
        m_computation.setWheelForce(0.0f);
        return;
    }
    // Making the effect took the wheel's own centering away; it gets it back.
    wheel()->stopConstantForce();
    wheel()->setAutocenter(m_settings.nativeCentering);
}

ForceFeedbackCheck WheelForceFeedback::runCheck()
{
    return wheel()->runCheck();
}

void WheelForceFeedback::onCarMotion(float lonG, float latG, float vertG)
{
    m_computation.addMotion({lonG, latG, vertG}, m_clock.elapsed());
    if (!m_tickTimer->isActive())
        m_tickTimer->start();
}

void WheelForceFeedback::onTransmissionChanged(bool running)
{
    if (!running)
        disable();
    else if (m_settings.autoEngage && isWheelCapable())
        enable();
}

void WheelForceFeedback::onTick()
{
    std::optional<WheelDrive> drive;
    if (m_enabled && isWheelCapable())
        drive = WheelDrive{m_settings.strength};
    const ForceFeedbackTick tick = m_computation.tick(m_clock.elapsed(), m_steering(), drive);
    if (tick.wheelForce)
        wheel()->setConstantForce(*tick.wheelForce);
    if (tick.wentIdle)
        m_tickTimer->stop();
    if (tick.levelReport)
        emit levelChanged(*tick.levelReport);
}

} // namespace tavrix
