#include "wshelicopterhandler.h"

#include "controllerrefusal.h"
#include "deviceguid.h"
#include "heliaxisreading.h"
#include "helicopterconfigjson.h"
#include "inputdevice.h"
#include "profilekeys.h"
#include "profilesettings.h"
#include "tavrixcontroller.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace tavrix {

namespace {

namespace keys = profilekeys;
using namespace Qt::StringLiterals;

const auto kRole = "role"_L1;
const auto kIndex = "index"_L1;
const auto kData = "data"_L1;
const auto kArmed = "armed"_L1;
const auto kMode = "mode"_L1;
const auto kFunction = "function"_L1;
const auto kPoint = "point"_L1;

// The helicopter's roles as the app names them, with the signal that reports each one's device.
struct NamedRole
{
    QLatin1String name;
    DeviceRole role;
    void (TavrixController::*connectedChanged)(bool);
};
const std::array<NamedRole, 3> kRoles{{
    {keys::kJoystick, DeviceRole::HeliJoystick, &TavrixController::heliJoystickConnectedChanged},
    {keys::kThrottle, DeviceRole::HeliThrottle, &TavrixController::heliThrottleConnectedChanged},
    {keys::kPedals, DeviceRole::HeliPedals, &TavrixController::heliPedalsConnectedChanged},
}};

const NamedRole *namedRole(const QString &name)
{
    const auto found =
        std::find_if(kRoles.begin(), kRoles.end(), [&](const NamedRole &r) { return r.name == name; });
    return found != kRoles.end() ? &*found : nullptr;
}

// A flight function: where the settings put its channel, and how its value is read.
struct FlightFunction
{
    QLatin1String name;
    int32_t HelicopterSettings::Channels::*channel;
    bool bipolar; // the collective is one-sided
    HeliFunction function;
};
const std::array<FlightFunction, 4> kFunctions{{
    {keys::kRoll, &HelicopterSettings::Channels::roll, true, HeliFunction::Roll},
    {keys::kPitch, &HelicopterSettings::Channels::pitch, true, HeliFunction::Pitch},
    {keys::kThrottle, &HelicopterSettings::Channels::throttle, false, HeliFunction::Collective},
    {keys::kRudder, &HelicopterSettings::Channels::rudder, true, HeliFunction::Rudder},
}};
const std::array<QLatin1String, 3> kPoints{keys::kMin, keys::kCenter, keys::kMax};

// The channel value as the flight controller sees it: microseconds, and percent of
// travel (-100..100 around the centre, or 0..100 for the collective).
QJsonObject channelOutput(int32_t channel, const ChannelValues &channels, bool bipolar)
{
    const bool sent = channel >= 0 && channel < int32_t(channels.size());
    const int32_t value = sent ? channels[std::size_t(channel)] : 0;
    const double percent =
        bipolar ? (value - crsf::kServoCenter) / 819.5 * 100.0 : (value - crsf::kServoMin) / 1639.0 * 100.0;
    return {
        {keys::kChannel, channel},
        {"value"_L1, value},
        {"micros"_L1, sent ? int(std::lround(value * 5.0 / 8.0 + 880.0)) : 0},
        {"percent"_L1, sent ? int(std::lround(percent)) : 0},
    };
}

const QString kSaveFailed = u"Failed to save the profile"_s;

} // namespace

WsHelicopterHandler::WsHelicopterHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, u"Unhandled event in helicopter handler"_s, parent)
{
    addRequests<WsHelicopterHandler>({
        {"get_vehicle_type", &WsHelicopterHandler::getVehicleType},
        {"action_select_helicopter", &WsHelicopterHandler::selectHelicopter},
        {"action_select_car", &WsHelicopterHandler::selectCar},
        {"get_helicopter_devices", &WsHelicopterHandler::getDevices},
        {"action_connect_helicopter_device", &WsHelicopterHandler::connectDevice},
        {"action_disconnect_helicopter_device", &WsHelicopterHandler::disconnectDevice},
        {"get_helicopter_config", &WsHelicopterHandler::getConfig},
        {"set_helicopter_config", &WsHelicopterHandler::setConfig},
        {"action_capture_helicopter_calibration", &WsHelicopterHandler::captureCalibration},
        {"get_helicopter_output", &WsHelicopterHandler::getOutput},
        {"action_set_rate_mode", &WsHelicopterHandler::setRateMode},
        {"get_heli_armed", &WsHelicopterHandler::getArmed},
        {"action_set_heli_armed", &WsHelicopterHandler::setArmed},
        {"action_save_helicopter_profile", &WsHelicopterHandler::saveHelicopterProfile},
    });
    connectPushes();
}

