#pragma once

#include "helicoptersettings.h"
#include "helisettingsdialog.h"

#include <QObject>

namespace tavrix {

class TavrixController;

// What binds every helicopter dialog to the active profile's helicopter settings for as
// long as the dialog lives: edits go through the remote app's merge and channel rule into
// the profile store, which the controller follows at once; the refusal, or nothing, shows in
// the dialog's banner, and the dialog then shows what the store kept. Changes made elsewhere
// (the remote app, a profile switch) show up in the open dialog.
class HeliSettingsBinder : public QObject
{
    Q_OBJECT
public:
    // The dialogs' limits are the settings' own.
    [[nodiscard]] static HeliSettingsDialog::Limits limits();

protected:
    // Parented to the dialog; the controller must outlive it. Call follow() once the
    // derived binder is ready to show.
    HeliSettingsBinder(HeliSettingsDialog *dialog, TavrixController *controller);

    void follow();
    [[nodiscard]] TavrixController *controller() const { return m_controller; }
    // The settings as the profile holds them now.
    [[nodiscard]] HelicopterSettings stored() const;
    // Stores the settings as edited, then shows the outcome.
    void store(const HelicopterSettings &edited);
    virtual void show(const HelicopterSettings &settings) = 0;

private:
    void showStored();

    HeliSettingsDialog *m_dialog;
    TavrixController *m_controller;
};

} // namespace tavrix
