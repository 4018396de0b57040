#pragma once

#include "escpresetsdialog.h"

#include <QObject>

#include <functional>

namespace tavrix {

class ProfileManager;

// Binds one ESC presets dialog to the shared preset store for as long as the dialog lives.
// New and updated presets take the active profile's current ESC values; every refusal is
// the store's own message, shown in the dialog, and what the store kept is shown back.
class EscPresetsDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the store must outlive it.
    EscPresetsDialogBinder(EscPresetsDialog *dialog, ProfileManager *profiles);

private:
    void showPresets(const QString &selected = {});
    void showCurrentValues();
    void create(const QString &name);
    void rename(const QString &id, const QString &name);
    void update(const QString &id);
    void remove(const QString &id);
    // Runs one change of the store and shows its refusal, then what is stored.
    void change(const std::function<bool()> &change, const QString &selected = {});

    EscPresetsDialog *m_dialog;
    ProfileManager *m_profiles;
};

} // namespace tavrix
