#include "dinputbackend.h"

#ifndef DIRECTINPUT_VERSION
#define DIRECTINPUT_VERSION 0x0800
#endif
#include <windows.h>

#include <dinput.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace tavrix {

namespace {

static_assert(sizeof(DIDEVCAPS) == 44, "DirectInput's capabilities structure");
static_assert(sizeof(DIJOYSTATE2) == 272, "DirectInput's joystick state");
static_assert(sizeof(DIDEVICEINSTANCEW) == 1100, "DirectInput 8 device instance");

HWND g_window = nullptr;

// Re-acquiring while DirectInput keeps answering "input lost" gives up after this
// many tries, so a wheel pulled out mid-poll cannot stall the caller.
constexpr int kMaxReacquireTries = 16;

std::string utf8(const wchar_t *text)
{
    const int length = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (length <= 1)
        return {};
    std::string result(static_cast<size_t>(length - 1), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), length, nullptr, nullptr);
    return result;
}

// DeviceGuid holds the bytes in printed order, so the text the hub writes into
// profiles is the text StringFromGUID2 would give for the same device.
DeviceGuid toGuid(const GUID &guid)
{
    DeviceGuid bytes{};
    for (int i = 0; i < 4; ++i)
        bytes[static_cast<size_t>(i)] = static_cast<uint8_t>(guid.Data1 >> (8 * (3 - i)));
    bytes[4] = static_cast<uint8_t>(guid.Data2 >> 8);
    bytes[5] = static_cast<uint8_t>(guid.Data2 & 0xff);
    bytes[6] = static_cast<uint8_t>(guid.Data3 >> 8);
    bytes[7] = static_cast<uint8_t>(guid.Data3 & 0xff);
    std::memcpy(bytes.data() + 8, guid.Data4, 8);
    return bytes;
}

GUID fromGuid(const DeviceGuid &bytes)
{
    GUID guid{};
    for (int i = 0; i < 4; ++i)
        guid.Data1 = (guid.Data1 << 8) | bytes[static_cast<size_t>(i)];
    guid.Data2 = static_cast<unsigned short>((bytes[4] << 8) | bytes[5]);
    guid.Data3 = static_cast<unsigned short>((bytes[6] << 8) | bytes[7]);
    std::memcpy(guid.Data4, bytes.data() + 8, 8);
    return guid;
}

std::string hex(HRESULT hr)
{
    char text[16];
    std::snprintf(text, sizeof(text), "%08lX", static_cast<unsigned long>(hr));
    return text;
}

// DirectInput ties cooperative levels to a window. The hub's main window is the
// natural owner; a console program (the device lister) has no window of its own,
// so its console stands in, and the desktop is the last resort that always exists.
HWND cooperativeWindow()
{
    if (g_window)
        return g_window;
    if (HWND console = GetConsoleWindow())
        return console;
    return GetDesktopWindow();
}

void readCapabilities(IDirectInputDevice8W *device, DeviceListEntry &entry)
{
    DIDEVCAPS caps{};
    caps.dwSize = sizeof(DIDEVCAPS);
    if (SUCCEEDED(device->GetCapabilities(&caps))) {
        entry.axisCount = caps.dwAxes;
        entry.buttonCount = caps.dwButtons;
        entry.povCount = caps.dwPOVs;
        entry.hasForceFeedback = (caps.dwFlags & DIDC_FORCEFEEDBACK) != 0;
    }
}

// The slots the device fills in the DIJOYSTATE2 format: those with an object at the
// slot's offset, in the program's slot order.
uint8_t presentAxisSlots(IDirectInputDevice8W *device)
{
    const DWORD offsets[AxisSlotCount] = {DIJOFS_X, DIJOFS_RX, DIJOFS_RY,        DIJOFS_RZ,
                                          DIJOFS_Y, DIJOFS_Z,  DIJOFS_SLIDER(0), DIJOFS_SLIDER(1)};
    uint8_t mask = 0;
    for (int slot = 0; slot < AxisSlotCount; ++slot) {
        DIDEVICEOBJECTINSTANCEW object{};
        object.dwSize = sizeof(DIDEVICEOBJECTINSTANCEW);
        if (SUCCEEDED(device->GetObjectInfo(&object, offsets[slot], DIPH_BYOFFSET)))
            mask = static_cast<uint8_t>(mask | (1u << slot));
    }
    return mask;
}

