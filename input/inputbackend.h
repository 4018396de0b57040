#pragma once

// The seam between InputDevice and the operating system's game-controller API.
// Plain C++ on purpose: the DirectInput backend is compiled with mingw-w64 where
// no Qt exists, and the evdev backend runs inside a bare test VM.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavrix {

// Axis slots in the program's own order; presets and saved profiles depend on it.
enum AxisSlot : int
{
    SlotX = 0,
    SlotRx,
    SlotRy,
    SlotRz,
    SlotY,
    SlotZ,
    SlotSlider0,
    SlotSlider1,
    AxisSlotCount
};

inline constexpr int kRawButtonCount = 128;
inline constexpr int kRawPovCount = 4;
inline constexpr int32_t kRawAxisMax = 65535;
inline constexpr int32_t kRawAxisCentre = 32767;
inline constexpr uint32_t kRawPovCentred = 0xFFFFFFFFu;

// One poll's worth of device state in the fixed layout every backend fills:
// axes 0..65535 by slot, buttons with bit 7 = down, POVs in hundredths of a degree
// with a low word of 0xFFFF meaning centred.
struct RawInputState
{
    std::array<int32_t, AxisSlotCount> axes{};
    std::array<uint8_t, kRawButtonCount> buttons{};
    std::array<uint32_t, kRawPovCount> povs{};

    RawInputState()
    {
        axes.fill(kRawAxisCentre);
        povs.fill(kRawPovCentred);
    }
};

// A 16-byte identity, printed as a braced GUID "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}".
// The bytes are in printed order (RFC 4122: Data1..Data3 big-endian); a backend that
// holds a Windows GUID struct converts its little-endian fields when it fills one.
using DeviceGuid = std::array<uint8_t, 16>;

// One entry of an enumeration, in the order the backend found the devices.
struct DeviceListEntry
{
    std::string instanceName;
    std::string productName;
    DeviceGuid instanceGuid{};
    DeviceGuid productGuid{};
    uint32_t axisCount = 0;
    uint32_t buttonCount = 0;
    uint32_t povCount = 0;
    bool hasForceFeedback = false;
    // Which axis slots the device reports, bit n for slot n. A slot it lacks never moves, so
    // whoever assigns it must treat it as unassigned. A backend that cannot tell sets them all.
    uint8_t axisSlots = 0xFF;

    [[nodiscard]] bool hasAxisSlot(int slot) const
    {
        return slot >= 0 && slot < AxisSlotCount && ((axisSlots >> slot) & 1u) != 0;
    }
};

// A device the backend could see but not use, with a message a person can act on
// (for example a missing permission and the udev rule that grants it).
struct DeviceProblem
{
    std::string path;
    std::string message;
};

struct Enumeration
{
    std::vector<DeviceListEntry> devices;
    std::vector<DeviceProblem> problems;
};

// What a device can tell about its force feedback when asked for the compatibility check.
struct ForceFeedbackProbe
{
    int actuatorAxes = 0;       // axes that carry a force-feedback actuator
    bool constantForce = false; // the constant-force effect exists or was made just now
    uint32_t errorCode = 0;     // why it could not be made (HRESULT, errno)
    std::string diagnostic;     // the attempts that led there
};

enum class PollResult
{
    Ok,
    Lost
};

// An opened device. Force-feedback operations default to "not supported" so a
// backend or device without it needs no code; the force-feedback work fills them in.
class BackendDevice
{
public:
    virtual ~BackendDevice() = default;

    virtual const DeviceListEntry &info() const = 0;
    // Reads the current state; Lost when the device is gone or cannot be re-acquired.
    virtual PollResult poll(RawInputState &state) = 0;
    // True when the device was acquired exclusively (DirectInput exclusive level, EVIOCGRAB).
    virtual bool isExclusive() const { return false; }
    // Why the device, though open, may not deliver its inputs (another program holds it
    // exclusively), as a person can act on it; empty when nothing stands in the way.
    virtual std::string sharingProblem() const { return {}; }

    // Force feedback. Levels are -1..+1 (constant force) and 0..1 (spring, gain).
    virtual bool setAutocenter(double /*strength*/) { return false; }
    virtual bool setGain(double /*gain*/) { return false; }
    virtual bool playConstantForce(double /*level*/) { return false; }
    virtual bool playSpring(double /*coefficient*/) { return false; }
    virtual void stopConstantForce() {}
    virtual void stopSpring() {}
    // Both effects, as when the device is closed.
    virtual void stopEffects() {}
    virtual std::string lastEffectError() const { return {}; }
    // Tries for exclusive access again (another program may have let go of the wheel);
    // falls back to shared access when refused.
    virtual void reacquireExclusive() {}
    // Creates the constant-force effect if it does not exist yet and reports what it found.
    virtual ForceFeedbackProbe probeForceFeedback() { return {}; }
};

// Enumerates and opens game controllers of one platform API.
class InputBackend
{
public:
    virtual ~InputBackend() = default;

    virtual Enumeration enumerate() = 0;
    // Opens the entry at that position of a fresh enumeration; nullptr when out of range or refused.
    virtual std::unique_ptr<BackendDevice> open(int index, std::string *error = nullptr) = 0;

    // Hot-plug news, for backends that have any. Nothing here enumerates: whoever is told
    // reads the list again. A backend that watches the system gives a descriptor that turns
    // readable when controllers may have come or gone (-1 when it cannot watch) and
    // takeChanges() to consume that without blocking; true when any of it was about game
    // controllers.
    virtual int changeDescriptor() const { return -1; }
    virtual bool takeChanges() { return false; }
    // A backend whose devices come and go through its own calls (virtual devices) calls the
    // listener after each such change, on the caller's thread. An empty listener stops that.
    virtual void setChangeListener(std::function<void()> /*listener*/) {}
};

} // namespace tavrix
