#include "replayscript.h"

#include "inputdevice.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <optional>

namespace tavrix {

namespace {

constexpr int kMaxPovHundredths = 35999;

std::optional<qint64> wholeNumber(const QJsonValue &value)
{
    if (!value.isDouble())
        return std::nullopt;
    const double d = value.toDouble();
    if (!std::isfinite(d) || std::floor(d) != d || std::fabs(d) > 9.0e15)
        return std::nullopt;
    return qint64(d);
}

QString listOf(const QStringList &keys)
{
    return keys.join(QStringLiteral(", "));
}

// Parses one line into the script; returns an error message or an empty string.
class LineParser
{
public:
    LineParser(QList<VirtualDeviceSpec> &devices, std::vector<ReplayEvent> &events,
               std::vector<RawInputState> &current)
        : m_devices(devices)
        , m_events(events)
        , m_current(current)
    {}

    QString parse(const QJsonObject &line, int lineNumber)
    {
        if (line.contains(QLatin1StringView("t")))
            return parseState(line, lineNumber);
        if (line.contains(QLatin1StringView("device")))
            return parseDeclaration(line);
        return QStringLiteral("a line needs \"device\" (a declaration) or \"t\" (a state)");
    }

private:
    static QString unknownKey(const QJsonObject &object, const QStringList &allowed)
    {
        for (auto it = object.begin(); it != object.end(); ++it) {
            if (!allowed.contains(it.key()))
                return QStringLiteral("unknown key \"%1\" (expected %2)").arg(it.key(), listOf(allowed));
        }
        return {};
    }

    static QString readCount(const QJsonObject &object, const char *key, int max, int &field)
    {
        const QJsonValue value = object.value(QLatin1StringView(key));
        if (value.isUndefined())
            return {};
        const std::optional<qint64> n = wholeNumber(value);
        if (!n || *n < 0 || *n > max)
            return QStringLiteral("\"%1\" must be a whole number from 0 to %2")
                .arg(QLatin1StringView(key))
                .arg(max);
        field = int(*n);
        return {};
    }

    QString parseDeclaration(const QJsonObject &line)
    {
        const QJsonValue device = line.value(QLatin1StringView("device"));
        QJsonObject fields;
        VirtualDeviceSpec spec;
        if (device.isObject()) {
            if (QString e = unknownKey(line, {QStringLiteral("device")}); !e.isEmpty())
                return e;
            fields = device.toObject();
        } else if (device.isString()) {
            // Flat form: {"device": "Wheel", "product": ...}; the "device" text is the name.
            fields = line;
            fields.remove(QStringLiteral("device"));
            if (!fields.contains(QLatin1StringView("name")))
                fields.insert(QStringLiteral("name"), device);
        } else {
            return QStringLiteral("\"device\" of a declaration must be an object (or a name)");
        }
        if (QString e = unknownKey(fields, {QStringLiteral("name"), QStringLiteral("product"),
                                            QStringLiteral("axes"), QStringLiteral("buttons"),
                                            QStringLiteral("povs"), QStringLiteral("ffb")});
            !e.isEmpty()) {
            return e;
        }
        const QJsonValue name = fields.value(QLatin1StringView("name"));
        if (!name.isString() || name.toString().trimmed().isEmpty())
            return QStringLiteral("a device needs a non-empty \"name\"");
        spec.name = name.toString();
        for (const VirtualDeviceSpec &other : std::as_const(m_devices)) {
            if (other.name == spec.name)
                return QStringLiteral("device \"%1\" is declared twice").arg(spec.name);
        }
        if (m_devices.size() >= ReplayScript::kMaxDevices)
            return QStringLiteral("more than %1 devices").arg(ReplayScript::kMaxDevices);
        const QJsonValue product = fields.value(QLatin1StringView("product"));
        if (!product.isUndefined() && !product.isString())
            return QStringLiteral("\"product\" must be text");
        spec.product = product.toString();
        if (QString e = readCount(fields, "axes", AxisSlotCount, spec.axes); !e.isEmpty())
            return e;
        if (QString e = readCount(fields, "buttons", kRawButtonCount, spec.buttons); !e.isEmpty())
            return e;
        if (QString e = readCount(fields, "povs", kRawPovCount, spec.povs); !e.isEmpty())
            return e;
        const QJsonValue ffb = fields.value(QLatin1StringView("ffb"));
        if (!ffb.isUndefined() && !ffb.isBool())
            return QStringLiteral("\"ffb\" must be true or false");
        spec.ffb = ffb.toBool(false);
        m_devices.append(spec);
        m_current.emplace_back();
        return {};
    }

    QString findDevice(const QJsonValue &ref, int &index) const
    {
        if (ref.isString()) {
            for (int i = 0; i < m_devices.size(); ++i) {
                if (m_devices.at(i).name == ref.toString()) {
                    index = i;
                    return {};
                }
            }
            return QStringLiteral("no device named \"%1\" was declared before this line").arg(ref.toString());
        }
        const std::optional<qint64> n = wholeNumber(ref);
        if (!n)
            return QStringLiteral("\"device\" must be a declaration index or a device name");
        if (*n < 0 || *n >= m_devices.size())
            return QStringLiteral("no device %1 was declared before this line").arg(*n);
        index = int(*n);
        return {};
    }

