#pragma once

#include "wstablehandler.h"

namespace tavrix {

class EscPresetStore;

// The shared ESC preset list for the mobile app: list, create, update, rename, delete,
// and the news that the list changed.
class WsEscPresetHandler : public WsTableHandler
{
    Q_OBJECT

public:
    static constexpr int kMaxPresets = 64;
    static constexpr int kMaxNameLength = 64;

    WsEscPresetHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject presets(const RemoteRequest &request);
    QJsonObject createPreset(const RemoteRequest &request);
    QJsonObject updatePreset(const RemoteRequest &request);
    QJsonObject renamePreset(const RemoteRequest &request);
    QJsonObject deletePreset(const RemoteRequest &request);

    [[nodiscard]] EscPresetStore *store() const;
    [[nodiscard]] QJsonObject presetList() const;
};

} // namespace tavrix
