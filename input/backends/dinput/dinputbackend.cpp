#include "dinputbackend.h"
#include "dinputforcefeedback.h"

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
static_assert(DIJOFS_X == dinput::kXAxisOffset && DI_FFNOMINALMAX == dinput::kNominalMax &&
                  E_FAIL == dinput::kGenericFailure && sizeof(HRESULT) == sizeof(dinput::Result),
              "the force-feedback logic's view of DirectInput");

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

DIPROPDWORD dwordProperty()
{
    DIPROPDWORD property{};
    property.diph.dwSize = sizeof(DIPROPDWORD);
    property.diph.dwHeaderSize = sizeof(DIPROPHEADER);
    property.diph.dwHow = DIPH_DEVICE;
    property.diph.dwObj = 0;
    return property;
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
    auto *axes = static_cast<std::vector<dinput::ActuatorAxis> *>(context);
    if (object->dwFlags & DIDOI_FFACTUATOR)
        axes->push_back({object->dwOfs, object->dwType});
    return axes->size() < 2 ? DIENUM_CONTINUE : DIENUM_STOP;
}

// The DirectInput calls behind the backend's force-feedback logic, and the two effects they make.
class DirectInputEffects final : public dinput::EffectDevice
{
public:
    explicit DirectInputEffects(IDirectInputDevice8W *device)
        : m_device(device)
    {}
    DirectInputEffects(const DirectInputEffects &) = delete;
    DirectInputEffects &operator=(const DirectInputEffects &) = delete;

    // Before the device itself is released.
    void release()
    {
        for (IDirectInputEffect **effect : {&m_constant, &m_spring}) {
            if (*effect) {
                (*effect)->Unload();
                (*effect)->Release();
                *effect = nullptr;
            }
        }
    }

    void unacquire() override { m_device->Unacquire(); }

    dinput::Result setCooperation(dinput::Cooperation level) override
    {
        switch (level) {
        case dinput::Cooperation::ExclusiveBackground:
            return m_device->SetCooperativeLevel(effectWindow(), DISCL_EXCLUSIVE | DISCL_BACKGROUND);
        case dinput::Cooperation::ExclusiveForeground:
            return m_device->SetCooperativeLevel(effectWindow(), DISCL_EXCLUSIVE | DISCL_FOREGROUND);
        case dinput::Cooperation::SharedBackground:
            break;
        }
        return m_device->SetCooperativeLevel(cooperativeWindow(), DISCL_NONEXCLUSIVE | DISCL_BACKGROUND);
    }

    dinput::Result acquire() override { return m_device->Acquire(); }

    dinput::Result setAutocenter(bool on) override
    {
        DIPROPDWORD property = dwordProperty();
        property.dwData = on ? DIPROPAUTOCENTER_ON : DIPROPAUTOCENTER_OFF;
        return m_device->SetProperty(DIPROP_AUTOCENTER, &property.diph);
    }

    dinput::Result resetForceFeedback() override { return m_device->SendForceFeedbackCommand(DISFFC_RESET); }

    std::vector<dinput::ActuatorAxis> actuatorAxes() override
    {
        std::vector<dinput::ActuatorAxis> axes;
        m_device->EnumObjects(collectActuator, &axes, DIDFT_AXIS);
        return axes;
    }

    dinput::Result createConstantForce(const dinput::EffectAxes &axes) override
    {
        std::vector<DWORD> objects(axes.objects.begin(), axes.objects.end());
        std::vector<LONG> directions(objects.size(), 0);
        DICONSTANTFORCE force{};
        DIEFFECT effect =
            endlessEffect(axes.byId ? DIEFF_OBJECTIDS : DIEFF_OBJECTOFFSETS, objects, directions);
        effect.cbTypeSpecificParams = sizeof(DICONSTANTFORCE);
        effect.lpvTypeSpecificParams = &force;
        IDirectInputEffect *made = nullptr;
        const HRESULT hr = m_device->CreateEffect(GUID_ConstantForce, &effect, &made, nullptr);
        if (SUCCEEDED(hr))
            m_constant = made;
        return hr;
    }

    dinput::Result startConstantForce(int32_t magnitude) override
    {
        DICONSTANTFORCE force{};
        force.lMagnitude = magnitude;
        DIEFFECT effect{};
        effect.dwSize = sizeof(DIEFFECT);
        effect.cbTypeSpecificParams = sizeof(DICONSTANTFORCE);
        effect.lpvTypeSpecificParams = &force;
        return m_constant->SetParameters(&effect, DIEP_TYPESPECIFICPARAMS | DIEP_START);
    }

    void stopConstantForce() override { m_constant->Stop(); }

