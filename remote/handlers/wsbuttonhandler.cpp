#include "wsbuttonhandler.h"

#include "buttonmappingbook.h"
#include "profilekeys.h"
#include "profilesettings.h"
#include "tavrixcontroller.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <optional>

namespace tavrix {

namespace {

namespace keys = profilekeys;

ButtonMapping sentMapping(const QJsonObject &sent)
{
    const ButtonMappingList read = buttonMappingsFromJson(QJsonArray{sent});
    return read.isEmpty() ? ButtonMapping{} : read.first();
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
    , m_book(new ButtonMappingBook(controller->profileManager(), this))
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
    return request.answer({{QStringLiteral("mappings"), buttonMappingsToJson(m_book->mappings())}});
}

QJsonObject WsButtonHandler::setMappings(const RemoteRequest &request)
{
    if (!request.data().value(QLatin1String("mappings")).isArray())
        return request.failed(QStringLiteral("Missing 'mappings' array"));
    const QJsonArray sent = request.array(QLatin1String("mappings"));
    return changed(request, [&] { return m_book->setAll(buttonMappingsFromJson(sent)); });
}

QJsonObject WsButtonHandler::addMapping(const RemoteRequest &request)
{
    if (request.integer(keys::kButtonIndex) < 0)
        return request.failed(QStringLiteral("Missing 'buttonIndex' parameter"));
    ButtonMapping mapping = sentMapping(request.data());
    // A request's integers read -1 when missing: a mapping sent without a channel is refused.
    mapping.channel = request.integer(keys::kChannel);
    return changed(request, [&] { return m_book->add(mapping); });
}

QJsonObject WsButtonHandler::removeMapping(const RemoteRequest &request)
{
    const std::optional<qint64> index = wholeNumber(request.data(), QLatin1String("index"));
    if (!index)
        return request.failed(QStringLiteral("Missing or invalid 'index' parameter"));
    const int clampedIndex = int(std::clamp<qint64>(*index, INT_MIN, INT_MAX));
    return changed(request, [&] { return m_book->remove(clampedIndex); });
}

QJsonObject WsButtonHandler::clearMappings(const RemoteRequest &request)
{
    return changed(request, [&] { return m_book->clear(); });
}

QJsonObject WsButtonHandler::changed(const RemoteRequest &request, const std::function<bool()> &change)
{
    QString refusal;
    QObject listening;
    connect(m_book, &ButtonMappingBook::errorOccurred, &listening,
            [&refusal](const QString &message) { refusal = message; });
    if (change())
        return request.succeeded();
    return request.failed(refusal.isEmpty() ? QStringLiteral("Failed to save button mappings") : refusal);
}

} // namespace tavrix
