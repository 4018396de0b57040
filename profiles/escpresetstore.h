#pragma once

#include "crsfchannels.h"

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QString>

#include <optional>

namespace tavrix {

// A named set of ESC end points (channel values) that a profile's custom ESC mode can take over.
struct EscPreset
{
    QString id;
    QString name;
    int neutral = crsf::kServoCenter;
    int fullForward = crsf::kServoMax;
    int fullReverse = crsf::kServoMin;

    [[nodiscard]] static EscPreset fromJson(const QJsonObject &object);
    [[nodiscard]] QJsonObject toJson() const;
    friend bool operator==(const EscPreset &, const EscPreset &) = default;
};

// The shared ESC preset list and its file, "esc_presets.json". Every change writes the
// whole list first and takes effect only once written; a refusal changes nothing.
class EscPresetStore : public QObject
{
    Q_OBJECT

public:
    // The list is shared by every profile and shown whole by every editor.
    static constexpr int kMaxPresets = 64;
    static constexpr int kMaxNameLength = 64;

    explicit EscPresetStore(QString filePath, QObject *parent = nullptr);

    // Every end point within the channel range.
    [[nodiscard]] static bool endPointsInRange(int neutral, int fullForward, int fullReverse);

    [[nodiscard]] QString filePath() const { return m_filePath; }
    [[nodiscard]] const QList<EscPreset> &presets() const { return m_presets; }
    [[nodiscard]] std::optional<EscPreset> find(const QString &id) const;

    // Reads the file (no signal). A missing file is an empty list. A file that cannot be read
    // gives an empty list and false; entries without an identifier are left out.
    bool load(QString *reason = nullptr);

    // Names are trimmed and cut to kMaxNameLength; an empty one is refused, and so are end
    // points outside the channel range (they become the throttle channel of a car).
    // Returns the new preset's identifier, or an empty string when refused.
    QString createPreset(const QString &name, int neutral, int fullForward, int fullReverse);
    bool updatePreset(const QString &id, int neutral, int fullForward, int fullReverse);
    bool renamePreset(const QString &id, const QString &newName);
    bool deletePreset(const QString &id);

signals:
    void presetsChanged();
    void errorOccurred(const QString &message);

private:
    [[nodiscard]] int indexOf(const QString &id) const;
    bool commit(const QList<EscPreset> &presets);
    bool refuse(const QString &message);
    // Refuses (and says so) when an end point is outside the channel range.
    bool refuseEndPoints(int neutral, int fullForward, int fullReverse);

    QString m_filePath;
    QList<EscPreset> m_presets;
};

} // namespace tavrix
