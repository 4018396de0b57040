#include "wsprofilehandler.h"

#include "buttonmappingbook.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "tavrixcontroller.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryFile>

namespace tavrix {

namespace {

const QLatin1String kId{"id"};
const QLatin1String kName{"name"};
const QLatin1String kSourceId{"sourceId"};
const QLatin1String kProfileJson{"profileJson"};

QString nameFrom(const RemoteRequest &request)
{
    return request.text(kName).trimmed().left(WsProfileHandler::kMaxNameLength);
}

QJsonObject withId(const QString &id)
{
    return {{QStringLiteral("data"), QJsonObject{{kId, id}}}};
}

} // namespace

WsProfileHandler::WsProfileHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in profile handler"), parent)
{
    addRequests<WsProfileHandler>({
        {"get_profiles", &WsProfileHandler::profiles},
        {"get_active_profile", &WsProfileHandler::activeProfile},
        {"set_active_profile", &WsProfileHandler::setActiveProfile},
        {"action_create_profile", &WsProfileHandler::createProfile},
        {"action_rename_profile", &WsProfileHandler::renameProfile},
        {"action_duplicate_profile", &WsProfileHandler::duplicateProfile},
        {"action_delete_profile", &WsProfileHandler::deleteProfile},
        {"action_import_profile", &WsProfileHandler::importProfile},
        {"action_export_profile", &WsProfileHandler::exportProfile},
    });

    connect(store(), &ProfileManager::activeProfileChanged, this, [this](const QString &id) {
        push(QStringLiteral("event_profile_changed"), {{kId, id}, {kName, store()->profileName(id)}});
    });
    connect(store(), &ProfileManager::profileListChanged, this,
            [this] { push(QStringLiteral("event_profile_list_changed")); });
}

QJsonObject WsProfileHandler::profiles(const RemoteRequest &request)
{
    QJsonArray list;
    for (const ProfileSummary &profile : store()->profiles()) {
        list.append(QJsonObject{{kId, profile.id},
                                {kName, profile.name},
                                {QStringLiteral("isActive"), profile.id == store()->activeProfileId()},
                                {QStringLiteral("vehicleType"), profile.vehicleType}});
    }
    return request.answer({{QStringLiteral("profiles"), list}});
}

QJsonObject WsProfileHandler::activeProfile(const RemoteRequest &request)
{
    const QJsonObject profile = store()->activeProfile();
    QJsonObject data;
    for (const QString &key : {QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("createdAt"),
                               QStringLiteral("modifiedAt")})
        data.insert(key, profile.value(key));
    return request.answer(data);
}

QJsonObject WsProfileHandler::setActiveProfile(const RemoteRequest &request)
{
    const QString id = request.text(kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    // While transmitting the controller keeps driving the old profile until it stops.
    if (!store()->hasProfile(id) || !store()->setActiveProfile(id))
        return request.failed(QStringLiteral("Profile not found: ") + id);
    return request.succeeded();
}

QJsonObject WsProfileHandler::createProfile(const RemoteRequest &request)
{
    const QString name = nameFrom(request);
    if (name.isEmpty())
        return request.failed(QStringLiteral("Missing 'name' parameter"));
    const QString id = isFull() ? QString() : store()->createProfile(name);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Failed to create profile"));
    return request.succeeded(withId(id));
}

QJsonObject WsProfileHandler::renameProfile(const RemoteRequest &request)
{
    const QString id = request.text(kId);
    const QString name = nameFrom(request);
    if (id.isEmpty() || name.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' or 'name' parameter"));
    return request.outcome(store()->renameProfile(id, name), QStringLiteral("Failed to rename profile"));
}

QJsonObject WsProfileHandler::duplicateProfile(const RemoteRequest &request)
{
    const QString sourceId = request.text(kSourceId);
    const QString name = nameFrom(request);
    if (sourceId.isEmpty() || name.isEmpty())
        return request.failed(QStringLiteral("Missing 'sourceId' or 'name' parameter"));
    const QString id = isFull() ? QString() : store()->duplicateProfile(sourceId, name);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Failed to duplicate profile"));
    return request.succeeded(withId(id));
}

QJsonObject WsProfileHandler::deleteProfile(const RemoteRequest &request)
{
    const QString id = request.text(kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    return request.outcome(store()->deleteProfile(id),
                           QStringLiteral("Failed to delete profile (cannot delete the last profile)"));
}

QJsonObject WsProfileHandler::importProfile(const RemoteRequest &request)
{
    if (!request.data().value(kProfileJson).isObject())
        return request.failed(QStringLiteral("Missing 'profileJson' object"));
    // The transmit tick walks every button mapping of the active profile; an import may
    // not bring more than the app can add one by one.
    const qsizetype mappings =
        request.object(kProfileJson).value(profilekeys::kButtonMappings).toArray().size();
    if (isFull() || mappings > ButtonMappingBook::kMaxMappings)
        return request.failed(QStringLiteral("Failed to import profile"));
    // The store imports files, as the desktop's import does; the copy here lives only for
    // this call and is removed with the QTemporaryFile. The document is bounded by the
    // server's message limit.
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/tavrix_import_XXXXXX.json"));
    const QByteArray bytes = QJsonDocument(request.object(kProfileJson)).toJson(QJsonDocument::Compact);
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        return request.failed(QStringLiteral("Failed to create temporary file"));
    file.close();
    // The store gives the import a new identifier and a name no other profile has, so
    // importing a profile's own export never replaces it.
    const QString id = store()->importProfile(file.fileName());
    if (id.isEmpty())
        return request.failed(QStringLiteral("Failed to import profile"));
    return request.succeeded(withId(id));
}

QJsonObject WsProfileHandler::exportProfile(const RemoteRequest &request)
{
    const QString id = request.text(kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    if (!store()->hasProfile(id))
        return request.failed(QStringLiteral("Profile not found: ") + id);
    return request.succeeded(
        {{QStringLiteral("data"), QJsonObject{{QStringLiteral("profileJson"), store()->profile(id)}}}});
}

ProfileManager *WsProfileHandler::store() const
{
    return controller()->profileManager();
}

bool WsProfileHandler::isFull() const
{
    return store()->profiles().size() >= kMaxProfiles;
}

} // namespace tavrix
