#pragma once

#include "forcefeedbackcheck.h"

#include <QDialog>

class QAbstractButton;
class QLabel;
class QPushButton;
class QSlider;

namespace hub {
class LevelBar;
class Notice;
class StatusRow;
} // namespace hub

namespace tavrix {

// The "ffb" dialog: whether the steering wheel can feel the car (the five conditions of the
// check and a verdict), force feedback on and off, its strength and centering spring, two
// test pulses and the force the car produces right now. It presents only: the owner runs
// the check and the force, and feeds the results back through the slots.
class WheelFfbDialog : public QDialog
{
    Q_OBJECT
public:
    explicit WheelFfbDialog(QWidget *parent = nullptr);

    QPushButton *checkButton() const { return m_check; }
    QPushButton *enableButton() const { return m_enable; }
    QSlider *strengthSlider() const { return m_strength; }
    QSlider *centeringSlider() const { return m_centering; }
    QPushButton *testLeftButton() const { return m_testLeft; }
    QPushButton *testRightButton() const { return m_testRight; }
    hub::LevelBar *levelBar() const { return m_level; }
    hub::Notice *notice() const { return m_notice; }
    [[nodiscard]] QString verdictText() const;
    // The five check lines, in order: "Wheel detected" ... "Constant-force effect".
    [[nodiscard]] QList<hub::StatusRow *> checkRows() const { return m_rows; }

public slots:
    void showCheck(const tavrix::ForceFeedbackCheck &check);
    void setForceFeedbackOn(bool on);
    // 0..1 each; moves the sliders without echoing a change back.
    void setStrength(double strength);
    void setCentering(double centering);
    // The force the car produces now, -1..+1.
    void showLevel(double level);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    void checkRequested();
    void enableToggled(bool on);
    void strengthChanged(double strength);
    void centeringChanged(double centering);
    // A short pulse of the constant force, -1..+1 (negative to the left).
    void testRequested(double level);

private:
    QWidget *buildCheckCard();
    QWidget *buildControlCard();
    void setVerdict(ForceFeedbackCheck::Verdict verdict);

    QList<hub::StatusRow *> m_rows;
    QLabel *m_verdict = nullptr;
    QPushButton *m_check = nullptr;
    QPushButton *m_enable = nullptr;
    QSlider *m_strength = nullptr;
    QSlider *m_centering = nullptr;
    QPushButton *m_testLeft = nullptr;
    QPushButton *m_testRight = nullptr;
    hub::LevelBar *m_level = nullptr;
    hub::Notice *m_notice = nullptr;
};

} // namespace tavrix
