#include "wsinputhandler.h"

#include "channeljson.h"
#include "controlsreading.h"
#include "deviceroleset.h"
#include "inputdevice.h"
#include "remotedeviceroles.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

constexpr int kAxisSlots = 8;
constexpr int kMaxButtons = 128;
constexpr int kPovs = 4;

QJsonArray buttonArray(const InputDevice &device)
{
    QJsonArray buttons;
    const int count = int(std::min<quint32>(device.buttonCount(), kMaxButtons));
    for (int i = 0; i < count; ++i)
        buttons.append(device.button(i));
    return buttons;
}

} // namespace

WsInputHandler::WsInputHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in input handler"), parent)
{
    addRequests<WsInputHandler>({
        {"get_input_state", &WsInputHandler::inputState},
        {"get_raw_input_state", &WsInputHandler::rawInputState},
        {"get_button_states", &WsInputHandler::buttonStates},
        {"get_pit_limiter", &WsInputHandler::pitLimiter},
    });
    // Queued: the transmit tick announces moved inputs, and must never wait on the network.
    connect(
        controller, &TavrixController::inputChanged, this,
        [this] { push(QStringLiteral("event_input_changed"), inputStateData()); }, Qt::QueuedConnection);
}

QJsonObject WsInputHandler::inputState(const RemoteRequest &request)
{
    return request.answer(inputStateData());
}

QJsonObject WsInputHandler::rawInputState(const RemoteRequest &request)
{
    QJsonObject refusal;
    const InputDevice *device = namedDevice(request, refusal);
    if (!device)
        return refusal;
    QJsonArray axes;
    for (int slot = 0; slot < kAxisSlots; ++slot)
        axes.append(double(device->axis(slot)));
    QJsonArray povs;
    for (int hat = 0; hat < kPovs; ++hat)
        povs.append(device->pov(hat));
    return request.answer({
        {QStringLiteral("axes"), axes},
        {QStringLiteral("buttons"), buttonArray(*device)},
        {QStringLiteral("povs"), povs},
    });
}

QJsonObject WsInputHandler::buttonStates(const RemoteRequest &request)
{
    QJsonObject refusal;
    const InputDevice *device = namedDevice(request, refusal);
    if (!device)
        return refusal;
    return request.answer({{QStringLiteral("buttons"), buttonArray(*device)}});
}

QJsonObject WsInputHandler::pitLimiter(const RemoteRequest &request)
{
    const ProfileSettings &settings = controller()->settings();
    return request.answer({
        {QStringLiteral("active"),
         ControlsReading::read(*controller()->devices(), settings).pitLimiterActive},
        {QStringLiteral("enabledInSettings"), settings.drive.pitLimiterEnabled},
        {QStringLiteral("limitValue"), int(settings.drive.pitLimiterValue)},
    });
}

QJsonObject WsInputHandler::inputStateData() const
{
    const ControlsReading reading = ControlsReading::read(*controller()->devices(), controller()->settings());
    return {
        {QStringLiteral("steering"), double(controller()->steering())},
        {QStringLiteral("throttle"), double(controller()->throttle())},
        {QStringLiteral("brake"), double(controller()->brake())},
        {QStringLiteral("clutch"), double(reading.clutch)},
        {QStringLiteral("gear"), int(reading.drive.gear)},
        {QStringLiteral("pitLimiterActive"), reading.pitLimiterActive},
        {QStringLiteral("channels"), channelArray(controller()->sentChannels())},
    };
}

const InputDevice *WsInputHandler::namedDevice(const RemoteRequest &request, QJsonObject &refusal) const
{
    const QString name = request.text(QLatin1String("device"));
    const std::optional<DeviceRole> role = remoteCarRole(name);
    if (!role) {
        refusal = request.error(
            QStringLiteral("Invalid 'device' parameter. Must be 'wheelbase', 'pedals', or 'shifter'."));
        return nullptr;
    }
    if (!controller()->devices()->isConnected(*role)) {
        refusal = request.error(name + QStringLiteral(" is not connected"));
        return nullptr;
    }
    return controller()->devices()->device(*role);
}

} // namespace tavrix