struct EnumerationContext
{
    IDirectInput8W *directInput;
    std::vector<DeviceListEntry> *devices;
};

BOOL CALLBACK addDevice(LPCDIDEVICEINSTANCEW instance, LPVOID context)
{
    auto *ctx = static_cast<EnumerationContext *>(context);
    DeviceListEntry entry;
    entry.instanceName = utf8(instance->tszInstanceName);
    entry.productName = utf8(instance->tszProductName);
    entry.instanceGuid = toGuid(instance->guidInstance);
    entry.productGuid = toGuid(instance->guidProduct);
    IDirectInputDevice8W *device = nullptr;
    if (SUCCEEDED(ctx->directInput->CreateDevice(instance->guidInstance, &device, nullptr)) && device) {
        readCapabilities(device, entry);
        device->Release();
    }
    ctx->devices->push_back(std::move(entry));
    return DIENUM_CONTINUE; // in every case
}

struct ActuatorAxis
{
    DWORD offset;
    DWORD id;
};

struct ObjectCounts
{
    IDirectInputDevice8W *device;
    int axes = 0;
    int buttons = 0;
    int povs = 0;
};

BOOL CALLBACK setAxisRange(LPCDIDEVICEOBJECTINSTANCEW object, LPVOID context)
{
    auto *counts = static_cast<ObjectCounts *>(context);
    if (object->dwType & (DIDFT_RELAXIS | DIDFT_ABSAXIS)) {
        DIPROPRANGE range{};
        range.diph.dwSize = sizeof(DIPROPRANGE);
        range.diph.dwHeaderSize = sizeof(DIPROPHEADER);
        range.diph.dwHow = DIPH_BYID;
        range.diph.dwObj = object->dwType;
        range.lMin = 0;
        range.lMax = 65535;
        counts->device->SetProperty(DIPROP_RANGE, &range.diph);
        ++counts->axes;
    }
    if (object->dwType & (DIDFT_PSHBUTTON | DIDFT_TGLBUTTON))
        ++counts->buttons;
    if (object->dwType & DIDFT_POV)
        ++counts->povs;
    return DIENUM_CONTINUE;
}

BOOL CALLBACK collectActuator(LPCDIDEVICEOBJECTINSTANCEW object, LPVOID context)
{
    auto *axes = static_cast<std::vector<ActuatorAxis> *>(context);
    if (object->dwFlags & DIDOI_FFACTUATOR)
        axes->push_back({object->dwOfs, object->dwType});
    return axes->size() < 2 ? DIENUM_CONTINUE : DIENUM_STOP;
}

class DInputDevice final : public BackendDevice
{
public:
    DInputDevice(IDirectInputDevice8W *device, DeviceListEntry info, bool exclusive)
        : m_device(device)
        , m_info(std::move(info))
        , m_exclusive(exclusive)
    {}

    ~DInputDevice() override
    {
        stopEffects();
        for (IDirectInputEffect **effect : {&m_constant, &m_spring}) {
            if (*effect) {
                (*effect)->Unload();
                (*effect)->Release();
                *effect = nullptr;
            }
        }
        m_device->Unacquire();
        m_device->Release();
    }

    const DeviceListEntry &info() const override { return m_info; }
    bool isExclusive() const override { return m_exclusive; }

