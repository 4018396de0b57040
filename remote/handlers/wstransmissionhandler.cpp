#include "wstransmissionhandler.h"

#include "channeljson.h"
#include "controllerrefusal.h"
#include "crsfchannels.h"
#include "elrsparametermanager.h"
#include "elrsremotestate.h"
#include "tavrixcontroller.h"

namespace tavrix {

WsTransmissionHandler::WsTransmissionHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in transmission handler"), parent)
    , m_elrs(new ElrsRemoteState(controller, this))
{
    addRequests<WsTransmissionHandler>({
        {"get_transmission_status", &WsTransmissionHandler::transmissionStatus},
        {"action_start", &WsTransmissionHandler::start},
        {"action_stop", &WsTransmissionHandler::stop},
        {"get_channels", &WsTransmissionHandler::channels},
        {"set_channel", &WsTransmissionHandler::setChannel},
        {"get_frame_count", &WsTransmissionHandler::frameCount},
        {"set_auto_start", &WsTransmissionHandler::setAutoStart},
        {"get_auto_start", &WsTransmissionHandler::autoStart},
        {"action_elrs_start_config", &WsTransmissionHandler::elrsStartConfig},
        {"action_elrs_stop_config", &WsTransmissionHandler::elrsStopConfig},
        {"get_elrs_state", &WsTransmissionHandler::elrsState},
        {"get_elrs_params", &WsTransmissionHandler::elrsParams},
        {"set_elrs_param", &WsTransmissionHandler::setElrsParam},
    });

    // Queued: both can fire from the transmit tick, which must never wait on the network.
    connect(
        controller, &TavrixController::runningChanged, this,
        [this](bool running) {
            push(QStringLiteral("event_running_changed"), {{QStringLiteral("running"), running}});
        },
        Qt::QueuedConnection);
    connect(
        controller, &TavrixController::frameSent, this,
        [this](quint32 frameNumber) {
            push(QStringLiteral("event_frame_sent"), {{QStringLiteral("frameNumber"), qint64(frameNumber)}});
        },
        Qt::QueuedConnection);
    connect(controller, &TavrixController::autoStartEnabledChanged, this,
            [this] { push(QStringLiteral("event_auto_start_changed"), autoStartData()); });
    connect(m_elrs, &ElrsRemoteState::stateChanged, this,
            [this](const QJsonObject &state) { push(QStringLiteral("event_elrs_state"), state); });
    connect(m_elrs, &ElrsRemoteState::paramsChanged, this, [this](const QJsonArray &params) {
        push(QStringLiteral("event_elrs_params"), {{QStringLiteral("params"), params}});
    });
    connect(m_elrs, &ElrsRemoteState::paramUpdated, this,
            [this](const QJsonObject &update) { push(QStringLiteral("event_elrs_param_updated"), update); });
}

QJsonObject WsTransmissionHandler::transmissionStatus(const RemoteRequest &request)
{
    return request.answer({
        {QStringLiteral("running"), controller()->isRunning()},
        {QStringLiteral("frameCount"), qint64(controller()->frameCount())},
        {QStringLiteral("readyToTransmit"), controller()->isReadyToTransmit()},
        {QStringLiteral("autoStartEnabled"), controller()->autoStartEnabled()},
    });
}

QJsonObject WsTransmissionHandler::start(const RemoteRequest &request)
{
    if (controller()->isRunning())
        return request.failed(QStringLiteral("Already running"));
    if (!controller()->isReadyToTransmit()) {
        return request.failed(
            controller()->isHelicopter()
                ? QStringLiteral("Not ready to transmit. Ensure serial port and joystick are connected.")
                : QStringLiteral("Not ready to transmit. Ensure serial port and wheel base are connected."));
    }
    // The controller's own start, with every check a start from the window passes.
    bool started = false;
    const QString refusal = refusalOf(controller(), [&] { started = controller()->startTransmission(); });
    return request.outcome(started, refusal);
}

QJsonObject WsTransmissionHandler::stop(const RemoteRequest &request)
{
    controller()->stopTransmission();
    return request.succeeded();
}

QJsonObject WsTransmissionHandler::channels(const RemoteRequest &request)
{
    return request.answer({{QStringLiteral("channels"), channelArray(controller()->sentChannels())}});
}

QJsonObject WsTransmissionHandler::setChannel(const RemoteRequest &request)
{
    const int index = request.integer(QLatin1String("index"));
    if (uint(index) >= uint(crsf::kChannelCount))
        return request.failed(
            QStringLiteral("Invalid channel index. Must be 0-%1.").arg(crsf::kChannelCount - 1));
    const int value = request.integer(QLatin1String("value"));
    if (value < crsf::kChannelMin || value > crsf::kChannelMax) {
        return request.failed(QStringLiteral("Invalid channel value. Must be %1-%2.")
                                  .arg(crsf::kChannelMin)
                                  .arg(crsf::kChannelMax));
    }
    // Overrides last for the run in progress only (see ChannelOverrides).
    return request.outcome(controller()->setChannelOverride(index, value),
                           QStringLiteral("Transmission is not running"));
}

QJsonObject WsTransmissionHandler::frameCount(const RemoteRequest &request)
{
    return request.answer({{QStringLiteral("frameCount"), qint64(controller()->frameCount())}});
}

QJsonObject WsTransmissionHandler::setAutoStart(const RemoteRequest &request)
{
    const bool enabled = request.flag(QLatin1String("enabled"));
    const QString refusal = refusalOf(controller(), [&] { controller()->setAutoStartEnabled(enabled); });
    if (controller()->autoStartEnabled() != enabled)
        return request.failed(refusal.isEmpty() ? QStringLiteral("Could not save the auto-start setting")
                                                : refusal);
    return request.succeeded({{QStringLiteral("data"), autoStartData()}});
}

QJsonObject WsTransmissionHandler::autoStart(const RemoteRequest &request)
{
    return request.answer(autoStartData());
}

QJsonObject WsTransmissionHandler::elrsStartConfig(const RemoteRequest &request)
{
    return request.outcome(
        m_elrs->startConfig(),
        QStringLiteral("Could not enter config mode. Stop transmission and ensure the bridge is connected."));
}

QJsonObject WsTransmissionHandler::elrsStopConfig(const RemoteRequest &request)
{
    controller()->exitConfigMode();
    return request.succeeded();
}

QJsonObject WsTransmissionHandler::elrsState(const RemoteRequest &request)
{
    return request.answer(m_elrs->state());
}

QJsonObject WsTransmissionHandler::elrsParams(const RemoteRequest &request)
{
    return request.answer({{QStringLiteral("params"), m_elrs->params()}});
}

QJsonObject WsTransmissionHandler::setElrsParam(const RemoteRequest &request)
{
    if (!controller()->isConfigMode())
        return request.failed(QStringLiteral("Not in config mode."));
    ElrsParameterManager *parameters = m_elrs->parameters();
    if (!parameters)
        return request.failed(QStringLiteral("ELRS parameter manager unavailable."));
    const int valueIndex = request.integer(QLatin1String("valueIndex"));
    if (valueIndex < 0)
        return request.failed(QStringLiteral("Missing or invalid valueIndex."));
    // A name wins over an id when both are given.
    const QString name = request.text(QLatin1String("name"));
    bool written = false;
    if (!name.isEmpty())
        written = parameters->setParameterByIndex(name, valueIndex);
    else if (request.has(QLatin1String("id")))
        written = parameters->writeParamRaw(request.integer(QLatin1String("id")), valueIndex);
    else
        return request.failed(QStringLiteral("Missing param id/name."));
    return request.outcome(
        written, QStringLiteral("Write rejected (unknown param, value out of range, or not ready)."));
}

QJsonObject WsTransmissionHandler::autoStartData() const
{
    return {{QStringLiteral("enabled"), controller()->autoStartEnabled()}};
}

} // namespace tavrix
