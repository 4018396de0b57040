#include "wsescpresethandler.h"

#include "profilekeys.h"
#include "profilemanager.h"
#include "tavrixcontroller.h"

#include <QJsonArray>

namespace tavrix {

namespace keys = profilekeys;

WsEscPresetHandler::WsEscPresetHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in ESC preset handler"), parent)
{
    addRequests<WsEscPresetHandler>({
        {"get_esc_presets", &WsEscPresetHandler::presets},
        {"action_create_esc_preset", &WsEscPresetHandler::createPreset},
        {"action_update_esc_preset", &WsEscPresetHandler::updatePreset},
        {"action_rename_esc_preset", &WsEscPresetHandler::renamePreset},
        {"action_delete_esc_preset", &WsEscPresetHandler::deletePreset},
    });
    connect(store(), &EscPresetStore::presetsChanged, this,
            [this] { push(QStringLiteral("event_esc_presets_changed"), presetList()); });
}

QJsonObject WsEscPresetHandler::presets(const RemoteRequest &request)
{
    return request.answer(presetList());
}

QJsonObject WsEscPresetHandler::createPreset(const RemoteRequest &request)
{
    if (request.text(keys::kName).trimmed().isEmpty())
        return request.failed(QStringLiteral("Missing 'name' parameter"));
    const int neutral = request.integer(keys::kNeutral);
    const int forward = request.integer(keys::kFullForward);
    const int reverse = request.integer(keys::kFullReverse);
    QString id;
    const std::optional<QString> refusal = storeRefusal([&] {
        id = store()->createPreset(request.text(keys::kName), neutral, forward, reverse);
        return !id.isEmpty();
    });
    if (!refusal)
        return request.succeeded({{QStringLiteral("data"), QJsonObject{{keys::kId, id}}}});
    // End points the app got wrong are named; anything else is the app's plain failure.
    return request.failed(EscPresetStore::endPointsInRange(neutral, forward, reverse)
                              ? QStringLiteral("Failed to create ESC preset")
                              : *refusal);
}

QJsonObject WsEscPresetHandler::updatePreset(const RemoteRequest &request)
{
    const QString id = request.text(keys::kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    return answer(request, [&] {
        return store()->updatePreset(id, request.integer(keys::kNeutral), request.integer(keys::kFullForward),
                                     request.integer(keys::kFullReverse));
    });
}

QJsonObject WsEscPresetHandler::renamePreset(const RemoteRequest &request)
{
    const QString id = request.text(keys::kId);
    if (id.isEmpty() || request.text(keys::kName).trimmed().isEmpty())
        return request.failed(QStringLiteral("Missing 'id' or 'name' parameter"));
    return answer(request, [&] { return store()->renamePreset(id, request.text(keys::kName)); });
}

QJsonObject WsEscPresetHandler::deletePreset(const RemoteRequest &request)
{
    const QString id = request.text(keys::kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    return answer(request, [&] { return store()->deletePreset(id); });
}

QJsonObject WsEscPresetHandler::answer(const RemoteRequest &request, const std::function<bool()> &change)
{
    const std::optional<QString> refusal = storeRefusal(change);
    return refusal ? request.failed(*refusal) : request.succeeded();
}

std::optional<QString> WsEscPresetHandler::storeRefusal(const std::function<bool()> &change)
{
    QString refusal;
    QObject listening;
    connect(store(), &EscPresetStore::errorOccurred, &listening,
            [&refusal](const QString &message) { refusal = message; });
    if (change())
        return std::nullopt;
    return refusal;
}

EscPresetStore *WsEscPresetHandler::store() const
{
    return controller()->profileManager()->escPresets();
}

QJsonObject WsEscPresetHandler::presetList() const
{
    QJsonArray list;
    for (const EscPreset &preset : store()->presets())
        list.append(preset.toJson());
    return {{keys::kPresets, list}};
}

} // namespace tavrix