    PollResult poll(RawInputState &state) override
    {
        HRESULT hr = m_device->Poll();
        if (FAILED(hr)) {
            int tries = 0;
            do {
                hr = m_device->Acquire();
            } while (hr == DIERR_INPUTLOST && ++tries < kMaxReacquireTries);
            if (FAILED(hr) || FAILED(m_device->Poll()))
                return PollResult::Lost;
        }
        DIJOYSTATE2 js{};
        if (FAILED(m_device->GetDeviceState(sizeof(DIJOYSTATE2), &js)))
            return PollResult::Lost;
        const LONG axes[AxisSlotCount] = {js.lX, js.lRx, js.lRy,          js.lRz,
                                          js.lY, js.lZ,  js.rglSlider[0], js.rglSlider[1]};
        std::copy(std::begin(axes), std::end(axes), state.axes.begin());
        std::copy(std::begin(js.rgbButtons), std::end(js.rgbButtons), state.buttons.begin());
        std::copy(std::begin(js.rgdwPOV), std::end(js.rgdwPOV), state.povs.begin());
        return PollResult::Ok;
    }

    bool setAutocenter(double strength) override { return setAutocenterProperty(strength > 0.0); }

    bool setGain(double gain) override
    {
        DIPROPDWORD property = dwordProperty();
        property.dwData = static_cast<DWORD>(std::clamp(gain, 0.0, 1.0) * DI_FFNOMINALMAX);
        const HRESULT hr = m_device->SetProperty(DIPROP_FFGAIN, &property.diph);
        if (FAILED(hr))
            m_diagnostic = "DIPROP_FFGAIN=0x" + hex(hr);
        return SUCCEEDED(hr);
    }

    bool playConstantForce(double level) override
    {
        if (!m_info.hasForceFeedback) {
            m_diagnostic = "no force feedback";
            return false;
        }
        if (!m_constant && !createConstantForce())
            return false;
        DICONSTANTFORCE force{};
        force.lMagnitude = static_cast<LONG>(std::clamp(level, -1.0, 1.0) * DI_FFNOMINALMAX);
        DIEFFECT effect{};
        effect.dwSize = sizeof(DIEFFECT);
        effect.cbTypeSpecificParams = sizeof(DICONSTANTFORCE);
        effect.lpvTypeSpecificParams = &force;
        const HRESULT hr = m_constant->SetParameters(&effect, DIEP_TYPESPECIFICPARAMS | DIEP_START);
        m_constantPlaying = SUCCEEDED(hr);
        if (FAILED(hr))
            m_diagnostic = "SetParameters=0x" + hex(hr);
        return m_constantPlaying;
    }

    bool playSpring(double coefficient) override
    {
        if (!m_info.hasForceFeedback) {
            m_diagnostic = "no force feedback";
            return false;
        }
        if (!m_spring && !createSpring())
            return false;
        DIEFFECT effect{};
        effect.dwSize = sizeof(DIEFFECT);
        effect.dwGain = static_cast<DWORD>(std::clamp(coefficient, 0.0, 1.0) * DI_FFNOMINALMAX);
        HRESULT hr = m_spring->SetParameters(&effect, DIEP_GAIN);
        if (SUCCEEDED(hr) && !m_springPlaying)
            hr = m_spring->Start(1, 0);
        m_springPlaying = SUCCEEDED(hr);
        if (FAILED(hr))
            m_diagnostic = "spring=0x" + hex(hr);
        return m_springPlaying;
    }

    void stopEffects() override
    {
        if (m_constant && m_constantPlaying)
            m_constant->Stop();
        if (m_spring && m_springPlaying)
            m_spring->Stop();
        m_constantPlaying = false;
        m_springPlaying = false;
    }

    std::string lastEffectError() const override
    {
        return m_diagnostic.empty() ? std::string()
                                    : "[err 0x" + hex(m_lastEffectResult) + "] " + m_diagnostic;
    }

private:
    static DIPROPDWORD dwordProperty()
    {
        DIPROPDWORD property{};
        property.diph.dwSize = sizeof(DIPROPDWORD);
        property.diph.dwHeaderSize = sizeof(DIPROPHEADER);
        property.diph.dwHow = DIPH_DEVICE;
        property.diph.dwObj = 0;
        return property;
    }

