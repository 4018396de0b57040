#pragma once

#include "drivesettingsdialog.h"

#include <QObject>

namespace tavrix {

class ProfileManager;

// Binds one drive dialog to the active profile's drive settings for as long as the dialog
// lives. Edits go through the same clamps as the remote app's into the profile store, which
// the controller follows at once; what the store kept, or its refusal, is shown back, and
// changes made elsewhere (the remote app, a profile switch) show up in the open dialog.
class DriveSettingsDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the store must outlive it.
    DriveSettingsDialogBinder(DriveSettingsDialog *dialog, ProfileManager *profiles);

    // The dialog's limits are the clamps of the stored settings.
    [[nodiscard]] static DriveSettingsDialog::Limits limits();

private:
    void showSettings();
    void showEscPresets();
    void apply(const DriveSettingsDialog::Values &values);
    void applyEscPreset(const QString &presetId);
    void showOutcome(const QString &refusal);

    DriveSettingsDialog *m_dialog;
    ProfileManager *m_profiles;
};

} // namespace tavrix
