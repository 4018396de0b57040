#pragma once

#include "profilesdialog.h"

#include <QObject>

#include <functional>

namespace tavrix {

class ProfileManager;

// Binds one profiles dialog to the profile store for as long as the dialog lives. Every
// request goes through the same store operations the mobile app uses; the store's refusal is
// shown word for word and the list always shows what the store holds.
class ProfilesDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the store must outlive it.
    ProfilesDialogBinder(ProfilesDialog *dialog, ProfileManager *profiles);

private:
    void showProfiles();
    // Runs one store operation and shows its refusal, or clears the last one.
    bool run(const std::function<bool()> &operation);
    // The same for an operation that makes a profile, which is then the one chosen.
    void runAndSelect(const std::function<QString()> &operation);

    ProfilesDialog *m_dialog;
    ProfileManager *m_profiles;
};

} // namespace tavrix