    static QString applyAxes(const QJsonValue &value, RawInputState &state)
    {
        if (value.isUndefined())
            return {};
        if (!value.isObject())
            return QStringLiteral("\"axes\" must be an object of slot names to raw values");
        const QJsonObject axes = value.toObject();
        for (auto it = axes.begin(); it != axes.end(); ++it) {
            const int slot = InputDevice::axisSlotFromName(it.key());
            if (slot < 0)
                return QStringLiteral(
                           "unknown axis \"%1\" (expected lX, lRx, lRy, lRz, lY, lZ, Slider0, Slider1)")
                    .arg(it.key());
            const std::optional<qint64> raw = wholeNumber(it.value());
            if (!raw || *raw < 0 || *raw > kRawAxisMax)
                return QStringLiteral("axis \"%1\" must be a whole number from 0 to 65535").arg(it.key());
            state.axes[size_t(slot)] = qint32(*raw);
        }
        return {};
    }

    static QString applyButtons(const QJsonValue &value, RawInputState &state)
    {
        if (value.isUndefined())
            return {};
        if (!value.isArray())
            return QStringLiteral("\"buttons\" must be a list of pressed button indexes");
        state.buttons.fill(0);
        for (const QJsonValue &entry : value.toArray()) {
            const std::optional<qint64> n = wholeNumber(entry);
            if (!n || *n < 0 || *n >= kRawButtonCount)
                return QStringLiteral("button indexes must be whole numbers from 0 to 127");
            state.buttons[size_t(*n)] = 0x80;
        }
        return {};
    }

    static QString applyPovs(const QJsonValue &value, RawInputState &state)
    {
        if (value.isUndefined())
            return {};
        const QJsonArray povs = value.toArray();
        if (!value.isArray() || povs.size() > kRawPovCount)
            return QStringLiteral("\"povs\" must be a list of at most 4 angles");
        state.povs.fill(kRawPovCentred);
        for (qsizetype hat = 0; hat < povs.size(); ++hat) {
            const std::optional<qint64> angle = wholeNumber(povs.at(hat));
            if (!angle || *angle < -1 || *angle > kMaxPovHundredths)
                return QStringLiteral(
                    "a hat angle must be -1 (centred) or 0 to 35999 hundredths of a degree");
            if (*angle >= 0)
                state.povs[size_t(hat)] = quint32(*angle);
        }
        return {};
    }

    QString parseState(const QJsonObject &line, int lineNumber)
    {
        if (QString e =
                unknownKey(line, {QStringLiteral("t"), QStringLiteral("device"), QStringLiteral("axes"),
                                  QStringLiteral("buttons"), QStringLiteral("povs")});
            !e.isEmpty()) {
            return e;
        }
        const std::optional<qint64> t = wholeNumber(line.value(QLatin1StringView("t")));
        if (!t || *t < 0)
            return QStringLiteral("\"t\" must be a whole number of milliseconds, 0 or more");
        if (!m_events.empty() && *t < m_events.back().timeMs)
            return QStringLiteral("\"t\" goes back in time (%1 after %2)")
                .arg(*t)
                .arg(m_events.back().timeMs);
        if (!line.contains(QLatin1StringView("device")))
            return QStringLiteral("a state line needs \"device\"");
        int device = 0;
        if (QString e = findDevice(line.value(QLatin1StringView("device")), device); !e.isEmpty())
            return e;
        RawInputState state = m_current[size_t(device)];
        if (QString e = applyAxes(line.value(QLatin1StringView("axes")), state); !e.isEmpty())
            return e;
        if (QString e = applyButtons(line.value(QLatin1StringView("buttons")), state); !e.isEmpty())
            return e;
        if (QString e = applyPovs(line.value(QLatin1StringView("povs")), state); !e.isEmpty())
            return e;
        m_current[size_t(device)] = state;
        m_events.push_back({*t, device, state, lineNumber});
        return {};
    }

    QList<VirtualDeviceSpec> &m_devices;
    std::vector<ReplayEvent> &m_events;
    std::vector<RawInputState> &m_current;
};

} // namespace

ReplayScript ReplayScript::parse(const QByteArray &text)
{
    ReplayScript script;
    if (text.size() > kMaxFileBytes) {
        script.m_error = QStringLiteral("replay file is larger than %1 bytes").arg(kMaxFileBytes);
        return script;
    }
    std::vector<RawInputState> current;
    LineParser parser(script.m_devices, script.m_events, current);
    const QList<QByteArray> lines = text.split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const int lineNumber = int(i) + 1;
        const QByteArray line = lines.at(i).trimmed();
        if (line.isEmpty() || line.startsWith('#') || line.startsWith("//"))
            continue;
        QString error;
        if (line.size() > kMaxLineBytes) {
            error = QStringLiteral("line is longer than %1 bytes").arg(kMaxLineBytes);
        } else {
            QJsonParseError parseError;
            const QJsonDocument doc = QJsonDocument::fromJson(line, &parseError);
            if (parseError.error != QJsonParseError::NoError)
                error = QStringLiteral("not valid JSON (%1 at column %2)")
                            .arg(parseError.errorString())
                            .arg(parseError.offset + 1);
            else if (!doc.isObject())
                error = QStringLiteral("a line must be a JSON object");
            else
                error = parser.parse(doc.object(), lineNumber);
        }
        if (!error.isEmpty()) {
            ReplayScript failed;
            failed.m_error = QStringLiteral("line %1: %2").arg(lineNumber).arg(error);
            failed.m_errorLine = lineNumber;
            return failed;
        }
    }
    return script;
}

ReplayScript ReplayScript::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        ReplayScript failed;
        failed.m_error = QStringLiteral("cannot read replay file %1: %2").arg(path, file.errorString());
        return failed;
    }
    if (file.size() > kMaxFileBytes) {
        ReplayScript failed;
        failed.m_error =
            QStringLiteral("replay file %1 is larger than %2 bytes").arg(path).arg(kMaxFileBytes);
        return failed;
    }
    ReplayScript script = parse(file.readAll());
    if (!script.isValid())
        script.m_error = QStringLiteral("%1: %2").arg(path, script.m_error);
    return script;
}

} // namespace tavrix
