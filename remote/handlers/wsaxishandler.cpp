#include "wsaxishandler.h"

#include "axismappingchange.h"
#include "axissettingsjson.h"
#include "forcefeedbackjson.h"
#include "inputdetection.h"
#include "inputdevice.h"
#include "profilekeys.h"
#include "remotedeviceroles.h"
#include "steeringtrim.h"
#include "tavrixcontroller.h"
#include "wheelforcefeedback.h"

#include <QJsonArray>

#include <algorithm>

namespace tavrix {

namespace {

namespace keys = profilekeys;
using namespace Qt::StringLiterals;

const auto kData = "data"_L1;
const auto kGearIndex = "gearIndex"_L1;
const auto kGearName = "gearName"_L1;
const auto kButtonIndex = keys::kButtonIndex;
const auto kDeviceName = "deviceName"_L1;
const auto kSuccess = "success"_L1;
const auto kPresetName = "presetName"_L1;
const auto kMap = "map"_L1;

QString gearName(int gearSlot)
{
    if (gearSlot == 0)
        return u"Neutral"_s;
    if (gearSlot == ShifterMapping::kReverseSlot)
        return u"Reverse"_s;
    return u"Gear %1"_s.arg(gearSlot - 1);
}

QJsonObject trimJson(const SteeringEndpoints &trim)
{
    return {{keys::kSteeringLeft, trim.left},
            {keys::kSteeringCenter, trim.center},
            {keys::kSteeringRight, trim.right}};
}

int32_t channelValue(const RemoteRequest &request, QLatin1String key, int32_t current)
{
    return int32_t(
        std::clamp(request.number(key, current), double(crsf::kChannelMin), double(crsf::kChannelMax)));
}

// The mobile app gets the refusal in English, as the window's source text reads.
const QString kTrimOutOfOrder = QString::fromLatin1(SteeringEndpoints::kOutOfOrder);
const QString kSaveFailed = u"Failed to save the profile"_s;
const QString kNoFfbWheel = u"No FFB-capable wheel connected"_s;

} // namespace

WsAxisHandler::WsAxisHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, u"Unhandled event in axis handler"_s, parent)
{
    addRequests<WsAxisHandler>({
        {"get_axis_settings", &WsAxisHandler::getAxisSettings},
        {"set_axis_settings", &WsAxisHandler::setAxisSettings},
        {"set_steering_trim_live", &WsAxisHandler::setSteeringTrimLive},
        {"apply_steering_trim", &WsAxisHandler::applySteeringTrim},
        {"revert_steering_trim", &WsAxisHandler::revertSteeringTrim},
        {"get_wheel_ffb", &WsAxisHandler::getWheelFfb},
        {"set_wheel_ffb", &WsAxisHandler::setWheelFfb},
        {"check_wheel_ffb", &WsAxisHandler::checkWheelFfb},
        {"action_test_wheel_ffb", &WsAxisHandler::testWheelFfb},
        {"get_esc_mode", &WsAxisHandler::getEscMode},
        {"set_esc_mode", &WsAxisHandler::setEscMode},
        {"get_esc_modes", &WsAxisHandler::getEscModes},
        {"get_wheelbase_axis_mapping", &WsAxisHandler::getWheelBaseAxisMapping},
        {"set_wheelbase_axis_mapping", &WsAxisHandler::setWheelBaseAxisMapping},
        {"get_pedals_axis_mapping", &WsAxisHandler::getPedalsAxisMapping},
        {"set_pedals_axis_mapping", &WsAxisHandler::setPedalsAxisMapping},
        {"get_available_presets", &WsAxisHandler::getAvailablePresets},
        {"get_shifter_mapping", &WsAxisHandler::getShifterMapping},
        {"set_shifter_mapping", &WsAxisHandler::setShifterMapping},
        {"start_shifter_detection", &WsAxisHandler::startShifterDetection},
        {"cancel_shifter_detection", &WsAxisHandler::cancelShifterDetection},
        {"start_button_detection", &WsAxisHandler::startButtonDetection},
        {"stop_button_detection", &WsAxisHandler::stopButtonDetection},
    });
    connectPushes();
}

