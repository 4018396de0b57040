#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace tavrix {

// The profile's `helicopterConfig` as the remote app writes it.
class HelicopterConfigJson
{
public:
    // The stored object with what the request carries taken over: only keys the stored
    // object has, each only with a value of the same kind, nested objects merged key by
    // key. The devices' identities stay as the hub saved them, channel indexes outside
    // 0..15 mean "not sent", and axes, calibration points, rates and curve points are
    // kept in their ranges.
    [[nodiscard]] static QJsonObject merged(const QJsonObject &stored, const QJsonObject &request);

    // An edit by any editor: the merged object, or nothing and the reason when the edit
    // would have two sent functions drive one channel, or would change more than the
    // rates while the motor is `armed`.
    struct Edit
    {
        std::optional<QJsonObject> config;
        QString refusal;
    };
    [[nodiscard]] static Edit edited(const QJsonObject &stored, const QJsonObject &request, bool armed);
};

} // namespace tavrix
