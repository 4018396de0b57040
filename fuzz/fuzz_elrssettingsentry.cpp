// Fuzzes the decoding of one parameter settings entry as the module sends it: the first
// byte is taken as the field's type, the rest as its data after parent and type. The
// sanitizers watch the reads; the checks below the record's own rules.

#include "elrsfield.h"

#include <cstdio>
#include <cstdlib>

using namespace tavrix::elrs;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_elrssettingsentry: %s\n", what);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    // The fuzzer's own buffer, so reading one byte too far is a sanitizer report.
    const QByteArray entry =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    const Parameter p = decodeSettingsEntry(1, 0, data[0], entry);

    const bool numeric = p.type == Uint8 || p.type == Int8 || p.type == TextSelection;
    const bool allValues = p.value && p.minimum && p.maximum && p.defaultValue;
    const bool noValues = !p.value && !p.minimum && !p.maximum && !p.defaultValue;
    if (!allValues && !noValues)
        fail("values only partly set");
    if (allValues && !numeric)
        fail("values for a type that has none");
    if (p.readOnly == allValues)
        fail("writable exactly when the values came");
    if (!p.options.isEmpty() && p.type != TextSelection)
        fail("options for a type that is no selection");
    for (qsizetype i = 0; i < p.options.size(); ++i) {
        if (p.options.at(i).index != i)
            fail("option index is not its position");
    }
    const int low = p.type == Int8 ? -128 : 0;
    const int high = p.type == Int8 ? 127 : 255;
    for (const std::optional<int> &v : {p.value, p.minimum, p.maximum, p.defaultValue}) {
        if (v && (*v < low || *v > high))
            fail("value outside its byte");
    }
    if (p.name.contains(QChar(0)) || p.units.contains(QChar(0)))
        fail("a text ran past its NUL");
    return 0;
}
