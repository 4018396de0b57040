#pragma once

#include "axissettingsdialog.h"

#include <QObject>

namespace tavrix {

class InputDevice;
class RepaintThrottle;
class TavrixController;
struct AxisPreset;
struct AxisSettings;

// Binds one axis dialog to the active profile's axis settings and to the controller's
// devices for as long as the dialog lives: edits and calibration points go through the
// same clamps as the remote app's into the profile store, which the controller follows at
// once; presets go to the open device and into the profile as that product's mapping. The
// live raw and processed values are repainted at most about 30 times a second.
class AxisSettingsDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    AxisSettingsDialogBinder(AxisSettingsDialog *dialog, TavrixController *controller);

    // The editors' limits are the clamps of the stored settings.
    [[nodiscard]] static AxisEditor::Limits limits();

private:
    [[nodiscard]] AxisSettings stored(int input) const;
    // The device whose axes feed that input now (null when none is connected).
    [[nodiscard]] InputDevice *sourceOf(int input) const;
    [[nodiscard]] InputDevice *mappedDevice(AxisSettingsDialog::MappedDevice device) const;
    void showSettings();
    void showMappings();
    void showLive();
    void edit(int input, const AxisSettings &settings);
    void applyValues(int input, const AxisEditor::Values &values);
    void capture(int input, AxisEditor::CalibrationPoint point);
    void choosePreset(AxisSettingsDialog::MappedDevice device, const QString &presetName);
    void setCombined(AxisSettingsDialog::MappedDevice device, bool combined);
    void applyMapping(AxisSettingsDialog::MappedDevice device, const AxisPreset &mapping);

    AxisSettingsDialog *m_dialog;
    TavrixController *m_controller;
    RepaintThrottle *m_live;
};

} // namespace tavrix
