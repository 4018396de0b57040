#include "hiddescriptor.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace tavrix::hid {

namespace {

struct GlobalState
{
    uint32_t usagePage = 0;
    int32_t logicalMinimum = 0;
    int32_t logicalMaximum = 0;
    uint32_t reportSize = 0;
    uint32_t reportCount = 0;
    uint8_t reportId = 0;
};

struct LocalState
{
    std::vector<uint32_t> usages;
    bool haveMinimum = false;
    uint32_t usageMinimum = 0;

    void clear() { *this = LocalState{}; }
};

uint32_t withPage(uint32_t value, uint32_t size, uint32_t page)
{
    return size == 4 ? value : usage(page, value);
}

} // namespace

uint32_t Field::usageAt(uint32_t element) const
{
    if (usages.empty())
        return 0;
    return usages[std::min<size_t>(element, usages.size() - 1)];
}

uint32_t Descriptor::inputReportBytes(uint8_t reportId) const
{
    uint32_t bits = 0;
    for (const Field &field : fields) {
        if (field.type == ReportType::Input && field.reportId == reportId)
            bits = std::max(bits, field.bitOffset + field.size * field.count);
    }
    return (bits + 7) / 8 + (usesReportIds ? 1 : 0);
}

Descriptor parseDescriptor(const std::vector<uint8_t> &bytes)
{
    Descriptor descriptor;
    GlobalState global;
    std::vector<GlobalState> globalStack;
    LocalState local;
    std::map<std::pair<int, uint8_t>, uint32_t> reportBits; // (type, id) -> bits used so far

    auto fail = [&](std::string message, size_t at) {
        descriptor.error = message + " at byte " + std::to_string(at);
        return descriptor;
    };

    size_t pos = 0;
    while (pos < bytes.size()) {
        const size_t itemStart = pos;
        const uint8_t prefix = bytes[pos++]; // long items (0xfe) read as the reserved type
        const uint32_t size = (prefix & 0x03) == 3 ? 4 : (prefix & 0x03);
        const uint8_t type = (prefix >> 2) & 0x03;
        const uint8_t tag = prefix >> 4;
        if (pos + size > bytes.size())
            return fail("truncated item", itemStart);
        uint32_t unsignedData = 0;
        for (uint32_t i = 0; i < size; ++i)
            unsignedData |= static_cast<uint32_t>(bytes[pos + i]) << (8 * i);
        int32_t signedData = static_cast<int32_t>(unsignedData);
        if (size == 1)
            signedData = static_cast<int8_t>(unsignedData);
        else if (size == 2)
            signedData = static_cast<int16_t>(unsignedData);
        pos += size;

        switch (type) {
        case 0: // main
            switch (tag) {
            case 0x8:   // input
            case 0x9:   // output
            case 0xb: { // feature
                const ReportType reportType =
                    tag == 0x8 ? ReportType::Input : (tag == 0x9 ? ReportType::Output : ReportType::Feature);
                uint32_t &used = reportBits[{static_cast<int>(reportType), global.reportId}];
                descriptor.fields.push_back({reportType, global.reportId, used, global.reportSize,
                                             global.reportCount, unsignedData, global.logicalMinimum,
                                             global.logicalMaximum, local.usages});
                used += global.reportSize * global.reportCount;
                local.clear();
                break;
            }
            case 0xa: // collection
            case 0xc: // end collection
                local.clear();
                break;
            default:
                return fail("unknown main item", itemStart);
            }
            break;
        case 1: // global
            switch (tag) {
            case 0x0:
                global.usagePage = unsignedData;
                break;
            case 0x1:
                global.logicalMinimum = signedData;
                break;
            case 0x2:
                // The sign of the maximum follows the minimum's, as in Linux and Windows.
                global.logicalMaximum =
                    global.logicalMinimum < 0 ? signedData : static_cast<int32_t>(unsignedData);
                break;
            case 0x3:
            case 0x4:
            case 0x5:
            case 0x6:
                break; // physical range, unit exponent, unit
            case 0x7:
                global.reportSize = unsignedData;
                break;
            case 0x8:
                global.reportId = static_cast<uint8_t>(unsignedData);
                descriptor.usesReportIds = true;
                break;
            case 0x9:
                global.reportCount = unsignedData;
                break;
            case 0xa:
                globalStack.push_back(global);
                break;
            case 0xb:
                if (globalStack.empty())
                    return fail("pop without push", itemStart);
                global = globalStack.back();
                globalStack.pop_back();
                break;
            default:
                return fail("unknown global item", itemStart);
            }
            break;
        case 2: // local
            switch (tag) {
            case 0x0:
                local.usages.push_back(withPage(unsignedData, size, global.usagePage));
                break;
            case 0x1:
                local.usageMinimum = withPage(unsignedData, size, global.usagePage);
                local.haveMinimum = true;
                break;
            case 0x2: {
                if (!local.haveMinimum)
                    return fail("usage maximum without minimum", itemStart);
                const uint32_t maximum = withPage(unsignedData, size, global.usagePage);
                if (maximum < local.usageMinimum)
                    return fail("invalid usage range", itemStart);
                for (uint32_t u = local.usageMinimum; u <= maximum; ++u)
                    local.usages.push_back(u);
                local.haveMinimum = false;
                break;
            }
            default:
                break; // designators, strings, delimiters
            }
            break;
        default:
            return fail("reserved item type", itemStart);
        }
    }
    return descriptor;
}

std::vector<uint8_t> parseHexBytes(const std::string &text, std::string *error)
{
    std::vector<uint8_t> bytes;
    std::istringstream in(text);
    std::string word;
    while (in >> word) {
        if (word.size() != 2 || !std::isxdigit(static_cast<unsigned char>(word[0])) ||
            !std::isxdigit(static_cast<unsigned char>(word[1]))) {
            if (error)
                *error = "not a hex byte: \"" + word.substr(0, 16) + "\"";
            return {};
        }
        bytes.push_back(static_cast<uint8_t>(std::stoul(word, nullptr, 16)));
    }
    return bytes;
}

void setFieldValue(std::vector<uint8_t> &report, const Descriptor &descriptor, const Field &field,
                   uint32_t element, int64_t value)
{
    const uint32_t base = descriptor.usesReportIds ? 8 : 0;
    const uint32_t first = base + field.bitOffset + element * field.size;
    for (uint32_t bit = 0; bit < field.size; ++bit) {
        const uint32_t at = first + bit;
        if (at / 8 >= report.size())
            return;
        const uint8_t mask = static_cast<uint8_t>(1u << (at % 8));
        if ((static_cast<uint64_t>(value) >> bit) & 1)
            report[at / 8] |= mask;
        else
            report[at / 8] &= static_cast<uint8_t>(~mask);
    }
}

std::vector<uint8_t> restingInputReport(const Descriptor &descriptor, uint8_t reportId)
{
    std::vector<uint8_t> report(descriptor.inputReportBytes(reportId), 0);
    if (descriptor.usesReportIds && !report.empty())
        report[0] = reportId;
    for (const Field &field : descriptor.fields) {
        if (field.type != ReportType::Input || field.reportId != reportId || field.isConstant() ||
            !field.isVariable())
            continue;
        for (uint32_t element = 0; element < field.count; ++element) {
            const bool hat = field.usageAt(element) == usage(kPageGenericDesktop, 0x39);
            // A hat rests one past its range (its null state); everything else at its minimum.
            setFieldValue(report, descriptor, field, element,
                          hat ? static_cast<int64_t>(field.logicalMaximum) + 1 : field.logicalMinimum);
        }
    }
    return report;
}

} // namespace tavrix::hid
