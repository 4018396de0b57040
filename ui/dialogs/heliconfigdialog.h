#pragma once

#include "helisettingsdialog.h"

#include <array>

class QDoubleSpinBox;
class QPushButton;
class QTabWidget;
class QToolButton;

namespace tavrix {

// The "heli-config" dialog: which axis of the joystick, throttle and pedals drives roll,
// pitch, collective and rudder, the channel each goes out on, and each axis's calibration.
class HeliConfigDialog : public HeliSettingsDialog
{
    Q_OBJECT
public:
    enum Function
    {
        Roll,
        Pitch,
        Collective,
        Rudder,
        kFunctions
    };
    // Calibration points of one axis, raw -1..+1 (the collective uses minimum and maximum).
    enum Point
    {
        Minimum,
        Centre,
        Maximum,
        kPoints
    };
    struct Values
    {
        std::array<int, kFunctions> axis{0, 1, 2, 3};
        // With differential pedals the rudder's axis is the left pedal and this the right.
        int rightPedalAxis = -1;
        bool differential = false;
        std::array<int, kFunctions> channel{0, 1, 2, 3};
        std::array<std::array<double, kPoints>, kFunctions> calibration{};
    };

    explicit HeliConfigDialog(const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const;
    QTabWidget *tabs() const { return m_tabs; }
    QComboBox *axisBox(Function function) const { return m_axis.at(function); }
    QComboBox *rightPedalBox() const { return m_rightPedal; }
    QCheckBox *differentialBox() const { return m_differential; }
    QComboBox *channelBox(Function function) const { return m_channel.at(function); }
    QPushButton *detectButton(Function function) const { return m_detect.at(function); }
    QDoubleSpinBox *calibrationBox(Function function, Point point) const
    {
        return m_calibration.at(function).at(point);
    }
    QToolButton *captureButton(Function function, Point point) const
    {
        return m_capture.at(function).at(point);
    }

public slots:
    // Shows the stored values without echoing them back as an edit.
    void showValues(const tavrix::HeliConfigDialog::Values &values);
    // The function whose axis is being found by moving it, or -1 when none is.
    void showDetecting(int function);

signals:
    void edited(const tavrix::HeliConfigDialog::Values &values);
    // The user offers to move the control that should drive this function.
    void detectRequested(tavrix::HeliConfigDialog::Function function);
    // Take the function's axis position now as this calibration point.
    void captureRequested(tavrix::HeliConfigDialog::Function function, tavrix::HeliConfigDialog::Point point);

protected:
    void userEdited() override;

private:
    QWidget *buildControlsPage();
    QWidget *buildCalibrationPage();

    QTabWidget *m_tabs = nullptr;
    std::array<QComboBox *, kFunctions> m_axis{};
    std::array<QComboBox *, kFunctions> m_channel{};
    std::array<QPushButton *, kFunctions> m_detect{};
    QComboBox *m_rightPedal = nullptr;
    QCheckBox *m_differential = nullptr;
    std::array<std::array<QDoubleSpinBox *, kPoints>, kFunctions> m_calibration{};
    std::array<std::array<QToolButton *, kPoints>, kFunctions> m_capture{};
};

} // namespace tavrix
