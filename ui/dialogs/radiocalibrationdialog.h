#pragma once

#include "tone.h"

#include <QDialog>
#include <QList>

class QLabel;
class QPushButton;

namespace hub {
class LevelBar;
class Notice;
class StatTile;
class StatusPill;
class StatusRow;
} // namespace hub

namespace tavrix {

// The "radio-cal" dialog: measures where the car's receiver sees the ends of throttle and
// steering. It shows the step under way with what to do, the receiver's two channels live,
// the hold countdown with whether the stick is still, the six values as they are recorded,
// and Start / Retry / Skip / Cancel. It presents only: the owner runs the calibration and
// feeds it through the slots.
class RadioCalibrationDialog : public QDialog
{
    Q_OBJECT
public:
    // The six measured steps, then the finished calibration.
    static constexpr int kStepCount = 6;
    static constexpr int kNoStep = -1;

    explicit RadioCalibrationDialog(QWidget *parent = nullptr);

    QPushButton *startButton() const { return m_start; }
    QPushButton *retryButton() const { return m_retry; }
    QPushButton *skipButton() const { return m_skip; }
    QPushButton *cancelButton() const { return m_cancel; }
    [[nodiscard]] QString resultText(int step) const;
    [[nodiscard]] QString message() const;

public slots:
    // step: kNoStep before a calibration, 0..5 while one runs, kStepCount once complete.
    // canRetry: a measurement can be taken again (the value just recorded, or this step).
    void showStep(int step, bool measuring, bool canRetry);
    void showChannels(int steeringUs, int steeringCrsf, int throttleUs, int throttleCrsf);
    void showCountdown(int seconds);
    // Whether the stick is held still, as a word in a pill.
    void showHold(hub::Tone tone, const QString &word);
    // 0 shows the value as not recorded.
    void showResult(int step, int crsfValue);
    void showMessage(const QString &message, hub::Tone tone = hub::Tone::Accent);

signals:
    // Start the calibration, or measure the step waiting.
    void startRequested();
    void retryRequested();
    void skipRequested();
    void cancelRequested();

private:
    QWidget *buildStepCard();
    QWidget *buildResultCard();

    QLabel *m_stepTitle = nullptr;
    QLabel *m_instruction = nullptr;
    hub::StatTile *m_countdown = nullptr;
    hub::StatusPill *m_hold = nullptr;
    hub::LevelBar *m_steering = nullptr;
    hub::LevelBar *m_throttle = nullptr;
    QList<hub::StatusRow *> m_results;
    hub::Notice *m_message = nullptr;
    QPushButton *m_start = nullptr;
    QPushButton *m_retry = nullptr;
    QPushButton *m_skip = nullptr;
    QPushButton *m_cancel = nullptr;
};

} // namespace tavrix
