#pragma once

#include "replayscript.h"
#include "virtualbackend.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QTimer>

#include <functional>

namespace tavrix {

// Plays a replay script into a VirtualBackend: declares its devices at once (centred, hats
// centred) and sets each device's state when the script's time comes. After the last line
// every device keeps its last state, unless the player loops: then the time of the last line
// ends one round, every device is centred again and the script plays anew from 0 ms.
class ReplayPlayer : public QObject
{
    Q_OBJECT

public:
    // Milliseconds since start(); the default reads a QElapsedTimer. Tests pass their own clock.
    using Clock = std::function<qint64()>;

    ReplayPlayer(ReplayScript script, VirtualBackend *backend, QObject *parent = nullptr);
    ReplayPlayer(ReplayScript script, VirtualBackend *backend, Clock clock, QObject *parent = nullptr);

    // Backend ids of the declared devices, in declaration order.
    const QList<int> &deviceIds() const { return m_deviceIds; }
    const ReplayScript &script() const { return m_script; }

    // Starts the clock, applies the states due at 0 ms and schedules the rest on a timer.
    void start();
    // Applies every state whose time is at or before ms (never goes back).
    void advanceTo(qint64 ms);
    qint64 position() const { return m_position; }
    // A looping player never finishes. A script whose lines all sit at 0 ms has nothing to
    // repeat and plays once.
    bool isFinished() const { return !isLooping() && m_next >= m_script.events().size(); }

    // Plays the script again and again (set before start()).
    void setLooping(bool looping) { m_looping = looping; }
    bool isLooping() const { return m_looping && m_script.durationMs() > 0; }
    // Rounds begun so far, counting the first.
    qint64 round() const { return m_round; }

signals:
    void finished();
    // A looping player began round `round` (2, 3, ...) with every device centred again.
    void looped(qint64 round);

private:
    void onTimer();
    void scheduleNext();
    void beginNextRound();
    qint64 now() const;

    ReplayScript m_script;
    VirtualBackend *m_backend;
    Clock m_clock;
    QElapsedTimer m_elapsed;
    QTimer m_timer;
    QList<int> m_deviceIds;
    size_t m_next = 0;
    qint64 m_position = 0;
    // Script time 0 of the current round, on the player's clock.
    qint64 m_roundStart = 0;
    qint64 m_round = 1;
    bool m_looping = false;
    bool m_finishedReported = false;
};

// A VirtualBackend that plays a replay file from the moment it is created.
class ReplayBackend : public VirtualBackend
{
public:
    // nullptr with *error set when the file cannot be read or is malformed.
    [[nodiscard]] static std::unique_ptr<ReplayBackend> fromFile(const QString &path, QString *error);

    explicit ReplayBackend(ReplayScript script);
    ReplayPlayer &player() { return m_player; }

private:
    ReplayPlayer m_player;
};

} // namespace tavrix
