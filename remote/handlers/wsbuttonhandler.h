#pragma once

#include "profilemanager.h"
#include "wstablehandler.h"

namespace tavrix {

// The button mappings of the active profile: listed, replaced, added to, removed from and
// cleared by the mobile app. Every change is written to the profile and then read back by
// the controller, so a running transmission follows it on its next tick.
class WsButtonHandler : public WsTableHandler
{
    Q_OBJECT

public:
    static constexpr int kMaxMappings = ProfileManager::kMaxButtonMappings;
    static constexpr int kMaxExtraButtons = 16;
    static constexpr int kMaxNameLength = 64;

    WsButtonHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject mappings(const RemoteRequest &request);
    QJsonObject setMappings(const RemoteRequest &request);
    QJsonObject addMapping(const RemoteRequest &request);
    QJsonObject removeMapping(const RemoteRequest &request);
    QJsonObject clearMappings(const RemoteRequest &request);

    [[nodiscard]] QJsonArray storedMappings() const;
    // Writes the list to the active profile and has the controller read it again.
    QJsonObject store(const RemoteRequest &request, const QJsonArray &mappings);
};

} // namespace tavrix
