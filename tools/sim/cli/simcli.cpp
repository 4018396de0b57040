#include "simcli.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace tavrix::sim::cli {

namespace {

// Signals arrive on a socket so they are handled in the event loop, not in the
// signal handler (where almost nothing is safe to call).
int g_signalSocket[2] = {-1, -1};

void forwardSignal(int signal)
{
    const char byte = char(signal);
    [[maybe_unused]] const ssize_t n = ::write(g_signalSocket[0], &byte, 1);
}

} // namespace

bool installSignalForwarding()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_signalSocket) != 0)
        return false;
    struct sigaction action = {};
    action.sa_handler = forwardSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int s : {SIGINT, SIGTERM, SIGUSR1, SIGUSR2})
        if (::sigaction(s, &action, nullptr) != 0)
            return false;
    return true;
}

int runUntilStopped(QCoreApplication &app, const std::function<void()> &unplug,
                    const std::function<void()> &replug)
{
    QSocketNotifier notifier(g_signalSocket[1], QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &app, [&] {
        char signal = 0;
        if (::read(g_signalSocket[1], &signal, 1) != 1)
            return;
        switch (signal) {
        case SIGUSR1:
            unplug();
            break;
        case SIGUSR2:
            replug();
            break;
        default:
            app.quit();
        }
    });
    return app.exec();
}

std::optional<int> wholeNumber(const QCommandLineParser &parser, const QCommandLineOption &option,
                               int minimum, int maximum)
{
    bool ok = false;
    const uint value = parser.value(option).toUInt(&ok, 0);
    if (!ok || value < uint(minimum) || value > uint(maximum))
        return std::nullopt;
    return int(value);
}

bool openLog(BridgeLog &log, const QCommandLineParser &parser, const QCommandLineOption &option)
{
    if (!parser.isSet(option) || log.open(parser.value(option)))
        return true;
    QTextStream(stderr) << "orvane-sim: cannot write " << parser.value(option) << ": " << log.errorString()
                        << '\n';
    return false;
}

} // namespace tavrix::sim::cli
