#pragma once

#include "card.h"

#include <QList>
#include <QMap>

class QCheckBox;
class QSlider;

namespace hub {
class LevelBar;
}

namespace tavrix {

// The platform's actuators: where each one is (from the board's heartbeat) and, in Free mode,
// one slider per actuator to move it by hand. It only presents: every slider change is asked
// for through moveRequested, and the owner decides what reaches the board and how often.
class MotionActuatorsCard : public hub::Card
{
    Q_OBJECT
public:
    explicit MotionActuatorsCard(QWidget *parent = nullptr);

    // One row per actuator, positions 0..strokeMm.
    void setActuators(int count, int strokeMm);
    int actuatorCount() const { return int(m_bars.size()); }
    // Millimetres by actuator number (from 1); actuators missing from the map show no value.
    void showPositions(const QMap<int, int> &mmByActuator);
    // Whether the board takes Free-mode moves now; the sliders follow the Free mode switch.
    void setFreeModeAvailable(bool available);

    QCheckBox *freeModeSwitch() const { return m_freeMode; }
    QSlider *slider(int actuator) const { return m_sliders.value(actuator); }
    hub::LevelBar *positionBar(int actuator) const { return m_bars.value(actuator); }

signals:
    // actuator from 0.
    void moveRequested(int actuator, int positionMm);

private:
    void updateSliders();

    QCheckBox *m_freeMode = nullptr;
    QWidget *m_rows = nullptr;
    QList<hub::LevelBar *> m_bars;
    QList<QSlider *> m_sliders;
    bool m_available = false;
};

} // namespace tavrix
