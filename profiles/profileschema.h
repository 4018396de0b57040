#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <memory>
#include <vector>

namespace tavrix {

// One key of a stored JSON object: its kind and what a missing or mistyped value reads as.
struct SchemaField
{
    enum class Kind
    {
        Bool,
        Int,
        Number,
        String,
        Object,
        Array
    };

    QString key;
    Kind kind = Kind::Int;
    // Scalars: the default. Object: the object a missing key starts from. Array: the default elements.
    QJsonValue defaultValue;
    // Object: its keys.
    std::vector<SchemaField> fields;
    // Array: how one element is read (its key is unused).
    std::shared_ptr<const SchemaField> element;
    // Array: padded from the default elements or cut to this length; -1 for any length.
    int fixedLength = -1;
    // Always reads as its default, whatever is stored (format versions, names taken from keys).
    bool fixed = false;
};
using Schema = std::vector<SchemaField>;

// The keys, types and defaults of every file the profile store writes, and the pure
// functions that bring a stored object to its current, complete shape. No I/O here.
class ProfileSchema
{
public:
    static constexpr int kProfileVersion = 2;
    static constexpr int kConfigVersion = 1;
    static constexpr int kEscPresetsVersion = 1;
    static constexpr int kDefaultBaudRate = 115200;

    [[nodiscard]] static const Schema &profileFields();
    [[nodiscard]] static const Schema &escPresetFields();

    // Every key of the schema with a value of its kind; keys the schema does not know are kept,
    // so a file written by a newer version loses nothing when this one saves it.
    [[nodiscard]] static QJsonObject normalise(const QJsonObject &stored, const Schema &fields);
    [[nodiscard]] static QJsonValue normaliseValue(const QJsonValue &stored, const SchemaField &field);

    // A stored profile in its current shape: defaults filled in, then the migrations applied.
    // appliedMigrations, when given, receives a description of each migration that changed something.
    [[nodiscard]] static QJsonObject readProfile(const QJsonObject &stored,
                                                 QStringList *appliedMigrations = nullptr);

    // A profile with every key at its default.
    [[nodiscard]] static QJsonObject defaultProfile(const QString &id, const QString &name,
                                                    const QString &timestamp);

    // The top-level field of that key, or nullptr when the profile has no such key.
    [[nodiscard]] static const SchemaField *profileField(const QString &key);
    // Whether callers may replace this top-level key directly (identity, name, dates and
    // the format version are kept by the store itself).
    [[nodiscard]] static bool isEditableSetting(const QString &key);

    // The file bytes of a stored object: indented JSON.
    [[nodiscard]] static QByteArray toFileBytes(const QJsonObject &object);
    // A new profile or preset identifier: a UUID without braces.
    [[nodiscard]] static QString newIdentifier();
    // The current time as written into profiles.
    [[nodiscard]] static QString currentTimestamp();
};

} // namespace tavrix
