#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;

namespace tavrix {

class CurveGraph;

// The settings of one driving input (steering, throttle, brake or clutch): inversion,
// deadzone, output range, curve and exponent drawn as a graph, and the calibration taken
// by moving the control while its raw and processed values show live. It presents only.
class AxisEditor : public QWidget
{
    Q_OBJECT
public:
    // The owner's clamps, so the boxes never offer what the store would cut.
    struct Limits
    {
        double deadzoneMax = 1.0;
        double exponentMin = 0.1;
        double exponentMax = 10.0;
        double expoMax = 1.0;
    };
    // The number boxes show this many decimals; a stored value finer than that is kept as it
    // is unless its box is changed.
    static constexpr int kShownDecimals = 2;
    struct Values
    {
        bool inverted = false;
        double deadzone = 0.0;
        double minOutput = 0.0;
        double maxOutput = 1.0;
        int curve = 0;
        double curveExponent = 2.0;
        double expo = 0.0; // the steering's only
        bool useCalibration = false;
        double inputMin = -1.0;
        double inputCenter = 0.0;
        double inputMax = 1.0;
    };
    enum class CalibrationPoint
    {
        Minimum,
        Center,
        Maximum
    };

    // bipolar: steering (centre calibration, -1..+1); otherwise a pedal (0..1).
    AxisEditor(bool bipolar, const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] bool isBipolar() const { return m_bipolar; }
    QCheckBox *invertedBox() const { return m_inverted; }
    QDoubleSpinBox *deadzoneBox() const { return m_deadzone; }
    QDoubleSpinBox *minOutputBox() const { return m_minOutput; }
    QDoubleSpinBox *maxOutputBox() const { return m_maxOutput; }
    QComboBox *curveBox() const { return m_curve; }
    QDoubleSpinBox *exponentBox() const { return m_exponent; }
    // Null for a pedal.
    QDoubleSpinBox *expoBox() const { return m_expo; }
    QCheckBox *calibrationBox() const { return m_useCalibration; }
    QPushButton *captureButton(CalibrationPoint point) const;
    CurveGraph *graph() const { return m_graph; }
    [[nodiscard]] Values values() const;

public slots:
    // Shows the stored values without echoing them back as an edit.
    void showValues(const tavrix::AxisEditor::Values &values);
    // The shape of the current settings, input to output over the editor's span.
    void showShape(const std::function<double(double)> &shape);
    // The control now: before the settings (-1..+1) and after them.
    void showLive(double raw, double processed);
    // No device feeds this input.
    void clearLive();

signals:
    void edited(const tavrix::AxisEditor::Values &values);
    // Take the control's current raw value as that calibration point.
    void captureRequested(tavrix::AxisEditor::CalibrationPoint point);

private:
    QWidget *buildSettings(const Limits &limits);
    QWidget *buildCalibration();
    void emitEdited();

    bool m_bipolar;
    QCheckBox *m_inverted = nullptr;
    QDoubleSpinBox *m_deadzone = nullptr;
    QDoubleSpinBox *m_minOutput = nullptr;
    QDoubleSpinBox *m_maxOutput = nullptr;
    QComboBox *m_curve = nullptr;
    QDoubleSpinBox *m_exponent = nullptr;
    QDoubleSpinBox *m_expo = nullptr;
    QCheckBox *m_useCalibration = nullptr;
    QDoubleSpinBox *m_inputMin = nullptr;
    QDoubleSpinBox *m_inputCenter = nullptr;
    QDoubleSpinBox *m_inputMax = nullptr;
    QPushButton *m_captureMin = nullptr;
    QPushButton *m_captureCenter = nullptr;
    QPushButton *m_captureMax = nullptr;
    QLabel *m_raw = nullptr;
    QLabel *m_processed = nullptr;
    CurveGraph *m_graph = nullptr;
};

} // namespace tavrix
