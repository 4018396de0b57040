#include "wsescpresethandler.h"

#include "profilekeys.h"
#include "profilemanager.h"
#include "tavrixcontroller.h"

#include <QJsonArray>

namespace tavrix {

namespace {

namespace keys = profilekeys;

// The end points become the throttle channel once a profile takes the preset over.
constexpr QLatin1String kEndPointKeys[] = {keys::kNeutral, keys::kFullForward, keys::kFullReverse};

bool endPointsInRange(const RemoteRequest &request)
{
    for (QLatin1String key : kEndPointKeys) {
        const int value = request.integer(key);
        if (value < crsf::kChannelMin || value > crsf::kChannelMax)
            return false;
    }
    return true;
}

QString nameFrom(const RemoteRequest &request)
{
    return request.text(keys::kName).trimmed().left(WsEscPresetHandler::kMaxNameLength);
}

QString notFound(const QString &id)
{
    return QStringLiteral("ESC preset not found: ") + id;
}

const QString kEndPointsOutOfRange = QStringLiteral("Invalid ESC values. Must be 0-2047.");

} // namespace

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
    const QString name = nameFrom(request);
    if (name.isEmpty())
        return request.failed(QStringLiteral("Missing 'name' parameter"));
    if (!endPointsInRange(request))
        return request.failed(kEndPointsOutOfRange);
    const QString id =
        store()->presets().size() >= kMaxPresets
            ? QString()
            : store()->createPreset(name, request.integer(keys::kNeutral),
                                    request.integer(keys::kFullForward), request.integer(keys::kFullReverse));
    if (id.isEmpty())
        return request.failed(QStringLiteral("Failed to create ESC preset"));
    return request.succeeded({{QStringLiteral("data"), QJsonObject{{keys::kId, id}}}});
}

QJsonObject WsEscPresetHandler::updatePreset(const RemoteRequest &request)
{
    const QString id = request.text(keys::kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    if (!store()->find(id))
        return request.failed(notFound(id));
    if (!endPointsInRange(request))
        return request.failed(kEndPointsOutOfRange);
    return request.outcome(store()->updatePreset(id, request.integer(keys::kNeutral),
                                                 request.integer(keys::kFullForward),
                                                 request.integer(keys::kFullReverse)),
                           QStringLiteral("Failed to update ESC preset"));
}

QJsonObject WsEscPresetHandler::renamePreset(const RemoteRequest &request)
{
    const QString id = request.text(keys::kId);
    const QString name = nameFrom(request);
    if (id.isEmpty() || name.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' or 'name' parameter"));
    if (!store()->find(id))
        return request.failed(notFound(id));
    return request.outcome(store()->renamePreset(id, name), QStringLiteral("Failed to rename ESC preset"));
}

QJsonObject WsEscPresetHandler::deletePreset(const RemoteRequest &request)
{
    const QString id = request.text(keys::kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    if (!store()->find(id))
        return request.failed(notFound(id));
    return request.outcome(store()->deletePreset(id), QStringLiteral("Failed to delete ESC preset"));
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
