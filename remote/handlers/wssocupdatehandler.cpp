#include "wssocupdatehandler.h"

#include "firmwareupdateservice.h"
#include "versioncompare.h"

namespace tavrix {

namespace {

using State = FirmwareUpdateService::State;

QJsonObject withMessage(QJsonObject reply, const QString &message)
{
    reply.insert(QStringLiteral("message"), message);
    return reply;
}

// "success", "failed" or "idle" for the push's "status"; runs in progress read "idle".
QString statusName(State state)
{
    if (state == State::Done)
        return QStringLiteral("success");
    return state == State::Error ? QStringLiteral("failed") : QStringLiteral("idle");
}

} // namespace

WsSocUpdateHandler::WsSocUpdateHandler(TavrixController *controller, FirmwareUpdateService *updates,
                                       QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in SOC update handler"), parent)
    , m_updates(updates)
{
    addRequests<WsSocUpdateHandler>({
        {"soc_update_check", &WsSocUpdateHandler::check},
        {"soc_update_start", &WsSocUpdateHandler::start},
        {"soc_update_cancel", &WsSocUpdateHandler::cancel},
        {"soc_update_reboot", &WsSocUpdateHandler::reboot},
    });
    connect(m_updates, &FirmwareUpdateService::stateChanged, this, [this] {
        if (m_updates->device() == FirmwareDevice::Soc)
            publishProgress();
    });
}

void WsSocUpdateHandler::publishProgress()
{
    const int percent = m_updates->progress();
    push(QStringLiteral("event_soc_update_progress"),
         {
             {QStringLiteral("state"), FirmwareUpdateService::stateName(m_updates->state())},
             {QStringLiteral("status"), statusName(m_updates->state())},
             {QStringLiteral("progress"), percent},
             {QStringLiteral("percent"), percent},
             {QStringLiteral("message"), m_updates->message()},
             {QStringLiteral("target_version"), m_updates->remoteVersion()},
         });
}

QJsonObject WsSocUpdateHandler::check(const RemoteRequest &request)
{
    if (!m_updates->check(FirmwareDevice::Soc, QString()))
        return request.failed(QStringLiteral("Could not check for updates"));
    const QString current = m_updates->currentVersion();
    const QString latest = m_updates->remoteVersion();
    const bool available = !latest.isEmpty() && compareVersions(latest, current) > 0;
    return request.succeeded({
        {QStringLiteral("message"), m_updates->message()},
        {QStringLiteral("current_version"), current},
        {QStringLiteral("currentVersion"), current},
        {QStringLiteral("latest_version"), latest},
        {QStringLiteral("latestVersion"), latest},
        {QStringLiteral("update_available"), available},
        {QStringLiteral("updateAvailable"), available},
        {QStringLiteral("notes"), m_updates->notes()},
    });
}

QJsonObject WsSocUpdateHandler::start(const RemoteRequest &request)
{
    if (m_updates->isBusy())
        return request.failed(QStringLiteral("An update is already in progress"));
    if (!m_updates->update(FirmwareDevice::Soc, QString()))
        return request.failed(QStringLiteral("Could not start the update"));
    return withMessage(request.succeeded(), m_updates->message());
}

QJsonObject WsSocUpdateHandler::cancel(const RemoteRequest &request)
{
    // No SoC update ever runs, so there is nothing to cancel.
    return request.failed(QStringLiteral("No update is in progress"));
}

QJsonObject WsSocUpdateHandler::reboot(const RemoteRequest &request)
{
    return request.failed(
        QStringLiteral("The SoC cannot be restarted from the hub: its update channel is unknown"));
}

} // namespace tavrix
