#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>

#include <optional>

namespace tavrix {

// A named set of ESC end points (channel values) that a profile's custom ESC mode can take over.
struct EscPreset
{
    QString id;
    QString name;
    int neutral = 992;
    int fullForward = 1811;
    int fullReverse = 172;

    [[nodiscard]] static EscPreset fromJson(const QJsonObject &object);
    [[nodiscard]] QJsonObject toJson() const;
    friend bool operator==(const EscPreset &, const EscPreset &) = default;
};

// The shared ESC preset list and its file, "esc_presets.json". The list is only ever
// replaced whole, and only after the new file has been written.
class EscPresetStore
{
public:
    explicit EscPresetStore(QString filePath);

    [[nodiscard]] QString filePath() const { return m_filePath; }
    [[nodiscard]] const QList<EscPreset> &presets() const { return m_presets; }
    [[nodiscard]] std::optional<EscPreset> find(const QString &id) const;

    // Reads the file. A missing file is an empty list. A file that cannot be read gives an
    // empty list and false; entries without an identifier are left out.
    bool load(QString *reason = nullptr);
    // Writes the list; on success it becomes the store's list, on failure nothing changes.
    bool replace(const QList<EscPreset> &presets, QString *reason = nullptr);

private:
    QString m_filePath;
    QList<EscPreset> m_presets;
};

} // namespace tavrix