    bool setAutocenterProperty(bool on)
    {
        DIPROPDWORD property = dwordProperty();
        property.dwData = on ? DIPROPAUTOCENTER_ON : DIPROPAUTOCENTER_OFF;
        return SUCCEEDED(m_device->SetProperty(DIPROP_AUTOCENTER, &property.diph));
    }

    std::vector<ActuatorAxis> actuatorAxes()
    {
        std::vector<ActuatorAxis> axes;
        m_device->EnumObjects(collectActuator, &axes, DIDFT_AXIS);
        return axes;
    }

    // Effects exist only on an exclusively acquired device: take it in the
    // background mode first, then the foreground one, and try the axis
    // configurations that different drivers accept, keeping a diagnostic of each.
    bool createConstantForce()
    {
        HWND window = g_window ? g_window : GetDesktopWindow();
        HRESULT last = E_FAIL;
        std::vector<std::string> parts;
        const struct
        {
            const char *name;
            DWORD flags;
        } modes[] = {{"bg", DISCL_EXCLUSIVE | DISCL_BACKGROUND}, {"fg", DISCL_EXCLUSIVE | DISCL_FOREGROUND}};

        for (const auto &mode : modes) {
            m_device->Unacquire();
            if (FAILED(last = m_device->SetCooperativeLevel(window, mode.flags)) ||
                FAILED(last = m_device->Acquire()))
                continue;
            m_exclusive = true;
            setAutocenterProperty(false);
            m_device->SendForceFeedbackCommand(DISFFC_RESET);

            const std::vector<ActuatorAxis> axes = actuatorAxes();
            if (axes.empty()) {
                parts.push_back(std::string(mode.name) + ":noaxis");
                continue;
            }
            parts.push_back(std::string(mode.name) + " axes=" + std::to_string(axes.size()) + " ofs=[" +
                            std::to_string(axes[0].offset) + "," +
                            (axes.size() > 1 ? std::to_string(axes[1].offset) : std::string("-")) + "]");

            struct Configuration
            {
                const char *name;
                DWORD flags;
                std::vector<DWORD> objects;
            };
            std::vector<Configuration> configurations = {
                {"X/offset", DIEFF_OBJECTOFFSETS, {DIJOFS_X}},
                {"enum0/offset", DIEFF_OBJECTOFFSETS, {axes[0].offset}},
                {"enum0/id", DIEFF_OBJECTIDS, {axes[0].id}},
            };
            if (axes.size() > 1) {
                configurations.push_back(
                    {"enum2/offset", DIEFF_OBJECTOFFSETS, {axes[0].offset, axes[1].offset}});
                configurations.push_back({"enum2/id", DIEFF_OBJECTIDS, {axes[0].id, axes[1].id}});
            }
            for (Configuration &configuration : configurations) {
                DICONSTANTFORCE force{};
                LONG directions[2] = {0, 0};
                DIEFFECT effect{};
                effect.dwSize = sizeof(DIEFFECT);
                effect.dwFlags = DIEFF_CARTESIAN | configuration.flags;
                effect.dwDuration = INFINITE;
                effect.dwGain = DI_FFNOMINALMAX;
                effect.dwTriggerButton = DIEB_NOTRIGGER;
                effect.cAxes = static_cast<DWORD>(configuration.objects.size());
                effect.rgdwAxes = configuration.objects.data();
                effect.rglDirection = directions;
                effect.cbTypeSpecificParams = sizeof(DICONSTANTFORCE);
                effect.lpvTypeSpecificParams = &force;
                effect.dwStartDelay = 0;
                last = m_device->CreateEffect(GUID_ConstantForce, &effect, &m_constant, nullptr);
                if (SUCCEEDED(last)) {
                    parts.push_back(std::string("OK via ") + mode.name + "/" + configuration.name);
                    break;
                }
                m_constant = nullptr;
                parts.push_back(std::string(configuration.name) + "=0x" + hex(last));
            }
            if (m_constant)
                break;
        }
        if (!m_constant) {
            m_exclusive = false;
            m_device->Unacquire();
            m_device->SetCooperativeLevel(cooperativeWindow(), DISCL_NONEXCLUSIVE | DISCL_BACKGROUND);
            m_device->Acquire();
        }
        m_lastEffectResult = last;
        m_diagnostic.clear();
        for (const std::string &part : parts)
            m_diagnostic += (m_diagnostic.empty() ? "" : "  ") + part;
        return m_constant != nullptr;
    }

