#pragma once

#include "controllertimings.h"
#include "inputbackend.h"
#include "motionsystemcontroller.h"

#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QUrl>

#include <memory>

namespace tavrix {

class DeviceChangeNotifier;
class DriveRecorder;
class FirmwareUpdateService;
class LostDeviceReopener;
class MotionTelemetrySender;
class MotionWebPanel;
class ProfileManager;
class SerialPortDirectory;
class TavrixController;
class WebSocketServer;

// Owns the hub's long-lived services for one run: the profile store, the game-controller
// backend with its hot-plug news, the transmission controller and the reopening of lost
// controllers, the mobile app's remote server, the motion telemetry output, the motion platforms'
// controller and its web panel. The main window and the headless runner both present one HubServices; neither
// owns a service directly, so the two modes run exactly the same code.
class HubServices : public QObject
{
    Q_OBJECT
public:
    struct Options
    {
        // Where the game controllers come from: empty means ORVANEHUB_INPUT, then the platform's.
        QString inputSelection;
        // An already made backend (the demo's virtual rig, tests); wins over inputSelection.
        std::unique_ptr<InputBackend> inputBackend;
        // The main window's native handle, 0 without a window. DirectInput ties the devices it
        // opens (the saved ones at once) to it, so the window must exist before the services.
        quintptr nativeWindow = 0;
        // Where the transmitter may be found (the system's serial ports when null).
        std::shared_ptr<const SerialPortDirectory> ports;
        // Profile storage and drive recordings; empty means the user's application data directory.
        QString dataDirectory;
        ControllerTimings timings;
        // The mobile app's WebSocket server listens here once made; port 0 (the default,
        // so tests open no port unless they ask) leaves it stopped.
        quint16 remotePort = 0;
        QHostAddress remoteAddress{QHostAddress::Any};
        // A port here streams the car's motion to this target for this run, whatever the
        // saved motion output settings say; 0 leaves them in charge.
        QString motionOutputHost;
        quint16 motionOutputPort = 0;
        MotionSystemController::Timings motionSystemTimings;
        // The firmware update manifest's address; empty: the saved one.
        QUrl updateUrl;
        // The motion web panel starts on the first free port from here; 0 (the default)
        // leaves it stopped until someone asks for it.
        quint16 webPanelPort = 0;
    };

    explicit HubServices(Options options, QObject *parent = nullptr);
    ~HubServices() override;

    [[nodiscard]] TavrixController *controller() const { return m_controller; }
    [[nodiscard]] ProfileManager *profiles() const { return m_profiles; }
    [[nodiscard]] InputBackend *inputBackend() const { return m_inputBackend.get(); }
    // Says when game controllers may have come or gone.
    [[nodiscard]] DeviceChangeNotifier *deviceChanges() const { return m_deviceChanges; }
    // The mobile app's way in; not listening when the port was 0 or could not be bound.
    [[nodiscard]] WebSocketServer *remoteServer() const { return m_remote; }
    // The car's motion as telemetry for motion-rig software.
    [[nodiscard]] MotionTelemetrySender *motionOutput() const { return m_motionOutput; }
    // The motion platforms' controller board.
    [[nodiscard]] MotionSystemController *motionSystem() const { return m_motionSystem; }
    // Checks for and installs firmware of the receiver and the transmitter.
    [[nodiscard]] FirmwareUpdateService *firmwareUpdates() const { return m_firmwareUpdates; }
    // The phone's page for the motion platforms; stopped unless started.
    [[nodiscard]] MotionWebPanel *webPanel() const { return m_webPanel; }
    // Writes drives to CSV files in recordingsDirectory() while the user asks it to.
    [[nodiscard]] DriveRecorder *driveRecorder() const { return m_recorder; }
    [[nodiscard]] QString recordingsDirectory() const { return m_recordingsDirectory; }
    // Why the requested input source could not be used (empty when it could).
    [[nodiscard]] QString inputProblem() const { return m_inputProblem; }

private:
    void createMotionOutput(const Options &options);
    void createFirmwareUpdates(const Options &options);
    void startWebPanel(quint16 firstPort);

    // Declared first so it is destroyed last: the controller's devices read through it.
    std::unique_ptr<InputBackend> m_inputBackend;
    QString m_inputProblem;
    ProfileManager *m_profiles = nullptr;
    TavrixController *m_controller = nullptr;
    DeviceChangeNotifier *m_deviceChanges = nullptr;
    LostDeviceReopener *m_reopener = nullptr;
    WebSocketServer *m_remote = nullptr;
    MotionTelemetrySender *m_motionOutput = nullptr;
    MotionSystemController *m_motionSystem = nullptr;
    FirmwareUpdateService *m_firmwareUpdates = nullptr;
    MotionWebPanel *m_webPanel = nullptr;
    DriveRecorder *m_recorder = nullptr;
    QString m_recordingsDirectory;
};

} // namespace tavrix
