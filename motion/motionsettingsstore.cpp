#include "motionsettingsstore.h"

#include "motionpatterns.h"

#include <QSettings>

namespace tavrix {

namespace {

QSettings motionSettings()
{
    return QSettings(QStringLiteral("OrvaneLabs"), QStringLiteral("MotionSystem"));
}

const QString kPlatformKindKey = QStringLiteral("platformKind");

} // namespace

MotionSystemSettings MotionSettingsStore::loadSettings()
{
    const QSettings store = motionSettings();
    MotionSystemSettings settings;
    for (const MotionSettingField &field : kMotionSettingFields) {
        bool ok = false;
        const int value = store.value(QLatin1String(field.key), settings.*field.member).toInt(&ok);
        if (ok)
            settings.*field.member = value;
    }
    return settings.clamped();
}

void MotionSettingsStore::saveSettings(const MotionSystemSettings &settings)
{
    QSettings store = motionSettings();
    const MotionSystemSettings clamped = settings.clamped();
    for (const MotionSettingField &field : kMotionSettingFields)
        store.setValue(QLatin1String(field.key), clamped.*field.member);
}

int MotionSettingsStore::loadPlatformKind()
{
    const int kind = motionSettings().value(kPlatformKindKey, kDefaultPlatformKind).toInt();
    return isPlatformKind(kind) ? kind : kDefaultPlatformKind;
}

void MotionSettingsStore::savePlatformKind(int kind)
{
    if (isPlatformKind(kind)) {
        QSettings store = motionSettings();
        store.setValue(kPlatformKindKey, kind);
    }
}

} // namespace tavrix
