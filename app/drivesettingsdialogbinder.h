#pragma once

#include "drivesettingsdialog.h"

#include <QObject>

#include <optional>

namespace tavrix {

class ProfileManager;
class SteeringTrim;
struct SteeringEndpoints;
class TavrixController;

// Binds one drive dialog to the active profile's drive settings for as long as the dialog
// lives. Edits go through the same clamps as the remote app's into the profile store, which
// the controller follows at once; what the store kept, or its refusal, is shown back, and
// changes made elsewhere (the remote app, a profile switch) show up in the open dialog.
//
// The steering end points go through the controller's steering trim, as the remote app's
// do: each change is tried on the car unsaved, Save writes it into the profile, and Revert,
// or closing the dialog with a trim it tried and did not save, puts the saved ones back.
// The Gears tab has a binder of its own (ShifterGearsBinder), made here with this one.
class DriveSettingsDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    DriveSettingsDialogBinder(DriveSettingsDialog *dialog, TavrixController *controller);

    // The dialog's limits are the clamps of the stored settings.
    [[nodiscard]] static DriveSettingsDialog::Limits limits();

private:
    void showSettings();
    void showEscPresets();
    void apply(const DriveSettingsDialog::Values &values);
    void applyEscPreset(const QString &presetId);
    void showOutcome(const QString &refusal);
    void showTrim();
    void tryTrim(const DriveSettingsDialog::Trim &trim);
    void saveTrim(const DriveSettingsDialog::Trim &trim);
    void revertTrim();
    // The end points in order, or nothing after showing the refusal.
    std::optional<SteeringEndpoints> checkedTrim(const DriveSettingsDialog::Trim &trim);

    DriveSettingsDialog *m_dialog;
    ProfileManager *m_profiles;
    SteeringTrim &m_trim;
    // A trim this dialog tried on the car and nobody has saved or reverted since.
    bool m_tried = false;
};

} // namespace tavrix
