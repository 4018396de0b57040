#include "servicefirmwarebinder.h"

#include "firmwaredialog.h"
#include "visiblerefresh.h"

namespace tavrix {

namespace {

using State = FirmwareUpdateService::State;

// The port list has no change signal; it is read again this often while the dialog is open.
constexpr std::chrono::milliseconds kPortRefresh{2000};

// The few steps a person tells apart, for the label beside the progress bar; empty: the step
// ends a run and the label stays.
QString stageText(State state)
{
    switch (state) {
    case State::CheckingVersion:
    case State::DownloadingVersion:
    case State::SocCheckingVersion:
    case State::SocDownloadingVersion:
        return ServiceFirmwareBinder::tr("Checking");
    case State::DownloadingFirmware:
        return ServiceFirmwareBinder::tr("Downloading");
    case State::EnteringDfu:
    case State::WaitingForDrive:
        return ServiceFirmwareBinder::tr("Connecting");
    case State::CopyingFirmware:
    case State::SocAutoUpdating:
        return ServiceFirmwareBinder::tr("Writing");
    case State::WaitingForReboot:
    case State::VerifyingVersion:
    case State::SocVerifyingVersion:
        return ServiceFirmwareBinder::tr("Verifying");
    case State::Idle:
    case State::Done:
    case State::Error:
        break;
    }
    return {};
}

} // namespace

ServiceFirmwareBinder::ServiceFirmwareBinder(FirmwareDialog *dialog, FirmwareUpdateService *updates,
                                             Target target, QObject *parent)
    : QObject(parent)
    , m_dialog(dialog)
    , m_updates(updates)
    , m_target(std::move(target))
{
    dialog->setDevice(m_target.name);
    dialog->setNotes(m_target.notes);
    if (m_target.runningVersion)
        dialog->setCurrentVersion(m_target.runningVersion());
    if (m_target.ports) {
        new VisibleRefresh(
            dialog, kPortRefresh, [this] { m_dialog->setPorts(m_target.ports()); }, this);
        dialog->setPorts(m_target.ports());
    }

    connect(dialog, &FirmwareDialog::checkRequested, this, &ServiceFirmwareBinder::check);
    connect(dialog, &FirmwareDialog::updateRequested, this, &ServiceFirmwareBinder::update);
    connect(dialog, &FirmwareDialog::cancelRequested, this, [this] {
        if (m_following)
            m_updates->cancel();
    });

    connect(updates, &FirmwareUpdateService::stateChanged, this,
            [this](FirmwareUpdateService::State state) { onStateChanged(state); });
    connect(updates, &FirmwareUpdateService::progressChanged, this, [this](int percent) {
        if (m_following)
            m_dialog->setProgress(m_stage, percent, 100);
    });
    connect(updates, &FirmwareUpdateService::logMessage, this, [this](const QString &text) {
        if (m_following)
            m_dialog->appendLog(text);
    });
    connect(updates, &FirmwareUpdateService::versionsChanged, this,
            [this](const QString &current, const QString &remote) {
                if (!m_following)
                    return;
                if (!current.isEmpty())
                    m_dialog->setCurrentVersion(current);
                m_dialog->setAvailableVersion(remote);
            });
    connect(updates, &FirmwareUpdateService::powerCycleRequested, this, [this](bool active) {
        if (!m_following)
            return;
        if (active)
            m_dialog->showPowerCyclePrompt(std::nullopt);
        else
            m_dialog->hidePowerCyclePrompt();
    });
    connect(updates, &FirmwareUpdateService::finished, this, &ServiceFirmwareBinder::onFinished);
}

void ServiceFirmwareBinder::check()
{
    const QString running = m_target.runningVersion ? m_target.runningVersion() : QString();
    begin([this, running] { return m_updates->check(m_target.device, running); });
}

void ServiceFirmwareBinder::update()
{
    const QString port = m_dialog->selectedPort();
    if (m_target.ports && port.isEmpty())
        return refuse(tr("Connect the receiver's cable and choose its port first."));
    if (m_updates->isBusy())
        return refuse(tr("Another firmware update is still in progress."));
    if (m_target.prepareUpdate) {
        if (const QString refusal = m_target.prepareUpdate(port); !refusal.isEmpty())
            return refuse(refusal);
    }
    const QString running = m_target.runningVersion ? m_target.runningVersion() : QString();
    begin([this, running, port] { return m_updates->update(m_target.device, running, port); });
}

void ServiceFirmwareBinder::begin(const std::function<bool()> &start)
{
    if (m_updates->isBusy())
        return refuse(tr("Another firmware update is still in progress."));
    m_stage.clear();
    m_following = true;
    m_dialog->setRunning(true);
    // A run that could not begin may still have ended with finished(), which showed its reason.
    if (!start() && m_following) {
        m_following = false;
        m_dialog->setRunning(false);
        refuse(m_updates->message());
    }
}

void ServiceFirmwareBinder::refuse(const QString &message)
{
    m_dialog->appendLog(message);
    m_dialog->setResult(false, message);
}

void ServiceFirmwareBinder::onStateChanged(FirmwareUpdateService::State state)
{
    if (!m_following)
        return;
    const QString stage = stageText(state);
    if (stage.isEmpty() || stage == m_stage)
        return;
    m_stage = stage;
    m_dialog->setProgress(m_stage, 0, 100);
}

void ServiceFirmwareBinder::onFinished(bool ok, const QString &message)
{
    if (!m_following)
        return;
    m_following = false;
    m_dialog->setRunning(false);
    m_dialog->setResult(ok, message);
}

} // namespace tavrix
