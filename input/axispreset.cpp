#include "axispreset.h"

#include <QJsonArray>

namespace tavrix {

namespace {

struct PresetRow
{
    const QString &name;
    std::array<int, LogicalInputCount> axisSlots;
    std::array<bool, LogicalInputCount> inverted;
    bool combined;
};

// Slot numbers: 0 lX, 1 lRx, 2 lRy, 3 lRz, 4 lY, 5 lZ, 6 Slider0, 7 Slider1.
// "Generic" repeats the "Logitech" assignment on purpose: most unknown wheels copy that layout.
const std::array<PresetRow, 5> &presetTable()
{
    static const std::array<PresetRow, 5> table{{
        {presets::mozaFanatec, {0, 1, 2, 3}, {false, false, false, false}, false},
        {presets::logitech, {0, 5, 3, 4}, {false, true, true, true}, false},
        {presets::logitechPs, {0, 4, 4, kUnmappedSlot}, {false, false, false, false}, true},
        {presets::thrustmaster, {0, 4, 3, 6}, {false, true, true, true}, false},
        {presets::generic, {0, 5, 3, 4}, {false, true, true, true}, false},
    }};
    return table;
}

bool containsAny(const QString &text, std::initializer_list<QLatin1StringView> needles)
{
    for (QLatin1StringView needle : needles) {
        if (text.contains(needle))
            return true;
    }
    return false;
}

} // namespace

QJsonObject AxisPreset::toJson() const
{
    QJsonArray map;
    QJsonArray inv;
    for (int i = 0; i < LogicalInputCount; ++i) {
        map.append(axisSlots[i]);
        inv.append(inverted[i]);
    }
    return QJsonObject{
        {QStringLiteral("map"), map},
        {QStringLiteral("inverted"), inv},
        {QStringLiteral("presetName"), name},
        {QStringLiteral("combinedPedals"), combinedPedals},
        {QStringLiteral("combinedPedalsCenter"), double(combinedPedalsCenter)},
    };
}

AxisPreset AxisPreset::fromJson(const QJsonObject &object)
{
    AxisPreset preset;
    const QJsonArray map = object.value(QStringLiteral("map")).toArray();
    const QJsonArray inv = object.value(QStringLiteral("inverted")).toArray();
    for (int i = 0; i < LogicalInputCount; ++i) {
        if (i < map.size() && map.at(i).isDouble())
            preset.axisSlots[i] = map.at(i).toInt(preset.axisSlots[i]);
        if (i < inv.size() && inv.at(i).isBool())
            preset.inverted[i] = inv.at(i).toBool();
    }
    preset.name = object.value(QStringLiteral("presetName")).toString();
    preset.combinedPedals = object.value(QStringLiteral("combinedPedals")).toBool(false);
    preset.combinedPedalsCenter = float(object.value(QStringLiteral("combinedPedalsCenter")).toDouble(0.0));
    return preset;
}

QStringList presetNames()
{
    QStringList names;
    for (const PresetRow &row : presetTable())
        names.append(row.name);
    return names;
}

AxisPreset presetByName(const QString &name)
{
    for (const PresetRow &row : presetTable()) {
        if (row.name == name) {
            AxisPreset preset;
            preset.axisSlots = row.axisSlots;
            preset.inverted = row.inverted;
            preset.name = row.name;
            preset.combinedPedals = row.combined;
            preset.combinedPedalsCenter = 0.0f;
            return preset;
        }
    }
    return AxisPreset{};
}

AxisPreset detectPreset(const QString &productName)
{
    const QString name = productName.toLower();
    if (containsAny(name, {QLatin1StringView("moza"), QLatin1StringView("fanatec")}))
        return presetByName(presets::mozaFanatec);
    if (containsAny(name, {QLatin1StringView("logitech"), QLatin1StringView("g29"), QLatin1StringView("g920"),
                           QLatin1StringView("g923"), QLatin1StringView("g27"), QLatin1StringView("g25"),
                           QLatin1StringView("dfgt"), QLatin1StringView("driving force")})) {
        return presetByName(name.contains(QLatin1StringView("ps3")) ? presets::logitechPs
                                                                    : presets::logitech);
    }
    // "tx " keeps its trailing blank so words that merely contain "tx" do not match.
    if (containsAny(name, {QLatin1StringView("thrustmaster"), QLatin1StringView("t300"),
                           QLatin1StringView("t150"), QLatin1StringView("t-gt"), QLatin1StringView("t248"),
                           QLatin1StringView("t500"), QLatin1StringView("tx "), QLatin1StringView("tmx")})) {
        return presetByName(presets::thrustmaster);
    }
    return presetByName(presets::generic);
}

} // namespace tavrix
