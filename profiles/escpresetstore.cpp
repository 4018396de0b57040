#include "escpresetstore.h"

#include "jsonfile.h"
#include "profilekeys.h"
#include "profileschema.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QLoggingCategory>

#include <utility>

namespace tavrix {

Q_LOGGING_CATEGORY(lcEscPresets, "orvane.profiles.esc")

namespace keys = profilekeys;

EscPreset EscPreset::fromJson(const QJsonObject &object)
{
    const QJsonObject stored = ProfileSchema::normalise(object, ProfileSchema::escPresetFields());
    EscPreset preset;
    preset.id = stored.value(keys::kId).toString();
    preset.name = stored.value(keys::kName).toString();
    preset.neutral = stored.value(keys::kNeutral).toInt();
    preset.fullForward = stored.value(keys::kFullForward).toInt();
    preset.fullReverse = stored.value(keys::kFullReverse).toInt();
    return preset;
}

QJsonObject EscPreset::toJson() const
{
    return QJsonObject{{keys::kId, id},
                       {keys::kName, name},
                       {keys::kNeutral, neutral},
                       {keys::kFullForward, fullForward},
                       {keys::kFullReverse, fullReverse}};
}

EscPresetStore::EscPresetStore(QString filePath, QObject *parent)
    : QObject(parent)
    , m_filePath(std::move(filePath))
{}

std::optional<EscPreset> EscPresetStore::find(const QString &id) const
{
    for (const EscPreset &preset : m_presets) {
        if (preset.id == id)
            return preset;
    }
    return std::nullopt;
}

bool EscPresetStore::load(QString *reason)
{
    m_presets.clear();
    if (!QFileInfo::exists(m_filePath))
        return true;
    const JsonFile::ReadResult read = JsonFile::read(m_filePath);
    if (!read.object) {
        if (reason)
            *reason = read.reason;
        return false;
    }
    const QJsonArray entries = read.object->value(keys::kPresets).toArray();
    for (const QJsonValue &entry : entries) {
        if (!entry.isObject())
            continue;
        EscPreset preset = EscPreset::fromJson(entry.toObject());
        if (preset.id.isEmpty() || find(preset.id))
            continue;
        m_presets.append(std::move(preset));
    }
    return true;
}

QString EscPresetStore::createPreset(const QString &name, int neutral, int fullForward, int fullReverse)
{
    const QString trimmed = name.trimmed().left(kMaxNameLength);
    if (trimmed.isEmpty()) {
        refuse(tr("ESC preset name cannot be empty"));
        return {};
    }
    if (refuseEndPoints(neutral, fullForward, fullReverse))
        return {};
    if (m_presets.size() >= kMaxPresets) {
        refuse(tr("Too many ESC presets (max %1)").arg(kMaxPresets));
        return {};
    }
    const EscPreset preset{ProfileSchema::newIdentifier(), trimmed, neutral, fullForward, fullReverse};
    QList<EscPreset> presets = m_presets;
    presets.append(preset);
    return commit(presets) ? preset.id : QString();
}

bool EscPresetStore::updatePreset(const QString &id, int neutral, int fullForward, int fullReverse)
{
    const int index = indexOf(id);
    if (index < 0)
        return refuse(tr("ESC preset not found: %1").arg(id));
    if (refuseEndPoints(neutral, fullForward, fullReverse))
        return false;
    QList<EscPreset> presets = m_presets;
    presets[index].neutral = neutral;
    presets[index].fullForward = fullForward;
    presets[index].fullReverse = fullReverse;
    return commit(presets);
}

bool EscPresetStore::renamePreset(const QString &id, const QString &newName)
{
    if (newName.trimmed().isEmpty())
        return refuse(tr("ESC preset name cannot be empty"));
    const int index = indexOf(id);
    if (index < 0)
        return refuse(tr("ESC preset not found: %1").arg(id));
    QList<EscPreset> presets = m_presets;
    presets[index].name = newName.trimmed().left(kMaxNameLength);
    return commit(presets);
}

bool EscPresetStore::deletePreset(const QString &id)
{
    const int index = indexOf(id);
    if (index < 0)
        return refuse(tr("ESC preset not found: %1").arg(id));
    QList<EscPreset> presets = m_presets;
    presets.removeAt(index);
    return commit(presets);
}

int EscPresetStore::indexOf(const QString &id) const
{
    for (int i = 0; i < m_presets.size(); ++i) {
        if (m_presets.at(i).id == id)
            return i;
    }
    return -1;
}

bool EscPresetStore::commit(const QList<EscPreset> &presets)
{
    QJsonArray entries;
    for (const EscPreset &preset : presets)
        entries.append(preset.toJson());
    const QJsonObject file{{keys::kVersion, ProfileSchema::kEscPresetsVersion}, {keys::kPresets, entries}};
    QString reason;
    if (!JsonFile::write(m_filePath, file, &reason)) {
        qCWarning(lcEscPresets).noquote() << "EscPresetStore: cannot write" << m_filePath << ":" << reason;
        return refuse(tr("Failed to save ESC presets"));
    }
    m_presets = presets;
    emit presetsChanged();
    return true;
}

bool EscPresetStore::endPointsInRange(int neutral, int fullForward, int fullReverse)
{
    const auto inRange = [](int value) { return value >= crsf::kChannelMin && value <= crsf::kChannelMax; };
    return inRange(neutral) && inRange(fullForward) && inRange(fullReverse);
}

bool EscPresetStore::refuseEndPoints(int neutral, int fullForward, int fullReverse)
{
    if (endPointsInRange(neutral, fullForward, fullReverse))
        return false;
    refuse(tr("Invalid ESC values. Must be 0-2047."));
    return true;
}

bool EscPresetStore::refuse(const QString &message)
{
    qCWarning(lcEscPresets).noquote() << "EscPresetStore:" << message;
    emit errorOccurred(message);
    return false;
}

} // namespace tavrix
