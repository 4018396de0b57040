#pragma once

#include <QMap>
#include <QObject>

#include <chrono>
#include <functional>

class QTimer;

namespace tavrix {

// Free-mode moves from a dragged slider, at most one per actuator per interval: the first
// goes out at once, the ones during the interval fold into the latest position per actuator,
// which goes out when it ends, so the board is not flooded and still ends where the slider
// was left.
class MotionMoveThrottle : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds kDefaultInterval{150};

    explicit MotionMoveThrottle(std::function<void(int actuator, int positionMm)> move,
                                std::chrono::milliseconds interval = kDefaultInterval,
                                QObject *parent = nullptr);

    void request(int actuator, int positionMm);
    // Forgets the moves not sent yet (Release, Free mode off): none of them goes out later.
    void clear();

private:
    void sendPending();

    QTimer *m_timer;
    std::function<void(int, int)> m_move;
    QMap<int, int> m_pending;
};

} // namespace tavrix
