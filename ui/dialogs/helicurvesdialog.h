#pragma once

#include "helisettingsdialog.h"

#include <QList>

#include <array>
#include <functional>

class QLabel;
class QSpinBox;

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
        // How many points the user wants; differs from the percents shown only when the
        // user has just changed it.
        int pointCount = 5;
    };
    struct Values
    {
        std::array<CurveValues, kCurves> curves;
        int motorChannel = 5;
    };

    explicit HeliCurvesDialog(const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const;
    QCheckBox *enabledBox(Curve curve) const { return m_enabled.at(curve); }
    // The shown points' boxes; null past the last point shown.
    QSpinBox *pointBox(Curve curve, int point) const;
    QSpinBox *pointCountBox(Curve curve) const { return m_pointCount.at(curve); }
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
    // Shows the first `count` point boxes, each labelled with its lever position.
    void showPointBoxes(Curve curve, int count);

    std::array<QCheckBox *, kCurves> m_enabled{};
    // As many boxes as a curve can have points; the first m_shownPoints are on show.
    std::array<QList<QSpinBox *>, kCurves> m_points;
    std::array<QList<QLabel *>, kCurves> m_pointLabels;
    std::array<int, kCurves> m_shownPoints{};
    std::array<QSpinBox *, kCurves> m_pointCount{};
    std::array<CurveGraph *, kCurves> m_graphs{};
    QComboBox *m_motorChannel = nullptr;
};

} // namespace tavrix
