#include "hidusagemap.h"

#include <linux/input.h>

#include <bitset>

namespace tavrix::hid {

namespace {

constexpr uint32_t kGdJoystick = usage(kPageGenericDesktop, 0x04);
constexpr uint32_t kGdGamepad = usage(kPageGenericDesktop, 0x05);
constexpr uint32_t kGdMouse = usage(kPageGenericDesktop, 0x02);
constexpr uint32_t kGdPointer = usage(kPageGenericDesktop, 0x01);
constexpr uint32_t kGdSystemControl = usage(kPageGenericDesktop, 0x80);
constexpr uint32_t kHatSwitch = usage(kPageGenericDesktop, 0x39);

struct Mapping
{
    int type = 0; // 0 = ignored
    int code = 0;
};

// The button code for button usage n (1-based) by the field's application.
int buttonCode(const Field &field, uint32_t id)
{
    const int code = static_cast<int>(id) - 1;
    switch (field.application) {
    case kGdMouse:
    case kGdPointer:
        return BTN_MOUSE + code;
    case kGdJoystick:
        return code <= 0xf ? BTN_JOYSTICK + code : BTN_TRIGGER_HAPPY - 0x10 + code;
    case kGdGamepad:
        return code <= 0xf ? BTN_GAMEPAD + code : BTN_TRIGGER_HAPPY - 0x10 + code;
    default:
        switch (field.physical) {
        case kGdMouse:
        case kGdPointer:
            return BTN_MOUSE + code;
        case kGdJoystick:
            return BTN_JOYSTICK + code;
        case kGdGamepad:
            return BTN_GAMEPAD + code;
        default:
            return BTN_MISC + code;
        }
    }
}

Mapping unknownUsage(const Field &field)
{
    if (field.size == 1)
        return {EV_KEY, BTN_MISC};
    if (field.isRelative())
        return {EV_REL, REL_MISC};
    return {EV_ABS, ABS_MISC};
}

Mapping configureUsage(const Field &field, uint32_t u)
{
    const uint32_t page = usagePage(u);
    const uint32_t id = usageId(u);
    if (page == 0)
        return {};
    switch (page) {
    case kPageGenericDesktop:
        if (field.application == kGdSystemControl)
            return {};
        switch (id) {
        case 0x30:
        case 0x31:
        case 0x32:
        case 0x33:
        case 0x34:
        case 0x35: // X..Rz
        case 0x36:
        case 0x37:
        case 0x38: // slider, dial, wheel
            if (field.isRelative())
                return {EV_REL, static_cast<int>(id & 0xf)};
            return {EV_ABS, static_cast<int>(id & 0xf)};
        case 0x39:
            return {EV_ABS, ABS_HAT0X};
        case 0x3d:
            return {EV_KEY, BTN_START};
        case 0x3e:
            return {EV_KEY, BTN_SELECT};
        default:
            if (id >= 0x80 && id <= 0xbf)
                return {}; // system control, d-pad and display keys: not controller input here
            return unknownUsage(field);
        }
    case kPageSimulation:
        switch (id) {
        case 0xba:
            return {EV_ABS, ABS_RUDDER};
        case 0xbb:
            return {EV_ABS, ABS_THROTTLE};
        case 0xc4:
            return {EV_ABS, ABS_GAS};
        case 0xc5:
            return {EV_ABS, ABS_BRAKE};
        case 0xc8:
            return {EV_ABS, ABS_WHEEL};
        default:
            return {};
        }
    case kPageButton:
        return {EV_KEY, buttonCode(field, id)};
    case 0xff00:
        return {}; // Microsoft's vendor page is ignored outright
    default:
        return unknownUsage(field);
    }
}

} // namespace

const KernelCode *KernelInputDevice::find(int type, int code) const
{
    for (const KernelCode &entry : codes) {
        if (entry.type == type && entry.code == code)
            return &entry;
    }
    return nullptr;
}

std::vector<KernelInputDevice> kernelMapping(const Descriptor &descriptor)
{
    struct Used
    {
        std::bitset<KEY_CNT> keys;
        std::bitset<ABS_CNT> axes;
        std::bitset<REL_CNT> rel;
    };
    std::vector<KernelInputDevice> devices;
    std::vector<Used> used;

    for (size_t f = 0; f < descriptor.fields.size(); ++f) {
        const Field &field = descriptor.fields[f];
        if (field.type != ReportType::Input || field.isConstant() || field.usages.empty())
            continue;
        size_t device = 0;
        while (device < devices.size() && devices[device].application != field.application)
            ++device;
        if (device == devices.size()) {
            devices.push_back({field.application, {}});
            used.emplace_back();
        }

        // Every usage slot of the field: a variable field has max(usages, count),
        // the last usage repeating; an array field has its usages as selectors.
        const uint32_t slots =
            field.isVariable() ? std::max<uint32_t>(field.count, static_cast<uint32_t>(field.usages.size()))
                               : static_cast<uint32_t>(field.usages.size());
        for (uint32_t element = 0; element < slots; ++element) {
            const uint32_t u = field.isVariable() ? field.usageAt(element) : field.usages[element];
            const Mapping mapping = configureUsage(field, u);
            if (mapping.type == 0)
                continue;
            Used &taken = used[device];
            bool duplicate = false;
            switch (mapping.type) {
            case EV_KEY:
                if (mapping.code > KEY_MAX)
                    continue;
                duplicate = taken.keys.test(static_cast<size_t>(mapping.code));
                taken.keys.set(static_cast<size_t>(mapping.code));
                break;
            case EV_ABS:
                duplicate = taken.axes.test(static_cast<size_t>(mapping.code));
                taken.axes.set(static_cast<size_t>(mapping.code));
                break;
            case EV_REL:
                duplicate = taken.rel.test(static_cast<size_t>(mapping.code));
                taken.rel.set(static_cast<size_t>(mapping.code));
                break;
            }
            if (duplicate)
                continue;
            KernelCode entry;
            entry.type = mapping.type;
            entry.code = mapping.code;
            entry.source = {static_cast<int>(f), field.isVariable() ? element : 0};
            entry.minimum = field.logicalMinimum;
            entry.maximum = field.logicalMaximum;
            if (mapping.type == EV_ABS && u == kHatSwitch) {
                entry.hat = true;
                entry.hatMinimum = field.logicalMinimum;
                entry.hatMaximum = field.logicalMaximum;
                entry.minimum = -1;
                entry.maximum = 1;
                taken.axes.set(ABS_HAT0Y);
            }
            devices[device].codes.push_back(entry);
        }
    }
    return devices;
}

std::array<int, 2> kernelHatAxes(int64_t value, int32_t hatMinimum, int32_t hatMaximum)
{
    static constexpr std::array<std::array<int, 2>, 9> hatToAxis{{
        {0, 0},
        {0, -1},
        {1, -1},
        {1, 0},
        {1, 1},
        {0, 1},
        {-1, 1},
        {-1, 0},
        {-1, -1},
    }};
    const int64_t span = static_cast<int64_t>(hatMaximum) - hatMinimum + 1;
    int64_t direction = span > 0 ? (value - hatMinimum) * 8 / span + 1 : 0;
    if (value < hatMinimum || direction < 0 || direction > 8)
        direction = 0;
    return hatToAxis[static_cast<size_t>(direction)];
}

DirectInputLayout directInputMapping(const Descriptor &descriptor)
{
    // Slot numbers in the program's order.
    constexpr int lX = 0, lRx = 1, lRy = 2, lRz = 3, lY = 4, lZ = 5, slider0 = 6;
    DirectInputLayout layout;
    int sliders = 0;
    auto take = [&](int slot, ElementRef ref) {
        if (!layout.axisSlots[static_cast<size_t>(slot)].valid())
            layout.axisSlots[static_cast<size_t>(slot)] = ref;
    };

    for (size_t f = 0; f < descriptor.fields.size(); ++f) {
        const Field &field = descriptor.fields[f];
        if (field.type != ReportType::Input || field.isConstant() || field.usages.empty())
            continue;
        const uint32_t slots = field.isVariable() ? field.count : static_cast<uint32_t>(field.usages.size());
        for (uint32_t element = 0; element < slots; ++element) {
            const uint32_t u = field.isVariable() ? field.usageAt(element) : field.usages[element];
            const ElementRef ref{static_cast<int>(f), field.isVariable() ? element : 0};
            // A repeated last usage is one value array in Windows, not new objects.
            if (field.isVariable() && element >= field.usages.size())
                break;
            if (usagePage(u) >= kPageVendorFirst)
                continue;
            if (usagePage(u) == kPageButton) {
                if (layout.buttons.size() < 128)
                    layout.buttons.push_back(ref);
                continue;
            }
            if (usagePage(u) == kPageGenericDesktop) {
                switch (usageId(u)) {
                case 0x30:
                    take(lX, ref);
                    break;
                case 0x31:
                    take(lY, ref);
                    break;
                case 0x32:
                    take(lZ, ref);
                    break;
                case 0x33:
                    take(lRx, ref);
                    break;
                case 0x34:
                    take(lRy, ref);
                    break;
                case 0x35:
                    take(lRz, ref);
                    break;
                case 0x38:
                    take(lZ, ref);
                    break; // wheel: GUID_ZAxis
                case 0x36:
                case 0x37:
                    if (sliders < 2)
                        layout.axisSlots[static_cast<size_t>(slider0 + sliders++)] = ref;
                    break;
                case 0x39:
                    if (layout.povs.size() < 4)
                        layout.povs.push_back(ref);
                    break;
                default:
                    break;
                }
            } else if (usagePage(u) == kPageSimulation) {
                switch (usageId(u)) {
                case 0xc8:
                    take(lX, ref);
                    break; // steering
                case 0xc4:
                    take(lY, ref);
                    break; // accelerator
                case 0xc5: // brake
                case 0xba:
                    take(lRz, ref);
                    break; // rudder
                case 0xbb: // throttle
                    if (sliders < 2)
                        layout.axisSlots[static_cast<size_t>(slider0 + sliders++)] = ref;
                    break;
                default:
                    break;
                }
            }
        }
    }
    return layout;
}

uint32_t directInputPov(int64_t value, int32_t logicalMinimum, int32_t logicalMaximum)
{
    if (value < logicalMinimum || value > logicalMaximum || logicalMaximum <= logicalMinimum)
        return 0xffffffffu;
    const int64_t positions = static_cast<int64_t>(logicalMaximum) - logicalMinimum + 1;
    return static_cast<uint32_t>((value - logicalMinimum) * 36000 / positions);
}

} // namespace tavrix::hid
