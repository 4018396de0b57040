#pragma once

#include <QObject>

#include <chrono>
#include <functional>

class QTimer;

namespace tavrix {

// Coalesces bursts of change notices (every 7 ms tick) into at most one repaint per
// interval: the first request schedules the repaint, the ones before it runs are folded in.
class RepaintThrottle : public QObject
{
    Q_OBJECT
public:
    // About 30 repaints a second: smooth to the eye, a quarter of the tick rate.
    static constexpr std::chrono::milliseconds kDefaultInterval{33};

    explicit RepaintThrottle(std::function<void()> repaint, QObject *parent = nullptr,
                             std::chrono::milliseconds interval = kDefaultInterval);

    void request();

private:
    QTimer *m_timer;
    std::function<void()> m_repaint;
};

} // namespace tavrix
