#pragma once

#include "axispreset.h"
#include "forcefeedbackcheck.h"
#include "inputbackend.h"
#include "inputdeviceinfo.h"

#include <QList>
#include <QObject>
#include <QString>

#include <array>
#include <memory>

namespace tavrix {

// One game controller (wheel base, pedals, shifter, joystick) read through an InputBackend:
// normalises its eight axes to -1..+1, debounces its 128 buttons, reads its four hats, watches
// which axes rest at centre, applies the axis preset and reports loss of the device.
class InputDevice : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString deviceName READ deviceName NOTIFY deviceNameChanged)
    Q_PROPERTY(float steering READ steering NOTIFY stateChanged)
    Q_PROPERTY(float throttle READ throttle NOTIFY stateChanged)
    Q_PROPERTY(float brake READ brake NOTIFY stateChanged)

public:
    static constexpr int kButtonCount = kRawButtonCount;
    static constexpr int kPovCount = kRawPovCount;
    static constexpr int kPovIndexBase = 128;
    static constexpr int kAxisButtonIndexBase = 144;
    static constexpr int kUnifiedIndexEnd = 160;
    // The combined-pedal check runs on this poll after open or applyPreset.
    static constexpr int kCombinedPedalCheckPoll = 30;

    // The backend is not owned and must outlive the device.
    explicit InputDevice(InputBackend *backend, QObject *parent = nullptr);
    ~InputDevice() override;

    // The attached game controllers, in the backend's order; holds no device.
    [[nodiscard]] static QList<InputDeviceInfo> enumerateDevices(InputBackend &backend);
    // The controllers the backend sees but may not use, each with what to do about it
    // (a missing permission and the udev rule that grants it).
    [[nodiscard]] static QStringList unusableDevices(InputBackend &backend);
    // Axis slot names "lX", "lRx", "lRy", "lRz", "lY", "lZ", "Slider0", "Slider1"; empty outside 0..7.
    [[nodiscard]] static QString axisSlotName(int slot);
    // Slot of such a name, or -1.
    [[nodiscard]] static int axisSlotFromName(const QString &name);

    // Opens the entry at that position of a fresh enumeration. An index outside the list fails and
    // leaves an already open device as it was; any other failure leaves the device closed.
    bool open(int index);
    // Releases the device and resets its state; the activation and rest flags of the axes survive.
    void close();
    void shutdown();

    bool isOpen() const { return m_device != nullptr; }
    bool isConnected() const { return m_connected; }
    int deviceIndex() const { return m_deviceIndex; }
    QString deviceName() const { return m_info.instanceName; }
    QString productName() const { return m_info.productName; }
    DeviceGuid instanceGuid() const { return m_info.instanceGuid; }
    DeviceGuid productGuid() const { return m_info.productGuid; }
    QString instanceGuidString() const;
    QString productGuidString() const;
    quint32 axisCount() const { return m_info.axisCount; }
    quint32 buttonCount() const { return m_info.buttonCount; }
    quint32 povCount() const { return m_info.povCount; }
    bool hasForceFeedback() const { return m_info.hasForceFeedback; }
    bool isExclusive() const;
    // Why the last open failed (empty after a successful one).
    QString lastOpenError() const { return m_lastOpenError; }
    // Why the open device may not deliver its inputs (another program holds it); empty when
    // nothing stands in the way or nothing is open.
    QString sharingProblem() const;

    // Normalised slot value in -1..+1; exactly -1.0 until the axis first moves beyond 0.1.
    float axis(int slot) const;
    bool isAxisActive(int slot) const;
    // Whether the open device reports that slot at all.
    bool hasAxis(int slot) const;
    // Treats the slot as touched from now on: for an axis known to rest at centre (a stick, a
    // single rudder axis), whose untouched -1 would read as full deflection. Survives close
    // and open like any activation.
    void activateAxis(int slot);
    bool axisRestsAtCentre(int slot) const;
    bool button(int n) const;
    // Whole degrees 0..359, or -1 when centred or outside 0..3.
    int pov(int hat) const;
    // Unified input index: 0..127 buttons, 128..143 hat directions (up, right, down, left; a diagonal
    // presses two), 144..159 axis half-buttons of centred axes (even positive, odd negative).
    bool isPressed(int index) const;

    // Stores the mapping and marks the steering slot (and, for combined pedals, the throttle slot) active.
    void applyPreset(const AxisPreset &preset);
    const AxisPreset &preset() const { return m_preset; }
    // 0 steering, 1 throttle, 2 brake, 3 clutch after the preset; 4..7 the slot itself; otherwise 0.
    float logicalValue(int index) const;
    float steering() const { return logicalValue(LogicalSteering); }
    float throttle() const { return logicalValue(LogicalThrottle); }
    float brake() const { return logicalValue(LogicalBrake); }
    float clutch() const { return logicalValue(LogicalClutch); }

    // Force feedback on a wheel base. Each does nothing (false) without an open device that
    // has force feedback. Levels are clamped here, the last place before the motor.
    // Constant force -1..+1 (negative turns the wheel left).
    bool setConstantForce(float level);
    // The return-to-centre spring at that strength 0..1, started on first use.
    bool setCentering(float strength);
    // The wheel's own centering, which the spring replaces while force feedback is on.
    void setAutocenter(bool on);
    void stopConstantForce();
    void stopCentering();
    void reacquireExclusive();
    // The five conditions and the verdict shown to the user; may create the effect.
    [[nodiscard]] ForceFeedbackCheck runCheck();

public slots:
    void poll();

signals:
    void connectedChanged(bool connected);
    void deviceNameChanged(const QString &name);
    void stateChanged();
    void deviceDisconnected();

private:
    struct AxisTrack
    {
        bool active = false;
        bool restsAtCentre = false;
        float lastValue = 0.0f;
        qint32 stableCount = 0;
    };

    void readAxes(const RawInputState &raw);
    void runCombinedPedalCheck();
    void debounceButtons(const RawInputState &raw);
    void readPovs(const RawInputState &raw);
    void detectRest();
    void resetReadings();

    InputBackend *m_backend;
    std::unique_ptr<BackendDevice> m_device;
    InputDeviceInfo m_info;
    int m_deviceIndex = -1;
    bool m_connected = false;
    QString m_lastOpenError;

    RawInputState m_raw;
    std::array<float, AxisSlotCount> m_axes{};
    std::array<AxisTrack, AxisSlotCount> m_tracks{};
    std::array<bool, kButtonCount> m_buttons{};
    std::array<qint32, kButtonCount> m_debounce{};
    std::array<int, kPovCount> m_povs{};

    AxisPreset m_preset;
    qint32 m_combinedCheckPolls = 0;
    bool m_combinedCheckDone = false;
};

} // namespace tavrix
