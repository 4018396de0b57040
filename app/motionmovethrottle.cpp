#include "motionmovethrottle.h"

#include <QTimer>

namespace tavrix {

MotionMoveThrottle::MotionMoveThrottle(std::function<void(int, int)> move, std::chrono::milliseconds interval,
                                       QObject *parent)
    : QObject(parent)
    , m_timer(new QTimer(this))
    , m_move(std::move(move))
{
    m_timer->setSingleShot(true);
    m_timer->setInterval(interval);
    connect(m_timer, &QTimer::timeout, this, &MotionMoveThrottle::sendPending);
}

void MotionMoveThrottle::request(int actuator, int positionMm)
{
    if (m_timer->isActive()) {
        m_pending.insert(actuator, positionMm);
        return;
    }
    m_move(actuator, positionMm);
    m_timer->start();
}

void MotionMoveThrottle::clear()
{
    m_pending.clear();
    m_timer->stop();
}

void MotionMoveThrottle::sendPending()
{
    if (m_pending.isEmpty())
        return;
    const QMap<int, int> pending = std::exchange(m_pending, {});
    for (auto it = pending.cbegin(); it != pending.cend(); ++it)
        m_move(it.key(), it.value());
    m_timer->start();
}

} // namespace tavrix
