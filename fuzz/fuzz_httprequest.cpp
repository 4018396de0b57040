// Fuzzes the web panel's request reading: finding the end of the head, parsing it, reading
// the parameters and building the reply. What the panel relies on: a head is found only
// where "\r\n\r\n" is, a parsed request has a method and a target without blanks, an integer
// parameter is exactly the decimal digits sent, and a reply states its body's true length.

#include "httprequest.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace tavrix::http;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_httprequest: %s\n", what);
    std::abort();
}

void checkParameters(const Request &request)
{
    for (const auto &pair : request.query) {
        if (pair.first.contains('&') || pair.first.contains('='))
            fail("a parameter name with a separator in it");
        if (const std::optional<int> value = request.integer(pair.first)) {
            if (!request.hasParameter(pair.first))
                fail("a value for a parameter that is not there");
            // Only the first value of a name counts; it must spell the number exactly.
            for (const auto &first : request.query) {
                if (first.first == pair.first) {
                    bool ok = false;
                    const QByteArray digits =
                        first.second.startsWith('-') ? first.second.mid(1) : first.second;
                    const bool onlyDigits =
                        !digits.isEmpty() && std::all_of(digits.cbegin(), digits.cend(),
                                                         [](char c) { return c >= '0' && c <= '9'; });
                    if (!onlyDigits || first.second.toLongLong(&ok) != *value || !ok)
                        fail("an integer that is not its digits");
                    break;
                }
            }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView buffer(reinterpret_cast<const char *>(data), qsizetype(size));
    const qsizetype length = headLength(buffer);
    if (length >= 0 && (length < 4 || buffer.first(length).last(4) != "\r\n\r\n"))
        fail("a head that does not end the way heads end");
    const std::optional<Request> request = parseRequest(length >= 0 ? buffer.first(length) : buffer);
    if (request) {
        if (request->method.isEmpty() || request->target.isEmpty() || request->method.contains(' ') ||
            request->target.contains(' '))
            fail("a request line word that is empty or holds a blank");
        if (!request->target.startsWith(request->path))
            fail("a path that is not the start of the target");
        checkParameters(*request);
        (void)request->isSameOrigin();
        (void)request->isHostAnAddress();
    }
    const Reply reply{int(size % 600), QByteArrayLiteral("text/plain"), buffer.toByteArray()};
    const QByteArray bytes = reply.toBytes();
    const qsizetype head = headLength(bytes);
    if (head < 0 || bytes.size() - head != reply.body.size() ||
        !bytes.first(head).contains("Content-Length: " + QByteArray::number(reply.body.size()) + "\r\n"))
        fail("a reply whose length is not its body's");
    return 0;
}
