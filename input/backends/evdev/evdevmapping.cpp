#include "evdevmapping.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tavrix::evdev {

namespace {

constexpr int kFirstJoystickButton = BTN_JOYSTICK;     // 0x120: trigger, thumb, ... then the gamepad block
constexpr int kLastJoystickButton = BTN_GAMEPAD + 0xf; // 0x13f
constexpr int kFirstHat = ABS_HAT0X;
constexpr int kLastHat = ABS_HAT3Y;

bool anyIn(const auto &bits, int first, int last)
{
    for (int code = first; code <= last; ++code) {
        if (bits.test(static_cast<size_t>(code)))
            return true;
    }
    return false;
}

struct FixedSlot
{
    int code;
    int slot;
};

// HID X..Rz become ABS_X..ABS_RZ in the kernel and lX..lRz in DirectInput.
constexpr std::array<FixedSlot, 6> kFixedSlots{{
    {ABS_X, SlotX},
    {ABS_Y, SlotY},
    {ABS_Z, SlotZ},
    {ABS_RX, SlotRx},
    {ABS_RY, SlotRy},
    {ABS_RZ, SlotRz},
}};

// Absolute axes that are neither X..Rz nor hats and still belong to a controller:
// HID Slider, Dial and Wheel, and the simulation controls.
constexpr int kFirstSliderCode = ABS_THROTTLE;
constexpr int kLastSliderCode = ABS_BRAKE;

uint64_t fnv1a(std::string_view text, uint64_t hash)
{
    for (unsigned char c : text) {
        hash ^= c;
        hash *= 0x100000001b3ULL;
    }
    return hash;
}

} // namespace

bool isControllerButton(int code)
{
    return (code >= kFirstJoystickButton && code <= kLastJoystickButton) ||
           (code >= BTN_TRIGGER_HAPPY && code <= KEY_MAX);
}

bool isJoystickClass(const DeviceCapabilities &caps)
{
    if (caps.properties.test(INPUT_PROP_ACCELEROMETER))
        return false;

    const bool joystickButtons = anyIn(caps.keys, kFirstJoystickButton, kLastJoystickButton) ||
                                 anyIn(caps.keys, BTN_TRIGGER_HAPPY, KEY_MAX);
    // Z counts as well as the rest: a set of pedals may report nothing but X, Y and Z.
    const bool joystickAxes = caps.events.test(EV_ABS) && (anyIn(caps.axes, ABS_Z, kLastSliderCode) ||
                                                           anyIn(caps.axes, kFirstHat, kLastHat));

    const bool absoluteCoordinates =
        caps.events.test(EV_ABS) && caps.axes.test(ABS_X) && caps.axes.test(ABS_Y);
    if (absoluteCoordinates) {
        if (caps.keys.test(BTN_STYLUS) || caps.keys.test(BTN_TOOL_PEN))
            return false; // tablet
        if (caps.keys.test(BTN_TOOL_FINGER) && !caps.properties.test(INPUT_PROP_DIRECT))
            return false; // touchpad
        if (caps.keys.test(BTN_LEFT))
            return false; // absolute mouse (virtual machines)
        if (caps.keys.test(BTN_TOUCH) || caps.properties.test(INPUT_PROP_DIRECT))
            return false; // touchscreen
    }
    return joystickButtons || joystickAxes;
}

