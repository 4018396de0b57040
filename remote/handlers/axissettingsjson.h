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
};

} // namespace tavrix
