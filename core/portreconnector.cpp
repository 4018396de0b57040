#include "portreconnector.h"

namespace tavrix {

PortReconnector::PortReconnector(std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                                 QObject *parent)
    : QObject(parent)
    , m_ports(std::move(ports))
    , m_timings(timings)
    , m_timer(new QTimer(this))
{
    m_timer->setInterval(m_timings.interval);
    connect(m_timer, &QTimer::timeout, this, &PortReconnector::onTick);
}

bool PortReconnector::start(const QString &portName)
{
    m_portName = portName;
    m_attemptsLeft = m_timings.attempts;
    if (m_timer->isActive())
        return false;
    m_timer->start();
    return true;
}

void PortReconnector::onTick()
{
    if (--m_attemptsLeft < 1) {
        stop();
        emit gaveUp();
        return;
    }
    if (m_portName.isEmpty()) {
        stop();
        return;
    }
    if (m_ports->contains(m_portName))
        emit portReturned(m_portName);
}

} // namespace tavrix
