#include "buttonpresswatcher.h"

#include "inputdevice.h"

#include <QTimer>

namespace tavrix {

ButtonPressWatcher::ButtonPressWatcher(const Timings &timings, QObject *parent)
    : QObject(parent)
    , m_timings(timings)
    , m_poll(new QTimer(this))
    , m_deadline(new QTimer(this))
{
    m_poll->setInterval(m_timings.poll);
    m_deadline->setSingleShot(true);
    m_deadline->setInterval(m_timings.timeout);
    connect(m_poll, &QTimer::timeout, this, &ButtonPressWatcher::look);
    connect(m_deadline, &QTimer::timeout, this, &ButtonPressWatcher::expire);
}

bool ButtonPressWatcher::isWatching() const
{
    return m_device != nullptr;
}

void ButtonPressWatcher::watch(const InputDevice *device)
{
    m_device = device;
    for (int i = 0; i < kWatchedInputs; ++i)
        m_wasPressed[i] = device->isPressed(i);
    m_poll->start();
    m_deadline->start();
}

void ButtonPressWatcher::cancel()
{
    m_device = nullptr;
    m_poll->stop();
    m_deadline->stop();
}

void ButtonPressWatcher::look()
{
    if (!m_device)
        return;
    int found = -1;
    for (int i = 0; i < kWatchedInputs; ++i) {
        const bool now = m_device->isPressed(i);
        if (now && !m_wasPressed[i] && found < 0)
            found = i;
        m_wasPressed[i] = now;
    }
    if (found < 0)
        return;
    cancel();
    emit pressed(found);
}

void ButtonPressWatcher::expire()
{
    cancel();
    emit timedOut();
}

} // namespace tavrix
