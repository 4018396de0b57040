#include "escpresetstore.h"

#include "jsonfile.h"
#include "profilekeys.h"
#include "profileschema.h"

#include <QFileInfo>
#include <QJsonArray>

#include <utility>

namespace tavrix {

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

EscPresetStore::EscPresetStore(QString filePath)
    : m_filePath(std::move(filePath))
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

bool EscPresetStore::replace(const QList<EscPreset> &presets, QString *reason)
{
    QJsonArray entries;
    for (const EscPreset &preset : presets)
        entries.append(preset.toJson());
    const QJsonObject file{{keys::kVersion, ProfileSchema::kEscPresetsVersion}, {keys::kPresets, entries}};
    if (!JsonFile::write(m_filePath, file, reason))
        return false;
    m_presets = presets;
    return true;
}

} // namespace tavrix
