#include "receiverledstrip.h"

#include <QStringList>

#include <optional>

namespace tavrix::sim {

namespace {

const QLatin1String kPrefix("LED_");

struct ModeName
{
    const char *name;
    ReceiverLedStrip::Mode mode;
};

constexpr ModeName kModeNames[] = {
    {"GLOBAL", ReceiverLedStrip::Mode::Global},
    {"PER_LED", ReceiverLedStrip::Mode::PerLed},
    {"RANGE", ReceiverLedStrip::Mode::Range},
};

// Comma-separated whole numbers, exactly `count` of them.
std::optional<QList<int>> integers(const QString &value, qsizetype count)
{
    const QStringList parts = value.split(QLatin1Char(','));
    if (parts.size() != count)
        return std::nullopt;
    QList<int> numbers;
    for (const QString &part : parts) {
        bool ok = false;
        numbers.append(part.trimmed().toInt(&ok));
        if (!ok)
            return std::nullopt;
    }
    return numbers;
}

bool within(int value, int low, int high)
{
    return value >= low && value <= high;
}

} // namespace

bool ReceiverLedStrip::isLedCommand(const QString &line)
{
    return line.startsWith(kPrefix);
}

QString ReceiverLedStrip::handle(const QString &line)
{
    const QString command = line.mid(kPrefix.size());
    const qsizetype equals = command.indexOf(QLatin1Char('='));
    const QString key = command.left(equals);
    const QString value = equals < 0 ? QString() : command.mid(equals + 1);
    QString refusal;
    if (equals < 0)
        refusal = QStringLiteral("missing value");
    else if (m_refusedKeys.contains(key))
        refusal = QStringLiteral("refused");
    else
        refusal = apply(key, value);
    if (refusal.isEmpty())
        return QStringLiteral("LED_OK %1=%2").arg(key, value);
    return QStringLiteral("LED_ERR %1 (%2)").arg(key, refusal);
}

QString ReceiverLedStrip::apply(const QString &key, const QString &value)
{
    if (key == QLatin1String("MODE")) {
        for (const ModeName &name : kModeNames) {
            if (value == QLatin1String(name.name)) {
                m_mode = name.mode;
                return {};
            }
        }
        return QStringLiteral("mode must be GLOBAL, PER_LED or RANGE");
    }
    const bool isItem = key == QLatin1String("COLOR") || key.startsWith(QLatin1String("RANGE_"));
    const qsizetype argumentCount = key == QLatin1String("COLOR") ? 4 : (isItem ? 2 : 1);
    const std::optional<QList<int>> arguments = integers(value, argumentCount);
    if (!arguments)
        return QStringLiteral("expected %1 whole number(s)").arg(argumentCount);
    if (isItem)
        return applyItem(key, *arguments);

    const int number = arguments->first();
    if (key == QLatin1String("ENABLE")) {
        if (!within(number, 0, 1))
            return QStringLiteral("must be 0 or 1");
        m_enabled = number == 1;
    } else if (key == QLatin1String("COUNT")) {
        if (!within(number, 1, kMaxLeds))
            return QStringLiteral("count must be 1..%1").arg(kMaxLeds);
        m_ledCount = number;
    } else if (key == QLatin1String("BRIGHTNESS")) {
        if (!within(number, 0, kMaxBrightness))
            return QStringLiteral("brightness must be 0..%1").arg(kMaxBrightness);
        m_brightness = number;
    } else if (key == QLatin1String("PAYLOAD_COUNT")) {
        if (!within(number, 1, kMaxLeds))
            return QStringLiteral("payload count must be 1..%1").arg(kMaxLeds);
        // A new payload replaces the previous one item by item.
        m_colors = QList<Color>(number);
        m_ranges = QList<Range>(number);
    } else {
        return QStringLiteral("unknown command");
    }
    return {};
}

QString ReceiverLedStrip::applyItem(const QString &key, const QList<int> &arguments)
{
    const int index = arguments.first();
    if (!within(index, 0, int(m_colors.size()) - 1))
        return QStringLiteral("index must be 0..%1").arg(m_colors.size() - 1);
    if (key == QLatin1String("COLOR")) {
        for (qsizetype i = 1; i < arguments.size(); ++i)
            if (!within(arguments.at(i), 0, 255))
                return QStringLiteral("colour components must be 0..255");
        m_colors[index] = Color{arguments.at(1), arguments.at(2), arguments.at(3)};
        return {};
    }
    const int percent = arguments.at(1);
    if (!within(percent, 0, 100))
        return QStringLiteral("percent must be 0..100");
    if (key == QLatin1String("RANGE_START"))
        m_ranges[index].startPercent = percent;
    else if (key == QLatin1String("RANGE_END"))
        m_ranges[index].endPercent = percent;
    else
        return QStringLiteral("unknown command");
    return {};
}

} // namespace tavrix::sim
