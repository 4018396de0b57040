#include "replayplayer.h"

#include <algorithm>

namespace tavrix {

ReplayPlayer::ReplayPlayer(ReplayScript script, VirtualBackend *backend, QObject *parent)
    : ReplayPlayer(std::move(script), backend, Clock{}, parent)
{}

ReplayPlayer::ReplayPlayer(ReplayScript script, VirtualBackend *backend, Clock clock, QObject *parent)
    : QObject(parent)
    , m_script(std::move(script))
    , m_backend(backend)
    , m_clock(std::move(clock))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ReplayPlayer::onTimer);
    for (const VirtualDeviceSpec &spec : m_script.devices())
        m_deviceIds.append(m_backend->addDevice(spec));
}

qint64 ReplayPlayer::now() const
{
    if (m_clock)
        return m_clock();
    return m_elapsed.isValid() ? m_elapsed.elapsed() : 0;
}

void ReplayPlayer::start()
{
    m_elapsed.start();
    advanceTo(now());
    scheduleNext();
}

void ReplayPlayer::advanceTo(qint64 ms)
{
    m_position = std::max(m_position, ms);
    const std::vector<ReplayEvent> &events = m_script.events();
    for (;;) {
        while (m_next < events.size() && m_roundStart + events[m_next].timeMs <= m_position) {
            const ReplayEvent &event = events[m_next++];
            m_backend->setState(m_deviceIds.at(event.device), event.state);
        }
        if (!isLooping() || m_next < events.size())
            break;
        // The last line's time ends the round; the states of the round that is due now
        // follow at once (after a long stall whole rounds are skipped, not replayed).
        beginNextRound();
    }
    if (isFinished() && !m_finishedReported) {
        m_finishedReported = true;
        emit finished();
    }
}

void ReplayPlayer::beginNextRound()
{
    const qint64 duration = m_script.durationMs();
    const qint64 rounds = std::max<qint64>(1, (m_position - m_roundStart) / duration);
    m_roundStart += rounds * duration;
    m_round += rounds;
    m_next = 0;
    for (const int id : std::as_const(m_deviceIds))
        m_backend->setState(id, RawInputState());
    emit looped(m_round);
}

void ReplayPlayer::onTimer()
{
    advanceTo(now());
    scheduleNext();
}

void ReplayPlayer::scheduleNext()
{
    if (isFinished())
        return;
    const qint64 wait = m_roundStart + m_script.events()[m_next].timeMs - now();
    m_timer.start(int(std::clamp<qint64>(wait, 0, 24 * 3600 * 1000)));
}

std::unique_ptr<ReplayBackend> ReplayBackend::fromFile(const QString &path, QString *error)
{
    ReplayScript script = ReplayScript::load(path);
    if (!script.isValid()) {
        if (error)
            *error = script.errorString();
        return nullptr;
    }
    auto backend = std::make_unique<ReplayBackend>(std::move(script));
    backend->player().start();
    return backend;
}

ReplayBackend::ReplayBackend(ReplayScript script)
    : m_player(std::move(script), this)
{}

} // namespace tavrix
