#include "profileconfig.h"

#include "profilekeys.h"
#include "profileschema.h"

namespace tavrix {

namespace keys = profilekeys;

ProfileConfig ProfileConfig::fromJson(const QJsonObject &object)
{
    ProfileConfig config;
    config.lastActiveProfileId = object.value(keys::kLastActiveProfileId).toString();
    const QJsonObject byType = object.value(keys::kLastActiveByType).toObject();
    for (auto it = byType.begin(); it != byType.end(); ++it) {
        if (it.value().isString())
            config.lastActiveByType.insert(it.key(), it.value().toString());
    }
    return config;
}

QJsonObject ProfileConfig::toJson() const
{
    QJsonObject byType;
    for (auto it = lastActiveByType.cbegin(); it != lastActiveByType.cend(); ++it)
        byType.insert(it.key(), it.value());
    return QJsonObject{{keys::kVersion, ProfileSchema::kConfigVersion},
                       {keys::kLastActiveProfileId, lastActiveProfileId},
                       {keys::kLastActiveByType, byType}};
}

} // namespace tavrix
