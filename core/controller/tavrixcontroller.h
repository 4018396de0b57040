#pragma once

#include "activeprofilefollower.h"
#include "channeloverrides.h"
#include "controllertimings.h"
#include "controllertypes.h"
#include "crsfprotocol.h"
#include "deviceroleset.h"
#include "inputdetection.h"
#include "moveddevicedetection.h"
#include "profilemanager.h"
#include "serialportdirectory.h"
#include "steeringtrim.h"
#include "telemetrymonitor.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

#include <array>
#include <memory>
#include <optional>

class QTimer;

namespace tavrix {

class ButtonMappingEngine;
class CarTick;
class ElrsParameterManager;
class ReceiverConfigManager;
class ReceiverElrsLink;
class ReceiverEndpointCalibration;
class ReceiverPort;
class HelicopterTick;
class InputBackend;
class LedConfigPush;
class TelemetrySensorBook;
class TransmitterLink;
class WheelForceFeedback;
struct DriveInputs;

// The spine of the hub: owns the transmitter link, the CRSF codec, one input device
// per role of the active vehicle and the channel computations, and runs the 7 ms
// transmit loop that turns the controls into one CRSF channel frame per tick. It
// guards the start with the safety checks, stops on faults, switches the bridge in
// and out of configuration mode and republishes the car's telemetry.
//
// The interface and the remote service drive it through its slots and listen to its
// signals; nothing here shows a dialog.
class TavrixController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged)
    Q_PROPERTY(bool configMode READ isConfigMode NOTIFY configModeChanged)
    Q_PROPERTY(bool serialConnected READ isSerialConnected NOTIFY serialConnectedChanged)
    Q_PROPERTY(QString serialPortName READ serialPortName NOTIFY serialPortNameChanged)
    Q_PROPERTY(quint32 frameCount READ frameCount NOTIFY frameCountChanged)
    Q_PROPERTY(float steering READ steering NOTIFY inputChanged)
    Q_PROPERTY(float throttle READ throttle NOTIFY inputChanged)
    Q_PROPERTY(float brake READ brake NOTIFY inputChanged)
    Q_PROPERTY(int gear READ gear NOTIFY inputChanged)
    Q_PROPERTY(
        bool autoStartEnabled READ autoStartEnabled WRITE setAutoStartEnabled NOTIFY autoStartEnabledChanged)