void WsHelicopterHandler::connectPushes()
{
    // Stopping (and with it disarming) and losing a device can happen inside the transmit
    // tick: every push waits for the event loop.
    connect(
        controller(), &TavrixController::heliArmedChanged, this,
        [this](bool armed) {
            push(u"event_heli_armed"_s, {{kArmed, armed}});
        },
        Qt::QueuedConnection);
    connect(
        controller(), &TavrixController::heliRateModeChanged, this,
        [this](int mode) {
            push(u"event_heli_rate_mode"_s, {{kMode, mode}});
        },
        Qt::QueuedConnection);
    for (const NamedRole &role : kRoles) {
        const QLatin1String name = role.name;
        connect(
            controller(), role.connectedChanged, this,
            [this, name](bool connected) {
                push(u"event_helicopter_device_changed"_s, {{kRole, name}, {"connected"_L1, connected}});
            },
            Qt::QueuedConnection);
    }
}

// --- vehicle ---

QJsonObject WsHelicopterHandler::getVehicleType(const RemoteRequest &request)
{
    return request.answer({{keys::kVehicleType, controller()->profileManager()->vehicleType()}});
}

QJsonObject WsHelicopterHandler::selectVehicle(const RemoteRequest &request, QLatin1String vehicleType)
{
    // The controller follows the new vehicle once it is not transmitting.
    const bool ok = controller()->profileManager()->setVehicleType(vehicleType);
    return request.outcome(ok, kSaveFailed);
}

QJsonObject WsHelicopterHandler::selectHelicopter(const RemoteRequest &request)
{
    return selectVehicle(request, vehicletype::kHelicopter);
}

QJsonObject WsHelicopterHandler::selectCar(const RemoteRequest &request)
{
    return selectVehicle(request, vehicletype::kCar);
}

// --- devices ---

QJsonObject WsHelicopterHandler::getDevices(const RemoteRequest &request)
{
    const QList<InputDeviceInfo> available = controller()->devices()->availableDevices();
    QJsonArray devices;
    for (int i = 0; i < available.size(); ++i) {
        const InputDeviceInfo &info = available.at(i);
        devices.append(QJsonObject{{kIndex, i},
                                   {keys::kName, info.instanceName},
                                   {keys::kProductName, info.productName},
                                   {"numAxes"_L1, int(info.axisCount)}});
    }
    QJsonObject assigned;
    for (const NamedRole &role : kRoles) {
        const InputDevice *device = controller()->devices()->device(role.role);
        const auto open = std::find_if(available.begin(), available.end(), [&](const InputDeviceInfo &info) {
            return device->isOpen() && guidToString(info.instanceGuid) == device->instanceGuidString();
        });
        assigned.insert(role.name, open != available.end() ? int(open - available.begin()) : -1);
    }
    return request.answer({{"devices"_L1, devices}, {"assigned"_L1, assigned}});
}

QJsonObject WsHelicopterHandler::connectDevice(const RemoteRequest &request)
{
    const QString roleName = request.text(kRole);
    const NamedRole *role = namedRole(roleName);
    if (!role)
        return request.failed(u"Unknown role: "_s + roleName);
    const auto index = unsigned(request.integer(kIndex));
    if (index >= unsigned(controller()->devices()->availableDevices().size()))
        return request.failed(u"Missing or invalid 'index'"_s);
    // The controller refuses while transmitting, as it does for the window.
    return request.outcome(controller()->connectDevice(role->role, int(index)),
                           u"Failed to connect "_s + roleName);
}

QJsonObject WsHelicopterHandler::disconnectDevice(const RemoteRequest &request)
{
    const QString roleName = request.text(kRole);
    const NamedRole *role = namedRole(roleName);
    if (!role)
        return request.failed(u"Unknown role: "_s + roleName);
    const QString refusal = refusalOf(controller(), [&] { controller()->disconnectDevice(role->role); });
    return request.outcome(refusal.isEmpty(), refusal);
}

// --- settings ---

QJsonObject WsHelicopterHandler::storedConfig() const
{
    return controller()->profileManager()->setting(keys::kHelicopterConfig).toObject();
}

bool WsHelicopterHandler::saveConfig(const QJsonObject &config)
{
    if (!controller()->profileManager()->setSetting(keys::kHelicopterConfig, config))
        return false;
    controller()->reloadSettings();
    return true;
}

