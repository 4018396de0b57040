#include "timeseriesring.h"

#include <algorithm>

namespace hub {

TimeSeriesRing::TimeSeriesRing(std::chrono::milliseconds window, std::chrono::milliseconds resolution)
    : m_windowMs(std::max<qint64>(window.count(), 1))
    , m_resolutionMs(std::max<qint64>(resolution.count(), 1))
    // One sample per resolution step across the window, both ends included.
    , m_samples(size_t(m_windowMs / m_resolutionMs + 1))
{}

void TimeSeriesRing::append(qint64 timeMs, float value)
{
    if (m_size > 0) {
        const qint64 newest = this->newest().timeMs;
        // A clock that went back (a new run) starts the plot afresh.
        if (timeMs < newest)
            clear();
        else if (timeMs - newest < m_resolutionMs)
            return;
    }
    while (m_size > 0 && timeMs - at(0).timeMs > m_windowMs) {
        m_head = (m_head + 1) % m_samples.size();
        --m_size;
    }
    if (m_size == m_samples.size()) {
        m_head = (m_head + 1) % m_samples.size();
        --m_size;
    }
    m_samples[(m_head + m_size) % m_samples.size()] = {timeMs, value};
    ++m_size;
}

void TimeSeriesRing::clear()
{
    m_head = 0;
    m_size = 0;
}

const TimeSeriesRing::Sample &TimeSeriesRing::at(int index) const
{
    return m_samples[(m_head + size_t(index)) % m_samples.size()];
}

} // namespace hub
