#pragma once

#include "heliarmingdialog.h"
#include "heliconfigdialog.h"
#include "helicurvesdialog.h"
#include "heliflydialog.h"
#include "helisettingsbinder.h"

namespace tavrix {

class AxisMotionWatcher;

// Axis assignments (chosen from the list or by moving the control), channels and calibration.
class HeliConfigDialogBinder : public HeliSettingsBinder
{
    Q_OBJECT
public:
    HeliConfigDialogBinder(HeliConfigDialog *dialog, TavrixController *controller);

private:
    void show(const HelicopterSettings &settings) override;
    void apply(const HeliConfigDialog::Values &values);
    void detect(HeliConfigDialog::Function function);
    void capture(HeliConfigDialog::Function function, HeliConfigDialog::Point point);
    void takeDetected(int slot);
    void stopDetecting();

    HeliConfigDialog *m_dialog;
    AxisMotionWatcher *m_watch;
    int m_detecting = -1;
};

// Rates and the attitude display; the rate mode goes through the controller, as the page's buttons do.
class HeliFlyDialogBinder : public HeliSettingsBinder
{
    Q_OBJECT
public:
    HeliFlyDialogBinder(HeliFlyDialog *dialog, TavrixController *controller);

private:
    void show(const HelicopterSettings &settings) override;
    [[nodiscard]] bool lockedWhileArmed() const override { return false; }
    void apply(const HeliFlyDialog::Values &values);

    HeliFlyDialog *m_dialog;
};

// The pitch and throttle curves, drawn with the computation's own interpolation, and the motor channel.
class HeliCurvesDialogBinder : public HeliSettingsBinder
{
    Q_OBJECT
public:
    HeliCurvesDialogBinder(HeliCurvesDialog *dialog, TavrixController *controller);

private:
    void show(const HelicopterSettings &settings) override;
    void apply(const HeliCurvesDialog::Values &values);
    [[nodiscard]] QList<int> shownPercents(const HelicopterCurve &curve) const;
    [[nodiscard]] int shownPointCount(const HelicopterCurve &curve) const;

    HeliCurvesDialog *m_dialog;
};

// The arm switch, arming at idle and the soft start.
class HeliArmingDialogBinder : public HeliSettingsBinder
{
    Q_OBJECT
public:
    HeliArmingDialogBinder(HeliArmingDialog *dialog, TavrixController *controller);

private:
    void show(const HelicopterSettings &settings) override;
    void apply(const HeliArmingDialog::Values &values);

    HeliArmingDialog *m_dialog;
};

} // namespace tavrix