void WsAxisHandler::connectPushes()
{
    InputDetection *detection = controller()->inputDetection();
    connect(detection, &InputDetection::shifterDetectionStarted, this, [this](int gearSlot) {
        push(u"shifter_detection_started"_s, {{kGearIndex, gearSlot}, {kGearName, gearName(gearSlot)}});
    });
    connect(detection, &InputDetection::shifterDetectionResult, this,
            [this](int gearSlot, int buttonIndex, bool success) {
                push(u"shifter_detection_result"_s, {{kGearIndex, gearSlot},
                                                     {kGearName, gearName(gearSlot)},
                                                     {kButtonIndex, buttonIndex},
                                                     {kSuccess, success}});
            });
    connect(detection, &InputDetection::shifterMappingChanged, this,
            [this] { push(u"shifter_mapping_changed"_s, shifterMappingJson()); });
    connect(detection, &InputDetection::buttonDetectionStarted, this, [this](DeviceRole role) {
        push(u"button_detection_started"_s, {{kDeviceName, remoteCarRoleName(role)}});
    });
    connect(detection, &InputDetection::buttonDetectionResult, this, [this](int buttonIndex, bool success) {
        push(u"button_detection_result"_s, {{kButtonIndex, buttonIndex}, {kSuccess, success}});
    });
    // Announced from the transmit tick: the push waits for the event loop. The controller
    // announces the reverse button's toggles; the shifter's reverse gate is not announced.
    connect(
        controller(), &TavrixController::reverseModeChanged, this,
        [this](bool active) {
            push(u"reverse_mode_changed"_s, {{"active"_L1, active}, {"source"_L1, u"button"_s}});
        },
        Qt::QueuedConnection);
    // The level comes from the 20 ms force tick, only when it moved.
    connect(
        controller(), &TavrixController::ffbLevelReceived, this,
        [this](float level) {
            push(u"event_wheel_ffb_level"_s, {{"level"_L1, double(level)}});
        },
        Qt::QueuedConnection);
    connect(controller(), &TavrixController::receiverFfbStateChanged, this, [this](ReceiverFfbState state) {
        push(u"event_receiver_ffb"_s, {{"state"_L1, int(state)}});
    });
}

// --- axis settings and steering trim ---

QJsonObject WsAxisHandler::storedAxisSettings() const
{
    return controller()->profileManager()->setting(keys::kAxisSettings).toObject();
}

bool WsAxisHandler::saveAxisSettings(const QJsonObject &axisSettings)
{
    if (!controller()->profileManager()->setSetting(keys::kAxisSettings, axisSettings))
        return false;
    controller()->reloadSettings();
    return true;
}

QJsonObject WsAxisHandler::getAxisSettings(const RemoteRequest &request)
{
    QJsonObject data = AxisSettingsJson::toRemote(storedAxisSettings());
    data.insert("reverseModeActive"_L1, controller()->isReverseModeActive());
    return request.answer(data);
}

QJsonObject WsAxisHandler::setAxisSettings(const RemoteRequest &request)
{
    const std::optional<QJsonObject> merged = AxisSettingsJson::merged(storedAxisSettings(), request.data());
    if (!merged)
        return request.failed(kTrimOutOfOrder);
    return request.outcome(saveAxisSettings(*merged), kSaveFailed);
}

std::optional<SteeringEndpoints> WsAxisHandler::requestedTrim(const RemoteRequest &request) const
{
    const SteeringEndpoints current = controller()->steeringTrim().inForce();
    return SteeringEndpoints::checked(channelValue(request, keys::kSteeringLeft, current.left),
                                      channelValue(request, keys::kSteeringCenter, current.center),
                                      channelValue(request, keys::kSteeringRight, current.right));
}

QJsonObject WsAxisHandler::setSteeringTrimLive(const RemoteRequest &request)
{
    const std::optional<SteeringEndpoints> trim = requestedTrim(request);
    if (!trim)
        return request.failed(kTrimOutOfOrder);
    controller()->steeringTrim().applyLive(*trim);
    return request.succeeded({{kData, trimJson(*trim)}});
}

QJsonObject WsAxisHandler::applySteeringTrim(const RemoteRequest &request)
{
    const std::optional<SteeringEndpoints> trim = requestedTrim(request);
    if (!trim)
        return request.failed(kTrimOutOfOrder);
    if (!controller()->steeringTrim().save(*trim))
        return request.failed(kSaveFailed);
    return request.succeeded({{kData, trimJson(*trim)}});
}

QJsonObject WsAxisHandler::revertSteeringTrim(const RemoteRequest &request)
{
    return request.succeeded({{kData, trimJson(controller()->steeringTrim().revert())}});
}

// --- force feedback ---

QJsonObject WsAxisHandler::wheelFfbJson() const
{
    return ForceFeedbackJson::state(*controller()->forceFeedback(),
                                    controller()->telemetry()->receiverFfbState());
}

QJsonObject WsAxisHandler::getWheelFfb(const RemoteRequest &request)
{
    return request.answer(wheelFfbJson());
}

