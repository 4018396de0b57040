#pragma once

#include "card.h"
#include "serialportpicker.h"
#include "tone.h"

class QLabel;
class QPushButton;

namespace hub {
class StatusPill;
}

namespace tavrix {

// The motion controller board's USB port and what the board says about itself: the port
// picker, the board's state word, how fresh its heartbeat is, and the two board commands that
// are no test (Auto home, the calibration mode). It only presents.
class MotionConnectionCard : public hub::Card
{
    Q_OBJECT
public:
    explicit MotionConnectionCard(QWidget *parent = nullptr);

    SerialPortPicker *picker() const { return m_picker; }
    hub::StatusPill *statePill() const { return m_state; }
    QPushButton *homeButton() const { return m_home; }
    QPushButton *calibrationButton() const { return m_calibration; }

    void showState(hub::Tone tone, const QString &text);
    void showHeartbeat(hub::Tone tone, const QString &text);
    QString heartbeatText() const;
    void setCommandsEnabled(bool enabled);

signals:
    void homeRequested();
    void calibrationToggleRequested();

private:
    SerialPortPicker *m_picker = nullptr;
    hub::StatusPill *m_state = nullptr;
    QLabel *m_heartbeat = nullptr;
    QPushButton *m_home = nullptr;
    QPushButton *m_calibration = nullptr;
};

} // namespace tavrix
