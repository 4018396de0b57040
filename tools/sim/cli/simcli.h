#pragma once

// The command-line front end of orvane-sim: one run function per simulated device, and
// what they share (signal handling, choosing a value by name, numeric options).
#include <QString>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <optional>

class QCommandLineOption;
class QCommandLineParser;
class QCoreApplication;

namespace tavrix::sim::cli {

// Routes SIGINT, SIGTERM, SIGUSR1 and SIGUSR2 into the event loop; false when it cannot.
bool installSignalForwarding();

// Runs the event loop until SIGINT or SIGTERM; SIGUSR1 and SIGUSR2 call the device's
// own actions (unplug and replug for most devices).
int runUntilStopped(QCoreApplication &app, const std::function<void()> &unplug,
                    const std::function<void()> &replug);

// A value chosen on the command line by name.
template<typename T> struct Choice
{
    const char *name;
    T value;
};

template<typename T, size_t N> std::optional<T> choose(const Choice<T> (&choices)[N], const QString &name)
{
    for (const Choice<T> &choice : choices)
        if (name == QLatin1String(choice.name))
            return choice.value;
    return std::nullopt;
}

template<typename T, size_t N> QString choiceNames(const Choice<T> (&choices)[N])
{
    QStringList names;
    for (const Choice<T> &choice : choices)
        names.append(QLatin1String(choice.name));
    return names.join(QStringLiteral(", "));
}

// A whole number option (decimal, or hexadecimal with 0x) no smaller than `minimum`.
std::optional<int> wholeNumber(const QCommandLineParser &parser, const QCommandLineOption &option,
                               int minimum, int maximum);

int runBridge(QCoreApplication &app, const QStringList &arguments);
int runReceiver(QCoreApplication &app, const QStringList &arguments);
int runV4(QCoreApplication &app, const QStringList &arguments);
int runMotion(QCoreApplication &app, const QStringList &arguments);

} // namespace tavrix::sim::cli
