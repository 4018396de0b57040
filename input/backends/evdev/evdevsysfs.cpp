#include "evdevsysfs.h"

#include <algorithm>
#include <charconv>
#include <dirent.h>
#include <fstream>
#include <limits.h>
#include <sstream>
#include <unistd.h>

namespace tavrix::evdev {

namespace {

// Sysfs attributes are small; anything longer than this is not one we understand.
constexpr std::streamsize kMaxAttributeBytes = 4096;

std::string readAttribute(const std::string &path)
{
    std::ifstream file(path);
    if (!file)
        return {};
    std::string text(static_cast<size_t>(kMaxAttributeBytes), '\0');
    file.read(text.data(), kMaxAttributeBytes);
    text.resize(static_cast<size_t>(file.gcount()));
    while (!text.empty() && (text.back() == '\n' || text.back() == ' '))
        text.pop_back();
    return text;
}

uint16_t readHexId(const std::string &path)
{
    const std::string text = readAttribute(path);
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc() || value > 0xffff)
        return 0;
    (void)end;
    return static_cast<uint16_t>(value);
}

template<size_t N> void readBitmap(const std::string &path, std::bitset<N> &bits)
{
    for (int bit :
         parseSysfsBitmap(readAttribute(path), static_cast<int>(N), static_cast<int>(sizeof(long) * 8)))
        bits.set(static_cast<size_t>(bit));
}

std::string linkBaseName(const std::string &path)
{
    char target[PATH_MAX];
    const ssize_t length = ::readlink(path.c_str(), target, sizeof(target) - 1);
    if (length <= 0)
        return {};
    const std::string text(target, static_cast<size_t>(length));
    const size_t slash = text.find_last_of('/');
    return slash == std::string::npos ? text : text.substr(slash + 1);
}

int eventNumber(const char *name)
{
    const std::string_view text(name);
    if (text.size() <= 5 || text.substr(0, 5) != "event")
        return -1;
    int number = -1;
    const auto [end, error] = std::from_chars(text.data() + 5, text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return -1;
    return number;
}

} // namespace

std::vector<SysfsInputDevice> scanSysfsInputDevices(const std::string &sysfsInput,
                                                    const std::string &devInput)
{
    std::vector<SysfsInputDevice> devices;
    DIR *dir = ::opendir(sysfsInput.c_str());
    if (!dir)
        return devices;
    while (const dirent *entry = ::readdir(dir)) {
        const int number = eventNumber(entry->d_name);
        if (number < 0)
            continue;
        const std::string base = sysfsInput + '/' + entry->d_name + "/device";
        if (::access((base + "/capabilities/ev").c_str(), R_OK) != 0)
            continue;

        SysfsInputDevice device;
        device.eventNumber = number;
        device.devicePath = devInput + '/' + entry->d_name;
        device.identity.name = readAttribute(base + "/name");
        device.identity.physicalPath = readAttribute(base + "/phys");
        device.identity.bus = readHexId(base + "/id/bustype");
        device.identity.vendor = readHexId(base + "/id/vendor");
        device.identity.product = readHexId(base + "/id/product");
        device.identity.version = readHexId(base + "/id/version");
        device.identity.driver = linkBaseName(base + "/device/driver");
        readBitmap(base + "/capabilities/ev", device.capabilities.events);
        readBitmap(base + "/capabilities/key", device.capabilities.keys);
        readBitmap(base + "/capabilities/abs", device.capabilities.axes);
        readBitmap(base + "/capabilities/ff", device.capabilities.effects);
        readBitmap(base + "/properties", device.capabilities.properties);
        devices.push_back(std::move(device));
    }
    ::closedir(dir);
    std::sort(devices.begin(), devices.end(), [](const SysfsInputDevice &a, const SysfsInputDevice &b) {
        return a.eventNumber < b.eventNumber;
    });
    return devices;
}

} // namespace tavrix::evdev
