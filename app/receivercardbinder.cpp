#include "receivercardbinder.h"

#include "portpickerbinder.h"
#include "receivercard.h"
#include "receiverconfigmanager.h"
#include "receiverelrslink.h"
#include "receiverline.h"
#include "receiverport.h"
#include "serialportpicker.h"
#include "tavrixcontroller.h"
#include "vehiclepagebinder.h"
#include "visiblerefresh.h"

#include <QLineEdit>

namespace tavrix {

namespace {

QString settingLabel(QLatin1String key)
{
    static const QHash<QString, const char *> labels{
        {QStringLiteral("GPS_ON"), QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "GPS on")},
        {QStringLiteral("GPS_RATE"), QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "GPS update rate")},
        {QStringLiteral("GPS"), QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "Send GPS as telemetry")},
        {QStringLiteral("IMU"),
         QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "Send attitude (IMU) as telemetry")},
        {QStringLiteral("MOTION"),
         QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "Send motion as telemetry")},
        {QStringLiteral("MOTION_RATE"),
         QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "Motion telemetry rate")},
        {QStringLiteral("OSD"), QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "Video overlay (OSD)")},
        {QStringLiteral("MOTION_SENSORS"),
         QT_TRANSLATE_NOOP("tavrix::ReceiverCardBinder", "Motion sensors on")},
    };
    const char *label = labels.value(QString(key));
    return label ? ReceiverCardBinder::tr(label) : QString(key);
}

} // namespace

const QList<qint32> ReceiverCardBinder::kBaudRates{57600, 115200, 230400, 460800};

ReceiverCardBinder::ReceiverCardBinder(ReceiverCard *card, TavrixController *controller, QObject *parent)
    : QObject(parent)
    , m_card(card)
    , m_controller(controller)
    , m_receiver(controller->receiverConfig())
{
    ReceiverPort *port = controller->receiverPort();
    m_ports = new PortPickerBinder(
        card->picker(), controller,
        {[port] { return port->isConnected(); }, [port] { return port->portName(); },
         [port](const QString &name, qint32 baudRate) { port->connectReceiver(name, baudRate); },
         [port] { port->disconnectReceiver(); }, [port] { return port->rememberedBaudRate(); }},
        this);
    card->picker()->setBaudRates(kBaudRates, port->rememberedBaudRate());
    connect(port, &ReceiverPort::connectedChanged, m_ports, &PortPickerBinder::refreshPorts);
    connect(port, &ReceiverPort::portNameChanged, m_ports, &PortPickerBinder::refreshPorts);
    new VisibleRefresh(
        card, VehiclePageBinder::kListRefreshInterval, [this] { m_ports->refreshPorts(); }, this);

    addSettings();
    ReceiverConfigManager *receiver = m_receiver;
    connect(card, &ReceiverCard::settingChanged, receiver, &ReceiverConfigManager::setDesiredSetting);
    connect(card, &ReceiverCard::mountingStepRequested, receiver, &ReceiverConfigManager::detectMountingStep);
    connect(card, &ReceiverCard::gyroCalibrationRequested, receiver, &ReceiverConfigManager::calibrateGyro);
    connect(card, &ReceiverCard::consoleCommandEntered, this, &ReceiverCardBinder::sendConsoleLine);
    card->consoleEntry()->setMaxLength(int(receiver::kMaxLineLength));
    connect(receiver, &ReceiverConfigManager::consoleLine, card, &ReceiverCard::appendConsoleLine);
    connect(receiver, &ReceiverConfigManager::stateChanged, this, &ReceiverCardBinder::showConnection);
    connect(receiver, &ReceiverConfigManager::capsChanged, this, &ReceiverCardBinder::showConnection);
    connect(receiver, &ReceiverConfigManager::settingsChanged, this, &ReceiverCardBinder::showSettings);
    connect(receiver, &ReceiverConfigManager::mountingChanged, this, &ReceiverCardBinder::showMounting);
    connect(receiver, &ReceiverConfigManager::gyroCalChanged, this, &ReceiverCardBinder::showGyro);
    showConnection();
    showSettings();
    showMounting();
    showGyro();
}

void ReceiverCardBinder::addSettings()
{
    for (const receiver::SettingKey &setting : receiver::kSettings) {
        ReceiverCard::Setting row{setting.key, settingLabel(setting.key), {}, tr("Hz")};
        if (!setting.isSwitch())
            row.choices = QList<int>(setting.allowed.begin(), setting.allowed.end());
        m_card->addSetting(row);
    }
}

void ReceiverCardBinder::showConnection()
{
    const ReceiverElrsLink *link = m_controller->receiverLink();
    const bool usb = m_receiver->isUsbOpen();
    const bool overElrs = m_receiver->isOverElrs();
    if (usb)
        m_card->showConnection(hub::Tone::Good, tr("USB"), m_receiver->statusText());
    else if (overElrs)
        m_card->showConnection(hub::Tone::Accent, tr("Over ELRS"), m_receiver->statusText());
    else
        m_card->showConnection(hub::Tone::Neutral, tr("Not connected"), m_receiver->statusText());
    const bool radioReady = link && link->state() == ReceiverElrsLink::State::Ready;
    m_card->setReachable(usb, usb || radioReady, usb);
    showInfo();
}

void ReceiverCardBinder::showInfo()
{
    const ReceiverConfigManager::Caps &caps = m_receiver->caps();
    const ReceiverElrsLink *link = m_controller->receiverLink();
    const QString firmware = caps.firmware.isEmpty() && link ? link->firmwareVersion() : caps.firmware;
    QStringList parts;
    if (!firmware.isEmpty())
        parts.append(tr("Firmware %1").arg(firmware));
    if (caps.gps)
        parts.append(tr("GPS"));
    if (caps.imu)
        parts.append(tr("IMU"));
    m_card->showReceiverInfo(parts.join(QStringLiteral(" \u00B7 ")));
}

// The value the user chose shows until the receiver reports it, so a switch does not flip
// back while the change is on its way.
void ReceiverCardBinder::showSettings()
{
    const QMap<QString, int> &desired = m_receiver->desiredSettings();
    const QMap<QString, int> &reported = m_receiver->reportedSettings();
    for (const receiver::SettingKey &setting : receiver::kSettings) {
        const QString key = setting.key;
        std::optional<int> value;
        if (desired.contains(key))
            value = desired.value(key);
        else if (reported.contains(key))
            value = reported.value(key);
        m_card->showSetting(key, value);
    }
    m_card->showGpsStatus(m_receiver->gpsStatusText());
    showInfo();
}

void ReceiverCardBinder::showMounting()
{
    const QString axes = m_receiver->imuAxes();
    m_card->showMounting(axes.isEmpty() ? QString() : tr("Axes: %1").arg(axes), m_receiver->mountingText());
}

void ReceiverCardBinder::showGyro()
{
    m_card->showGyroCalibration(m_receiver->gyroCalText());
}

void ReceiverCardBinder::sendConsoleLine(const QString &line)
{
    if (m_receiver->sendConsoleCommand(line)) {
        m_card->appendConsoleLine(QStringLiteral("> ") + line.trimmed());
        m_card->clearConsoleEntry();
    } else if (!m_receiver->isUsbOpen()) {
        m_card->showConsoleRefusal(tr("Not sent: connect the receiver's USB cable first."));
    } else {
        m_card->showConsoleRefusal(
            tr("Not sent: the console does not send empty lines or DFU, which would stop the receiver."));
    }
}

} // namespace tavrix
