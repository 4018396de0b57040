#pragma once

#include "wstablehandler.h"

namespace tavrix {

class ProfileManager;

// The profile store for the mobile app: list, switch, create, rename, duplicate, delete,
// import and export profiles, and the news of switches and list changes.
class WsProfileHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsProfileHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject profiles(const RemoteRequest &request);
    QJsonObject activeProfile(const RemoteRequest &request);
    QJsonObject setActiveProfile(const RemoteRequest &request);
    QJsonObject createProfile(const RemoteRequest &request);
    QJsonObject renameProfile(const RemoteRequest &request);
    QJsonObject duplicateProfile(const RemoteRequest &request);
    QJsonObject deleteProfile(const RemoteRequest &request);
    QJsonObject importProfile(const RemoteRequest &request);
    QJsonObject exportProfile(const RemoteRequest &request);

    [[nodiscard]] ProfileManager *store() const;
};

} // namespace tavrix
