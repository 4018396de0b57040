#include "axismotionwatcher.h"

#include "inputdevice.h"

#include <QTimer>

#include <cmath>

namespace tavrix {

AxisMotionWatcher::AxisMotionWatcher(const ButtonPressWatcher::Timings &timings, QObject *parent)
    : QObject(parent)
    , m_poll(new QTimer(this))
    , m_deadline(new QTimer(this))
{
    m_poll->setInterval(timings.poll);
    m_deadline->setSingleShot(true);
    m_deadline->setInterval(timings.timeout);
    connect(m_poll, &QTimer::timeout, this, &AxisMotionWatcher::look);
    connect(m_deadline, &QTimer::timeout, this, [this] {
        cancel();
        emit timedOut();
    });
}

void AxisMotionWatcher::watch(const InputDevice *device)
{
    m_device = device;
    for (int slot = 0; slot < kSlots; ++slot) {
        const bool touched = device->hasAxis(slot) && device->isAxisActive(slot);
        m_rest[std::size_t(slot)] = touched ? std::optional<float>(device->axis(slot)) : std::nullopt;
    }
    m_poll->start();
    m_deadline->start();
}

void AxisMotionWatcher::cancel()
{
    m_device = nullptr;
    m_poll->stop();
    m_deadline->stop();
}

void AxisMotionWatcher::look()
{
    if (!m_device)
        return;
    int found = -1;
    float farthest = kDeliberateMove;
    for (int slot = 0; slot < kSlots; ++slot) {
        std::optional<float> &rest = m_rest[std::size_t(slot)];
        if (!m_device->hasAxis(slot) || !m_device->isAxisActive(slot))
            continue;
        if (!rest) {
            rest = m_device->axis(slot);
            continue;
        }
        const float distance = std::fabs(m_device->axis(slot) - *rest);
        if (distance > farthest) {
            farthest = distance;
            found = slot;
        }
    }
    if (found < 0)
        return;
    cancel();
    emit moved(found);
}

} // namespace tavrix
