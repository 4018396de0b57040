#include "hubservices.h"

#include "controlsreading.h"
#include "devicechangenotifier.h"
#include "driverecorder.h"
#include "driverecordingfeed.h"
#include "firmwareupdateservice.h"
#include "inputbackend.h"
#include "inputbackendfactory.h"
#include "lostdevicereopener.h"
#include "motiontelemetrysender.h"
#include "motionwebpanel.h"
#include "profilemanager.h"
#include "remoteaddresses.h"
#include "remotehandlers.h"
#include "tavrixcontroller.h"
#include "updateaddress.h"
#include "websocketserver.h"

#include <QDebug>
#include <QDir>
#include <QStandardPaths>

namespace tavrix {

HubServices::HubServices(Options options, QObject *parent)
    : QObject(parent)
    , m_inputBackend(std::move(options.inputBackend))
{
    if (!m_inputBackend) {
        m_inputBackend =
            options.inputSelection.isEmpty()
                ? createInputBackend(&m_inputProblem, options.nativeWindow)
                : createInputBackend(options.inputSelection, &m_inputProblem, options.nativeWindow);
        if (!m_inputProblem.isEmpty())
            qWarning().noquote() << "hub: game controllers:" << m_inputProblem;
    }

    // The motion board's port list is the transmitter's (the same serial ports, or the
    // same pseudo-terminals in a demo or a test).
    m_motionSystem = new MotionSystemController(options.ports, options.motionSystemTimings, this);
    MotionWebPanel::Options webOptions;
    webOptions.urlHost = [] { return remoteaddresses::webPanelHost(remoteaddresses::lanInterfaces()); };
    m_webPanel = new MotionWebPanel(m_motionSystem, std::move(webOptions), this);
    if (options.webPanelPort != 0)
        startWebPanel(options.webPanelPort);

    m_profiles = options.dataDirectory.isEmpty() ? new ProfileManager(this)
                                                 : new ProfileManager(options.dataDirectory, this);
    m_profiles->loadProfiles();

    m_controller = new TavrixController(m_inputBackend.get(), m_profiles, std::move(options.ports),
                                        options.timings, this);
    m_deviceChanges = new DeviceChangeNotifier(m_inputBackend.get(), this);
    m_reopener = new LostDeviceReopener(m_controller, this);
    connect(m_deviceChanges, &DeviceChangeNotifier::devicesChanged, m_reopener, &LostDeviceReopener::reopen);

    createFirmwareUpdates(options);
    m_remote = new WebSocketServer(m_controller, this);
    registerRemoteHandlers(*m_remote, m_controller, m_firmwareUpdates);
    m_remote->setListenAddress(options.remoteAddress);
    if (options.remotePort != 0)
        m_remote->start(options.remotePort);

    createMotionOutput(options);

    const QString dataDirectory = options.dataDirectory.isEmpty()
                                      ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                                      : options.dataDirectory;
    m_recordingsDirectory = QDir(dataDirectory).filePath(QStringLiteral("recordings"));
    m_recorder = new DriveRecorder(this);
    new DriveRecordingFeed(m_controller, m_recorder, m_recorder);
}

void HubServices::createFirmwareUpdates(const Options &options)
{
    FirmwareUpdateService::Options updates;
    updates.manifestUrl = options.updateUrl.isEmpty() ? savedUpdateUrl() : options.updateUrl;
    updates.cacheFolder = QDir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation))
                              .filePath(QStringLiteral("firmware"));
    m_firmwareUpdates = new FirmwareUpdateService(updates, this);
    // A bridge update ends when the bridge is back on its serial port.
    m_firmwareUpdates->setBridgeConnected(m_controller->isSerialConnected());
    connect(m_controller, &TavrixController::serialConnectedChanged, m_firmwareUpdates,
            &FirmwareUpdateService::setBridgeConnected);
}

void HubServices::createMotionOutput(const Options &options)
{
    m_motionOutput = new MotionTelemetrySender(this);
    // The car's readings arrive with its telemetry frames, outside the transmit tick; the
    // setters only store them, and the sender's own timer does the sending.
    connect(m_controller, &TavrixController::carMotionReceived, m_motionOutput,
            &MotionTelemetrySender::setAcceleration);
    connect(m_controller, &TavrixController::carAttitudeReceived, m_motionOutput,
            &MotionTelemetrySender::setAttitude);
    // Read on the sender's tick: the controls as the devices report them now, through the
    // active profile's axis settings, the same reading the mobile app shows.
    TavrixController *controller = m_controller;
    m_motionOutput->setDriveStateProvider([controller] {
        const ControlsReading reading = ControlsReading::read(*controller->devices(), controller->settings());
        return MotionDriveState{reading.drive.steering, reading.drive.throttle, reading.drive.brake,
                                reading.clutch, reading.drive.gear};
    });
    if (options.motionOutputPort != 0)
        m_motionOutput->streamForThisRun(options.motionOutputHost, options.motionOutputPort);
}

void HubServices::startWebPanel(quint16 firstPort)
{
    if (m_webPanel->start(firstPort))
        qInfo().noquote() << tr("Web panel started at %1").arg(m_webPanel->url());
    else
        qWarning().noquote() << tr("Web panel failed to start (ports %1-%2 all in use)")
                                    .arg(firstPort)
                                    .arg(firstPort + MotionWebPanel::kPortAttempts - 1);
}

HubServices::~HubServices()
{
    // No phone reaches the motion controller once the hub is going.
    delete m_webPanel;
    m_webPanel = nullptr;
    // A platform must not keep moving, or hold its motors on, once the hub is gone: Release
    // goes out while the port is still open, and the port writes it out as it closes.
    if (m_motionSystem->isConnected())
        m_motionSystem->release();
    delete m_motionSystem;
    m_motionSystem = nullptr;
    // The controller stops transmission ("STOP\n") and releases the devices before the
    // profile store writes its files and the backend goes away; the backend's listeners
    // go first, and before them the remote clients and the motion output, which reach the controller.
    delete m_motionOutput;
    m_motionOutput = nullptr;
    delete m_remote;
    m_remote = nullptr;
    delete m_reopener;
    m_reopener = nullptr;
    delete m_deviceChanges;
    m_deviceChanges = nullptr;
    delete m_controller;
    m_controller = nullptr;
    delete m_profiles;
    m_profiles = nullptr;
}

} // namespace tavrix
