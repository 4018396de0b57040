#include "wsledhandler.h"

#include "ledconfigpush.h"
#include "ledstripsettings.h"
#include "profilekeys.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

// The app's request fields; the settings object itself uses the profile's keys.
const QLatin1String kOn("on");
const QLatin1String kColor("color");
const QLatin1String kIndex("index");
const QLatin1String kZoneIndex("zoneIndex");
const QLatin1String kBrightness("brightness");
const QLatin1String kMode("mode");
const QLatin1String kCount("count");
const QLatin1String kPercentage("percentage");
const QLatin1String kButtonIndex("buttonIndex");
const QLatin1String kSettings("settings");
const QLatin1String kStartPercent("startPercent");
const QLatin1String kEndPercent("endPercent");

const QString kInvalidZone = QStringLiteral("Invalid zone index");
const QString kInvalidLed = QStringLiteral("Invalid LED index");
const QString kTooManyZones = QStringLiteral("No more than %1 zones").arg(LedStripSettings::kMaxZones);
const QString kNotSaved = QStringLiteral("Could not save LED settings");
const QString kPushStarted = QStringLiteral("LED config push started");
const QString kProgressEvent = QStringLiteral("event_led_push_progress");

QString missing(QLatin1String key)
{
    return QStringLiteral("Missing '%1' parameter").arg(key);
}

// A zone from the request's fields; those it leaves out keep base's values.
LedZone zoneFrom(const RemoteRequest &request, LedZone base)
{
    if (request.has(kStartPercent))
        base.startPercent = request.integer(kStartPercent);
    if (request.has(kEndPercent))
        base.endPercent = request.integer(kEndPercent);
    if (request.has(kColor))
        base.color = LedColor::fromJson(request.object(kColor));
    return base;
}

} // namespace

WsLedHandler::WsLedHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in LED handler"), parent)
{
    addRequests<WsLedHandler>({
        {"get_led_settings", &WsLedHandler::settings},
        {"set_led_settings", &WsLedHandler::setSettings},
        {"set_led_power", &WsLedHandler::setPower},
        {"set_led_color", &WsLedHandler::setColor},
        {"set_led_brightness", &WsLedHandler::setBrightness},
        {"set_led_mode", &WsLedHandler::setMode},
        {"set_selected_led", &WsLedHandler::setSelectedLed},
        {"set_led_count", &WsLedHandler::setCount},
        {"set_active_percentage", &WsLedHandler::setActivePercentage},
        {"set_power_button", &WsLedHandler::setPowerButton},
        {"trigger_led_config", &WsLedHandler::triggerConfig},
        {"get_led_status", &WsLedHandler::status},
        {"add_zone", &WsLedHandler::addZone},
        {"remove_zone", &WsLedHandler::removeZone},
        {"set_zone", &WsLedHandler::setZone},
        {"set_selected_zone", &WsLedHandler::setSelectedZone},
    });

    connect(ledPush(), &LedConfigPush::started, this, [this] {
        push(kProgressEvent, {{QStringLiteral("state"), QStringLiteral("started")},
                              {QStringLiteral("message"), kPushStarted}});
    });
    connect(ledPush(), &LedConfigPush::finished, this, [this](bool success, const QString &message) {
        push(kProgressEvent,
             {{QStringLiteral("state"), success ? QStringLiteral("success") : QStringLiteral("failed")},
              {QStringLiteral("message"), message}});
    });
}

LedConfigPush *WsLedHandler::ledPush() const
{
    return controller()->ledPush();
}

LedStripSettings WsLedHandler::current() const
{
    LedStripSettings settings = LedStripSettings::ofActiveProfile(*controller()->profileManager());
    settings.setPowerOn(controller()->isLedPowerOn());
    return settings;
}

QJsonObject WsLedHandler::edit(const RemoteRequest &request,
                               const std::function<bool(LedStripSettings &)> &change, const QString &refusal)
{
    LedStripSettings settings = current();
    if (!change(settings))
        return request.failed(refusal);
    return request.outcome(settings.saveTo(*controller()->profileManager()), kNotSaved);
}

QJsonObject WsLedHandler::editNumber(const RemoteRequest &request, QLatin1String key,
                                     void (LedStripSettings::*setter)(int))
{
    if (!request.has(key))
        return request.failed(missing(key));
    return edit(request, [&](LedStripSettings &s) {
        (s.*setter)(request.integer(key));
        return true;
    });
}

QJsonObject WsLedHandler::settings(const RemoteRequest &request)
{
    return request.answer(current().toJson());
}

QJsonObject WsLedHandler::setSettings(const RemoteRequest &request)
{
    // The whole object or any part of it, under "settings" or as the data itself.
    const QJsonObject given = request.has(kSettings) ? request.object(kSettings) : request.data();
    QJsonObject merged = current().toJson();
    for (auto it = given.begin(); it != given.end(); ++it)
        merged.insert(it.key(), it.value());
    // Read back through the settings type, so every value is clamped and unknown keys dropped.
    return edit(request, [&](LedStripSettings &s) {
        s = LedStripSettings::fromJson(merged);
        return true;
    });
}

