#pragma once

#include "wstablehandler.h"

#include <functional>
#include <optional>

namespace tavrix {

class EscPresetStore;

// The shared ESC preset list for the mobile app: list, create, update, rename, delete,
// and the news that the list changed. The rules and their refusals are the store's.
class WsEscPresetHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsEscPresetHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject presets(const RemoteRequest &request);
    QJsonObject createPreset(const RemoteRequest &request);
    QJsonObject updatePreset(const RemoteRequest &request);
    QJsonObject renamePreset(const RemoteRequest &request);
    QJsonObject deletePreset(const RemoteRequest &request);

    // Runs one change of the store and answers with the store's refusal word for word.
    QJsonObject answer(const RemoteRequest &request, const std::function<bool()> &change);
    // The store's refusal during change; nothing when the change was taken.
    std::optional<QString> storeRefusal(const std::function<bool()> &change);

    [[nodiscard]] EscPresetStore *store() const;
    [[nodiscard]] QJsonObject presetList() const;
};

} // namespace tavrix
