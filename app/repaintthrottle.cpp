#include "repaintthrottle.h"

#include <QTimer>

namespace tavrix {

RepaintThrottle::RepaintThrottle(std::function<void()> repaint, QObject *parent,
                                 std::chrono::milliseconds interval)
    : QObject(parent)
    , m_timer(new QTimer(this))
    , m_repaint(std::move(repaint))
{
    m_timer->setSingleShot(true);
    m_timer->setInterval(interval);
    connect(m_timer, &QTimer::timeout, this, [this] { m_repaint(); });
}

void RepaintThrottle::request()
{
    if (!m_timer->isActive())
        m_timer->start();
}

} // namespace tavrix