const std::vector<SlotOverride> &slotOverrides()
{
    // The Linux Logitech driver (hid-lg) replaces the descriptor of its older wheels
    // with one that splits the pedals into separate axes: gas on ABS_Y, brake on
    // ABS_Z (or ABS_RZ for the Driving Force and Driving Force Pro). Under Windows the
    // Logitech layout, the one the G25/G27 report and the "Logitech" preset expects,
    // has gas on lZ and brake on lRz. Only while hid-lg is bound: with hid-generic the
    // device's own descriptor is in force and the general rule already matches Windows.
    static const std::vector<SlotOverride> table = [] {
        const std::vector<SlotOverride::Move> gasYBrakeZ{{ABS_Y, SlotZ}, {ABS_Z, SlotRz}};
        const std::vector<SlotOverride::Move> gasYBrakeRz{{ABS_Y, SlotZ}, {ABS_RZ, SlotRz}};
        constexpr std::string_view splitPedals =
            "hid-lg splits the pedals; gas to lZ, brake to lRz as on Windows";
        return std::vector<SlotOverride>{
            {0x046d, 0xc294, "logitech", splitPedals, gasYBrakeRz}, // Driving Force
            {0x046d, 0xc298, "logitech", splitPedals, gasYBrakeRz}, // Driving Force Pro
            {0x046d, 0xc295, "logitech", splitPedals, gasYBrakeZ},  // MOMO Racing
            {0x046d, 0xca03, "logitech", splitPedals, gasYBrakeZ},  // MOMO Racing 2
            {0x046d, 0xca04, "logitech", splitPedals, gasYBrakeZ},  // Formula Vibration
            {0x046d, 0xc293, "logitech", splitPedals, gasYBrakeZ},  // WingMan Formula Force GP
            {0x046d, 0xc20e, "logitech", splitPedals, gasYBrakeZ},  // WingMan Formula GP
        };
    }();
    return table;
}

const SlotOverride *findSlotOverride(const DeviceIdentity &identity)
{
    for (const SlotOverride &row : slotOverrides()) {
        if (row.vendor == identity.vendor && row.product == identity.product && row.driver == identity.driver)
            return &row;
    }
    return nullptr;
}

uint8_t DeviceLayout::axisSlotMask() const
{
    uint8_t mask = 0;
    for (int slot = 0; slot < AxisSlotCount; ++slot) {
        if (slotCode[static_cast<size_t>(slot)] >= 0)
            mask = static_cast<uint8_t>(mask | (1u << slot));
    }
    return mask;
}

DeviceLayout layoutDevice(const DeviceCapabilities &caps, const SlotOverride *override)
{
    DeviceLayout layout;
    std::bitset<ABS_CNT> placed;
    auto place = [&](int code, int slot) {
        layout.slotCode[static_cast<size_t>(slot)] = code;
        placed.set(static_cast<size_t>(code));
    };

    if (override) {
        for (const SlotOverride::Move &move : override->moves) {
            if (move.code >= 0 && move.code < ABS_CNT && move.slot >= 0 && move.slot < AxisSlotCount &&
                caps.axes.test(static_cast<size_t>(move.code)) &&
                !placed.test(static_cast<size_t>(move.code)) &&
                layout.slotCode[static_cast<size_t>(move.slot)] < 0)
                place(move.code, move.slot);
        }
    }

    std::vector<int> toSliders;
    for (const FixedSlot &fixed : kFixedSlots) {
        if (!caps.axes.test(static_cast<size_t>(fixed.code)) || placed.test(static_cast<size_t>(fixed.code)))
            continue;
        if (layout.slotCode[static_cast<size_t>(fixed.slot)] < 0)
            place(fixed.code, fixed.slot);
        else
            toSliders.push_back(fixed.code); // its slot was taken by an override
    }
    for (int code = kFirstSliderCode; code <= kLastSliderCode; ++code) {
        if (caps.axes.test(static_cast<size_t>(code)) && !placed.test(static_cast<size_t>(code)))
            toSliders.push_back(code);
    }
    std::sort(toSliders.begin(), toSliders.end());
    for (int code : toSliders) {
        for (int slot : {SlotSlider0, SlotSlider1}) {
            if (layout.slotCode[static_cast<size_t>(slot)] < 0) {
                place(code, slot);
                break;
            }
        }
    }

    for (int code = ABS_X; code <= kLastSliderCode; ++code) {
        if (caps.axes.test(static_cast<size_t>(code)))
            ++layout.axisCount;
    }

    int pov = 0;
    for (int hat = 0; hat < kRawPovCount && pov < kRawPovCount; ++hat) {
        if (caps.axes.test(static_cast<size_t>(kFirstHat + 2 * hat)) ||
            caps.axes.test(static_cast<size_t>(kFirstHat + 2 * hat + 1)))
            layout.povHat[static_cast<size_t>(pov++)] = hat;
    }

    for (int code = 0; code < KEY_CNT && static_cast<int>(layout.buttonCodes.size()) < kRawButtonCount;
         ++code) {
        if (isControllerButton(code) && caps.keys.test(static_cast<size_t>(code)))
            layout.buttonCodes.push_back(code);
    }

    layout.hasForceFeedback = caps.events.test(EV_FF) && caps.effects.test(FF_CONSTANT);
    return layout;
}

