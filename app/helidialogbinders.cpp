#include "helidialogbinders.h"

#include "axismotionwatcher.h"
#include "heliaxisreading.h"
#include "tavrixcontroller.h"

#include <cmath>

namespace tavrix {

namespace {

using Settings = HelicopterSettings;
using ConfigDialog = HeliConfigDialog;

// Where each function of the config dialog lives in the settings.
struct FunctionFields
{
    int32_t Settings::Channels::*channel;
    AxisCalibration Settings::Calibration::*calibration;
};
const std::array<FunctionFields, ConfigDialog::kFunctions> kFunctionFields{{
    {&Settings::Channels::roll, &Settings::Calibration::roll},
    {&Settings::Channels::pitch, &Settings::Calibration::pitch},
    {&Settings::Channels::throttle, &Settings::Calibration::throttle},
    {&Settings::Channels::rudder, &Settings::Calibration::rudder},
}};
const std::array<float AxisCalibration::*, ConfigDialog::kPoints> kPointFields{
    &AxisCalibration::min, &AxisCalibration::center, &AxisCalibration::max};

// The axis slot of each function, in the settings' own nesting.
std::array<int32_t *, ConfigDialog::kFunctions> axisSlots(Settings::Inputs &in)
{
    return {&in.joystick.xAxis, &in.joystick.yAxis, &in.throttle.axis, &in.pedals.axis};
}
// The device each function's axis belongs to.
const std::array<DeviceRole, ConfigDialog::kFunctions> kFunctionRoles{
    DeviceRole::HeliJoystick, DeviceRole::HeliJoystick, DeviceRole::HeliThrottle, DeviceRole::HeliPedals};

HelicopterCurve &curveOf(Settings &settings, HeliCurvesDialog::Curve curve)
{
    return curve == HeliCurvesDialog::PitchCurve ? settings.pitchCurve : settings.throttleCurve;
}

} // namespace

// --- axes, channels, calibration ---

HeliConfigDialogBinder::HeliConfigDialogBinder(HeliConfigDialog *dialog, TavrixController *controller)
    : HeliSettingsBinder(dialog, controller)
    , m_dialog(dialog)
    , m_watch(new AxisMotionWatcher({}, this))
{
    connect(dialog, &HeliConfigDialog::edited, this, &HeliConfigDialogBinder::apply);
    connect(dialog, &HeliConfigDialog::detectRequested, this, &HeliConfigDialogBinder::detect);
    connect(dialog, &HeliConfigDialog::captureRequested, this, &HeliConfigDialogBinder::capture);
    connect(m_watch, &AxisMotionWatcher::moved, this, &HeliConfigDialogBinder::takeDetected);
    connect(m_watch, &AxisMotionWatcher::timedOut, this, &HeliConfigDialogBinder::stopDetecting);
    follow();
}

void HeliConfigDialogBinder::detect(HeliConfigDialog::Function function)
{
    const DeviceRole role = kFunctionRoles[std::size_t(function)];
    if (!controller()->devices()->isConnected(role)) {
        m_dialog->showError(tr("Choose the device on the helicopter page first, then detect its axis."));
        return;
    }
    m_dialog->showError(QString());
    m_detecting = function;
    m_watch->watch(controller()->devices()->device(role));
    m_dialog->showDetecting(function);
}

void HeliConfigDialogBinder::capture(HeliConfigDialog::Function function, HeliConfigDialog::Point point)
{
    static_assert(int(HeliFunction::Rudder) == ConfigDialog::Rudder,
                  "the dialog lists the functions in order");
    HelicopterSettings s = stored();
    const std::optional<float> raw = heliRawAxis(*controller()->devices(), s, HeliFunction(function));
    if (!raw) {
        m_dialog->showError(tr("There is no axis to read for this function: choose its device on the "
                               "helicopter page and its axis here first."));
        return;
    }
    (s.calibration.*kFunctionFields[std::size_t(function)].calibration).*kPointFields[std::size_t(point)] =
        *raw;
    store(s);
}

void HeliConfigDialogBinder::takeDetected(int slot)
{
    HelicopterSettings s = stored();
    *axisSlots(s.inputs)[std::size_t(m_detecting)] = slot;
    stopDetecting();
    store(s);
}

void HeliConfigDialogBinder::stopDetecting()
{
    m_watch->cancel();
    m_detecting = -1;
    m_dialog->showDetecting(-1);
}

void HeliConfigDialogBinder::show(const HelicopterSettings &settings)
{
    HelicopterSettings s = settings;
    HeliConfigDialog::Values v;
    const auto axes = axisSlots(s.inputs);
    for (std::size_t function = 0; function < ConfigDialog::kFunctions; ++function) {
        const FunctionFields &fields = kFunctionFields[function];
        v.axis[function] = *axes[function];
        v.channel[function] = s.channels.*fields.channel;
        for (std::size_t point = 0; point < ConfigDialog::kPoints; ++point)
            v.calibration[function][point] = double((s.calibration.*fields.calibration).*kPointFields[point]);
    }
    v.rightPedalAxis = s.inputs.pedals.axis2;
    v.differential = s.inputs.pedals.differential;
    m_dialog->showValues(v);
}

void HeliConfigDialogBinder::apply(const HeliConfigDialog::Values &v)
{
    HelicopterSettings s = stored();
    const auto axes = axisSlots(s.inputs);
    for (std::size_t function = 0; function < ConfigDialog::kFunctions; ++function) {
        const FunctionFields &fields = kFunctionFields[function];
        *axes[function] = v.axis[function];
        s.channels.*fields.channel = v.channel[function];
        for (std::size_t point = 0; point < ConfigDialog::kPoints; ++point)
            (s.calibration.*fields.calibration).*kPointFields[point] = float(v.calibration[function][point]);
    }
    s.inputs.pedals.axis2 = v.rightPedalAxis;
    s.inputs.pedals.differential = v.differential;
    store(s);
}

// --- rates and attitude ---

HeliFlyDialogBinder::HeliFlyDialogBinder(HeliFlyDialog *dialog, TavrixController *controller)
    : HeliSettingsBinder(dialog, controller)
    , m_dialog(dialog)
{
    connect(dialog, &HeliFlyDialog::edited, this, &HeliFlyDialogBinder::apply);
    connect(dialog, &HeliFlyDialog::rateModeChosen, controller, &TavrixController::setHeliRateMode);
    follow();
}

void HeliFlyDialogBinder::show(const HelicopterSettings &s)
{
    HeliFlyDialog::Values v;
    v.ratesEnabled = s.dualRates.enabled;
    v.ratePercent = {s.dualRates.beginnerPct, s.dualRates.sportPct, s.dualRates.threeDPct};
    v.rateMode = controller()->heliRateMode();
    v.invertPitch = s.attitude.invertPitch;
    v.invertRoll = s.attitude.invertRoll;
    v.invertYaw = s.attitude.invertYaw;
    m_dialog->showValues(v);
}

void HeliFlyDialogBinder::apply(const HeliFlyDialog::Values &v)
{
    HelicopterSettings s = stored();
    s.dualRates.enabled = v.ratesEnabled;
    s.dualRates.beginnerPct = v.ratePercent[0];
    s.dualRates.sportPct = v.ratePercent[1];
    s.dualRates.threeDPct = v.ratePercent[2];
    s.attitude.invertPitch = v.invertPitch;
    s.attitude.invertRoll = v.invertRoll;
    s.attitude.invertYaw = v.invertYaw;
    store(s);
}

// --- curves ---

HeliCurvesDialogBinder::HeliCurvesDialogBinder(HeliCurvesDialog *dialog, TavrixController *controller)
    : HeliSettingsBinder(dialog, controller)
    , m_dialog(dialog)
{
    connect(dialog, &HeliCurvesDialog::edited, this, &HeliCurvesDialogBinder::apply);
    follow();
}

int HeliCurvesDialogBinder::shownPointCount(const HelicopterCurve &curve) const
{
    // A curve of too few points passes the lever through: shown as a new curve's straight line.
    const auto stored = int(curve.points.size());
    return stored < limits().minCurvePoints ? limits().curvePoints
                                            : std::min(stored, limits().maxCurvePoints);
}

QList<int> HeliCurvesDialogBinder::shownPercents(const HelicopterCurve &curve) const
{
    // Whole percents of the stored points, which may be finer.
    QList<int> percents;
    for (double point : curve.resampled(shownPointCount(curve)))
        percents.append(int(std::lround(point * 100.0)));
    return percents;
}

void HeliCurvesDialogBinder::show(const HelicopterSettings &settings)
{
    HelicopterSettings s = settings;
    HeliCurvesDialog::Values v;
    for (const auto which : {HeliCurvesDialog::PitchCurve, HeliCurvesDialog::ThrottleCurve}) {
        const HelicopterCurve curve = curveOf(s, which);
        HeliCurvesDialog::CurveValues &shown = v.curves[which];
        shown.enabled = curve.enabled;
        shown.percents = shownPercents(curve);
        m_dialog->showShape(which, [curve](double lever) { return double(curve.apply(float(lever))); });
    }
    v.motorChannel = s.motorChannel;
    m_dialog->showValues(v);
}

void HeliCurvesDialogBinder::apply(const HeliCurvesDialog::Values &v)
{
    HelicopterSettings s = stored();
    for (const auto which : {HeliCurvesDialog::PitchCurve, HeliCurvesDialog::ThrottleCurve}) {
        HelicopterCurve &curve = curveOf(s, which);
        curve.enabled = v.curves[which].enabled;
        // Another number of points keeps the curve's shape as well as that many points can.
        if (v.curves[which].pointCount != shownPointCount(curve)) {
            curve.points = curve.resampled(v.curves[which].pointCount);
            continue;
        }
        // Points the user left as shown keep the stored curve as it is: rewriting them from the
        // editor's whole percents would round a curve of finer points made elsewhere.
        if (v.curves[which].percents == shownPercents(curve))
            continue;
        curve.points.clear();
        for (int percent : v.curves[which].percents)
            curve.points.append(percent / 100.0);
    }
    s.motorChannel = v.motorChannel;
    store(s);
}

// --- arming and safety ---

HeliArmingDialogBinder::HeliArmingDialogBinder(HeliArmingDialog *dialog, TavrixController *controller)
    : HeliSettingsBinder(dialog, controller)
    , m_dialog(dialog)
{
    connect(dialog, &HeliArmingDialog::edited, this, &HeliArmingDialogBinder::apply);
    follow();
}

void HeliArmingDialogBinder::show(const HelicopterSettings &s)
{
    HeliArmingDialog::Values v;
    v.armSwitch = s.arm.enabled;
    v.armChannel = s.arm.channel;
    v.armedMicros = s.arm.onUs;
    v.safeMicros = s.arm.offUs;
    v.armAtIdle = s.fly.armAtIdle;
    v.softStart = s.fly.softStart;
    v.softStartSec = s.fly.softStartSec;
    m_dialog->showValues(v);
}

void HeliArmingDialogBinder::apply(const HeliArmingDialog::Values &v)
{
    HelicopterSettings s = stored();
    s.arm.enabled = v.armSwitch;
    s.arm.channel = v.armChannel;
    s.arm.onUs = v.armedMicros;
    s.arm.offUs = v.safeMicros;
    s.fly.armAtIdle = v.armAtIdle;
    s.fly.softStart = v.softStart;
    s.fly.softStartSec = v.softStartSec;
    store(s);
}

} // namespace tavrix
