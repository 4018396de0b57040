#include "elrsfield.h"

#include <QStringList>

namespace tavrix::elrs {

namespace {

const QLatin1String kFieldMarker("FIELD ");
const QLatin1String kReadFailed("(read failed)");
constexpr int kValueBytes = 4; // current, minimum, maximum, default

// Reads a NUL-terminated text from `pos` on; a missing terminator ends it at the data's
// end. `pos` is left after the terminator.
QString takeText(const QByteArray &data, qsizetype &pos)
{
    if (pos >= data.size())
        return {};
    qsizetype end = data.indexOf('\0', pos);
    if (end < 0)
        end = data.size();
    const QString text = QString::fromUtf8(data.constData() + pos, end - pos);
    pos = end + 1;
    return text;
}

// Reads current, minimum, maximum and default when all four are there.
bool takeValues(const QByteArray &data, qsizetype &pos, bool isSigned, Parameter &p)
{
    if (data.size() - pos < kValueBytes)
        return false;
    const auto at = [&](qsizetype i) {
        return isSigned ? int(int8_t(data[pos + i])) : int(uint8_t(data[pos + i]));
    };
    p.value = at(0);
    p.minimum = at(1);
    p.maximum = at(2);
    p.defaultValue = at(3);
    pos += kValueBytes;
    return true;
}

} // namespace

FieldLine parseFieldLine(const QString &line)
{
    FieldLine result;
    const qsizetype marker = line.indexOf(kFieldMarker);
    if (marker < 0)
        return result;
    const QStringView field = QStringView(line).mid(marker);
    const qsizetype colon = field.indexOf(QLatin1Char(':'));
    if (colon < 0) {
        result.kind = FieldLine::Kind::MissingColon;
        return result;
    }
    const QStringView idText = field.mid(kFieldMarker.size(), colon - kFieldMarker.size()).trimmed();
    bool idOk = false;
    const int id = idText.toInt(&idOk, 10);
    // toInt takes a sign; a field number is digits only.
    if (!idOk || idText.startsWith(QLatin1Char('+')) || idText.startsWith(QLatin1Char('-'))) {
        result.kind = FieldLine::Kind::MalformedId;
        return result;
    }
    result.fieldId = id;

    const QStringView rest = field.mid(colon + 1).trimmed();
    if (rest.contains(kReadFailed)) {
        result.kind = FieldLine::Kind::ReadFailed;
        return result;
    }
    QByteArray bytes;
    for (const QStringView part : rest.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        bool ok = false;
        const uint byte = part.toUInt(&ok, 16);
        if (!ok || byte > 0xFF) {
            result.kind = FieldLine::Kind::UnparseableHex;
            return result;
        }
        bytes.append(char(byte));
    }
    result.kind = FieldLine::Kind::Data;
    result.bytes = dropRepeatedHeader(bytes);
    return result;
}

QByteArray dropRepeatedHeader(const QByteArray &bytes)
{
    // Parent and type come first; a name of at least one character ends at a NUL after them.
    const qsizetype nameEnd = bytes.indexOf('\0', 2);
    if (nameEnd <= 2)
        return bytes;
    const QByteArray header = bytes.left(nameEnd + 1);
    const qsizetype last = bytes.lastIndexOf(header);
    return last > 0 ? bytes.mid(last) : bytes;
}

Parameter decodeSettingsEntry(uint8_t id, uint8_t parent, uint8_t type, const QByteArray &data)
{
    Parameter p;
    p.id = id;
    p.parent = parent;
    p.type = type;
    qsizetype pos = 0;
    p.name = takeText(data, pos);

    switch (type) {
    case Uint8:
    case Int8:
        p.readOnly = !takeValues(data, pos, type == Int8, p);
        break;
    case TextSelection: {
        if (pos < data.size()) {
            const QStringList labels = takeText(data, pos).split(QLatin1Char(';'));
            for (qsizetype i = 0; i < labels.size(); ++i)
                p.options.append({int(i), labels.at(i)});
        }
        p.readOnly = !takeValues(data, pos, false, p);
        p.units = takeText(data, pos);
        break;
    }
    case String:
    case Folder:
    case Info:
    case Command:
        // Two status bytes, then a text; nothing here is writable.
        pos += 2;
        p.units = takeText(data, pos);
        break;
    default:
        // Wider numbers and kinds this client does not use: known by name only.
        break;
    }
    return p;
}

std::optional<Parameter> decodeFieldBytes(uint8_t id, const QByteArray &bytes)
{
    if (bytes.size() < 2)
        return std::nullopt;
    return decodeSettingsEntry(id, uint8_t(bytes[0]), uint8_t(bytes[1]), bytes.mid(2));
}

} // namespace tavrix::elrs
