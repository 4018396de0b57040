#include "devicelayouts.h"

#include <fstream>
#include <sstream>

namespace tavrix::hid {

namespace {

bool parseRef(const std::string &word, ElementRef &ref)
{
    ref = {};
    if (word == "-")
        return true;
    std::istringstream parts(word);
    char colon = 0;
    return bool(parts >> ref.field >> colon >> ref.element) && colon == ':' && parts.eof() && ref.field >= 0;
}

bool readDeviceLayouts(const std::string &path, DeviceLayouts &layouts, std::string *error)
{
    std::ifstream in(path);
    if (!in) {
        *error = "cannot read " + path;
        return false;
    }
    layouts = {};
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        std::istringstream words(line);
        std::string kind;
        std::string word;
        words >> kind;
        bool ok = true;
        if (kind == "abs" || kind == "hat" || kind == "key") {
            KernelCode &code = layouts.kernel.emplace_back();
            code.type = kind == "key" ? EV_KEY : EV_ABS;
            code.hat = kind == "hat";
            ok = words >> code.code >> word && parseRef(word, code.source) &&
                 (kind == "key" || words >> code.minimum >> code.maximum);
        } else if (kind == "directinput-axes") {
            for (ElementRef &ref : layouts.directInputAxes)
                ok = ok && words >> word && parseRef(word, ref);
        } else if (kind == "directinput-buttons" || kind == "directinput-povs") {
            auto &list = kind == "directinput-povs" ? layouts.directInputPovs : layouts.directInputButtons;
            while (ok && words >> word)
                ok = parseRef(word, list.emplace_back());
        } else {
            ok = kind.empty();
        }
        if (!ok) {
            *error = path + ":" + std::to_string(number) + ": not a layout line";
            return false;
        }
    }
    return true;
}

} // namespace

const KernelCode *DeviceLayouts::find(int type, int code) const
{
    for (const KernelCode &entry : kernel) {
        if (entry.type == type && entry.code == code)
            return &entry;
    }
    return nullptr;
}

bool loadStoredDevice(const std::string &hexPath, StoredDevice &device, std::string *error)
{
    std::ifstream in(hexPath);
    std::stringstream text;
    text << in.rdbuf();
    device.bytes = parseHexBytes(text.str(), error);
    device.descriptor = parseDescriptor(device.bytes);
    if (device.bytes.empty() || !device.descriptor.error.empty()) {
        *error = hexPath + ": " + *error + device.descriptor.error;
        return false;
    }
    const std::string stem = hexPath.substr(0, hexPath.rfind('.'));
    const size_t productDash = stem.rfind('-');
    const size_t vendorDash = stem.rfind('-', productDash - 1);
    if (vendorDash == std::string::npos) {
        *error = hexPath + ": no vendor and product in the file name";
        return false;
    }
    device.vendor = static_cast<uint16_t>(std::stoul(stem.substr(vendorDash + 1, 4), nullptr, 16));
    device.product = static_cast<uint16_t>(std::stoul(stem.substr(productDash + 1, 4), nullptr, 16));
    return readDeviceLayouts(stem + ".layout", device.layouts, error);
}

uint32_t directInputPov(int64_t value, int32_t logicalMinimum, int32_t logicalMaximum)
{
    if (value < logicalMinimum || value > logicalMaximum || logicalMaximum <= logicalMinimum)
        return 0xffffffffu;
    const int64_t positions = static_cast<int64_t>(logicalMaximum) - logicalMinimum + 1;
    return static_cast<uint32_t>((value - logicalMinimum) * 36000 / positions);
}

} // namespace tavrix::hid
