#pragma once

// A small HID report descriptor parser for tests: enough of the HID 1.11 item
// grammar to list the input fields of game controllers (usages, sizes, offsets,
// logical ranges) and to build input reports for them. It reads only the trusted
// descriptors of tests/data/devices, so it does not guard against hostile ones.
// Plain C++: the kernel VM test program uses it too.

#include <cstdint>
#include <string>
#include <vector>

namespace tavrix::hid {

inline constexpr uint32_t kPageGenericDesktop = 0x01;

// A usage with its page in the high 16 bits, as the kernel and Windows write them.
constexpr uint32_t usage(uint32_t page, uint32_t id)
{
    return (page << 16) | id;
}
constexpr uint32_t usageId(uint32_t usage)
{
    return usage & 0xffff;
}

enum class ReportType
{
    Input,
    Output,
    Feature
};

struct Field
{
    ReportType type = ReportType::Input;
    uint8_t reportId = 0;
    uint32_t bitOffset = 0; // within the report, after the report id byte
    uint32_t size = 0;      // bits per element
    uint32_t count = 0;     // elements
    uint32_t flags = 0;     // main item data: bit 0 constant, 1 variable
    int32_t logicalMinimum = 0;
    int32_t logicalMaximum = 0;
    std::vector<uint32_t> usages; // as declared (ranges expanded)

    bool isConstant() const { return flags & 0x01; }
    bool isVariable() const { return flags & 0x02; }
    // The usage of element i of a variable field: the last declared usage repeats.
    uint32_t usageAt(uint32_t element) const;
};

struct Descriptor
{
    std::vector<Field> fields;
    bool usesReportIds = false;
    std::string error; // empty when the descriptor parsed

    // Bytes of the input report with this id, id byte included when ids are used.
    uint32_t inputReportBytes(uint8_t reportId) const;
};

[[nodiscard]] Descriptor parseDescriptor(const std::vector<uint8_t> &bytes);

// "05 01 09 04 ..." as in the device files (whitespace-separated hex bytes);
// an empty vector and a message in *error when the text is not that.
[[nodiscard]] std::vector<uint8_t> parseHexBytes(const std::string &text, std::string *error = nullptr);

// Writes element `element` of a field into a report buffer (id byte included when used).
void setFieldValue(std::vector<uint8_t> &report, const Descriptor &descriptor, const Field &field,
                   uint32_t element, int64_t value);

// An input report for this id with every field at its logical minimum and hats at
// their null position, so that nothing reads as pressed or moved.
[[nodiscard]] std::vector<uint8_t> restingInputReport(const Descriptor &descriptor, uint8_t reportId);

} // namespace tavrix::hid
