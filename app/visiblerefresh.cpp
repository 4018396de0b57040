#include "visiblerefresh.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace tavrix {

VisibleRefresh::VisibleRefresh(QWidget *watched, std::chrono::milliseconds interval,
                               std::function<void()> refresh, QObject *parent)
    : QObject(parent)
    , m_timer(new QTimer(this))
    , m_refresh(std::move(refresh))
{
    m_timer->setInterval(interval);
    connect(m_timer, &QTimer::timeout, this, [this] { m_refresh(); });
    watched->installEventFilter(this);
    if (watched->isVisible())
        m_timer->start();
}

bool VisibleRefresh::isActive() const
{
    return m_timer->isActive();
}

bool VisibleRefresh::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        m_refresh();
        m_timer->start();
    } else if (event->type() == QEvent::Hide) {
        m_timer->stop();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tavrix
