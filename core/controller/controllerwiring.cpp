#include "tavrixcontroller.h"

#include "activeprofilefollower.h"
#include "elrsparametermanager.h"
#include "ledconfigpush.h"
#include "profilekeys.h"
#include "receiverconfigmanager.h"
#include "receiverelrslink.h"
#include "receiverendpointcalibration.h"
#include "receiverport.h"
#include "receiversettingskeeper.h"
#include "transmitterlink.h"
#include "wheelforcefeedback.h"

namespace tavrix {

// The controller's wiring to the transmitter link, the codec and the telemetry monitor,
// kept apart from its transmit loop: raw chunks go up first, then through the codec;
// what the monitor makes of the frames is republished for the interface and the app.
void TavrixController::wireLinkAndTelemetry()
{
    connect(m_link, &TransmitterLink::serialConnectedChanged, this,
            &TavrixController::onSerialConnectedChanged);
    connect(m_link, &TransmitterLink::serialPortNameChanged, this, &TavrixController::serialPortNameChanged);
    connect(m_link, &TransmitterLink::telemetryReceived, this, [this](const QByteArray &data) {
        emit telemetryReceived(data);
        m_crsf->feed(data);
    });
    connect(m_link, &TransmitterLink::transmitterLineReceived, this,
            &TavrixController::transmitterLineReceived);
    connect(m_link, &TransmitterLink::errorOccurred, this, &TavrixController::errorOccurred);
    connect(m_link, &TransmitterLink::connectionRemembered, this,
            [this](const QString &portName, qint32 baudRate) {
                m_profiles->setTransmitterPort(portName, int(baudRate));
            });

    connect(m_crsf, &CrsfProtocol::frameReceived, this, [this](uint8_t type, const QByteArray &payload) {
        emit crsfFrameReceived(type, payload);
        m_telemetry->handleFrame(type, payload);
    });
    connect(m_crsf, &CrsfProtocol::linkStatisticsReceived, m_telemetry,
            &TelemetryMonitor::handleLinkStatistics);

    connect(m_telemetry, &TelemetryMonitor::linkStatisticsUpdated, this,
            &TavrixController::linkStatisticsUpdated);
    connect(m_telemetry, &TelemetryMonitor::carLinkChanged, this, &TavrixController::carLinkChanged);
    connect(m_telemetry, &TelemetryMonitor::gpsUpdated, this, &TavrixController::gpsUpdated);
    connect(m_telemetry, &TelemetryMonitor::telemetrySensorsUpdated, this,
            &TavrixController::telemetrySensorsUpdated);
    connect(m_telemetry, &TelemetryMonitor::telemetrySensorListChanged, this,
            &TavrixController::telemetrySensorListChanged);
    connect(m_telemetry, &TelemetryMonitor::telemetryDashboardChanged, this,
            &TavrixController::telemetryDashboardChanged);
    connect(m_telemetry, &TelemetryMonitor::receiverFfbStateChanged, this,
            &TavrixController::receiverFfbStateChanged);
    connect(m_telemetry, &TelemetryMonitor::carMotionReceived, this, &TavrixController::carMotionReceived);
    connect(m_telemetry, &TelemetryMonitor::attitudeReceived, this,
            [this](float pitch, float roll, float yaw) {
                if (!isHelicopter()) {
                    emit carAttitudeReceived(pitch, roll, yaw);
                    return;
                }
                const HelicopterSettings::Attitude &invert = m_profile->settings().helicopter.attitude;
                emit heliAttitudeReceived(invert.invertPitch ? -pitch : pitch,
                                          invert.invertRoll ? -roll : roll, invert.invertYaw ? -yaw : yaw);
            });
}

// The ELRS parameter client is the controller's child: the controller is its way to the
// wire (serialWrite). It is told of every mode change before anyone else hears of it, so
// leaving configuration mode aborts a walk before the interface reacts.
void TavrixController::wireElrsParameters()
{
    m_elrs = new ElrsParameterManager(m_crsf, m_timings.elrs, this);
    connect(m_link, &TransmitterLink::transmitterLineReceived, m_elrs,
            &ElrsParameterManager::onTransmitterLine);
    connect(this, &TavrixController::configModeChanged, m_elrs, &ElrsParameterManager::setConfigModeActive);

    // The car's receiver is reached over the radio only while the bridge streams: not
    // without a bridge, and not in configuration mode, where the module talks to us.
    m_receiverLink = new ReceiverElrsLink(m_crsf, m_timings.receiverLink, this);
    const auto updateReceiverLink = [this] {
        m_receiverLink->setEnabled(isSerialConnected() && !isConfigMode());
    };
    connect(this, &TavrixController::serialConnectedChanged, m_receiverLink, updateReceiverLink);
    connect(this, &TavrixController::configModeChanged, m_receiverLink, updateReceiverLink);
    connect(this, &TavrixController::runningChanged, m_receiverLink,
            &ReceiverElrsLink::setTransmitterRunning);
    updateReceiverLink();
}

// Every stop switches the wheel's force feedback off; a start switches it on again only
// when the user asked for that (autoEngage).
void TavrixController::wireForceFeedback()
{
    m_forceFeedback = new WheelForceFeedback(
        m_devices, [this] { return m_steering; }, this);
    connect(m_telemetry, &TelemetryMonitor::carMotionReceived, m_forceFeedback,
            &WheelForceFeedback::onCarMotion);
    connect(this, &TavrixController::runningChanged, m_forceFeedback,
            &WheelForceFeedback::onTransmissionChanged);
    connect(m_forceFeedback, &WheelForceFeedback::levelChanged, this, &TavrixController::ffbLevelReceived);
}

// The receiver's console shares nothing with transmission but the profile, where its port
// is remembered for reconnects and the next start.
void TavrixController::wireReceiverPort()
{
    m_receiverPort = new ReceiverPort(m_ports, m_timings.receiverPort, this);
    connect(m_receiverPort, &ReceiverPort::connectedChanged, this,
            &TavrixController::receiverConnectedChanged);
    connect(m_receiverPort, &ReceiverPort::portNameChanged, this, &TavrixController::receiverPortNameChanged);
    connect(m_receiverPort, &ReceiverPort::lineReceived, this, &TavrixController::receiverDataReceived);
    connect(m_receiverPort, &ReceiverPort::errorOccurred, this, &TavrixController::errorOccurred);
    connect(m_receiverPort, &ReceiverPort::connectionRemembered, this,
            [this](const QString &portName, qint32 baudRate) {
                m_profiles->setReceiverPort(portName, int(baudRate));
            });
    const QString remembered = m_profiles->receiverPortName();
    if (!remembered.isEmpty())
        m_receiverPort->setRememberedPort(remembered, m_profiles->receiverBaudRate());
}

void TavrixController::wireReceiverConfig()
{
    m_receiverConfig = new ReceiverConfigManager(m_receiverLink, m_timings.receiverConfig, this);
    ReceiverConfigManager *config = m_receiverConfig;
    connect(config, &ReceiverConfigManager::receiverWrite, m_receiverPort, [this](const QByteArray &bytes) {
        // One command per write; the port adds the line end itself.
        QString line = QString::fromLatin1(bytes);
        if (line.endsWith(QLatin1Char('\n')))
            line.chop(1);
        m_receiverPort->writeLine(line);
    });
    connect(m_receiverPort, &ReceiverPort::lineReceived, config, &ReceiverConfigManager::onReceiverLine);
    connect(m_receiverPort, &ReceiverPort::connectedChanged, config, &ReceiverConfigManager::setUsbOpen);
    connect(this, &TavrixController::runningChanged, config, &ReceiverConfigManager::setTransmitting);
    connect(m_crsf, &CrsfProtocol::frameReceived, config, [config](uint8_t type, const QByteArray &) {
        if (crsf::isCarTelemetry(type))
            config->noteCarTelemetry();
    });
    const auto followVehicle = [this, config] {
        config->setVehicleType(isHelicopter() ? vehicletype::kHelicopter : vehicletype::kCar);
    };
    connect(this, &TavrixController::profileChanged, config, followVehicle);
    followVehicle();
    // The user's choices live in the car's profile, loaded before the console opens.
    new ReceiverSettingsKeeper(config, m_profiles, this);
    config->setUsbOpen(m_receiverPort->isConnected());

    m_receiverCalibration = new ReceiverEndpointCalibration(m_timings.receiverCalibration, this);
    connect(m_receiverPort, &ReceiverPort::lineReceived, m_receiverCalibration,
            &ReceiverEndpointCalibration::onReceiverLine);
    connect(m_receiverPort, &ReceiverPort::connectedChanged, m_receiverCalibration,
            &ReceiverEndpointCalibration::setReceiverConnected);
    m_receiverCalibration->setReceiverConnected(m_receiverPort->isConnected());
}

// The LED push shares the receiver's console with its configuration; it answers only to
// "LED_" replies, so the two never take each other's lines.
void TavrixController::wireLedPush()
{
    m_ledPush = new LedConfigPush(m_timings.ledPush, this);
    connect(m_ledPush, &LedConfigPush::lineOut, m_receiverPort, &ReceiverPort::writeLine);
    connect(m_receiverPort, &ReceiverPort::lineReceived, m_ledPush, &LedConfigPush::onReceiverLine);
    connect(m_receiverPort, &ReceiverPort::connectedChanged, m_ledPush, &LedConfigPush::setPortOpen);
    m_ledPush->setPortOpen(m_receiverPort->isConnected());
}

} // namespace tavrix
