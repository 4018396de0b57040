#include "wsfirmwarehandler.h"

#include "firmwareupdateservice.h"
#include "receiverconfigmanager.h"
#include "receiverport.h"
#include "tavrixcontroller.h"
#include "updateaddress.h"

namespace tavrix {

WsFirmwareHandler::WsFirmwareHandler(TavrixController *controller, FirmwareUpdateService *updates,
                                     QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in firmware handler"), parent)
    , m_updates(updates)
{
    addRequests<WsFirmwareHandler>({
        {"action_check_firmware", &WsFirmwareHandler::checkFirmware},
        {"action_update_firmware", &WsFirmwareHandler::updateFirmware},
        {"get_firmware_status", &WsFirmwareHandler::status},
        {"get_app_version", &WsFirmwareHandler::appVersion},
    });
    const auto publish = [this] {
        QJsonObject progress = statusObject();
        progress.insert(QStringLiteral("message"), m_updates->message());
        progress.insert(QStringLiteral("progress"), m_updates->progress());
        push(QStringLiteral("event_firmware_progress"), progress);
    };
    connect(m_updates, &FirmwareUpdateService::stateChanged, this, publish);
    connect(m_updates, &FirmwareUpdateService::progressChanged, this, publish);
}

WsFirmwareHandler::Target WsFirmwareHandler::target(const RemoteRequest &request) const
{
    const std::optional<FirmwareDevice> device =
        firmwareDeviceFromName(request.text(QLatin1String("device")));
    if (!device)
        return {std::nullopt, QStringLiteral("Missing 'device' parameter (receiver|transmitter|soc)")};
    if (!isConnected(*device))
        return {std::nullopt, QStringLiteral("Device not connected: %1").arg(firmwareDeviceName(*device))};
    if (m_updates->isBusy())
        return {std::nullopt, QStringLiteral("Firmware operation already in progress")};
    return {device, {}};
}

bool WsFirmwareHandler::isConnected(FirmwareDevice device) const
{
    if (device == FirmwareDevice::Receiver)
        return controller()->receiverPort()->isConnected();
    return controller()->isSerialConnected();
}

QString WsFirmwareHandler::runningVersion(FirmwareDevice device) const
{
    // Only the receiver says what it runs; the bridge and the SoC answer no version question.
    return device == FirmwareDevice::Receiver ? controller()->receiverConfig()->caps().firmware : QString();
}

QJsonObject WsFirmwareHandler::checkFirmware(const RemoteRequest &request)
{
    const Target target = this->target(request);
    if (!target.device)
        return request.failed(target.refusal);
    if (!m_updates->check(*target.device, runningVersion(*target.device)))
        return request.failed(m_updates->message());
    return request.succeeded();
}

QJsonObject WsFirmwareHandler::updateFirmware(const RemoteRequest &request)
{
    const Target target = this->target(request);
    if (!target.device)
        return request.failed(target.refusal);
    // The bridge leaves its port for its boot drive and the receiver's port goes to the
    // flasher: a car must not be driven through either meanwhile.
    if (controller()->isRunning())
        return request.failed(QStringLiteral("Stop transmission before updating firmware"));
    const FirmwareDevice device = *target.device;
    const QString version = runningVersion(device);
    QString receiverPort;
    if (device == FirmwareDevice::Receiver) {
        receiverPort = controller()->receiverPort()->portName();
        controller()->receiverPort()->disconnectReceiver();
    }
    if (!m_updates->update(device, version, receiverPort))
        return request.failed(m_updates->message());
    return request.succeeded();
}

QJsonObject WsFirmwareHandler::statusObject() const
{
    const std::optional<FirmwareDevice> device = m_updates->device();
    return {
        {QStringLiteral("state"), FirmwareUpdateService::stateName(m_updates->state())},
        {QStringLiteral("device"), device ? firmwareDeviceName(*device) : QString()},
        {QStringLiteral("currentVersion"), m_updates->currentVersion()},
        {QStringLiteral("remoteVersion"), m_updates->remoteVersion()},
    };
}

QJsonObject WsFirmwareHandler::status(const RemoteRequest &request)
{
    return request.answer(statusObject());
}

QJsonObject WsFirmwareHandler::appVersion(const RemoteRequest &request)
{
    const QString version = hubVersion();
    const QStringList parts = version.split(QLatin1Char('.'));
    const auto part = [&parts](qsizetype i) { return i < parts.size() ? parts.at(i).toInt() : 0; };
    return request.answer({
        {QStringLiteral("version"), version},
        {QStringLiteral("versionMajor"), part(0)},
        {QStringLiteral("versionMinor"), part(1)},
        {QStringLiteral("versionPatch"), part(2)},
    });
}

} // namespace tavrix
