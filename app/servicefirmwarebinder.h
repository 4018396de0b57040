#pragma once

#include "firmwaremanifest.h"
#include "firmwareupdateservice.h"

#include <QObject>
#include <QStringList>

#include <functional>

namespace tavrix {

class FirmwareDialog;

// Ties a firmware dialog to the update service for one device: "Check for updates" reads the
// update manifest and shows the version on offer, "Update" downloads and installs it (over
// the port chosen in the dialog, where the device has one). The service's log, progress,
// power-cycle request and result go to the dialog. The service is shared (the mobile app
// uses it too): the dialog follows only the runs it started itself.
class ServiceFirmwareBinder : public QObject
{
    Q_OBJECT
public:
    struct Target
    {
        FirmwareDevice device = FirmwareDevice::Receiver;
        QString name;
        QString notes;
        // What the device runs now, as far as the hub knows; empty when unknown.
        std::function<QString()> runningVersion;
        // The serial ports the device's update may go over (only read with a port row).
        std::function<QStringList()> ports;
        // Frees the device for an update over `port`: returns why it cannot start, or empty.
        std::function<QString(const QString &port)> prepareUpdate;
    };

    // Normally a child of the dialog, so it goes with it.
    ServiceFirmwareBinder(FirmwareDialog *dialog, FirmwareUpdateService *updates, Target target,
                          QObject *parent = nullptr);

private:
    void check();
    void update();
    // Runs start() (a check or an update) unless another run is in progress; a start the
    // service refuses without a run shows the service's reason.
    void begin(const std::function<bool()> &start);
    void refuse(const QString &message);
    void onStateChanged(FirmwareUpdateService::State state);
    void onFinished(bool ok, const QString &message);

    FirmwareDialog *m_dialog;
    FirmwareUpdateService *m_updates;
    Target m_target;
    // True while a run this dialog started is in progress.
    bool m_following = false;
    QString m_stage;
};

} // namespace tavrix
