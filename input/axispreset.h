#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <array>

namespace tavrix {

// The four driving inputs an axis preset feeds, in the order profiles store them.
enum LogicalInput : int
{
    LogicalSteering = 0,
    LogicalThrottle,
    LogicalBrake,
    LogicalClutch,
    LogicalInputCount
};

// Slot number meaning "this input has no axis"; such an input reads 0.
inline constexpr int kUnmappedSlot = 255;

// Which device axis slot feeds each driving input, and how: a device's axis mapping.
// Also the `axisMapping` object of a saved device connection.
struct AxisPreset
{
    std::array<int, LogicalInputCount> axisSlots{0, 1, 2, 3};
    std::array<bool, LogicalInputCount> inverted{};
    QString name;
    // Gas and brake share one axis, split at combinedPedalsCenter (the axis' rest value).
    bool combinedPedals = false;
    float combinedPedalsCenter = 0.0f;

    int slot(LogicalInput input) const { return axisSlots[input]; }
    bool isInverted(LogicalInput input) const { return inverted[input]; }

    // `map`, `inverted`, `presetName`, `combinedPedals`, `combinedPedalsCenter`.
    [[nodiscard]] QJsonObject toJson() const;
    // Missing or malformed members keep the blank record's values.
    [[nodiscard]] static AxisPreset fromJson(const QJsonObject &object);

    friend bool operator==(const AxisPreset &, const AxisPreset &) = default;
};

namespace presets {
inline const QString mozaFanatec = QStringLiteral("MOZA / Fanatec");
inline const QString logitech = QStringLiteral("Logitech");
inline const QString logitechPs = QStringLiteral("Logitech (PS3/PS4)");
inline const QString thrustmaster = QStringLiteral("Thrustmaster");
inline const QString generic = QStringLiteral("Generic");
} // namespace presets

// The presets offered to the user and the remote app, in display order.
[[nodiscard]] QStringList presetNames();

// The preset of that name; an unknown name gives the blank record (slots 0..3, nothing inverted, no name).
[[nodiscard]] AxisPreset presetByName(const QString &name);

// Chooses a preset from a device's product name (case-insensitive substrings, first rule wins).
[[nodiscard]] AxisPreset detectPreset(const QString &productName);

} // namespace tavrix
