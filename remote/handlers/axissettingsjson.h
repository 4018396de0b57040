#pragma once

#include <QJsonObject>

#include <optional>

namespace tavrix {

// The profile's `axisSettings` (four axes and the drive settings) as the remote app
// reads and writes them: the axes as a list with their curve named, the ESC mode named.
class AxisSettingsJson
{
public:
    // From the stored object, completed by the profile store.
    [[nodiscard]] static QJsonObject toRemote(const QJsonObject &stored);
    // The stored object with every field the request carries taken over, each clamped to
    // what the computations can use; fields it does not carry keep their values. Nothing
    // when the steering end points would end up out of order.
    [[nodiscard]] static std::optional<QJsonObject> merged(QJsonObject stored, const QJsonObject &request);

    // The same clamps for the desktop's editors, which change the stored shape directly:
    // an axis under its name with its curve as a number, the ESC mode as a number, and the
    // safety switches and soft start the remote app does not reach.
    [[nodiscard]] static std::optional<QJsonObject> edited(QJsonObject stored, const QJsonObject &changes);

    // The range a number of that key (an axis field or a drive setting) is clamped to;
    // {0, 0} for a key that is not a number.
    struct Range
    {
        double min = 0.0;
        double max = 0.0;
    };
    [[nodiscard]] static Range range(QLatin1String key);

private:
    // The drive settings both shapes share, the per-gear limits and the steering order check.
    [[nodiscard]] static std::optional<QJsonObject> mergedDrive(QJsonObject stored,
                                                                const QJsonObject &request);
};

} // namespace tavrix
