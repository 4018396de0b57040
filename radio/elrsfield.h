#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstdint>
#include <optional>

namespace tavrix::elrs {

// CRSF parameter type bytes this client tells apart.
enum FieldType : uint8_t
{
    Uint8 = 0,
    Int8 = 1,
    TextSelection = 9,
    String = 10,
    Folder = 11,
    Info = 12,
    Command = 13,
};

struct Option
{
    int index = 0;
    QString label;
    friend bool operator==(const Option &, const Option &) = default;
};

// One parameter of the module as its settings entry describes it.
struct Parameter
{
    uint8_t id = 0;
    QString name;
    // The folder it sits in; 0 at the top.
    uint8_t parent = 0;
    uint8_t type = 0;
    // Set for the numeric and selection types when the entry carried them.
    std::optional<int> value;
    std::optional<int> minimum;
    std::optional<int> maximum;
    std::optional<int> defaultValue;
    // Text selection only: the labels in order, the index is what a write sends.
    QList<Option> options;
    // Selection: the unit after the value. String, info and the like: their text.
    QString units;
    // Nothing this client can write (folders, info, commands, unknown kinds).
    bool readOnly = true;
    friend bool operator==(const Parameter &, const Parameter &) = default;
};

// One "FIELD <id>: <hex bytes>" line of the bridge's walk, taken apart.
struct FieldLine
{
    enum class Kind
    {
        NotAField,      // holds no "FIELD "
        MissingColon,   // "FIELD " without ":" after it
        MalformedId,    // the id is not a decimal number
        ReadFailed,     // the bridge could not read this field
        UnparseableHex, // a part is not one hexadecimal byte
        Data,
    };
    Kind kind = Kind::NotAField;
    int fieldId = -1;
    // Kind Data: the field's bytes (parent, type, name, ...), a repeated header removed.
    QByteArray bytes;
};

// Parses a walk line (any text before "FIELD " is ignored). Never reads past the line.
[[nodiscard]] FieldLine parseFieldLine(const QString &line);

// The bridge sometimes sends a field's header (parent, type, name and its NUL) twice in one
// line; everything before the last copy of the header is dropped so the field is read from
// its real start. Bytes without a named header come back unchanged.
[[nodiscard]] QByteArray dropRepeatedHeader(const QByteArray &bytes);

// Decodes a field's data after its parent and type bytes: the name, then per type the
// values, options and texts. Short or truncated data leaves the missing parts unset.
[[nodiscard]] Parameter decodeSettingsEntry(uint8_t id, uint8_t parent, uint8_t type, const QByteArray &data);

// The same from a walk line's bytes, whose first two bytes are parent and type; nothing
// for fewer than two bytes.
[[nodiscard]] std::optional<Parameter> decodeFieldBytes(uint8_t id, const QByteArray &bytes);

} // namespace tavrix::elrs