QJsonObject WsLedHandler::setPower(const RemoteRequest &request)
{
    if (!request.has(kOn))
        return request.failed(missing(kOn));
    controller()->setLedPower(request.flag(kOn));
    return request.succeeded();
}

QJsonObject WsLedHandler::setColor(const RemoteRequest &request)
{
    if (!request.has(kColor))
        return request.failed(missing(kColor));
    const LedColor color = LedColor::fromJson(request.object(kColor));
    if (request.has(kZoneIndex)) {
        const int zone = request.integer(kZoneIndex);
        return edit(
            request, [&](LedStripSettings &s) { return s.setZoneColor(zone, color); }, kInvalidZone);
    }
    if (request.has(kIndex)) {
        const int led = request.integer(kIndex);
        return edit(
            request, [&](LedStripSettings &s) { return s.setLedColor(led, color); }, kInvalidLed);
    }
    return edit(request, [&](LedStripSettings &s) {
        s.setGlobalColor(color);
        return true;
    });
}

QJsonObject WsLedHandler::setBrightness(const RemoteRequest &request)
{
    return editNumber(request, kBrightness, &LedStripSettings::setBrightness);
}

QJsonObject WsLedHandler::setMode(const RemoteRequest &request)
{
    if (!request.has(kMode))
        return request.failed(missing(kMode));
    return edit(request, [&](LedStripSettings &s) {
        s.setMode(LedStripSettings::modeFromName(request.text(kMode)));
        return true;
    });
}

QJsonObject WsLedHandler::setSelectedLed(const RemoteRequest &request)
{
    return editNumber(request, kIndex, &LedStripSettings::setSelectedLedIndex);
}

QJsonObject WsLedHandler::setCount(const RemoteRequest &request)
{
    return editNumber(request, kCount, &LedStripSettings::setLedCount);
}

QJsonObject WsLedHandler::setActivePercentage(const RemoteRequest &request)
{
    return editNumber(request, kPercentage, &LedStripSettings::setActivePercentage);
}

QJsonObject WsLedHandler::setPowerButton(const RemoteRequest &request)
{
    return editNumber(request, kButtonIndex, &LedStripSettings::setPowerButtonIndex);
}

QJsonObject WsLedHandler::triggerConfig(const RemoteRequest &request)
{
    switch (ledPush()->start(current())) {
    case LedConfigPush::StartResult::Started:
        break;
    case LedConfigPush::StartResult::AlreadyRunning:
        return request.failed(QStringLiteral("LED config push already in progress"));
    case LedConfigPush::StartResult::NotConnected:
        return request.failed(QStringLiteral("Receiver not connected over USB"));
    case LedConfigPush::StartResult::NothingToSend:
        return request.failed(QStringLiteral("Could not start LED config push"));
    }
    return request.succeeded({{QStringLiteral("message"), kPushStarted}});
}

QJsonObject WsLedHandler::status(const RemoteRequest &request)
{
    const LedConfigPush *push = ledPush();
    return request.answer({
        {profilekeys::kPowerOn, controller()->isLedPowerOn()},
        {profilekeys::kBrightness, current().brightness()},
        {QStringLiteral("configPending"), push->isRunning()},
        {QStringLiteral("configLedIndex"), push->itemIndex()},
        {QStringLiteral("configState"), LedConfigPush::stateName(push->state())},
    });
}

QJsonObject WsLedHandler::addZone(const RemoteRequest &request)
{
    LedStripSettings settings = current();
    const int zone = settings.addZone(zoneFrom(request, LedStripSettings::defaultZone()));
    if (zone < 0)
        return request.failed(kTooManyZones);
    if (!settings.saveTo(*controller()->profileManager()))
        return request.failed(kNotSaved);
    return request.succeeded({{kZoneIndex, zone}});
}

QJsonObject WsLedHandler::removeZone(const RemoteRequest &request)
{
    if (!request.has(kIndex))
        return request.failed(missing(kIndex));
    const int zone = request.integer(kIndex);
    return edit(
        request, [&](LedStripSettings &s) { return s.removeZone(zone); }, kInvalidZone);
}

QJsonObject WsLedHandler::setZone(const RemoteRequest &request)
{
    if (!request.has(kIndex))
        return request.failed(missing(kIndex));
    const int zone = request.integer(kIndex);
    return edit(
        request,
        [&](LedStripSettings &s) {
            return s.isZone(zone) && s.setZone(zone, zoneFrom(request, s.zones().at(zone)));
        },
        kInvalidZone);
}

QJsonObject WsLedHandler::setSelectedZone(const RemoteRequest &request)
{
    if (!request.has(kIndex))
        return request.failed(missing(kIndex));
    const int zone = request.integer(kIndex);
    return edit(
        request, [&](LedStripSettings &s) { return s.setSelectedZoneIndex(zone); }, kInvalidZone);
}

} // namespace tavrix
