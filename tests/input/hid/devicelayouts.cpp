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

} // namespace

const KernelCode *DeviceLayouts::find(int type, int code) const
{
    for (const KernelCode &entry : kernel) {
        if (entry.type == type && entry.code == code)
            return &entry;
    }
    return nullptr;
}

bool readDeviceLayouts(const std::string &hexPath, DeviceLayouts &layouts, std::string *error)
{
    const std::string path = hexPath.substr(0, hexPath.rfind('.')) + ".layout";
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

uint32_t directInputPov(int64_t value, int32_t logicalMinimum, int32_t logicalMaximum)
{
    if (value < logicalMinimum || value > logicalMaximum || logicalMaximum <= logicalMinimum)
        return 0xffffffffu;
    const int64_t positions = static_cast<int64_t>(logicalMaximum) - logicalMinimum + 1;
    return static_cast<uint32_t>((value - logicalMinimum) * 36000 / positions);
}

} // namespace tavrix::hid
