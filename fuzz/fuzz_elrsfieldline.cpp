// Fuzzes the bridge's walk lines ("FIELD <id>: <hex bytes>") and the field bytes they
// carry. The sanitizers watch the reads; the checks below that a line never yields more
// bytes than it holds parts, that dropping a repeated header only ever cuts a prefix and
// is settled after one pass, and that decoding whatever came out stays within its rules.

#include "elrsfield.h"

#include <cstdio>
#include <cstdlib>

using namespace tavrix::elrs;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_elrsfieldline: %s\n", what);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray raw = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));

    const QByteArray cut = dropRepeatedHeader(raw);
    if (!raw.endsWith(cut) || (!raw.isEmpty() && cut.isEmpty()))
        fail("dropping a repeated header kept something other than a tail");
    if (dropRepeatedHeader(cut) != cut)
        fail("a second pass dropped more");

    const QString line = QString::fromUtf8(raw);
    const FieldLine parsed = parseFieldLine(line);
    if (parsed.kind != FieldLine::Kind::Data && !parsed.bytes.isEmpty())
        fail("bytes from a line that was not taken");
    if (parsed.kind == FieldLine::Kind::Data) {
        if (parsed.fieldId < 0)
            fail("data without a field id");
        if (parsed.bytes.size() * 2 > line.size())
            fail("more bytes than the line has room for");
        if (const std::optional<Parameter> p = decodeFieldBytes(uint8_t(parsed.fieldId), parsed.bytes)) {
            if (p->name.contains(QChar(0)))
                fail("a name ran past its NUL");
        } else if (parsed.bytes.size() >= 2) {
            fail("two bytes or more not decoded");
        }
    }
    return 0;
}
