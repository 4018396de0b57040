#pragma once

// Timing figures the event-loop benchmarks share: periods between time stamps, their
// percentiles and their deviation from a nominal period.

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace tavrix::bench {

inline constexpr double kPeriodMs = 7.0;

struct Figures
{
    size_t samples = 0;
    double meanMs = 0.0;
    double p50Ms = 0.0;
    double p99Ms = 0.0;
    double p99DeviationMs = 0.0;
    double maxDeviationMs = 0.0;
};

inline Figures summarise(const std::vector<qint64> &stampsNs)
{
    Figures f;
    if (stampsNs.size() < 3)
        return f;
    std::vector<double> periods;
    std::vector<double> deviations;
    for (size_t i = 1; i < stampsNs.size(); ++i) {
        const double ms = double(stampsNs[i] - stampsNs[i - 1]) / 1e6;
        periods.push_back(ms);
        deviations.push_back(std::fabs(ms - kPeriodMs));
    }
    f.samples = periods.size();
    double sum = 0.0;
    for (double p : periods)
        sum += p;
    f.meanMs = sum / double(periods.size());
    const auto percentile = [](std::vector<double> values, double q) {
        std::sort(values.begin(), values.end());
        return values[std::min(values.size() - 1, size_t(q * double(values.size() - 1) + 0.5))];
    };
    f.p50Ms = percentile(periods, 0.50);
    f.p99Ms = percentile(periods, 0.99);
    f.p99DeviationMs = percentile(deviations, 0.99);
    f.maxDeviationMs = *std::max_element(deviations.begin(), deviations.end());
    return f;
}

inline void print(const char *name, const Figures &f)
{
    std::printf("%-28s %8zu %9.3f %9.3f %9.3f %12.3f %12.3f\n", name, f.samples, f.meanMs, f.p50Ms, f.p99Ms,
                f.p99DeviationMs, f.maxDeviationMs);
}

inline double ratio(double a, double b)
{
    return b > 0.0 ? a / b : 0.0;
}

// Spins the event loop for the given time.
inline void runFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace tavrix::bench
