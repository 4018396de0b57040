#pragma once

#include "buttonpresswatcher.h"
#include "deviceroles.h"
#include "profilesettings.h"

#include <QList>
#include <QObject>

namespace tavrix {

class DeviceRoleSet;
class ProfileManager;

// Learns inputs by asking the user to press them: which shifter button selects a gear
// (written into the active profile's shifter mapping), and which button of a game
// controller the user means (reported only, for an editor to use). Each runs until the
// next press or its time-out; both can run at once.
class InputDetection : public QObject
{
    Q_OBJECT

public:
    // devices and profiles are not owned and must outlive the detection.
    InputDetection(const DeviceRoleSet *devices, ProfileManager *profiles,
                   const ButtonPressWatcher::Timings &timings = {}, QObject *parent = nullptr);

    // gearSlot 0 neutral, 1 reverse, 2..8 gears 1 to 7; false (and nothing starts) outside.
    // A detection without a shifter waits out its time (the remote app counts on that);
    // the window asks shifterDetectionRefusal() first and says why instead.
    bool startShifterDetection(int gearSlot);
    // Why a detection started now could hear no gear (the shifter's "not connected"
    // message), or empty while a shifter is connected.
    [[nodiscard]] QString shifterDetectionRefusal() const;
    // Reports the running detection as unsuccessful.
    void cancelShifterDetection();
    [[nodiscard]] bool isDetectingShifter() const { return m_shifterWatch->isWatching(); }

    // The next press on the device of that role. A role with no device open simply
    // times out: one may be plugged in while the user is still reaching for it.
    void startButtonDetection(DeviceRole role);
    void stopButtonDetection();
    [[nodiscard]] bool isDetectingButton() const { return m_buttonWatch->isWatching(); }

    // The active profile's shifter mapping, and replacing it.
    [[nodiscard]] ShifterMapping shifterMapping() const;
    bool setShifterMapping(const ShifterMapping &mapping);

signals:
    void shifterDetectionStarted(int gearSlot);
    // buttonIndex is -1 when unsuccessful (time-out or cancelled).
    void shifterDetectionResult(int gearSlot, int buttonIndex, bool success);
    void shifterMappingChanged();
    void buttonDetectionStarted(tavrix::DeviceRole role);
    void buttonDetectionResult(int buttonIndex, bool success);

private:
    void onShifterPressed(int inputIndex);

    const DeviceRoleSet *m_devices;
    ProfileManager *m_profiles;
    ButtonPressWatcher *m_shifterWatch;
    ButtonPressWatcher *m_buttonWatch;
    int m_gearSlot = -1;
};

// The mapping with inputIndex selecting that gear slot. An input selects one gear only,
// so any other slot that held it is cleared.
[[nodiscard]] ShifterMapping shifterMappingWith(ShifterMapping mapping, int gearSlot, int inputIndex);

} // namespace tavrix
