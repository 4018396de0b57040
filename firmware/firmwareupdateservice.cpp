#include "firmwareupdateservice.h"

#include "firmwaredownloader.h"
#include "receiverv4flasher.h"
#include "uf2image.h"
#include "versioncompare.h"

#include <QMetaEnum>

namespace tavrix {

using State = FirmwareUpdateService::State;

FirmwareUpdateService::FirmwareUpdateService(Options options, QObject *parent)
    : QObject(parent)
    , m_options(std::move(options))
    , m_cache(m_options.cacheFolder)
    , m_bootDrive(m_options.driveRoots)
    , m_downloader(new FirmwareDownloader(this))
    , m_flasher(new ReceiverV4Flasher(m_options.flasherTimings, this))
{
    m_drivePoll.setInterval(m_options.timings.drivePoll);
    connect(&m_drivePoll, &QTimer::timeout, this, &FirmwareUpdateService::pollBridge);
    connect(m_downloader, &FirmwareDownloader::failed, this, &FirmwareUpdateService::fail);
    connect(m_downloader, &FirmwareDownloader::fetched, this, [this](const QByteArray &data) {
        if (m_state == State::DownloadingVersion)
            onManifest(data);
        else if (m_state == State::DownloadingFirmware)
            onImage(data);
    });
    connect(m_downloader, &FirmwareDownloader::progress, this, [this](qint64 received, qint64) {
        if (m_state == State::DownloadingFirmware && m_release.size > 0)
            setProgress(int(received * 100 / m_release.size));
    });
    connect(m_flasher, &ReceiverV4Flasher::logMessage, this, &FirmwareUpdateService::logMessage);
    connect(m_flasher, &ReceiverV4Flasher::powerCycleRequested, this,
            &FirmwareUpdateService::powerCycleRequested);
    connect(m_flasher, &ReceiverV4Flasher::progress, this, &FirmwareUpdateService::onFlasherProgress);
    connect(m_flasher, &ReceiverV4Flasher::finished, this, &FirmwareUpdateService::onFlasherFinished);
}

FirmwareUpdateService::~FirmwareUpdateService() = default;

QString FirmwareUpdateService::stateName(State state)
{
    // CheckingVersion -> "checking_version": the enum's own names are the one source.
    const QString camel = QString::fromLatin1(QMetaEnum::fromType<State>().valueToKey(int(state)));
    QString name;
    for (const QChar c : camel) {
        if (c.isUpper() && !name.isEmpty())
            name += QLatin1Char('_');
        name += c.toLower();
    }
    return name;
}

bool FirmwareUpdateService::isBusy() const
{
    return m_state != State::Idle && m_state != State::Done && m_state != State::Error;
}

bool FirmwareUpdateService::check(FirmwareDevice device, const QString &currentVersion)
{
    return begin(device, currentVersion, false, {});
}

bool FirmwareUpdateService::update(FirmwareDevice device, const QString &currentVersion,
                                   const QString &receiverPort)
{
    return begin(device, currentVersion, true, receiverPort);
}

bool FirmwareUpdateService::begin(FirmwareDevice device, const QString &currentVersion, bool install,
                                  const QString &receiverPort)
{
    if (isBusy())
        return false;
    if (install && device == FirmwareDevice::Receiver && receiverPort.isEmpty()) {
        m_message = tr("No serial port for the receiver.");
        return false;
    }
    m_device = device;
    m_install = install;
    m_receiverPort = receiverPort;
    m_currentVersion = currentVersion;
    m_release = {};
    m_uf2.clear();
    setProgress(0);
    emit versionsChanged(m_currentVersion, {});
    if (device == FirmwareDevice::Soc) {
        return refuseSoc(install ? State::SocAutoUpdating : State::SocCheckingVersion,
                         install ? tr("Could not start the update") : tr("Could not check for updates"));
    }
    enter(State::CheckingVersion);
    enter(State::DownloadingVersion, tr("Reading %1").arg(m_options.manifestUrl.toString()));
    m_downloader->fetch(m_options.manifestUrl, FirmwareManifest::kMaxBytes);
    return true;
}

bool FirmwareUpdateService::refuseSoc(State step, const QString &message)
{
    enter(step);
    emit logMessage(tr("The transmitter's companion processor (SoC) takes its updates over a channel this "
                       "hub does not know, so its version can neither be read nor changed from here."));
    fail(message);
    return false;
}

void FirmwareUpdateService::enter(State state, const QString &message)
{
    m_state = state;
    m_message = message;
    if (!message.isEmpty())
        emit logMessage(message);
    emit stateChanged(state, message);
}

void FirmwareUpdateService::setProgress(int percent)
{
    percent = std::clamp(percent, 0, 100);
    if (percent == m_progress)
        return;
    m_progress = percent;
    emit progressChanged(percent);
}

void FirmwareUpdateService::fail(const QString &message)
{
    if (!isBusy()) // a transfer aborted below reports its failure too
        return;
    m_drivePoll.stop();
    enter(State::Error, message);
    m_downloader->abort();
    emit finished(false, message);
}

void FirmwareUpdateService::succeed(State state, const QString &message)
{
    m_drivePoll.stop();
    enter(state, message);
    emit finished(true, message);
}

void FirmwareUpdateService::cancel()
{
    if (!isBusy())
        return;
    if (m_flasher->isBusy()) {
        m_flasher->cancel(); // its finished() ends the run
        return;
    }
    fail(tr("The update was cancelled."));
}

void FirmwareUpdateService::setBridgeConnected(bool connected)
{
    m_bridgeConnected = connected;
}

void FirmwareUpdateService::onManifest(const QByteArray &data)
{
    const FirmwareManifest::Result parsed = FirmwareManifest::parse(data, m_options.manifestUrl);
    if (!parsed.manifest)
        return fail(parsed.error);
    const std::optional<FirmwareRelease> release = parsed.manifest->release(*m_device);
    if (!release)
        return fail(
            tr("The update manifest lists no firmware for the %1.").arg(firmwareDeviceName(*m_device)));
    m_release = *release;
    emit versionsChanged(m_currentVersion, m_release.version);
    if (!m_install) {
        const bool newer =
            m_currentVersion.isEmpty() || compareVersions(m_release.version, m_currentVersion) > 0;
        return succeed(State::Idle, newer ? tr("Firmware %1 is available.").arg(m_release.version)
                                          : tr("The firmware is up to date (%1).").arg(m_currentVersion));
    }
    enter(State::DownloadingFirmware, tr("Downloading firmware %1").arg(m_release.version));
    m_downloader->fetch(m_release.imageUrl, m_release.size);
}

void FirmwareUpdateService::onImage(const QByteArray &data)
{
    // Only images that can be installed are kept.
    if (*m_device == FirmwareDevice::Transmitter) {
        if (const QString problem = Uf2Image::validate(data); !problem.isEmpty())
            return fail(problem);
    }
    const QString fileName =
        QStringLiteral("%1-%2.%3")
            .arg(firmwareDeviceName(*m_device), m_release.version,
                 *m_device == FirmwareDevice::Transmitter ? QStringLiteral("uf2") : QStringLiteral("bin"));
    const FirmwareCache::Result stored = m_cache.store(fileName, data, m_release);
    if (!stored.error.isEmpty())
        return fail(stored.error);
    setProgress(100);
    if (*m_device == FirmwareDevice::Transmitter)
        installOnBridge(data);
    else
        installOnReceiver(stored.path);
}

void FirmwareUpdateService::installOnBridge(const QByteArray &image)
{
    m_uf2 = image;
    // The bridge has no command that restarts it into its boot drive: the user does it.
    enter(State::EnteringDfu, tr("Unplug the transmitter, hold its BOOTSEL button and plug it in again."));
    enter(State::WaitingForDrive,
          tr("Waiting for the transmitter's boot drive (%1)").arg(Uf2BootDrive::kInfoFile));
    m_waitClock.start();
    m_drivePoll.start();
}

void FirmwareUpdateService::pollBridge()
{
    if (m_state == State::WaitingForDrive) {
        const QString drive = m_bootDrive.find();
        if (drive.isEmpty()) {
            if (m_waitClock.elapsed() > m_options.timings.driveWait.count())
                fail(tr("The transmitter's boot drive did not appear. Nothing was written."));
            return;
        }
        enter(State::CopyingFirmware, tr("Writing firmware %1 to %2").arg(m_release.version, drive));
        if (const QString error = Uf2BootDrive::write(drive, m_uf2); !error.isEmpty())
            return fail(error);
        enter(State::WaitingForReboot, tr("Waiting for the transmitter to restart"));
        m_waitClock.start();
        return;
    }
    if (m_state != State::WaitingForReboot)
        return;
    if (!m_bootDrive.find().isEmpty() || !m_bridgeConnected) {
        if (m_waitClock.elapsed() > m_options.timings.rebootWait.count())
            fail(tr("The transmitter did not come back after the firmware was written. Unplug it and plug it "
                    "in again; if it stays in its boot drive, copy the image again."));
        return;
    }
    enter(State::VerifyingVersion);
    // The bridge answers no version question, so the hub cannot confirm what it runs now.
    succeed(State::Done, tr("Firmware %1 was written and the transmitter is back. It does not report its "
                            "version, so check it in the transmitter's own menu.")
                             .arg(m_release.version));
}

void FirmwareUpdateService::installOnReceiver(const QString &imagePath)
{
    if (const QString error = m_cache.storeReceiverDescription(imagePath, m_release); !error.isEmpty())
        return fail(error);
    const ReceiverV4ImageLoader::Result loaded = ReceiverV4ImageLoader::load(imagePath);
    if (!loaded.image)
        return fail(loaded.error);
    enter(State::EnteringDfu, tr("Asking the receiver to restart into its bootloader"));
    setProgress(0);
    if (!m_flasher->update(m_receiverPort, *loaded.image))
        fail(tr("The receiver flasher is busy."));
}

void FirmwareUpdateService::onFlasherProgress(const QString &stage, int done, int total)
{
    if (stage == QLatin1String("program")) {
        if (m_state != State::CopyingFirmware)
            enter(State::CopyingFirmware, tr("Writing firmware %1").arg(m_release.version));
        setProgress(total > 0 ? done * 100 / total : 0);
    } else if (stage == QLatin1String("verify") && m_state != State::VerifyingVersion) {
        enter(State::VerifyingVersion);
    }
}

void FirmwareUpdateService::onFlasherFinished(bool ok, const QString &message)
{
    if (!ok)
        return fail(message);
    m_currentVersion = m_release.version;
    emit versionsChanged(m_currentVersion, m_release.version);
    succeed(State::Done, message);
}

} // namespace tavrix
