#include "wsdevicehandler.h"

#include "autoconnect.h"
#include "controllerrefusal.h"
#include "deviceroleset.h"
#include "inputdevice.h"
#include "receiverport.h"
#include "remotedeviceroles.h"
#include "tavrixcontroller.h"

#include <QJsonArray>

namespace tavrix {

namespace {

// The requests of one car role, in the order the handler lists them: every status, then
// every connect, then every disconnect.
struct RoleRequests
{
    DeviceRole role;
    const char *status;
    const char *connect;
    const char *disconnect;
};

constexpr std::array<RoleRequests, 3> kRoleRequests{{
    {DeviceRole::WheelBase, "get_wheelbase_status", "action_connect_wheelbase",
     "action_disconnect_wheelbase"},
    {DeviceRole::Pedals, "get_pedals_status", "action_connect_pedals", "action_disconnect_pedals"},
    {DeviceRole::Shifter, "get_shifter_status", "action_connect_shifter", "action_disconnect_shifter"},
}};

const QLatin1String kTransmitter("transmitter");
const QString kTransmitterName = QStringLiteral("Orvane Transmitter");
const QLatin1String kReceiver("receiver");
const QString kReceiverName = QStringLiteral("Orvane Receiver");

// This build drives the transmitter over USB serial only. The board-mounted mode, with
// the transmitter on a GPIO UART, does not exist yet: until it does, every answer says "pc"
// and no port is a GPIO UART, and "isGpioUart" in a connect request changes nothing.
constexpr bool kGpioMode = false;

} // namespace

WsDeviceHandler::WsDeviceHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in device handler"), parent)
{
    addRequests<WsDeviceHandler>({
        {"get_serial_ports", &WsDeviceHandler::serialPorts},
        {"get_transmitter_status", &WsDeviceHandler::transmitterStatus},
        {"action_connect_transmitter", &WsDeviceHandler::connectTransmitter},
        {"action_disconnect_transmitter", &WsDeviceHandler::disconnectTransmitter},
        {"get_receiver_status", &WsDeviceHandler::receiverStatus},
        {"action_connect_receiver", &WsDeviceHandler::connectReceiver},
        {"action_disconnect_receiver", &WsDeviceHandler::disconnectReceiver},
        {"get_input_devices", &WsDeviceHandler::inputDevices},
    });
    using RoleFunction = QJsonObject (WsDeviceHandler::*)(const RemoteRequest &, DeviceRole);
    const auto addForEveryRole = [this](const char *RoleRequests::*event, RoleFunction function) {
        for (const RoleRequests &row : kRoleRequests) {
            addRequest(QLatin1String(row.*event), [this, function, role = row.role](const RemoteRequest &r) {
                return (this->*function)(r, role);
            });
        }
    };
    addForEveryRole(&RoleRequests::status, &WsDeviceHandler::deviceStatus);
    addForEveryRole(&RoleRequests::connect, &WsDeviceHandler::connectDevice);
    addForEveryRole(&RoleRequests::disconnect, &WsDeviceHandler::disconnectDevice);
    addRequests<WsDeviceHandler>({
        {"action_auto_connect", &WsDeviceHandler::autoConnect},
        {"get_app_mode", &WsDeviceHandler::appMode},
    });

    // Queued: a device found gone by the transmit tick must not be announced from inside it.
    connect(
        controller, &TavrixController::serialConnectedChanged, this,
        [this](bool connected) {
            if (!connected)
                pushDisconnected(kTransmitter);
        },
        Qt::QueuedConnection);
    connect(
        controller, &TavrixController::receiverConnectedChanged, this,
        [this](bool connected) {
            if (!connected)
                pushDisconnected(kReceiver);
        },
        Qt::QueuedConnection);
    connect(
        controller->devices(), &DeviceRoleSet::connectedChanged, this,
        [this](DeviceRole role, bool connected) {
            const QLatin1String name = remoteCarRoleName(role);
            if (!connected && !name.isEmpty())
                pushDisconnected(name);
        },
        Qt::QueuedConnection);
}

QJsonObject WsDeviceHandler::serialPorts(const RemoteRequest &request)
{
    QJsonArray ports;
    for (const SerialPortDescription &port : controller()->portDirectory().ports()) {
        ports.append(QJsonObject{
            {QStringLiteral("name"), port.portName},
            {QStringLiteral("description"), port.description},
            {QStringLiteral("manufacturer"), port.manufacturer},
            {QStringLiteral("vendorId"), port.vendorId},
            {QStringLiteral("productId"), port.productId},
            {QStringLiteral("isGpioUart"), false},
        });
    }
    return request.answer({{QStringLiteral("ports"), ports}, {QStringLiteral("isLinuxGpioMode"), kGpioMode}});
}

QJsonObject WsDeviceHandler::transmitterStatus(const RemoteRequest &request)
{
    return request.answer({
        {QStringLiteral("connected"), controller()->isSerialConnected()},
        {QStringLiteral("portName"), controller()->serialPortName()},
        {QStringLiteral("deviceName"), kTransmitterName},
        {QStringLiteral("isGpioUart"), false},
        {QStringLiteral("isLinuxGpioMode"), kGpioMode},
    });
}

QJsonObject WsDeviceHandler::connectTransmitter(const RemoteRequest &request)
{
    const QString port = request.text(QLatin1String("port"));
    if (port.isEmpty())
        return request.failed(QStringLiteral("Missing 'port' parameter"));
    // An absent or nonsensical rate falls back to the bridge's own.
    const int baudRate = request.integer(QLatin1String("baudRate"));
    const bool connected =
        controller()->connectTransmitter(port, baudRate > 0 ? baudRate : TransmitterLink::kDefaultBaudRate);
    return request.outcome(connected, QStringLiteral("Failed to connect to ") + port);
}

QJsonObject WsDeviceHandler::disconnectTransmitter(const RemoteRequest &request)
{
    controller()->disconnectTransmitter();
    return request.succeeded();
}

QJsonObject WsDeviceHandler::receiverStatus(const RemoteRequest &request)
{
    const ReceiverPort *receiver = controller()->receiverPort();
    return request.answer({
        {QStringLiteral("connected"), receiver->isConnected()},
        {QStringLiteral("portName"), receiver->portName()},
        {QStringLiteral("deviceName"), kReceiverName},
    });
}

QJsonObject WsDeviceHandler::connectReceiver(const RemoteRequest &request)
{
    const QString port = request.text(QLatin1String("port"));
    if (port.isEmpty())
        return request.failed(QStringLiteral("Missing 'port' parameter"));
    const int baudRate = request.integer(QLatin1String("baudRate"));
    const bool connected = controller()->receiverPort()->connectReceiver(
        port, baudRate > 0 ? baudRate : ReceiverPort::kDefaultBaudRate);
    return request.outcome(connected, QStringLiteral("Failed to connect receiver to ") + port);
}

QJsonObject WsDeviceHandler::disconnectReceiver(const RemoteRequest &request)
{
    controller()->receiverPort()->disconnectReceiver();
    return request.succeeded();
}

QJsonObject WsDeviceHandler::inputDevices(const RemoteRequest &request)
{
    QJsonArray devices;
    const QList<InputDeviceInfo> available = controller()->devices()->availableDevices();
    for (qsizetype i = 0; i < available.size(); ++i) {
        const InputDeviceInfo &device = available.at(i);
        devices.append(QJsonObject{
            {QStringLiteral("index"), int(i)},
            {QStringLiteral("name"), device.instanceName},
            {QStringLiteral("productName"), device.productName},
            {QStringLiteral("numAxes"), int(device.axisCount)},
            {QStringLiteral("numButtons"), int(device.buttonCount)},
            {QStringLiteral("numPovs"), int(device.povCount)},
            {QStringLiteral("supportsFfb"), device.hasForceFeedback},
        });
    }
    return request.answer({{QStringLiteral("devices"), devices}});
}

QJsonObject WsDeviceHandler::deviceStatus(const RemoteRequest &request, DeviceRole role)
{
    return request.answer({
        {QStringLiteral("connected"), controller()->devices()->isConnected(role)},
        {QStringLiteral("deviceName"), controller()->devices()->device(role)->deviceName()},
    });
}

QJsonObject WsDeviceHandler::connectDevice(const RemoteRequest &request, DeviceRole role)
{
    const int index = request.integer(QLatin1String("deviceIndex"));
    if (index < 0)
        return request.failed(QStringLiteral("Missing or invalid 'deviceIndex' parameter"));
    const bool connected = controller()->connectDevice(role, index);
    return request.outcome(connected, QStringLiteral("Failed to connect %1 at index %2")
                                          .arg(remoteCarRoleName(role), QString::number(index)));
}

QJsonObject WsDeviceHandler::disconnectDevice(const RemoteRequest &request, DeviceRole role)
{
    // Refused while transmitting; the app is told why.
    const QString refusal = refusalOf(controller(), [&] { controller()->disconnectDevice(role); });
    return request.outcome(!controller()->devices()->device(role)->isOpen(), refusal);
}

QJsonObject WsDeviceHandler::autoConnect(const RemoteRequest &request)
{
    autoconnect::run(*controller());
    QJsonObject connected{{kTransmitter, controller()->isSerialConnected()}};
    for (const RemoteDeviceRole &entry : kRemoteCarRoles)
        connected.insert(entry.name, controller()->devices()->isConnected(entry.role));
    return request.succeeded({{QStringLiteral("data"), connected}});
}

QJsonObject WsDeviceHandler::appMode(const RemoteRequest &request)
{
    return request.answer({{QStringLiteral("mode"), QStringLiteral("pc")}});
}

void WsDeviceHandler::pushDisconnected(QLatin1String device)
{
    push(QStringLiteral("event_device_disconnected"), {{QStringLiteral("device"), device}});
}

} // namespace tavrix
