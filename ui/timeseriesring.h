#pragma once

#include <QtGlobal>

#include <chrono>
#include <vector>

namespace hub {

// The last stretch of one live value for a plot, in memory fixed at construction: samples
// older than the window before the newest fall out, and samples closer than the resolution
// to the one kept before are skipped, so a faster sender cannot grow it.
class TimeSeriesRing
{
public:
    struct Sample
    {
        qint64 timeMs;
        float value;
    };

    TimeSeriesRing(std::chrono::milliseconds window, std::chrono::milliseconds resolution);

    void append(qint64 timeMs, float value);
    void clear();

    [[nodiscard]] int size() const { return int(m_size); }
    [[nodiscard]] int capacity() const { return int(m_samples.size()); }
    [[nodiscard]] bool isEmpty() const { return m_size == 0; }
    // Oldest first.
    [[nodiscard]] const Sample &at(int index) const;
    [[nodiscard]] const Sample &newest() const { return at(size() - 1); }

private:
    qint64 m_windowMs;
    qint64 m_resolutionMs;
    std::vector<Sample> m_samples;
    size_t m_head = 0;
    size_t m_size = 0;
};

} // namespace hub
