#include "axissettingsdialogbinder.h"

#include "axismappingchange.h"
#include "axissettings.h"
#include "axissettingsjson.h"
#include "drivecontrols.h"
#include "inputdevice.h"
#include "profileedits.h"
#include "profilekeys.h"
#include "repaintthrottle.h"
#include "tavrixcontroller.h"

#include <array>
#include <cmath>

namespace tavrix {

namespace {

namespace keys = profilekeys;

// In the profile's order; the first one is the steering, the only one read both ways.
const std::array<QLatin1String, AxisSettingsDialog::kInputCount> kInputNames{
    keys::kSteeringAxis, keys::kThrottleAxis, keys::kBrakeAxis, keys::kClutchAxis};

bool isBipolar(int input)
{
    return input == LogicalSteering;
}

DeviceRole roleOf(AxisSettingsDialog::MappedDevice device)
{
    return device == AxisSettingsDialog::MappedDevice::WheelBase ? DeviceRole::WheelBase : DeviceRole::Pedals;
}

AxisEditor::Values valuesOf(const AxisSettings &s)
{
    AxisEditor::Values v;
    v.inverted = s.inverted;
    v.deadzone = s.deadzone;
    v.minOutput = s.minOutput;
    v.maxOutput = s.maxOutput;
    v.curve = s.curve;
    v.curveExponent = s.curveExponent;
    v.expo = s.expo;
    v.useCalibration = s.useCalibration;
    v.inputMin = s.inputMin;
    v.inputCenter = s.inputCenter;
    v.inputMax = s.inputMax;
    return v;
}

// A box still showing the stored value, rounded to its decimals, was not edited: the stored
// value stays (a captured calibration point is finer than the box shows).
void takeShown(float &stored, double shown)
{
    const double scale = std::pow(10.0, AxisEditor::kShownDecimals);
    if (std::lround(double(stored) * scale) != std::lround(shown * scale))
        stored = float(shown);
}

AxisSettings withValues(AxisSettings s, const AxisEditor::Values &v)
{
    s.inverted = v.inverted;
    s.curve = v.curve;
    s.useCalibration = v.useCalibration;
    const std::array<std::pair<float *, double>, 8> numbers{{{&s.deadzone, v.deadzone},
                                                             {&s.minOutput, v.minOutput},
                                                             {&s.maxOutput, v.maxOutput},
                                                             {&s.curveExponent, v.curveExponent},
                                                             {&s.expo, v.expo},
                                                             {&s.inputMin, v.inputMin},
                                                             {&s.inputCenter, v.inputCenter},
                                                             {&s.inputMax, v.inputMax}}};
    for (const auto &[stored, shown] : numbers)
        takeShown(*stored, shown);
    return s;
}

// What the transmit loop makes of the input, over the graph's span: steering -1..+1, a
// pedal's travel 0..1 (the device reports it -1 released to +1 pressed).
std::function<double(double)> shapeOf(const AxisSettings &s, bool bipolar)
{
    if (bipolar)
        return [s](double x) { return double(s.applyBipolar(float(x))); };
    return [s](double travel) { return double(s.applyUnipolar(float(travel * 2.0 - 1.0))); };
}

} // namespace

AxisSettingsDialogBinder::AxisSettingsDialogBinder(AxisSettingsDialog *dialog, TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_controller(controller)
    , m_live(new RepaintThrottle([this] { showLive(); }, this))
{
    connect(dialog, &AxisSettingsDialog::axisEdited, this, &AxisSettingsDialogBinder::applyValues);
    connect(dialog, &AxisSettingsDialog::captureRequested, this, &AxisSettingsDialogBinder::capture);
    connect(dialog, &AxisSettingsDialog::presetChosen, this, &AxisSettingsDialogBinder::choosePreset);
    connect(dialog, &AxisSettingsDialog::combinedPedalsToggled, this, &AxisSettingsDialogBinder::setCombined);

    ProfileManager *profiles = controller->profileManager();
    connect(profiles, &ProfileManager::profileModified, this, &AxisSettingsDialogBinder::showSettings);
    connect(profiles, &ProfileManager::activeProfileChanged, this, &AxisSettingsDialogBinder::showSettings);
    // A mapping made in the custom mapping dialog reaches the preset list through the store.
    connect(profiles, &ProfileManager::profileModified, this, &AxisSettingsDialogBinder::showMappings);
    for (auto signal :
         {&TavrixController::wheelBaseConnectedChanged, &TavrixController::pedalsConnectedChanged})
        connect(controller, signal, this, &AxisSettingsDialogBinder::showMappings);
    connect(controller, &TavrixController::runningChanged, dialog,
            [dialog](bool running) { dialog->setMappingEditable(!running); });
    // inputChanged comes from the transmit tick: the labels repaint later, coalesced.
    connect(controller, &TavrixController::inputChanged, m_live, &RepaintThrottle::request);
    dialog->setMappingEditable(!controller->isRunning());
    showSettings();
    showMappings();
    showLive();
}

AxisEditor::Limits AxisSettingsDialogBinder::limits()
{
    const AxisSettingsJson::Range deadzone = AxisSettingsJson::range(keys::kDeadzone);
    const AxisSettingsJson::Range exponent = AxisSettingsJson::range(keys::kCurveExponent);
    return {deadzone.max, exponent.min, exponent.max, AxisSettingsJson::range(keys::kExpo).max};
}

AxisSettings AxisSettingsDialogBinder::stored(int input) const
{
    const QLatin1String name = kInputNames[std::size_t(input)];
    const QJsonObject axes = m_controller->profileManager()->setting(keys::kAxisSettings).toObject();
    return AxisSettings::fromJson(axes.value(name).toObject(), name);
}

InputDevice *AxisSettingsDialogBinder::sourceOf(int input) const
{
    const DeviceRoleSet *devices = m_controller->devices();
    InputDevice *wheel =
        devices->isConnected(DeviceRole::WheelBase) ? devices->device(DeviceRole::WheelBase) : nullptr;
    if (isBipolar(input))
        return wheel;
    InputDevice *pedals = devices->device(DeviceRole::Pedals);
    const InputDevice *source = DriveControls::pedalSource(wheel, pedals);
    return source == pedals ? (devices->isConnected(DeviceRole::Pedals) ? pedals : nullptr) : wheel;
}

InputDevice *AxisSettingsDialogBinder::mappedDevice(AxisSettingsDialog::MappedDevice device) const
{
    const DeviceRole role = roleOf(device);
    return m_controller->devices()->isConnected(role) ? m_controller->devices()->device(role) : nullptr;
}

void AxisSettingsDialogBinder::showSettings()
{
    for (int input = 0; input < AxisSettingsDialog::kInputCount; ++input) {
        const AxisSettings settings = stored(input);
        m_dialog->editor(input)->showValues(valuesOf(settings));
        m_dialog->editor(input)->showShape(shapeOf(settings, isBipolar(input)));
    }
    showLive();
}

void AxisSettingsDialogBinder::showMappings()
{
    for (auto device :
         {AxisSettingsDialog::MappedDevice::WheelBase, AxisSettingsDialog::MappedDevice::Pedals}) {
        const InputDevice *open = mappedDevice(device);
        const AxisPreset mapping = open ? open->preset() : AxisPreset{};
        m_dialog->showMapping(device, open != nullptr, open ? matchingPresetName(mapping) : QString(),
                              mapping.combinedPedals);
    }
    showLive();
}

void AxisSettingsDialogBinder::showLive()
{
    // Processed by the settings the controller applies, as the transmit loop does.
    const DriveAxes &applied = m_controller->settings().axes;
    const std::array<const AxisSettings *, AxisSettingsDialog::kInputCount> axes{
        &applied.steering, &applied.throttle, &applied.brake, &applied.clutch};
    for (int input = 0; input < AxisSettingsDialog::kInputCount; ++input) {
        AxisEditor *editor = m_dialog->editor(input);
        const InputDevice *device = sourceOf(input);
        if (!device) {
            editor->clearLive();
            continue;
        }
        const float raw = device->logicalValue(input);
        editor->showLive(raw, axes[std::size_t(input)]->apply(raw, isBipolar(input)));
    }
}

void AxisSettingsDialogBinder::edit(int input, const AxisSettings &settings)
{
    const QJsonObject changes{{kInputNames[std::size_t(input)], settings.toJson()}};
    m_dialog->showError(editAxisSettings(*m_controller->profileManager(), changes));
    // What the store kept (clamped, or unchanged when it refused) is what the dialog shows.
    showSettings();
}

void AxisSettingsDialogBinder::applyValues(int input, const AxisEditor::Values &values)
{
    edit(input, withValues(stored(input), values));
}

void AxisSettingsDialogBinder::capture(int input, AxisEditor::CalibrationPoint point)
{
    const InputDevice *device = sourceOf(input);
    if (!device)
        return;
    const float raw = device->logicalValue(input);
    AxisSettings settings = stored(input);
    switch (point) {
    case AxisEditor::CalibrationPoint::Minimum:
        settings.inputMin = raw;
        break;
    case AxisEditor::CalibrationPoint::Center:
        settings.inputCenter = raw;
        break;
    case AxisEditor::CalibrationPoint::Maximum:
        settings.inputMax = raw;
        break;
    }
    settings.useCalibration = true;
    edit(input, settings);
}

void AxisSettingsDialogBinder::choosePreset(AxisSettingsDialog::MappedDevice device,
                                            const QString &presetName)
{
    if (presetNames().contains(presetName))
        applyMapping(device, presetByName(presetName));
}

void AxisSettingsDialogBinder::setCombined(AxisSettingsDialog::MappedDevice device, bool combined)
{
    if (const InputDevice *open = mappedDevice(device)) {
        AxisPreset mapping = open->preset();
        mapping.combinedPedals = combined;
        applyMapping(device, mapping);
    }
}

void AxisSettingsDialogBinder::applyMapping(AxisSettingsDialog::MappedDevice device,
                                            const AxisPreset &mapping)
{
    InputDevice *open = mappedDevice(device);
    // The dialog offers no mapping while transmitting; a start since then still wins.
    if (open && !m_controller->isRunning()) {
        ProfileManager &profiles = *m_controller->profileManager();
        m_dialog->showError(storeRefusal(
            profiles, [&] { return applyAxisMapping(*open, profiles, roleOf(device), mapping); }));
    }
    showMappings();
}

} // namespace tavrix
