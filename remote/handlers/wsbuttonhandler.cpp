#include "wsbuttonhandler.h"

#include "buttonmappingengine.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "tavrixcontroller.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tavrix {

namespace {

namespace keys = profilekeys;

// Keys taken over as the app sent them; what is missing gets the profile's default.
constexpr QLatin1String kPlainKeys[] = {keys::kButtonIndex, keys::kChannel, keys::kMode,
                                        keys::kActivatesPitLimiter};
// Keys whose values the engine writes into a channel: clamped here, where they enter the hub.
constexpr QLatin1String kChannelValueKeys[] = {keys::kOutputValue, keys::kMinValue, keys::kMaxValue,
                                               keys::kStartValue};

QJsonObject storedMapping(const RemoteRequest &entry)
{
    const QJsonObject &sent = entry.data();
    QJsonObject stored;
    if (sent.contains(keys::kName))
        stored.insert(keys::kName, entry.text(keys::kName).left(WsButtonHandler::kMaxNameLength));
    for (QLatin1String key : kPlainKeys) {
        if (sent.contains(key))
            stored.insert(key, sent.value(key));
    }
    for (QLatin1String key : kChannelValueKeys) {
        if (sent.contains(key))
            stored.insert(key, std::clamp(entry.integer(key), crsf::kChannelMin, crsf::kChannelMax));
    }
    // A negative rate would turn "hold to raise" into lowering.
    if (sent.contains(keys::kRateUnitsPerSec))
        stored.insert(keys::kRateUnitsPerSec, std::max(0, entry.integer(keys::kRateUnitsPerSec)));
    if (sent.contains(keys::kExtraButtons)) {
        QJsonArray extra;
        for (const QJsonValue &source : entry.array(keys::kExtraButtons)) {
            if (extra.size() == WsButtonHandler::kMaxExtraButtons)
                break;
            extra.append(source);
        }
        stored.insert(keys::kExtraButtons, extra);
    }
    return stored;
}

QString tooManyMappings()
{
    return QStringLiteral("Too many button mappings (max %1)").arg(WsButtonHandler::kMaxMappings);
}

// The index as sent, or nothing when it is missing or not a whole number.
std::optional<qint64> wholeNumber(const QJsonObject &data, QLatin1String key)
{
    const QJsonValue value = data.value(key);
    if (!value.isDouble() || std::trunc(value.toDouble()) != value.toDouble())
        return std::nullopt;
    return qint64(value.toDouble());
}

} // namespace

WsButtonHandler::WsButtonHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in button handler"), parent)
{
    addRequests<WsButtonHandler>({
        {"get_button_mappings", &WsButtonHandler::mappings},
        {"set_button_mappings", &WsButtonHandler::setMappings},
        {"action_add_button_mapping", &WsButtonHandler::addMapping},
        {"action_remove_button_mapping", &WsButtonHandler::removeMapping},
        {"action_clear_button_mappings", &WsButtonHandler::clearMappings},
    });
}

QJsonObject WsButtonHandler::mappings(const RemoteRequest &request)
{
    return request.answer({{QStringLiteral("mappings"), storedMappings()}});
}

QJsonObject WsButtonHandler::setMappings(const RemoteRequest &request)
{
    if (!request.data().value(QLatin1String("mappings")).isArray())
        return request.failed(QStringLiteral("Missing 'mappings' array"));
    const QJsonArray sent = request.array(QLatin1String("mappings"));
    if (sent.size() > kMaxMappings)
        return request.failed(tooManyMappings());
    // Replacing the whole list takes the app's mappings as they are (a helicopter's reach
    // CH16, a disabled one has no button); the engine ignores what it cannot drive.
    QJsonArray next;
    for (const QJsonValue &entry : sent)
        next.append(storedMapping(RemoteRequest(request.event(), entry.toObject())));
    return store(request, next);
}

QJsonObject WsButtonHandler::addMapping(const RemoteRequest &request)
{
    if (request.integer(keys::kButtonIndex) < 0)
        return request.failed(QStringLiteral("Missing 'buttonIndex' parameter"));
    const int channel = request.integer(keys::kChannel);
    if (channel < ButtonMappingEngine::kFirstCarChannel || channel > ButtonMappingEngine::kLastCarChannel)
        return request.failed(QStringLiteral("Channel must be 2-11 (0-1 reserved for steering/throttle)"));
    QJsonArray next = storedMappings();
    if (next.size() >= kMaxMappings)
        return request.failed(tooManyMappings());
    next.append(storedMapping(request));
    return store(request, next);
}

QJsonObject WsButtonHandler::removeMapping(const RemoteRequest &request)
{
    const std::optional<qint64> index = wholeNumber(request.data(), QLatin1String("index"));
    if (!index)
        return request.failed(QStringLiteral("Missing or invalid 'index' parameter"));
    QJsonArray next = storedMappings();
    if (quint64(*index) >= quint64(next.size()))
        return request.failed(
            QStringLiteral("Index %1 out of range (count: %2)").arg(*index).arg(next.size()));
    next.removeAt(qsizetype(*index));
    return store(request, next);
}

QJsonObject WsButtonHandler::clearMappings(const RemoteRequest &request)
{
    return store(request, {});
}

QJsonArray WsButtonHandler::storedMappings() const
{
    return controller()->profileManager()->setting(keys::kButtonMappings).toArray();
}

QJsonObject WsButtonHandler::store(const RemoteRequest &request, const QJsonArray &mappings)
{
    if (!controller()->profileManager()->setSetting(keys::kButtonMappings, mappings))
        return request.failed(QStringLiteral("Failed to save button mappings"));
    controller()->reloadSettings();
    return request.succeeded();
}

} // namespace tavrix
