#include "tavrixcontroller.h"

#include "activeprofilefollower.h"
#include "autostarter.h"
#include "bridgecommands.h"
#include "buttonmappingengine.h"
#include "cartick.h"
#include "deviceroleset.h"
#include "drivecontrols.h"
#include "helicoptertick.h"
#include "inputdevice.h"
#include "profilesettings.h"
#include "telemetrymonitor.h"
#include "telemetrysensorbook.h"
#include "transmitterlink.h"
#include "wheelforcefeedback.h"

#include <QDebug>
#include <QTimer>

#include <cmath>

namespace tavrix {

namespace {

// Smaller moves of the controls are not worth a repaint.
constexpr float kInputChangeEpsilon = 0.001f;

bool movedBeyondEpsilon(float a, float b)
{
    return std::fabs(a - b) > kInputChangeEpsilon;
}

} // namespace

TavrixController::TavrixController(InputBackend *inputBackend, ProfileManager *profiles,
                                   std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                                   QObject *parent)
    : QObject(parent)
    , m_inputBackend(inputBackend)
    , m_profiles(profiles)
    , m_timings(timings)
    , m_ports(ports ? std::move(ports) : std::make_shared<SystemSerialPortDirectory>())
    , m_link(new TransmitterLink(m_ports, timings.link, this))
    , m_crsf(new CrsfProtocol(this))
    , m_devices(new DeviceRoleSet(inputBackend, profiles, this))
    , m_telemetry(new TelemetryMonitor(timings, this))
    , m_sensorBook(new TelemetrySensorBook(m_telemetry, profiles, this))
    , m_transmitTimer(new QTimer(this))
    , m_idleInputTimer(new QTimer(this))
    , m_profile(new ActiveProfileFollower(profiles, this))
    , m_buttons(std::make_unique<ButtonMappingEngine>())
    , m_car(std::make_unique<CarTick>(*m_devices, *m_profile, *m_buttons))
    , m_helicopter(std::make_unique<HelicopterTick>(*m_devices, *m_profile, *m_buttons))
    , m_inputDetection(new InputDetection(m_devices, profiles, {}, this))
    , m_movedDevice(new MovedDeviceDetection(inputBackend, m_devices, this))
    , m_steeringTrim(std::make_unique<SteeringTrim>(m_car->drive(), *profiles))
{
    qRegisterMetaType<tavrix::LinkStatistics>();
    qRegisterMetaType<tavrix::GpsFix>();
    qRegisterMetaType<tavrix::ReceiverFfbState>();

    // The 7 ms period must hold: a coarse timer would drift by several milliseconds.
    m_transmitTimer->setTimerType(Qt::PreciseTimer);
    m_transmitTimer->setInterval(m_timings.transmitInterval);
    connect(m_transmitTimer, &QTimer::timeout, this, &TavrixController::onTransmitTimer);
    m_idleInputTimer->setInterval(m_timings.idleInputPollInterval);
    connect(m_idleInputTimer, &QTimer::timeout, this, &TavrixController::onIdleInputPoll);

    wireLinkAndTelemetry();
    wireElrsParameters();
    wireForceFeedback();
    wireReceiverPort();
    wireReceiverConfig();
    wireLedPush();

    connect(m_devices, &DeviceRoleSet::connectedChanged, this, &TavrixController::onDeviceConnectedChanged);
    connect(m_devices, &DeviceRoleSet::deviceLost, this, &TavrixController::onDeviceLost);
    connect(m_devices, &DeviceRoleSet::errorOccurred, this, &TavrixController::errorOccurred);

    connect(m_profile, &ActiveProfileFollower::settingsReloaded, this, &TavrixController::applySettings);
    connect(m_profile, &ActiveProfileFollower::savedDevicesChanged, this,
            &TavrixController::reopenSavedDevices);
    connect(m_profile, &ActiveProfileFollower::profileChanged, this, &TavrixController::profileChanged);
    connect(m_profile, &ActiveProfileFollower::errorOccurred, this, &TavrixController::errorOccurred);

    const QString rememberedPort = m_profiles->transmitterPortName();
    if (!rememberedPort.isEmpty())
        m_link->setRememberedPort(rememberedPort, m_profiles->transmitterBaudRate());

    m_profile->reload();
    reconnectSavedDevices();
    m_idleInputTimer->start();
    new AutoStarter(this, m_timings.autoStartCheckInterval);
}

TavrixController::~TavrixController()
{
    // Closing the port on the way out is not a loss to recover from.
    m_link->setAutoReconnectSuppressed(true);
    m_profile->discardDeferredSwitch();
    const QSignalBlocker quiet(this);
    stopTransmission();
    // Told directly: the stop's announcement is silenced, and the wheel closes after this.
    m_forceFeedback->disable();
}

// --- state ---

VehicleType TavrixController::vehicleType() const
{
    return m_profile->vehicleType();
}

bool TavrixController::isHelicopter() const
{
    return m_profile->vehicleType() == VehicleType::Helicopter;
}

bool TavrixController::isReverseModeActive() const
{
    return m_car->drive().isReverseModeActive();
}

bool TavrixController::isLedPowerOn() const
{
    return m_profile->settings().led.powerOn;
}

bool TavrixController::connectDevice(DeviceRole role, int enumerationIndex)
{
    if (m_running) {
        emit errorOccurred(tr("Stop transmission before changing devices"));
        return false;
    }
    return m_devices->open(role, enumerationIndex);
}

void TavrixController::disconnectDevice(DeviceRole role)
{
    // Closing the pedals mid-run would hand the throttle to the wheel base's own pedal
    // inputs, which an inverted preset reads as fully pressed.
    if (m_running) {
        emit errorOccurred(tr("Stop transmission before changing devices"));
        return;
    }
    m_devices->close(role);
}

void TavrixController::reconnectSavedDevices()
{
    for (DeviceRole role : DeviceRoleSet::rolesFor(m_profile->vehicleType())) {
        if (!m_devices->device(role)->isOpen())
            m_devices->openSaved(role);
    }
}

bool TavrixController::isSerialConnected() const
{
    return m_link->isConnected();
}

QString TavrixController::serialPortName() const
{
    return m_link->portName();
}

bool TavrixController::isHeliArmed() const
{
    return m_helicopter->computation().isArmed();
}

int TavrixController::heliRateMode() const
{
    return m_helicopter->computation().settings().dualRates.activeMode;
}

bool TavrixController::autoStartEnabled() const
{
    return m_profiles->autoStartEnabled();
}

// --- transmission ---

bool TavrixController::checkStartPreconditions()
{
    if (m_configMode) {
        emit errorOccurred(tr("Stop configuring before starting transmission"));
        return false;
    }
    if (!m_link->isConnected()) {
        emit errorOccurred(tr("RP2040 Bridge not connected"));
        return false;
    }
    // Judge the controls as they are now, not as the last idle poll saw them.
    m_checkingStart = true;
    m_devices->pollAll();
    m_checkingStart = false;
    if (const std::optional<DeviceRole> missing = missingDrivingDevice()) {
        emit errorOccurred(deviceNotConnectedMessage(*missing));
        return false;
    }
    if (isHelicopter())
        return true;
    readDriveControls();
    const QString held = DriveControls::pedalsHeldMessage(m_throttle, m_brake, kPedalReleasedLimit);
    if (!held.isEmpty()) {
        emit errorOccurred(held);
        return false;
    }
    return true;
}

bool TavrixController::startTransmission()
{
    if (m_running)
        return true;
    if (!checkStartPreconditions())
        return false;

    m_running = true;
    m_profile->setTransmitting(true);
    m_frameCount = 0;
    m_safetyStopQueued = false;
    m_buttons->reset(m_profile->settings().buttonMappings);
    m_car->reset();
    m_helicopter->computation().reset();

    m_idleInputTimer->stop();
    m_transmitTimer->start();
    m_link->serialWrite(bridge::kStartCommand);
    m_telemetry->transmissionStarted();
    qInfo().noquote() << QStringLiteral("TavrixController: transmission started");
    emit frameCountChanged(m_frameCount);
    emit runningChanged(true);
    return true;
}

void TavrixController::stopTransmission()
{
    if (!m_running)
        return;
    m_transmitTimer->stop();
    if (m_link->isConnected()) {
        // Receivers set to hold the last position when the stream ends would otherwise
        // keep steering and throttle as the last driving frame left them.
        sendNeutralFrame();
        m_link->serialWrite(bridge::kStopCommand);
    }
    m_running = false;
    m_overrides.clear();
    m_profile->setTransmitting(false);
    m_telemetry->transmissionStopped();
    m_buttons->reset(m_profile->settings().buttonMappings);
    if (m_helicopter->computation().disarm())
        emit heliArmedChanged(false);
    m_idleInputTimer->start();
    qInfo().noquote()
        << QStringLiteral("TavrixController: transmission stopped after %1 frames").arg(m_frameCount);
    emit runningChanged(false);
    m_profile->applyDeferredSwitch();
}

void TavrixController::safetyStop(const QString &reason)
{
    if (m_safetyStopQueued)
        return;
    m_safetyStopQueued = true;
    m_overrides.clear();
    // Deferred, so the tick that found the fault still sends its zeroed frame (the overrides
    // gone already, so none of them rides on it) and no stop runs inside the computation.
    QMetaObject::invokeMethod(
        this,
        [this, reason] {
            m_safetyStopQueued = false;
            if (!m_running)
                return;
            stopTransmission();
            qWarning().noquote() << QStringLiteral("TavrixController: safety stop: %1").arg(reason);
            emit errorOccurred(tr("Transmission stopped for safety: %1. Verify the pedals and press Start "
                                  "Transmission again.")
                                   .arg(reason));
        },
        Qt::QueuedConnection);
}

bool TavrixController::enterConfigMode()
{
    if (m_configMode)
        return true;
    if (m_running) {
        emit errorOccurred(tr("Stop transmission before configuring"));
        return false;
    }
    if (!m_link->isConnected()) {
        emit errorOccurred(tr("RP2040 Bridge not connected"));
        return false;
    }
    m_link->serialWrite(bridge::kConfigOnCommand);
    m_configMode = true;
    emit configModeChanged(true);
    return true;
}

void TavrixController::exitConfigMode()
{
    if (!m_configMode)
        return;
    if (m_link->isConnected())
        m_link->serialWrite(bridge::kConfigOffCommand);
    m_configMode = false;
    emit configModeChanged(false);
}

// --- the tick ---

void TavrixController::onTransmitTimer()
{
    // After a fault only the faulty tick's own frame goes out.
    if (!m_running || m_safetyStopQueued)
        return;
    m_devices->pollAll();
    if (const std::optional<DeviceRole> missing = missingDrivingDevice()) {
        stopTransmission();
        emit errorOccurred(deviceDisconnectedMessage(*missing));
        return;
    }
    if (isHelicopter())
        tickHelicopter();
    else
        tickCar();
}

std::optional<DeviceRole> TavrixController::missingDrivingDevice() const
{
    if (isHelicopter()) {
        if (!m_devices->isConnected(DeviceRole::HeliJoystick))
            return DeviceRole::HeliJoystick;
        return std::nullopt;
    }
    if (!m_devices->isConnected(DeviceRole::WheelBase))
        return DeviceRole::WheelBase;
    if (pedalsAssignedButGone())
        return DeviceRole::Pedals;
    return std::nullopt;
}

bool TavrixController::pedalsAssignedButGone() const
{
    // Pedals that were in use are not replaced by the wheel base's own pedal inputs when
    // they go: those read fully pressed under an inverted preset. The wheel base's pedals
    // drive only when no pedals device is assigned at all.
    const InputDevice *pedals = m_devices->device(DeviceRole::Pedals);
    return pedals->isOpen() && !pedals->isConnected();
}

void TavrixController::tickHelicopter()
{
    m_helicopter->tick(m_channels);
    sendFrame();
    publishInputs();
}

void TavrixController::tickCar()
{
    const CarTickResult result = m_car->tick(readDriveControls(), m_channels);
    if (result.drive.safetyStopRequested)
        safetyStop(DriveComputation::spikeStopReason());
    sendFrame();

    if (result.ledPowerSwitched)
        emit ledSettingsChanged();
    if (result.drive.reverseModeChanged)
        emit reverseModeChanged(result.drive.reverseActive);
    publishInputs();
}

void TavrixController::sendFrame()
{
    // A frame the port did not take (closed, or the bridge not reading) never reached the
    // car: it is not counted.
    if (!m_link->writeChannelFrame(CrsfProtocol::buildRcChannelsFrame(sentChannels())))
        return;
    ++m_frameCount;
    emit frameSent(m_frameCount);
    emit frameCountChanged(m_frameCount);
}

void TavrixController::sendNeutralFrame()
{
    if (isHelicopter())
        m_helicopter->computation().writeNeutral(m_channels);
    else
        m_car->drive().writeNeutral(m_channels);
    // Written past the frame queue's limit: this frame must not be the one dropped.
    m_link->serialWrite(CrsfProtocol::buildRcChannelsFrame(m_channels));
}

void TavrixController::onIdleInputPoll()
{
    m_devices->pollAll();
    if (!isHelicopter())
        readDriveControls();
    publishInputs();
}

DriveInputs TavrixController::readDriveControls()
{
    const DriveInputs inputs = m_car->readControls();
    m_steering = inputs.steering;
    m_throttle = inputs.throttle;
    m_brake = inputs.brake;
    m_gear = inputs.gear;
    return inputs;
}

void TavrixController::publishInputs()
{
    const bool moved = movedBeyondEpsilon(m_steering, m_publishedSteering) ||
                       movedBeyondEpsilon(m_throttle, m_publishedThrottle) ||
                       movedBeyondEpsilon(m_brake, m_publishedBrake) || m_gear != m_publishedGear ||
                       m_channels != m_publishedChannels;
    if (!moved)
        return;
    m_publishedSteering = m_steering;
    m_publishedThrottle = m_throttle;
    m_publishedBrake = m_brake;
    m_publishedGear = m_gear;
    m_publishedChannels = m_channels;
    emit inputChanged();
}

// --- devices ---

void TavrixController::onDeviceConnectedChanged(DeviceRole role, bool connected)
{
    // Each role has its own signal; indexed by role.
    using ConnectedSignal = void (TavrixController::*)(bool);
    static constexpr std::array<ConnectedSignal, kDeviceRoleCount> kSignals{
        &TavrixController::wheelBaseConnectedChanged,    &TavrixController::pedalsConnectedChanged,
        &TavrixController::shifterConnectedChanged,      &TavrixController::heliJoystickConnectedChanged,
        &TavrixController::heliThrottleConnectedChanged, &TavrixController::heliPedalsConnectedChanged,
    };
    emit(this->*kSignals[std::size_t(role)])(connected);
}

void TavrixController::onDeviceLost(DeviceRole role)
{
    // While transmitting, the tick reports the device it cannot drive without (and
    // stops); while starting, the refusal does. Reporting it here as well would say it twice.
    const bool reportedElsewhere = (m_running || m_checkingStart) && missingDrivingDevice() == role;
    if (!reportedElsewhere)
        emit errorOccurred(deviceDisconnectedMessage(role));
    // Without its lever the collective reads bottom and the idle rule cannot be judged; a
    // lever plugged back in could stand anywhere. So the motor disarms and is armed again
    // by hand, with the lever down.
    if (role == DeviceRole::HeliThrottle && m_helicopter->computation().disarm()) {
        qWarning().noquote() << QStringLiteral("TavrixController: throttle device \"%1\" lost: disarmed")
                                    .arg(m_devices->device(role)->deviceName());
        emit heliArmedChanged(false);
    }
}

// --- link ---

bool TavrixController::connectTransmitter(const QString &portName, qint32 baudRate)
{
    // Switching ports mid-run would leave the old bridge without its STOP and the new one
    // receiving frames it was never started for.
    stopTransmission();
    return m_link->connectTransmitter(portName, baudRate);
}

void TavrixController::disconnectTransmitter()
{
    // Stopped while the port is still open, so the neutral frame and "STOP\n" go out.
    stopTransmission();
    m_link->disconnectTransmitter();
}

void TavrixController::onSerialConnectedChanged(bool connected)
{
    // A transmitter lost mid-run: nothing more can be sent, and whatever comes back later
    // (the link reconnects by itself) has not been started and checked by anyone. Only a
    // deliberate start transmits again.
    const bool lostWhileRunning = !connected && m_running;
    if (lostWhileRunning)
        stopTransmission();
    emit serialConnectedChanged(connected);
    if (lostWhileRunning) {
        qWarning().noquote() << QStringLiteral("TavrixController: transmitter lost while transmitting");
        emit errorOccurred(tr("Transmitter disconnected"));
    }
}

qint64 TavrixController::serialWrite(const QByteArray &bytes)
{
    return m_link->serialWrite(bytes);
}

// --- helicopter, LED, profile ---

void TavrixController::setHeliArmed(bool armed)
{
    switch (m_helicopter->computation().requestArmed(armed, m_helicopter->inputs())) {
    case HelicopterComputation::ArmChange::Refused:
        emit errorOccurred(HelicopterComputation::armRefusedMessage());
        break;
    case HelicopterComputation::ArmChange::Changed:
        emit heliArmedChanged(armed);
        break;
    case HelicopterComputation::ArmChange::Unchanged:
        break;
    }
}

void TavrixController::setHeliRateMode(int mode)
{
    if (!m_helicopter->computation().setRateMode(mode))
        return;
    emit heliRateModeChanged(mode);
    m_profile->rememberHeliRateMode(mode);
}

void TavrixController::setLedPower(bool on)
{
    if (m_profile->setLedPower(on))
        emit ledSettingsChanged();
}

void TavrixController::setAutoStartEnabled(bool enabled)
{
    if (m_profiles->autoStartEnabled() == enabled)
        return;
    if (m_profiles->setAutoStartEnabled(enabled))
        emit autoStartEnabledChanged(enabled);
}

void TavrixController::reloadSettings()
{
    m_profile->reload();
}

void TavrixController::applySettings(bool ledChanged)
{
    const ProfileSettings &settings = m_profile->settings();
    DriveSettings drive = settings.drive;
    m_steeringTrim->carryOver(drive);
    if (m_car->drive().setSettings(drive))
        emit reverseModeChanged(false);
    HelicopterComputation &helicopter = m_helicopter->computation();
    const int rateMode = helicopter.settings().dualRates.activeMode;
    // A function moved to another channel in flight must not leave its old channel frozen at
    // the last value sent: the old channels go to rest, and the next tick writes the new ones.
    if (isHelicopter() && helicopter.settings() != settings.helicopter)
        helicopter.writeNeutral(m_channels);
    helicopter.setSettings(settings.helicopter);
    m_devices->setCentredAxes(DeviceRole::HeliJoystick, settings.helicopter.joystickCentredSlots());
    m_devices->setCentredAxes(DeviceRole::HeliPedals, settings.helicopter.pedalsCentredSlots());
    if (settings.helicopter.dualRates.activeMode != rateMode)
        emit heliRateModeChanged(settings.helicopter.dualRates.activeMode);
    m_telemetry->setReceiverGeneration(settings.receiverGeneration);
    if (ledChanged)
        emit ledSettingsChanged();
}

void TavrixController::reopenSavedDevices()
{
    m_devices->closeAll();
    reconnectSavedDevices();
}

} // namespace tavrix
