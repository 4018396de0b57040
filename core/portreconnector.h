#pragma once

#include "serialportdirectory.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

namespace tavrix {

// Brings back a USB serial device that dropped off the bus. Every interval it looks
// whether the lost port is listed again and, if so, asks its owner to reopen it; after
// the attempts run out it gives up for good. It never reopens anything itself, and a
// port that is merely closed on purpose is never its business: the owner starts it
// only after a loss.
class PortReconnector : public QObject
{
    Q_OBJECT
public:
    struct Timings
    {
        std::chrono::milliseconds interval{1500};
        // Ticks 1..attempts-1 look for the port; the last tick gives up.
        int attempts = 20;
    };

    PortReconnector(std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                    QObject *parent = nullptr);

    // Begins (or, while already running, restarts the count of) the search for portName.
    // True when a search began, false when one was already running.
    bool start(const QString &portName);
    void stop() { m_timer->stop(); }
    [[nodiscard]] bool isActive() const { return m_timer->isActive(); }

signals:
    // The port is listed again: the owner reopens it. A reopen that fails leaves the
    // search running; the owner stops it once the port is open.
    void portReturned(const QString &portName);
    void gaveUp();

private:
    void onTick();

    std::shared_ptr<const SerialPortDirectory> m_ports;
    Timings m_timings;
    QTimer *m_timer = nullptr;
    QString m_portName;
    int m_attemptsLeft = 0;
};

} // namespace tavrix
