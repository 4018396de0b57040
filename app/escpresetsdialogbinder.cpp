#include "escpresetsdialogbinder.h"

#include "profileedits.h"
#include "profilemanager.h"
#include "profilesettings.h"

namespace tavrix {

namespace {

DriveSettings currentDrive(const ProfileManager &profiles)
{
    return ProfileSettings::fromProfile(profiles.activeProfile()).drive;
}

} // namespace

EscPresetsDialogBinder::EscPresetsDialogBinder(EscPresetsDialog *dialog, ProfileManager *profiles)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_profiles(profiles)
{
    connect(dialog, &EscPresetsDialog::createRequested, this, &EscPresetsDialogBinder::create);
    connect(dialog, &EscPresetsDialog::renameRequested, this, &EscPresetsDialogBinder::rename);
    connect(dialog, &EscPresetsDialog::updateRequested, this, &EscPresetsDialogBinder::update);
    connect(dialog, &EscPresetsDialog::deleteRequested, this, &EscPresetsDialogBinder::remove);
    connect(profiles, &ProfileManager::escPresetsChanged, this, [this] { showPresets(); });
    connect(profiles, &ProfileManager::profileModified, this, &EscPresetsDialogBinder::showCurrentValues);
    connect(profiles, &ProfileManager::activeProfileChanged, this,
            &EscPresetsDialogBinder::showCurrentValues);
    showPresets();
    showCurrentValues();
}

void EscPresetsDialogBinder::showPresets(const QString &selected)
{
    QList<EscPresetsDialog::Entry> entries;
    for (const EscPreset &p : m_profiles->escPresets()->presets())
        entries.append({p.id, p.name, p.neutral, p.fullForward, p.fullReverse});
    m_dialog->showPresets(entries, selected);
}

void EscPresetsDialogBinder::showCurrentValues()
{
    const DriveSettings drive = currentDrive(*m_profiles);
    m_dialog->showCurrentValues(drive.escNeutral, drive.escFullForward, drive.escFullReverse);
}

void EscPresetsDialogBinder::create(const QString &name)
{
    const DriveSettings drive = currentDrive(*m_profiles);
    QString id;
    m_dialog->showError(storeRefusal(*m_profiles, [&] {
        id = m_profiles->escPresets()->createPreset(name, drive.escNeutral, drive.escFullForward,
                                                    drive.escFullReverse);
        return !id.isEmpty();
    }));
    showPresets(id);
}

void EscPresetsDialogBinder::rename(const QString &id, const QString &name)
{
    change([&] { return m_profiles->escPresets()->renamePreset(id, name); }, id);
}

void EscPresetsDialogBinder::update(const QString &id)
{
    const DriveSettings drive = currentDrive(*m_profiles);
    change(
        [&] {
            return m_profiles->escPresets()->updatePreset(id, drive.escNeutral, drive.escFullForward,
                                                          drive.escFullReverse);
        },
        id);
}

void EscPresetsDialogBinder::remove(const QString &id)
{
    change([&] { return m_profiles->escPresets()->deletePreset(id); });
}

void EscPresetsDialogBinder::change(const std::function<bool()> &change, const QString &selected)
{
    m_dialog->showError(storeRefusal(*m_profiles, change));
    showPresets(selected);
}

} // namespace tavrix
