#include "sessionstarter.h"

#include "inputdeviceinfo.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "receiverport.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

QString vehicleTypeName(VehicleType vehicle)
{
    return vehicle == VehicleType::Helicopter ? QString(vehicletype::kHelicopter)
                                              : QString(vehicletype::kCar);
}

} // namespace

SessionPlan SessionPlan::fromOptions(const CommandLineOptions &options)
{
    SessionPlan plan;
    plan.transmitterPort = options.transmitterPort;
    plan.baudRate = options.baudRate;
    plan.receiverPort = options.receiverPort;
    plan.devices = options.devices;
    plan.start = options.start;
    plan.motionPort = options.motionPort;
    plan.motionPlatform = options.motionPlatform;
    plan.recordingsFolder = options.recordingsFolder;
    return plan;
}

bool activateVehicleProfile(ProfileManager &profiles, VehicleType vehicle, QString *error)
{
    const QString type = vehicleTypeName(vehicle);
    if (profiles.vehicleType() == type)
        return true;

    QString id = profiles.lastActiveProfileId(type);
    if (!profiles.hasProfile(id)) {
        id.clear();
        for (const ProfileSummary &summary : profiles.profiles()) {
            if (summary.vehicleType == type) {
                id = summary.id;
                break;
            }
        }
    }
    QString failure;
    const QMetaObject::Connection capture = QObject::connect(
        &profiles, &ProfileManager::errorOccurred, &profiles, [&failure](const QString &m) { failure = m; });
    bool ok = true;
    if (id.isEmpty()) {
        const QString name =
            vehicle == VehicleType::Helicopter ? QStringLiteral("RC Helicopter") : QStringLiteral("RC Car");
        id = profiles.createProfile(profiles.uniqueName(name));
        ok = !id.isEmpty() && profiles.setActiveProfile(id) && profiles.setVehicleType(type);
    } else {
        ok = profiles.setActiveProfile(id);
    }
    QObject::disconnect(capture);
    if (!ok && error)
        *error = failure.isEmpty() ? QStringLiteral("cannot make a %1 profile active").arg(type) : failure;
    return ok;
}

SessionStarter::SessionStarter(TavrixController *controller, SessionPlan plan,
                               std::chrono::milliseconds retryInterval, QObject *parent)
    : QObject(parent)
    , m_controller(controller)
    , m_plan(std::move(plan))
{
    m_retryTimer.setInterval(retryInterval);
    connect(&m_retryTimer, &QTimer::timeout, this, &SessionStarter::attempt);
    connect(m_controller, &TavrixController::runningChanged, this, &SessionStarter::onRunningChanged);
}

bool SessionStarter::begin()
{
    ProfileManager *profiles = m_controller->profileManager();
    if (!m_plan.transmitterPort.isEmpty()) {
        m_port = m_plan.transmitterPort;
        m_baudRate = m_plan.baudRate.value_or(TransmitterLink::kDefaultBaudRate);
    } else {
        m_port = profiles->transmitterPortName();
        m_baudRate = m_plan.baudRate.value_or(profiles->transmitterBaudRate());
    }
    if (m_port.isEmpty()) {
        QStringList seen;
        for (const SerialPortDescription &port : m_controller->transmitterLink()->availablePorts())
            seen.append(port.portName);
        emit failed(QStringLiteral("no transmitter port: pass --transmitter PORT (serial ports now: %1)")
                        .arg(seen.isEmpty() ? QStringLiteral("none") : seen.join(QStringLiteral(", "))));
        return false;
    }
    attempt();
    m_retryTimer.start();
    return true;
}

bool SessionStarter::knowsTransmitterPort() const
{
    return !m_plan.transmitterPort.isEmpty() ||
           !m_controller->profileManager()->transmitterPortName().isEmpty();
}

void SessionStarter::halt()
{
    m_retryTimer.stop();
}

void SessionStarter::attempt()
{
    connectReceiver();
    connectTransmitter();
    // Devices change only while idle; a lost wheel stops transmission and is reopened here.
    if (m_controller->isRunning())
        return;
    openDevices();
    if (m_plan.start && !m_startDone && m_controller->isSerialConnected())
        m_controller->startTransmission();
}

void SessionStarter::onRunningChanged(bool running)
{
    if (running) {
        // Whoever started it (this plan, the window, the mobile app), the plan's start is spent.
        m_startDone = true;
        return;
    }
    if (m_plan.start) {
        emit progress(QStringLiteral("transmission will not start again by itself: start it deliberately "
                                     "(from the window, the mobile app, or a new process)"));
    }
}

void SessionStarter::connectTransmitter()
{
    const QString key = QStringLiteral("transmitter");
    if (m_controller->isSerialConnected())
        m_reported.remove(key); // say it again should the transmitter go away
    if (m_controller->isSerialConnected() || m_controller->transmitterLink()->isReconnecting())
        return;
    report(key, QStringLiteral("connecting to the transmitter on %1 at %2 baud").arg(m_port).arg(m_baudRate));
    m_controller->connectTransmitter(m_port, m_baudRate);
}

void SessionStarter::connectReceiver()
{
    if (m_plan.receiverPort.isEmpty() || m_receiverDone)
        return;
    report(QStringLiteral("receiver"),
           QStringLiteral("connecting to the receiver on %1").arg(m_plan.receiverPort));
    m_receiverDone = m_controller->receiverPort()->connectReceiver(m_plan.receiverPort);
}

void SessionStarter::openDevices()
{
    if (m_plan.devices.isEmpty()) {
        m_controller->reconnectSavedDevices();
        return;
    }
    for (const RoleChoice &choice : std::as_const(m_plan.devices)) {
        const QString key = QStringLiteral("role:%1").arg(int(choice.role));
        if (m_controller->devices()->isConnected(choice.role)) {
            m_reported.remove(key);
            continue;
        }
        QString why;
        const int index = resolve(choice.device, &why);
        if (index < 0) {
            report(key, QStringLiteral("waiting for the %1 %2: %3")
                            .arg(deviceRoleInfo(choice.role).name, choice.device.describe(), why));
            continue;
        }
        report(key, QStringLiteral("opening the %1 %2")
                        .arg(deviceRoleInfo(choice.role).name, choice.device.describe()));
        m_controller->connectDevice(choice.role, index);
    }
}

int SessionStarter::resolve(const DeviceChoice &choice, QString *why) const
{
    const QList<InputDeviceInfo> devices = m_controller->devices()->availableDevices();
    if (choice.isByIndex()) {
        if (choice.index < devices.size())
            return choice.index;
        *why = QStringLiteral("%1 game controller(s) attached").arg(devices.size());
        return -1;
    }
    // The instance name first (what the lists show), then the product name, then either
    // without regard to case.
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        for (int i = 0; i < devices.size(); ++i) {
            if (devices.at(i).instanceName.compare(choice.name, sensitivity) == 0)
                return i;
        }
        for (int i = 0; i < devices.size(); ++i) {
            if (devices.at(i).productName.compare(choice.name, sensitivity) == 0)
                return i;
        }
    }
    *why = QStringLiteral("no game controller of that name is attached");
    return -1;
}

void SessionStarter::report(const QString &key, const QString &message)
{
    if (m_reported.value(key) == message)
        return;
    m_reported.insert(key, message);
    emit progress(message);
}

} // namespace tavrix
