#pragma once

#include "leddialog.h"

#include <QObject>

namespace tavrix {

class LedStripSettings;
class TavrixController;

// Binds one LED dialog to the active profile's LED settings and to the controller's LED
// push for as long as the dialog lives. Edits go through the settings type (its clamps) to
// the profile store, the power through the controller, so CH12 follows at once; changes
// made elsewhere (the remote app, a profile switch) show up in the open dialog.
class LedDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    LedDialogBinder(LedDialog *dialog, TavrixController *controller);

    // The dialog's limits are the settings type's.
    [[nodiscard]] static LedDialog::Limits limits();

private:
    [[nodiscard]] LedStripSettings current() const;
    void save(const LedStripSettings &settings);
    void showSettings();
    void apply(const LedDialog::Values &values);
    void addZone();
    void removeZone(int index);
    void send();
    void showPush();

    LedDialog *m_dialog;
    TavrixController *m_controller;
    // The outcome of the last push or refused start, until the next one.
    hub::Tone m_outcomeTone = hub::Tone::Muted;
    QString m_outcome;
    QString m_outcomeMessage;
};

} // namespace tavrix