int32_t scaleAxis(int32_t value, int32_t minimum, int32_t maximum)
{
    if (maximum <= minimum)
        return kRawAxisCentre;
    if (value <= minimum)
        return 0;
    if (value >= maximum)
        return kRawAxisMax;
    const int64_t span = static_cast<int64_t>(maximum) - minimum;
    const int64_t offset = static_cast<int64_t>(value) - minimum;
    return static_cast<int32_t>((offset * kRawAxisMax + span / 2) / span);
}

int hatDirection(int32_t value, int32_t minimum, int32_t maximum)
{
    const int64_t twiceValue = 2 * static_cast<int64_t>(value);
    const int64_t twiceMiddle = static_cast<int64_t>(minimum) + maximum;
    if (twiceValue < twiceMiddle)
        return -1;
    if (twiceValue > twiceMiddle)
        return 1;
    return 0;
}

uint32_t povFromHat(int x, int y)
{
    x = (x > 0) - (x < 0);
    y = (y > 0) - (y < 0);
    // Indexed by (y + 1) * 3 + (x + 1); evdev's y grows downwards, so -1 is up.
    static constexpr std::array<uint32_t, 9> angles{
        31500, 0,
        4500, // up-left, up, up-right
        27000, kRawPovCentred,
        9000, // left, centred, right
        22500, 18000,
        13500, // down-left, down, down-right
    };
    return angles[static_cast<size_t>((y + 1) * 3 + (x + 1))];
}

DeviceGuid productGuid(uint16_t vendor, uint16_t product)
{
    // DirectInput's product GUID is {PPPPVVVV-0000-0000-0000-504944564944}; bytes in printed order.
    DeviceGuid guid{};
    guid[0] = static_cast<uint8_t>(product >> 8);
    guid[1] = static_cast<uint8_t>(product & 0xff);
    guid[2] = static_cast<uint8_t>(vendor >> 8);
    guid[3] = static_cast<uint8_t>(vendor & 0xff);
    constexpr std::string_view pidvid = "PIDVID";
    std::copy(pidvid.begin(), pidvid.end(), guid.begin() + 10);
    return guid;
}

DeviceGuid instanceGuid(const DeviceIdentity &identity)
{
    std::string key;
    key.reserve(64 + identity.physicalPath.size());
    for (uint16_t part : {identity.bus, identity.vendor, identity.product, identity.version}) {
        key += std::to_string(part);
        key += ':';
    }
    key += identity.physicalPath;

    const uint64_t high = fnv1a(key, 0xcbf29ce484222325ULL);
    const uint64_t low = fnv1a(key, high ^ 0x9e3779b97f4a7c15ULL);
    DeviceGuid guid{};
    for (int i = 0; i < 8; ++i) {
        guid[static_cast<size_t>(i)] = static_cast<uint8_t>(high >> (8 * i));
        guid[static_cast<size_t>(8 + i)] = static_cast<uint8_t>(low >> (8 * i));
    }
    return guid;
}

std::vector<int> parseSysfsBitmap(std::string_view text, int bitCount, int wordBits)
{
    std::vector<std::string_view> words;
    size_t pos = 0;
    while (pos < text.size()) {
        while (pos < text.size() && (text[pos] == ' ' || text[pos] == '\n' || text[pos] == '\t'))
            ++pos;
        const size_t start = pos;
        while (pos < text.size() && text[pos] != ' ' && text[pos] != '\n' && text[pos] != '\t')
            ++pos;
        if (pos > start)
            words.push_back(text.substr(start, pos - start));
    }

    std::vector<int> bits;
    // The last word holds bits 0..wordBits-1.
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[words.size() - 1 - i];
        uint64_t value = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
        if (error != std::errc() || end != word.data() + word.size())
            return {}; // not a bitmap: report no capabilities rather than guess
        for (int bit = 0; bit < wordBits && bit < 64; ++bit) {
            const int position = static_cast<int>(i) * wordBits + bit;
            if (position >= bitCount)
                break;
            if (value & (uint64_t{1} << bit))
                bits.push_back(position);
        }
    }
    std::sort(bits.begin(), bits.end());
    return bits;
}

} // namespace tavrix::evdev