    bool createSpring()
    {
        setAutocenterProperty(false);
        const std::vector<ActuatorAxis> axes = actuatorAxes();
        if (axes.empty()) {
            m_diagnostic = "spring:noaxis";
            return false;
        }
        DWORD object = axes[0].offset;
        LONG direction = 0;
        DICONDITION condition{};
        condition.lOffset = 0;
        condition.lPositiveCoefficient = DI_FFNOMINALMAX;
        condition.lNegativeCoefficient = DI_FFNOMINALMAX;
        condition.dwPositiveSaturation = DI_FFNOMINALMAX;
        condition.dwNegativeSaturation = DI_FFNOMINALMAX;
        condition.lDeadBand = 0;
        DIEFFECT effect{};
        effect.dwSize = sizeof(DIEFFECT);
        effect.dwFlags = DIEFF_CARTESIAN | DIEFF_OBJECTOFFSETS;
        effect.dwDuration = INFINITE;
        effect.dwGain = DI_FFNOMINALMAX;
        effect.dwTriggerButton = DIEB_NOTRIGGER;
        effect.cAxes = 1;
        effect.rgdwAxes = &object;
        effect.rglDirection = &direction;
        effect.cbTypeSpecificParams = sizeof(DICONDITION);
        effect.lpvTypeSpecificParams = &condition;
        const HRESULT hr = m_device->CreateEffect(GUID_Spring, &effect, &m_spring, nullptr);
        if (FAILED(hr)) {
            m_spring = nullptr;
            m_lastEffectResult = hr;
            m_diagnostic = "spring=0x" + hex(hr);
        }
        return m_spring != nullptr;
    }

    IDirectInputDevice8W *m_device;
    DeviceListEntry m_info;
    bool m_exclusive;
    IDirectInputEffect *m_constant = nullptr;
    IDirectInputEffect *m_spring = nullptr;
    bool m_constantPlaying = false;
    bool m_springPlaying = false;
    HRESULT m_lastEffectResult = E_FAIL;
    std::string m_diagnostic;
};

} // namespace

DInputBackend::DInputBackend() = default;

DInputBackend::~DInputBackend()
{
    if (m_directInput)
        static_cast<IDirectInput8W *>(m_directInput)->Release();
}

void DInputBackend::setCooperativeWindow(void *nativeWindow)
{
    g_window = static_cast<HWND>(nativeWindow);
}

bool DInputBackend::ensureInterface()
{
    if (m_directInput)
        return true;
    const HRESULT hr =
        DirectInput8Create(GetModuleHandleW(nullptr), 0x0800, IID_IDirectInput8W, &m_directInput, nullptr);
    if (FAILED(hr)) {
        m_lastResult = hr;
        m_directInput = nullptr;
        return false;
    }
    return true;
}

Enumeration DInputBackend::enumerate()
{
    Enumeration result;
    if (!ensureInterface()) {
        result.problems.push_back(
            {{}, "DirectInput is not available (DirectInput8Create failed, 0x" + hex(m_lastResult) + ")"});
        return result;
    }
    EnumerationContext context{static_cast<IDirectInput8W *>(m_directInput), &result.devices};
    const HRESULT hr =
        context.directInput->EnumDevices(DI8DEVCLASS_GAMECTRL, addDevice, &context, DIEDFL_ATTACHEDONLY);
    if (FAILED(hr))
        m_lastResult = hr;
    return result;
}

