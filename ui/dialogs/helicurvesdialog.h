#pragma once

#include "helisettingsdialog.h"

#include <QList>

#include <array>
#include <functional>

namespace tavrix {

class CurveGraph;

// The "heli-curves" dialog: the pitch curve that shapes the collective channel and the
// throttle curve that drives the motor channel from the same lever, each drawn as the
// transmit loop computes it, with its points (stick low to stick high) in spin boxes.
class HeliCurvesDialog : public HeliSettingsDialog
{
    Q_OBJECT
public:
    enum Curve
    {
        PitchCurve,
        ThrottleCurve,
        kCurves
    };
    struct CurveValues
    {
        bool enabled = false;
        // Percent of the channel's travel at evenly spaced lever positions.
        QList<int> percents;
    };
    struct Values
    {
        std::array<CurveValues, kCurves> curves;
        int motorChannel = 5;
    };

    explicit HeliCurvesDialog(const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const;
    QCheckBox *enabledBox(Curve curve) const { return m_enabled.at(curve); }
    QSpinBox *pointBox(Curve curve, int point) const { return m_points.at(curve).value(point); }
    QComboBox *motorChannelBox() const { return m_motorChannel; }
    CurveGraph *graph(Curve curve) const { return m_graphs.at(curve); }

public slots:
    // Shows the stored values without echoing them back as an edit.
    void showValues(const tavrix::HeliCurvesDialog::Values &values);
    // What the curve makes of the lever (0..1 in and out), as the transmit loop computes it.
    void showShape(tavrix::HeliCurvesDialog::Curve curve, const std::function<double(double)> &shape);

signals:
    void edited(const tavrix::HeliCurvesDialog::Values &values);

protected:
    void userEdited() override;

private:
    QWidget *buildCurveCard(Curve curve, const QString &title, const QString &text);

    std::array<QCheckBox *, kCurves> m_enabled{};
    std::array<QList<QSpinBox *>, kCurves> m_points;
    std::array<CurveGraph *, kCurves> m_graphs{};
    QComboBox *m_motorChannel = nullptr;
};

} // namespace tavrix
