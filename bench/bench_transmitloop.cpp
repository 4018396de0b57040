// How steady the transmit loop is as the bridge sees it: the controller runs against
// the in-process bridge simulator on a pty for a while, and the periods between the
// channel frames the simulator receives are compared with a bare 7 ms precise timer
// measured in the same run (the machine's own timer jitter).
//
// Usage: bench_transmitloop [--seconds N]   (default 10 s per measurement)

#include "benchrig.h"
#include "benchtiming.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

using namespace tavrix;
using namespace tavrix::bench;

namespace {

std::vector<qint64> measureBareTimer(int ms)
{
    std::vector<qint64> stamps;
    QElapsedTimer clock;
    clock.start();
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(int(kPeriodMs));
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { stamps.push_back(clock.nsecsElapsed()); });
    timer.start();
    runFor(ms);
    return stamps;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Transmit loop timing against the bridge simulator"));
    parser.addHelpOption();
    const QCommandLineOption secondsOption(QStringLiteral("seconds"),
                                           QStringLiteral("Seconds per measurement"), QStringLiteral("N"),
                                           QStringLiteral("10"));
    parser.addOption(secondsOption);
    parser.process(app);
    const int seconds = std::max(1, parser.value(secondsOption).toInt());

    BenchRig rig;
    if (!rig.setUp())
        return 1;
    TavrixController &controller = *rig.controller;
    sim::BridgeSimulator &bridge = rig.bridge;

    std::printf("transmit loop, %d s per measurement, nominal period %.1f ms\n", seconds, kPeriodMs);
    const std::vector<qint64> bare = measureBareTimer(seconds * 1000);

    std::vector<qint64> received;
    std::vector<qint64> sent;
    QElapsedTimer clock;
    clock.start();
    QObject::connect(&bridge, &sim::BridgeSimulator::channelFrameReceived, &bridge,
                     [&] { received.push_back(clock.nsecsElapsed()); });
    QObject::connect(&controller, &TavrixController::frameSent, &controller,
                     [&] { sent.push_back(clock.nsecsElapsed()); });
    if (!controller.startTransmission())
        return 1;
    runFor(seconds * 1000);
    controller.stopTransmission();
    runFor(50);

    const Figures bareFigures = summarise(bare);
    const Figures sentFigures = summarise(sent);
    const Figures peerFigures = summarise(received);
    std::printf("%-28s %8s %9s %9s %9s %12s %12s\n", "", "periods", "mean ms", "p50 ms", "p99 ms",
                "p99 |dev| ms", "max |dev| ms");
    print("bare QTimer (baseline)", bareFigures);
    print("controller ticks (sent)", sentFigures);
    print("frames at the bridge (peer)", peerFigures);
    std::printf("peer / baseline: p50 %.2f, p99 %.2f, p99 |dev| %.2f, max |dev| %.2f\n",
                ratio(peerFigures.p50Ms, bareFigures.p50Ms), ratio(peerFigures.p99Ms, bareFigures.p99Ms),
                ratio(peerFigures.p99DeviationMs, bareFigures.p99DeviationMs),
                ratio(peerFigures.maxDeviationMs, bareFigures.maxDeviationMs));
    std::printf("frames sent %zu, received by the bridge %llu\n", sent.size(),
                static_cast<unsigned long long>(bridge.channelFrameCount()));
    return 0;
}