QJsonObject WsAxisHandler::setWheelFfb(const RemoteRequest &request)
{
    WheelForceFeedback &ffb = *controller()->forceFeedback();
    const bool switchOn = request.has("enabled"_L1) && request.flag("enabled"_L1);
    if (switchOn && !ffb.isWheelCapable())
        return request.failed(kNoFfbWheel);
    const ForceFeedbackSettings &now = ffb.settings();
    ffb.setStrength(float(request.number("strength"_L1, now.strength)));
    ffb.setCentering(float(request.number("centering"_L1, now.centering)));
    ffb.setNativeCentering(request.flag("nativeCentering"_L1, now.nativeCentering));
    ffb.setAutoEngage(request.flag("autoEngage"_L1, now.autoEngage));
    if (switchOn && !ffb.enable())
        return request.failed(u"Could not enable FFB — re-check the wheel."_s);
    if (request.has("enabled"_L1) && !switchOn)
        ffb.disable();
    return request.succeeded({{kData, wheelFfbJson()}});
}

QJsonObject WsAxisHandler::checkWheelFfb(const RemoteRequest &request)
{
    return request.succeeded(
        {{kData, ForceFeedbackJson::diagnosis(controller()->forceFeedback()->runCheck())}});
}

QJsonObject WsAxisHandler::testWheelFfb(const RemoteRequest &request)
{
    // The pulse needs a capable wheel and nothing else.
    const float level = float(request.number("level"_L1, 0.0));
    return request.outcome(controller()->forceFeedback()->playTestPulse(level), kNoFfbWheel);
}

// --- ESC mode ---

QJsonObject WsAxisHandler::getEscMode(const RemoteRequest &request)
{
    const QJsonObject stored = storedAxisSettings();
    return request.answer({
        {"mode"_L1, escModeName(escModeFromStored(stored.value(keys::kEscMode).toInt()))},
        {keys::kNeutral, stored.value(keys::kEscNeutral)},
        {keys::kFullForward, stored.value(keys::kEscFullForward)},
        {keys::kFullReverse, stored.value(keys::kEscFullReverse)},
        {"presetId"_L1, stored.value(keys::kEscPresetId)},
    });
}

QJsonObject WsAxisHandler::setEscMode(const RemoteRequest &request)
{
    QJsonObject stored = storedAxisSettings();
    const QString presetId = request.text("presetId"_L1);
    std::optional<EscPreset> preset;
    if (!presetId.isEmpty()) {
        preset = controller()->profileManager()->escPresets()->find(presetId);
        if (!preset)
            return request.failed(u"ESC preset not found: "_s + presetId);
    }
    stored.insert(keys::kEscMode, int(escModeFromName(request.text("mode"_L1))));
    stored.insert(keys::kEscPresetId, presetId);
    const int32_t neutral = preset ? preset->neutral : stored.value(keys::kEscNeutral).toInt();
    const int32_t forward = preset ? preset->fullForward : stored.value(keys::kEscFullForward).toInt();
    const int32_t reverse = preset ? preset->fullReverse : stored.value(keys::kEscFullReverse).toInt();
    stored.insert(keys::kEscNeutral, channelValue(request, keys::kNeutral, neutral));
    stored.insert(keys::kEscFullForward, channelValue(request, keys::kFullForward, forward));
    stored.insert(keys::kEscFullReverse, channelValue(request, keys::kFullReverse, reverse));
    return request.outcome(saveAxisSettings(stored), kSaveFailed);
}

QJsonObject WsAxisHandler::getEscModes(const RemoteRequest &request)
{
    const QJsonArray modes{
        QJsonObject{{"id"_L1, escModeName(EscMode::Standard)},
                    {"label"_L1, u"Traxxas/Tamiya/Arma Standard"_s}},
        QJsonObject{{"id"_L1, escModeName(EscMode::Custom)}, {"label"_L1, u"Custom"_s}},
    };
    return request.answer({{"modes"_L1, modes}});
}

// --- axis mappings ---

QJsonObject WsAxisHandler::axisMapping(const RemoteRequest &request, DeviceRole role)
{
    if (!controller()->devices()->isConnected(role))
        return request.failed(remoteCarRoleEntry(role)->notConnected);
    const AxisPreset &mapping = controller()->devices()->device(role)->preset();
    QJsonObject data = mapping.toJson();
    const QString preset = matchingPresetName(mapping);
    data.insert(kPresetName, preset.isEmpty() ? u"custom"_s : preset);
    return request.answer(data);
}

