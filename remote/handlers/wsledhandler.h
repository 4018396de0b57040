#pragma once

#include "wstablehandler.h"

#include <functional>

namespace tavrix {

class LedConfigPush;
class LedStripSettings;

// The LED strip on the car's receiver as the remote app sees it: its settings, kept in
// the active profile and edited one value at a time, the strip's power (CH12, through the
// controller), and the push of the settings to the receiver over its USB console, whose
// progress reaches subscribed apps as "event_led_push_progress".
class WsLedHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsLedHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject settings(const RemoteRequest &request);
    QJsonObject setSettings(const RemoteRequest &request);
    QJsonObject setPower(const RemoteRequest &request);
    QJsonObject setColor(const RemoteRequest &request);
    QJsonObject setBrightness(const RemoteRequest &request);
    QJsonObject setMode(const RemoteRequest &request);
    QJsonObject setSelectedLed(const RemoteRequest &request);
    QJsonObject setCount(const RemoteRequest &request);
    QJsonObject setActivePercentage(const RemoteRequest &request);
    QJsonObject setPowerButton(const RemoteRequest &request);
    QJsonObject triggerConfig(const RemoteRequest &request);
    QJsonObject status(const RemoteRequest &request);
    QJsonObject addZone(const RemoteRequest &request);
    QJsonObject removeZone(const RemoteRequest &request);
    QJsonObject setZone(const RemoteRequest &request);
    QJsonObject setSelectedZone(const RemoteRequest &request);

    [[nodiscard]] LedConfigPush *ledPush() const;
    // The active profile's settings with the power as the controller holds it (it saves a
    // flip a moment later), so an edit never writes back an older power state.
    [[nodiscard]] LedStripSettings current() const;
    // Applies change to the current settings and saves them; refusal is the reply's message
    // when change returns false.
    QJsonObject edit(const RemoteRequest &request, const std::function<bool(LedStripSettings &)> &change,
                     const QString &refusal = {});
    // Edits that set one integer field: "Missing '<key>' parameter" when it is not there.
    QJsonObject editNumber(const RemoteRequest &request, QLatin1String key,
                           void (LedStripSettings::*setter)(int));
};

} // namespace tavrix
