// Fuzzes the receiver's console lines: cleaning, then parsing what is left. The checks
// below are what the configuration manager relies on: a cleaned line holds only
// printable ASCII within its length cap, a line with a binary frame in it keeps nothing
// before the first reply word, cleaning twice changes nothing, and every parsed value
// stays within what its reply allows.

#include "receiverline.h"

#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>

using namespace tavrix::receiver;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_receiverline: %s\n", what);
    std::abort();
}

bool isPrintableAscii(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return c.unicode() >= 32 && c.unicode() <= 126; });
}

void checkReply(const Reply &reply)
{
    static const QRegularExpression version(QStringLiteral("^\\d+(\\.\\d+)*$"));
    if (reply.version && !version.match(*reply.version).hasMatch())
        fail("a version that is not dotted digits");
    if (reply.telemetry) {
        for (const auto &item : *reply.telemetry) {
            if (item.first.isEmpty() || item.first.contains(QLatin1Char(' ')))
                fail("a settings item without a single-word key");
        }
    }
    for (const std::optional<int> &flag : {reply.osd, reply.gpsOn}) {
        if (flag && *flag != 0 && *flag != 1)
            fail("an on/off value other than 0 or 1");
    }
    if (reply.gpsRate && *reply.gpsRate < 0)
        fail("a negative GPS rate");
    if (reply.gpsStatus && reply.gpsStatus->satellites < 0)
        fail("a negative satellite count");
    if (reply.imuAxes && *reply.imuAxes != reply.imuAxes->trimmed())
        fail("axes text not trimmed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // The console speaks Latin-1: every byte is one character.
    const QString raw = QString::fromLatin1(reinterpret_cast<const char *>(data), qsizetype(size));
    const std::optional<QString> line = cleanLine(raw);
    if (!line)
        return 0;
    if (line->size() > kMaxLineLength || !isPrintableAscii(*line))
        fail("a cleaned line longer than its cap or with unprintable characters");
    if (cleanLine(*line) != line)
        fail("cleaning a clean line changed it");
    QString printable = raw;
    printable.removeIf([](QChar c) { return c.unicode() < 32 || c.unicode() > 126; });
    if (printable.contains(QLatin1String("$M"))) {
        static const QRegularExpression replyWord(QStringLiteral(
            "^(Orvane:|HW:|TYPE:|TELEM:|OSD|GPS|IMU|MOTION|CH12|CALIB|FAILSAFE|LED_|Commands)"));
        if (!replyWord.match(*line).hasMatch())
            fail("a line with a binary frame kept text before the first reply word");
    }
    checkReply(parseLine(*line));
    return 0;
}