QJsonObject WsAxisHandler::setAxisMapping(const RemoteRequest &request, DeviceRole role)
{
    if (!controller()->devices()->isConnected(role))
        return request.failed(remoteCarRoleEntry(role)->notConnected);
    // A mapping swapped under a running car could hand the throttle to another axis.
    if (controller()->isRunning())
        return request.failed(u"Stop transmission before changing the axis mapping"_s);
    const QString presetName = request.text(kPresetName);
    AxisPreset mapping;
    if (request.data().value(kMap).isArray())
        mapping = AxisPreset::fromJson(request.data());
    else if (presetNames().contains(presetName))
        mapping = presetByName(presetName);
    else
        return request.failed(u"Missing 'map' or a known 'presetName'"_s);
    InputDevice *device = controller()->devices()->device(role);
    if (!applyAxisMapping(*device, *controller()->profileManager(), role, mapping))
        return request.failed(kSaveFailed);
    controller()->reloadSettings();
    return request.succeeded({{kData, mapping.toJson()}});
}

QJsonObject WsAxisHandler::getWheelBaseAxisMapping(const RemoteRequest &request)
{
    return axisMapping(request, DeviceRole::WheelBase);
}

QJsonObject WsAxisHandler::setWheelBaseAxisMapping(const RemoteRequest &request)
{
    return setAxisMapping(request, DeviceRole::WheelBase);
}

QJsonObject WsAxisHandler::getPedalsAxisMapping(const RemoteRequest &request)
{
    return axisMapping(request, DeviceRole::Pedals);
}

QJsonObject WsAxisHandler::setPedalsAxisMapping(const RemoteRequest &request)
{
    return setAxisMapping(request, DeviceRole::Pedals);
}

QJsonObject WsAxisHandler::getAvailablePresets(const RemoteRequest &request)
{
    return request.answer({{keys::kPresets, QJsonArray::fromStringList(presetNames())}});
}

// --- shifter mapping and detection ---

QJsonObject WsAxisHandler::shifterMappingJson() const
{
    QJsonArray indexes;
    for (int32_t input : controller()->inputDetection()->shifterMapping().buttonIndex)
        indexes.append(input);
    return {{kButtonIndex, indexes}};
}

QJsonObject WsAxisHandler::getShifterMapping(const RemoteRequest &request)
{
    return request.answer(shifterMappingJson());
}

QJsonObject WsAxisHandler::setShifterMapping(const RemoteRequest &request)
{
    if (!request.data().value(kButtonIndex).isArray())
        return request.failed(u"Missing 'buttonIndex' array"_s);
    const QJsonArray indexes = request.array(kButtonIndex);
    ShifterMapping mapping;
    for (int slot = 0; slot < ShifterMapping::kSlots && slot < indexes.size(); ++slot) {
        const int input = indexes.at(slot).toInt(-1);
        mapping.buttonIndex[std::size_t(slot)] =
            input < InputDevice::kUnifiedIndexEnd ? std::max(input, -1) : -1;
    }
    return request.outcome(controller()->inputDetection()->setShifterMapping(mapping), kSaveFailed);
}

QJsonObject WsAxisHandler::startShifterDetection(const RemoteRequest &request)
{
    if (!request.has(kGearIndex))
        return request.failed(u"Missing 'gearIndex' (0=neutral, 1=reverse, 2-8=gears 1-7)"_s);
    const auto gearSlot = unsigned(request.integer(kGearIndex));
    if (gearSlot >= unsigned(ShifterMapping::kSlots))
        return request.failed(u"Invalid gearIndex: must be 0-8"_s);
    controller()->inputDetection()->startShifterDetection(int(gearSlot));
    return request.succeeded();
}

QJsonObject WsAxisHandler::cancelShifterDetection(const RemoteRequest &request)
{
    controller()->inputDetection()->cancelShifterDetection();
    return request.succeeded();
}

QJsonObject WsAxisHandler::startButtonDetection(const RemoteRequest &request)
{
    const QString name = request.text(kDeviceName);
    if (name.isEmpty())
        return request.failed(u"Missing 'deviceName' (e.g. 'wheelbase', 'pedals', 'shifter')"_s);
    const std::optional<DeviceRole> role = remoteCarRole(name);
    if (!role)
        return request.failed(u"Invalid deviceName: must be 'wheelbase', 'pedals', or 'shifter'"_s);
    controller()->inputDetection()->startButtonDetection(*role);
    return request.succeeded();
}

QJsonObject WsAxisHandler::stopButtonDetection(const RemoteRequest &request)
{
    controller()->inputDetection()->stopButtonDetection();
    return request.succeeded();
}

} // namespace tavrix