    dinput::Result createSpring(uint32_t axisOffset) override
    {
        std::vector<DWORD> objects{axisOffset};
        std::vector<LONG> directions{0};
        DICONDITION condition{};
        condition.lOffset = 0;
        condition.lPositiveCoefficient = dinput::kNominalMax;
        condition.lNegativeCoefficient = dinput::kNominalMax;
        condition.dwPositiveSaturation = dinput::kNominalMax;
        condition.dwNegativeSaturation = dinput::kNominalMax;
        condition.lDeadBand = 0;
        DIEFFECT effect = endlessEffect(DIEFF_OBJECTOFFSETS, objects, directions);
        effect.cbTypeSpecificParams = sizeof(DICONDITION);
        effect.lpvTypeSpecificParams = &condition;
        IDirectInputEffect *made = nullptr;
        const HRESULT hr = m_device->CreateEffect(GUID_Spring, &effect, &made, nullptr);
        if (SUCCEEDED(hr))
            m_spring = made;
        return hr;
    }

    dinput::Result setSpringGain(uint32_t gain) override
    {
        DIEFFECT effect{};
        effect.dwSize = sizeof(DIEFFECT);
        effect.dwGain = gain;
        return m_spring->SetParameters(&effect, DIEP_GAIN);
    }

    dinput::Result startSpring() override { return m_spring->Start(1, 0); }
    void stopSpring() override { m_spring->Stop(); }

private:
    // Exclusive access is asked for the main window, else the desktop's.
    static HWND effectWindow() { return g_window ? g_window : GetDesktopWindow(); }

    // Cartesian, endless, full gain, no trigger, no envelope, no start delay; the vectors
    // must live until the effect is made.
    static DIEFFECT endlessEffect(DWORD objectFlag, std::vector<DWORD> &objects,
                                  std::vector<LONG> &directions)
    {
        DIEFFECT effect{};
        effect.dwSize = sizeof(DIEFFECT);
        effect.dwFlags = DIEFF_CARTESIAN | objectFlag;
        effect.dwDuration = INFINITE;
        effect.dwGain = DI_FFNOMINALMAX;
        effect.dwTriggerButton = DIEB_NOTRIGGER;
        effect.cAxes = static_cast<DWORD>(objects.size());
        effect.rgdwAxes = objects.data();
        effect.rglDirection = directions.data();
        effect.lpEnvelope = nullptr;
        effect.dwStartDelay = 0;
        return effect;
    }

    IDirectInputDevice8W *m_device;
    IDirectInputEffect *m_constant = nullptr;
    IDirectInputEffect *m_spring = nullptr;
};

class DInputDevice final : public BackendDevice
{
public:
    DInputDevice(IDirectInputDevice8W *device, DeviceListEntry info, bool exclusive)
        : m_device(device)
        , m_info(std::move(info))
        , m_effects(device)
        , m_ffb(m_effects, exclusive,
                [](const std::string &line) { std::fprintf(stderr, "%s\n", line.c_str()); })
    {}

    ~DInputDevice() override
    {
        m_ffb.stopEffects();
        m_effects.release();
        m_device->Unacquire();
        m_device->Release();
    }

    const DeviceListEntry &info() const override { return m_info; }
    bool isExclusive() const override { return m_ffb.isExclusive(); }

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

    bool setAutocenter(double strength) override { return m_ffb.setAutocenter(strength > 0.0); }

    bool setGain(double gain) override
    {
        DIPROPDWORD property = dwordProperty();
        property.dwData = static_cast<DWORD>(std::clamp(gain, 0.0, 1.0) * DI_FFNOMINALMAX);
        return SUCCEEDED(m_device->SetProperty(DIPROP_FFGAIN, &property.diph));
    }

    bool playConstantForce(double level) override
    {
        return m_info.hasForceFeedback && m_ffb.playConstantForce(level);
    }
    bool playSpring(double strength) override
    {
        return m_info.hasForceFeedback && m_ffb.playSpring(strength);
    }
    void stopConstantForce() override { m_ffb.stopConstantForce(); }
    void stopSpring() override { m_ffb.stopSpring(); }
    void stopEffects() override { m_ffb.stopEffects(); }
    std::string lastEffectError() const override
    {
        return m_info.hasForceFeedback ? m_ffb.lastError() : std::string("no force feedback");
    }
    // Only a force-feedback device is ever taken exclusively, as on open.
    void reacquireExclusive() override
    {
        if (m_info.hasForceFeedback)
            m_ffb.reacquireExclusive();
    }
    ForceFeedbackProbe probeForceFeedback() override
    {
        return m_info.hasForceFeedback ? m_ffb.probe() : ForceFeedbackProbe{};
    }

private:
    IDirectInputDevice8W *m_device;
    DeviceListEntry m_info;
    DirectInputEffects m_effects;
    dinput::ForceFeedback m_ffb;
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
        result.problems.push_back({{},
                                   "DirectInput is not available (DirectInput8Create failed, 0x" +
                                       dinput::hexResult(m_lastResult) + ")"});
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
            *error = what + " (0x" + dinput::hexResult(hr) + ")";
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
