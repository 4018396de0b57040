#pragma once

#include "firmwarecache.h"
#include "firmwaremanifest.h"
#include "receiverv4flashertimings.h"
#include "uf2bootdrive.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

namespace tavrix {

class FirmwareDownloader;
class ReceiverV4Flasher;

// Checks for and installs new firmware, one device at a time, as a state machine:
// - "transmitter": the RP2040 bridge. The image (UF2) is downloaded and checked, the user
//   puts the bridge into its boot drive (the bridge has no command for that: BOOTSEL held
//   while plugging it in), the image is copied onto the drive, and the run waits until the
//   drive is gone and the bridge's serial port is back.
// - "receiver": the V4 receiver, written by the V4 flasher over the port given.
// - "soc": the transmitter's companion processor. Its update channel is not known to the
//   hub, so checks and updates fail with the reason in the log; nothing pretends to update.
// Every run ends in "idle" (a check), "done" or "error", with finished().
class FirmwareUpdateService : public QObject
{
    Q_OBJECT
public:
    enum class State
    {
        Idle,
        CheckingVersion,
        DownloadingVersion,
        DownloadingFirmware,
        EnteringDfu,
        WaitingForDrive,
        CopyingFirmware,
        WaitingForReboot,
        VerifyingVersion,
        SocCheckingVersion,
        SocDownloadingVersion,
        SocAutoUpdating,
        SocVerifyingVersion,
        Done,
        Error,
    };
    Q_ENUM(State)

    struct Timings
    {
        std::chrono::milliseconds drivePoll{500};
        // How long the user has to bring up the boot drive, and the bridge to come back.
        std::chrono::milliseconds driveWait{std::chrono::minutes(3)};
        std::chrono::milliseconds rebootWait{std::chrono::minutes(1)};
    };

    struct Options
    {
        QUrl manifestUrl;
        QString cacheFolder;
        // Where boot drives are looked for; empty: every mounted volume.
        QStringList driveRoots;
        Timings timings;
        ReceiverV4FlasherTimings flasherTimings;
    };

    // "idle", "checking_version", ... as the mobile app knows them.
    [[nodiscard]] static QString stateName(State state);

    explicit FirmwareUpdateService(Options options, QObject *parent = nullptr);
    ~FirmwareUpdateService() override;

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isBusy() const;
    // The device of the current or last run.
    [[nodiscard]] std::optional<FirmwareDevice> device() const { return m_device; }
    [[nodiscard]] QString currentVersion() const { return m_currentVersion; }
    [[nodiscard]] QString remoteVersion() const { return m_release.version; }
    [[nodiscard]] QString notes() const { return m_release.notes; }
    [[nodiscard]] QString message() const { return m_message; }
    [[nodiscard]] int progress() const { return m_progress; }
    [[nodiscard]] QUrl manifestUrl() const { return m_options.manifestUrl; }

public slots:
    // Reads the manifest for device's latest release. currentVersion: what the device runs
    // now, as far as the caller knows (may be empty). False when a run is in progress or the
    // device cannot be checked.
    bool check(tavrix::FirmwareDevice device, const QString &currentVersion);
    // Downloads and installs device's latest release; receiverPort is the V4 receiver's serial
    // port (closed by its other users first). False when a run is in progress or the update
    // cannot start.
    bool update(tavrix::FirmwareDevice device, const QString &currentVersion,
                const QString &receiverPort = {});
    // The transmitter's bridge came or went on its serial port.
    void setBridgeConnected(bool connected);
    void cancel();

signals:
    void stateChanged(tavrix::FirmwareUpdateService::State state, const QString &message);
    void progressChanged(int percent);
    void versionsChanged(const QString &currentVersion, const QString &remoteVersion);
    void logMessage(const QString &text);
    // The V4 receiver must be switched off and on (active) or that wait is over.
    void powerCycleRequested(bool active);
    void finished(bool ok, const QString &message);

private:
    bool begin(FirmwareDevice device, const QString &currentVersion, bool install,
               const QString &receiverPort);
    bool refuseSoc(State step, const QString &message);
    void enter(State state, const QString &message = {});
    void setProgress(int percent);
    void fail(const QString &message);
    void succeed(State state, const QString &message);
    void onManifest(const QByteArray &data);
    void onImage(const QByteArray &data);
    void installOnBridge(const QByteArray &image);
    void installOnReceiver(const QString &imagePath);
    void pollBridge();
    void onFlasherProgress(const QString &stage, int done, int total);
    void onFlasherFinished(bool ok, const QString &message);

    Options m_options;
    FirmwareCache m_cache;
    Uf2BootDrive m_bootDrive;
    FirmwareDownloader *m_downloader = nullptr;
    ReceiverV4Flasher *m_flasher = nullptr;
    QTimer m_drivePoll;
    QElapsedTimer m_waitClock;

    State m_state = State::Idle;
    std::optional<FirmwareDevice> m_device;
    bool m_install = false;
    bool m_bridgeConnected = false;
    QString m_receiverPort;
    QString m_currentVersion;
    FirmwareRelease m_release;
    QByteArray m_uf2;
    QString m_message;
    int m_progress = 0;
};

} // namespace tavrix
