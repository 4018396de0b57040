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
// (the remote app, a profile switch) show up in the open dialog. While the motor is armed a
// dialog that could move a control or the motor by a change (assignments, channels,
// calibration, curves, arming) is locked: a swapped channel in flight sends the collective
// to the cyclic.
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
    // Whether the dialog is locked while the motor is armed; the rates are meant to change in flight.
    [[nodiscard]] virtual bool lockedWhileArmed() const { return true; }

private:
    void showStored();
    void showArmed(bool armed);

    HeliSettingsDialog *m_dialog;
    TavrixController *m_controller;
};

} // namespace tavrix