std::unique_ptr<BackendDevice> DInputBackend::open(int index, std::string *error)
{
    auto fail = [&](const std::string &what, HRESULT hr) -> std::unique_ptr<BackendDevice> {
        m_lastResult = hr;
        if (error)
            *error = what + " (0x" + hex(hr) + ")";
        return nullptr;
    };

    // Positions refer to the list the caller saw, but controllers come and go: enumerate
    // again so the index is checked against the devices attached right now.
    const Enumeration list = enumerate();
    if (index < 0 || index >= static_cast<int>(list.devices.size())) {
        if (error)
            *error = "No game controller at position " + std::to_string(index);
        return nullptr;
    }
    auto *directInput = static_cast<IDirectInput8W *>(m_directInput);

    // DIJOYSTATE2 has room for every axis, slider, hat and button a wheel can have, so
    // one data format fits all devices and the state maps straight onto RawInputState.
    IDirectInputDevice8W *device = nullptr;
    HRESULT hr = directInput->CreateDevice(fromGuid(list.devices[static_cast<size_t>(index)].instanceGuid),
                                           &device, nullptr);
    if (FAILED(hr) || !device)
        return fail("CreateDevice failed", hr);
    if (FAILED(hr = device->SetDataFormat(&c_dfDIJoystick2))) {
        device->Release();
        return fail("SetDataFormat failed", hr);
    }

    // Shared background access: the hub keeps reading while another window has the
    // focus, and a game or driver tool holding the wheel does not lock us out.
    HWND window = cooperativeWindow();
    if (FAILED(hr = device->SetCooperativeLevel(window, DISCL_NONEXCLUSIVE | DISCL_BACKGROUND))) {
        device->Release();
        return fail("SetCooperativeLevel failed", hr);
    }

    // Drivers report their own ranges; ask for 0..65535 on every axis so the rest of
    // the hub sees one scale whatever the device.
    ObjectCounts counts{device};
    device->EnumObjects(setAxisRange, &counts, DIDFT_ALL);

    // The capabilities decide below whether force feedback needs exclusive access.
    device->Acquire();
    DeviceListEntry info;
    readCapabilities(device, info);
    info.axisSlots = presentAxisSlots(device);

    // DirectInput plays effects only for the exclusive owner. When someone else already
    // holds the wheel, fall back to shared access so steering still reads.
    bool exclusive = false;
    if (info.hasForceFeedback) {
        device->Unacquire();
        exclusive = SUCCEEDED(device->SetCooperativeLevel(window, DISCL_EXCLUSIVE | DISCL_BACKGROUND)) &&
                    SUCCEEDED(device->Acquire());
        if (!exclusive) {
            device->SetCooperativeLevel(window, DISCL_NONEXCLUSIVE | DISCL_BACKGROUND);
            device->Acquire();
        }
    }

    // The device's own answer wins over the enumeration's, which may be a moment old;
    // the enumeration is the fallback when the driver does not answer.
    DIDEVICEINSTANCEW instance{};
    instance.dwSize = sizeof(DIDEVICEINSTANCEW);
    if (SUCCEEDED(device->GetDeviceInfo(&instance))) {
        info.instanceName = utf8(instance.tszInstanceName);
        info.productName = utf8(instance.tszProductName);
        info.instanceGuid = toGuid(instance.guidInstance);
        info.productGuid = toGuid(instance.guidProduct);
    } else {
        const DeviceListEntry &entry = list.devices[static_cast<size_t>(index)];
        info.instanceName = entry.instanceName;
        info.productName = entry.productName;
        info.instanceGuid = entry.instanceGuid;
        info.productGuid = entry.productGuid;
    }
    return std::make_unique<DInputDevice>(device, std::move(info), exclusive);
}

std::unique_ptr<InputBackend> createDirectInputBackend(void *nativeWindow)
{
    DInputBackend::setCooperativeWindow(nativeWindow);
    return std::make_unique<DInputBackend>();
}

} // namespace tavrix