QJsonObject WsHelicopterHandler::getConfig(const RemoteRequest &request)
{
    return request.answer(storedConfig());
}

QJsonObject WsHelicopterHandler::setConfig(const RemoteRequest &request)
{
    const HelicopterConfigJson::Edit edit =
        HelicopterConfigJson::edited(storedConfig(), request.data(), controller()->isHeliArmed());
    if (!edit.config)
        return request.failed(edit.refusal);
    return request.outcome(saveConfig(*edit.config), kSaveFailed);
}

QJsonObject WsHelicopterHandler::captureCalibration(const RemoteRequest &request)
{
    const QString function = request.text(kFunction);
    const auto named = std::find_if(kFunctions.begin(), kFunctions.end(),
                                    [&](const FlightFunction &f) { return f.name == function; });
    if (named == kFunctions.end())
        return request.failed(u"Unknown function"_s);
    const QString point = request.text(kPoint);
    if (std::find(kPoints.begin(), kPoints.end(), point) == kPoints.end())
        return request.failed(u"Unknown point: "_s + point);
    // A new calibration point moves the output the moment it is stored.
    if (controller()->isHeliArmed())
        return request.failed(HelicopterSettings::disarmFirstText());
    const QJsonObject stored = storedConfig();
    const std::optional<float> raw =
        heliRawAxis(*controller()->devices(), helicopterSettingsFromJson(stored), named->function);
    if (!raw)
        return request.failed(u"No axis to read for "_s + function);

    QJsonObject calibration = stored.value(keys::kCalibration).toObject();
    QJsonObject points = calibration.value(function).toObject();
    points.insert(point, double(*raw));
    calibration.insert(function, points);
    QJsonObject config = stored;
    config.insert(keys::kCalibration, calibration);
    if (!saveConfig(config))
        return request.failed(kSaveFailed);
    return request.succeeded(
        {{kData, QJsonObject{{kFunction, function}, {kPoint, point}, {"value"_L1, double(*raw)}}}});
}

// --- flight ---

QJsonObject WsHelicopterHandler::getOutput(const RemoteRequest &request)
{
    const HelicopterSettings settings = helicopterSettingsFromJson(storedConfig());
    QJsonObject data{{"rateMode"_L1, controller()->heliRateMode()}};
    for (const FlightFunction &function : kFunctions)
        data.insert(function.name, channelOutput(settings.channels.*function.channel,
                                                 controller()->channels(), function.bipolar));
    return request.answer(data);
}

QJsonObject WsHelicopterHandler::setRateMode(const RemoteRequest &request)
{
    constexpr unsigned kRateModes = HelicopterSettings::kLastRateMode + 1; // beginner, sport, 3D
    const auto mode = unsigned(request.integer(kMode));
    if (mode >= kRateModes)
        return request.failed(u"Invalid 'mode': must be 0, 1 or 2"_s);
    controller()->setHeliRateMode(int(mode));
    return request.succeeded({{kMode, int(mode)}});
}

QJsonObject WsHelicopterHandler::getArmed(const RemoteRequest &request)
{
    return request.answer({{kArmed, controller()->isHeliArmed()}});
}

QJsonObject WsHelicopterHandler::setArmed(const RemoteRequest &request)
{
    // A request without the flag disarms: the safe reading of an unclear request.
    const bool armed = request.flag(kArmed, false);
    const QString refusal = refusalOf(controller(), [&] { controller()->setHeliArmed(armed); });
    if (!refusal.isEmpty())
        return request.failed(refusal);
    return request.succeeded({{kArmed, controller()->isHeliArmed()}});
}

QJsonObject WsHelicopterHandler::saveHelicopterProfile(const RemoteRequest &request)
{
    QString name = request.text(keys::kName);
    if (name.isEmpty())
        name = u"RC Helicopter"_s;
    ProfileManager *profiles = controller()->profileManager();
    // A copy of the active profile keeps the helicopter settings and devices in use.
    const QString id = profiles->duplicateProfile(profiles->activeProfileId(), profiles->uniqueName(name));
    const bool ok =
        !id.isEmpty() && profiles->setActiveProfile(id) && profiles->setVehicleType(vehicletype::kHelicopter);
    if (!ok)
        return request.failed(u"Failed to save helicopter profile"_s);
    return request.succeeded({{"profileId"_L1, id}});
}

} // namespace tavrix