public:
    using Timings = ControllerTimings;

    // A pedal above this fraction of its travel refuses the start.
    static constexpr float kPedalReleasedLimit = 0.05f;

    // None of the collaborators is owned; all must outlive the controller. ports is where
    // reconnects look for the remembered port (the system's list when null). The
    // profile store should be loaded; the controller reads the active profile at once
    // and reopens the devices saved in it.
    TavrixController(InputBackend *inputBackend, ProfileManager *profiles,
                     std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings = {},
                     QObject *parent = nullptr);
    // Stops transmission (sending "STOP\n") and keeps the link from reconnecting while torn down.
    ~TavrixController() override;

    // --- transmission ---
    [[nodiscard]] bool isRunning() const { return m_running; }
    [[nodiscard]] bool isConfigMode() const { return m_configMode; }
    // Frames sent since the last start.
    [[nodiscard]] quint32 frameCount() const { return m_frameCount; }
    // CH1..CH16 as last computed; they keep their values while stopped.
    [[nodiscard]] const ChannelValues &channels() const { return m_channels; }
    // The channels as the next frame carries them: the computed ones with the overrides laid over.
    [[nodiscard]] ChannelValues sentChannels() const { return m_overrides.appliedTo(m_channels); }
    // The transmitter connected and the vehicle's driving devices there; the start's
    // remaining checks (pedals, configuration mode) are judged when it starts.
    [[nodiscard]] bool isReadyToTransmit() const { return isSerialConnected() && !missingDrivingDevice(); }
    // Follows the active profile; changes only while not transmitting.
    [[nodiscard]] VehicleType vehicleType() const;
    [[nodiscard]] bool isHelicopter() const;
    // Steering (-1..+1), throttle and brake (0..1) after calibration, as last read.
    [[nodiscard]] float steering() const { return m_steering; }
    [[nodiscard]] float throttle() const { return m_throttle; }
    [[nodiscard]] float brake() const { return m_brake; }
    // The shifter's gear as last read (-1 reverse, 0 neutral, 1..7), the one the drive uses.
    [[nodiscard]] int gear() const { return m_gear; }
    [[nodiscard]] bool isReverseModeActive() const;
    [[nodiscard]] bool isLedPowerOn() const;

    // --- input devices (read them through devices()) ---
    // Opens the device at that position of a fresh enumeration in that role and remembers
    // it in the profile; refused while transmitting. "Failed to open ... device" on failure.
    bool connectDevice(DeviceRole role, int enumerationIndex);
    // Closes the role's device; refused while transmitting, like connectDevice.
    void disconnectDevice(DeviceRole role);
    // Opens every role of the active vehicle from the identities saved in the profile.
    void reconnectSavedDevices();

    // --- transmitter link (more through transmitterLink()) ---
    [[nodiscard]] bool isSerialConnected() const;
    [[nodiscard]] QString serialPortName() const;

    // --- helicopter ---
    [[nodiscard]] bool isHeliArmed() const;
    [[nodiscard]] int heliRateMode() const;

    // --- profile ---
    [[nodiscard]] bool autoStartEnabled() const;
    // The active profile's settings as the computations use them.
    [[nodiscard]] const ProfileSettings &settings() const { return m_profile->settings(); }

    // The parts other services and the interface read through the controller: the link,
    // the codec, the profile store, the devices of every role and the car's telemetry.
    // Changes go through the controller's slots, which apply its rules.
    [[nodiscard]] TransmitterLink *transmitterLink() const { return m_link; }
    [[nodiscard]] CrsfProtocol *crsfProtocol() const { return m_crsf; }
    [[nodiscard]] ProfileManager *profileManager() const { return m_profiles; }
    [[nodiscard]] const DeviceRoleSet *devices() const { return m_devices; }
    [[nodiscard]] const TelemetryMonitor *telemetry() const { return m_telemetry; }
    // The user's sensor labels, dashboard pins and discovery, kept in the active profile.
    [[nodiscard]] TelemetrySensorBook *telemetrySensors() const { return m_sensorBook; }
    // Learning which shifter button selects a gear, or which button the user means.
    [[nodiscard]] InputDetection *inputDetection() const { return m_inputDetection; }
    // Which attached game controller the user moves, for assigning it to a role.
    [[nodiscard]] MovedDeviceDetection *movedDeviceDetection() const { return m_movedDevice; }
    // Steering end points tried on the running car before they are saved.
    [[nodiscard]] SteeringTrim &steeringTrim() const { return *m_steeringTrim; }
    // Where the transmitter's ports are listed (and reconnects look).
    [[nodiscard]] const SerialPortDirectory &portDirectory() const { return *m_ports; }
    // The transmitter module's RF parameters; it works only in configuration mode.
    [[nodiscard]] ElrsParameterManager *elrsParameters() const { return m_elrs; }
    [[nodiscard]] ReceiverElrsLink *receiverLink() const { return m_receiverLink; }
    // The receiver's USB console; connect, disconnect and write lines through it directly.
    [[nodiscard]] ReceiverPort *receiverPort() const { return m_receiverPort; }
    // The receiver's settings, mounting and gyro, over its USB console or the radio.
    [[nodiscard]] ReceiverConfigManager *receiverConfig() const { return m_receiverConfig; }
    // Sends the LED strip settings over the receiver's USB console; refuses while it is closed.
    [[nodiscard]] LedConfigPush *ledPush() const { return m_ledPush; }
    // The end points of throttle and steering as the receiver reads them, over its USB console.
    [[nodiscard]] ReceiverEndpointCalibration *receiverCalibration() const { return m_receiverCalibration; }
    // The car's motion felt on the wheel base; switched off by every stop.
    [[nodiscard]] WheelForceFeedback *forceFeedback() const { return m_forceFeedback; }

public slots:
    // Each refusal emits errorOccurred once and changes nothing. True once running.
    bool startTransmission();
    void stopTransmission();
    bool enterConfigMode();
    void exitConfigMode();

    // Connects on the user's (or the remote app's) behalf and remembers port and rate
    // in the profile for reconnects and the next start.
    bool connectTransmitter(const QString &portName, qint32 baudRate = TransmitterLink::kDefaultBaudRate);
    void disconnectTransmitter();
    // Raw bytes for the parameter protocol and the console; -1 while the port is closed.
    qint64 serialWrite(const QByteArray &bytes);
    // Lays a value over one channel of every frame for the rest of this run (ChannelOverrides);
    // refused while not transmitting, since the next start would inherit it past its checks.
    bool setChannelOverride(int channel, int value) { return m_running && m_overrides.set(channel, value); }

    // Arming may be refused ("Lower the collective before arming the motor.").
    void setHeliArmed(bool armed);
    void setHeliRateMode(int mode);
    // Switches the LED strip power (CH12) and stores it in the profile.
    void setLedPower(bool on);
    void setAutoStartEnabled(bool enabled);
    // Reads the settings of the active profile again (after an editor changed them).
    void reloadSettings();

