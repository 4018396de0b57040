#include "profilesdialogbinder.h"

#include "profileedits.h"
#include "profilekeys.h"
#include "profilemanager.h"

namespace tavrix {

ProfilesDialogBinder::ProfilesDialogBinder(ProfilesDialog *dialog, ProfileManager *profiles)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_profiles(profiles)
{
    connect(profiles, &ProfileManager::profileListChanged, this, &ProfilesDialogBinder::showProfiles);
    connect(profiles, &ProfileManager::activeProfileChanged, this, &ProfilesDialogBinder::showProfiles);

    connect(dialog, &ProfilesDialog::createRequested, this,
            [this](const QString &name) { runAndSelect([&] { return m_profiles->createProfile(name); }); });
    connect(dialog, &ProfilesDialog::duplicateRequested, this,
            [this](const QString &id) { runAndSelect([&] { return m_profiles->duplicateProfile(id); }); });
    connect(dialog, &ProfilesDialog::importRequested, this,
            [this](const QString &path) { runAndSelect([&] { return m_profiles->importProfile(path); }); });
    connect(dialog, &ProfilesDialog::renameRequested, this, [this](const QString &id, const QString &name) {
        run([&] { return m_profiles->renameProfile(id, name); });
    });
    connect(dialog, &ProfilesDialog::deleteRequested, this,
            [this](const QString &id) { run([&] { return m_profiles->deleteProfile(id); }); });
    connect(dialog, &ProfilesDialog::activateRequested, this,
            [this](const QString &id) { run([&] { return m_profiles->setActiveProfile(id); }); });
    connect(dialog, &ProfilesDialog::exportRequested, this, [this](const QString &id, const QString &path) {
        run([&] { return m_profiles->exportProfile(id, path); });
    });
    showProfiles();
}

void ProfilesDialogBinder::showProfiles()
{
    ProfilesDialog::Group cars{tr("RC Car"), {}};
    ProfilesDialog::Group helicopters{tr("RC Helicopter"), {}};
    const QString active = m_profiles->activeProfileId();
    for (const ProfileSummary &profile : m_profiles->profiles()) {
        // Every type but the helicopter drives a car, as the controller reads it.
        ProfilesDialog::Group &group = profile.vehicleType == vehicletype::kHelicopter ? helicopters : cars;
        group.entries.append({profile.id, profile.name, profile.modifiedAt, profile.id == active});
    }
    QList<ProfilesDialog::Group> groups;
    for (const ProfilesDialog::Group &group : {cars, helicopters}) {
        if (!group.entries.isEmpty())
            groups.append(group);
    }
    m_dialog->showProfiles(groups);
}

bool ProfilesDialogBinder::run(const std::function<bool()> &operation)
{
    const QString refusal = storeRefusal(*m_profiles, operation);
    m_dialog->showError(refusal);
    return refusal.isEmpty();
}

void ProfilesDialogBinder::runAndSelect(const std::function<QString()> &operation)
{
    QString id;
    if (run([&] {
            id = operation();
            return !id.isEmpty();
        }))
        m_dialog->select(id);
}

} // namespace tavrix