signals:
    void runningChanged(bool running);
    void serialConnectedChanged(bool connected);
    void serialPortNameChanged(const QString &portName);
    void receiverConnectedChanged(bool connected);
    void receiverPortNameChanged(const QString &portName);
    // One line from the receiver's USB console.
    void receiverDataReceived(const QString &line);
    void transmitterLineReceived(const QString &line);
    void wheelBaseConnectedChanged(bool connected);
    void pedalsConnectedChanged(bool connected);
    void shifterConnectedChanged(bool connected);
    void heliJoystickConnectedChanged(bool connected);
    void heliThrottleConnectedChanged(bool connected);
    void heliPedalsConnectedChanged(bool connected);
    void heliArmedChanged(bool armed);
    void heliRateModeChanged(int mode);
    void frameCountChanged(quint32 count);
    // The controls or the channels moved (at most once per tick or idle poll).
    void inputChanged();
    void frameSent(quint32 frameNumber);
    // Every raw chunk from the bridge.
    void telemetryReceived(const QByteArray &data);
    void crsfFrameReceived(uint8_t frameType, const QByteArray &payload);
    void linkStatisticsUpdated(const tavrix::LinkStatistics &stats);
    void carLinkChanged(bool linked);
    void gpsUpdated(const tavrix::GpsFix &fix);
    void telemetrySensorsUpdated();
    // A sensor key appeared for the first time.
    void telemetrySensorListChanged();
    // The number of stale sensors changed.
    void telemetryDashboardChanged();
    // The force the car's motion puts on the wheel, -1..+1, on its 20 ms tick when it moved.
    void ffbLevelReceived(float level);
    void receiverFfbStateChanged(tavrix::ReceiverFfbState state);
    void heliAttitudeReceived(float pitchDeg, float rollDeg, float yawDeg);
    void carMotionReceived(float lonG, float latG, float vertG);
    void carAttitudeReceived(float pitchDeg, float rollDeg, float yawDeg);
    void errorOccurred(const QString &error);
    void profileChanged(const QString &profileId);
    void autoStartEnabledChanged(bool enabled);
    void reverseModeChanged(bool active);
    void configModeChanged(bool active);
    void ledSettingsChanged();

private:
    // Connects the link, the codec and the telemetry monitor (controllerwiring.cpp).
    void wireLinkAndTelemetry();
    // Creates the ELRS parameter client and feeds it lines and mode (controllerwiring.cpp).
    void wireElrsParameters();
    // Creates the wheel's force feedback and feeds it the car's motion (controllerwiring.cpp).
    void wireForceFeedback();
    // Creates the receiver's USB console port and remembers its port in the profile (controllerwiring.cpp).
    void wireReceiverPort();
    // Creates the receiver's configuration and end-point calibration and feeds them the console,
    // the vehicle type, the transmission state and the car's telemetry (controllerwiring.cpp).
    void wireReceiverConfig();
    void wireLedPush();
    void onTransmitTimer();
    void onIdleInputPoll();
    void onDeviceConnectedChanged(DeviceRole role, bool connected);
    void onDeviceLost(DeviceRole role);
    void onSerialConnectedChanged(bool connected);
    // The device whose loss stops transmission of the active vehicle, if one is gone.
    [[nodiscard]] std::optional<DeviceRole> missingDrivingDevice() const;
    [[nodiscard]] bool pedalsAssignedButGone() const;
    // Hands the active profile's settings, just read again, to the computations.
    void applySettings(bool ledChanged);
    void reopenSavedDevices();
    void tickCar();
    void tickHelicopter();
    void sendFrame();
    void sendNeutralFrame();
    void safetyStop(const QString &reason);
    bool checkStartPreconditions();
    // Reads steering, throttle, brake and gear and keeps them for the interface.
    DriveInputs readDriveControls();
    void publishInputs();

    InputBackend *m_inputBackend;
    ProfileManager *m_profiles;
    Timings m_timings;

    std::shared_ptr<const SerialPortDirectory> m_ports;
    TransmitterLink *m_link = nullptr;
    CrsfProtocol *m_crsf = nullptr;
    DeviceRoleSet *m_devices = nullptr;
    TelemetryMonitor *m_telemetry = nullptr;
    TelemetrySensorBook *m_sensorBook = nullptr;
    ElrsParameterManager *m_elrs = nullptr;
    ReceiverElrsLink *m_receiverLink = nullptr;
    ReceiverPort *m_receiverPort = nullptr;
    ReceiverConfigManager *m_receiverConfig = nullptr;
    LedConfigPush *m_ledPush = nullptr;
    ReceiverEndpointCalibration *m_receiverCalibration = nullptr;
    WheelForceFeedback *m_forceFeedback = nullptr;
    QTimer *m_transmitTimer = nullptr;
    QTimer *m_idleInputTimer = nullptr;
    // The active profile's settings and the vehicle they drive, kept in step with the store.
    ActiveProfileFollower *m_profile = nullptr;

    std::unique_ptr<ButtonMappingEngine> m_buttons;
    std::unique_ptr<CarTick> m_car;
    std::unique_ptr<HelicopterTick> m_helicopter;
    InputDetection *m_inputDetection = nullptr;
    MovedDeviceDetection *m_movedDevice = nullptr;
    std::unique_ptr<SteeringTrim> m_steeringTrim;

    ChannelValues m_channels{};
    ChannelOverrides m_overrides;
    ChannelValues m_publishedChannels{};
    quint32 m_frameCount = 0;
    bool m_running = false;
    // While a start polls the devices: a loss it finds is reported by the refusal.
    bool m_checkingStart = false;
    bool m_configMode = false;
    bool m_safetyStopQueued = false;
    float m_steering = 0.0f;
    float m_throttle = 0.0f;
    float m_brake = 0.0f;
    int m_gear = 0;
    float m_publishedSteering = 0.0f;
    float m_publishedThrottle = 0.0f;
    float m_publishedBrake = 0.0f;
    int m_publishedGear = 0;
};

} // namespace tavrix
