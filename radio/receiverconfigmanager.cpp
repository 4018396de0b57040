#include "receiverconfigmanager.h"

#include "receiverelrslink.h"

#include <QDebug>
#include <QRegularExpression>
#include <QTimer>

namespace tavrix {

namespace {

const QLatin1String kQueryTelemetry{"GET_TELEM"};
const QLatin1String kQueryOsd{"GET_OSD"};
// The settings reply does not always carry the version; the status line names it.
const QLatin1String kQueryVersion{"VER"};
const QLatin1String kQueryAxes{"GET_IMU_AXES"};
const QLatin1String kOrientFlat{"IMU_ORIENT FLAT"};
const QLatin1String kOrientNoseUp{"IMU_ORIENT NOSEUP"};

QTimer *makeTimer(QObject *owner, std::chrono::milliseconds interval, bool singleShot)
{
    auto *timer = new QTimer(owner);
    timer->setInterval(interval);
    timer->setSingleShot(singleShot);
    return timer;
}

// The console's "DFU" reboots the receiver into its boot loader, where the car no longer
// answers the radio: nobody types that by accident into a settings console.
bool startsBootLoader(const QString &line)
{
    static const QRegularExpression word(QStringLiteral("\\bDFU\\b"),
                                         QRegularExpression::CaseInsensitiveOption);
    return word.match(line).hasMatch();
}

} // namespace

ReceiverConfigManager::ReceiverConfigManager(ReceiverElrsLink *link, const ReceiverConfigTimings &timings,
                                             QObject *parent)
    : QObject(parent)
    , m_link(link)
    , m_timings(timings)
    , m_gyroCal(new ReceiverGyroCalibration(link, timings, this))
    , m_commandTimer(makeTimer(this, timings.commandInterval, false))
    , m_settingsReplyTimer(makeTimer(this, timings.settingsReplyTimeout, true))
    , m_mountingTimer(makeTimer(this, timings.mountingStepTimeout, true))
    , m_elrsRefreshTimer(makeTimer(this, timings.elrsRefreshInterval, false))
{
    connect(m_commandTimer, &QTimer::timeout, this, &ReceiverConfigManager::sendNextCommand);
    connect(m_settingsReplyTimer, &QTimer::timeout, this, &ReceiverConfigManager::onSettingsReplyTimeout);
    connect(m_mountingTimer, &QTimer::timeout, this, &ReceiverConfigManager::onMountingTimeout);
    connect(m_gyroCal, &ReceiverGyroCalibration::usbCommand, this, &ReceiverConfigManager::queueCommand);
    connect(m_gyroCal, &ReceiverGyroCalibration::changed, this, &ReceiverConfigManager::gyroCalChanged);
    connect(m_elrsRefreshTimer, &QTimer::timeout, this, &ReceiverConfigManager::onElrsRefresh);
    if (!m_link)
        return;
    connect(m_link, &ReceiverElrsLink::stateChanged, this, [this] {
        updateElrsRefresh();
        emit stateChanged();
    });
}

bool ReceiverConfigManager::isOverElrs() const
{
    return !isUsbOpen() && m_link &&
           (m_link->state() == ReceiverElrsLink::State::Reading ||
            m_link->state() == ReceiverElrsLink::State::Ready);
}

// --- Sending ---

void ReceiverConfigManager::queueCommand(const QString &line)
{
    m_queue.append(line);
    if (!m_commandTimer->isActive())
        sendNextCommand();
}

void ReceiverConfigManager::sendNextCommand()
{
    if (m_queue.isEmpty() || !isUsbOpen()) {
        m_commandTimer->stop();
        return;
    }
    const QString line = m_queue.takeFirst();
    if (line == kQueryTelemetry)
        m_settingsReplyTimer->start();
    emit receiverWrite(line.toLatin1() + '\n');
    m_commandTimer->start();
}

// --- Connection ---

void ReceiverConfigManager::setUsbOpen(bool open)
{
    if (open == isUsbOpen())
        return;
    m_queue.clear();
    m_commandTimer->stop();
    m_settingsReplyTimer->stop();
    m_gyroCal->setUsbOpen(open);
    if (!open) {
        setUsbState(UsbState::Closed);
        updateElrsRefresh();
        return;
    }
    setUsbState(UsbState::Reading);
    updateElrsRefresh();
    queueCommand(kQueryVersion);
    queueCommand(kQueryTelemetry);
    queueCommand(kQueryOsd);
}

void ReceiverConfigManager::setUsbState(UsbState state)
{
    if (state == m_usbState)
        return;
    m_usbState = state;
    emit stateChanged();
}

void ReceiverConfigManager::setVehicleType(const QString &vehicleType)
{
    const bool wasCar = m_carActive;
    m_carActive = vehicleType == QLatin1String("rc_car");
    // Changes chosen under another vehicle type go out once a car profile is active.
    if (m_carActive && !wasCar && m_usbState == UsbState::Synced && !pendingChanges().isEmpty())
        applySettings();
}

void ReceiverConfigManager::setTransmitting(bool transmitting)
{
    if (transmitting == m_transmitting)
        return;
    m_transmitting = transmitting;
    emit stateChanged();
}

void ReceiverConfigManager::noteCarTelemetry()
{
    m_lastTelemetry.start();
}

// --- Settings ---

bool ReceiverConfigManager::setDesiredSetting(const QString &key, int value)
{
    const std::optional<receiver::SettingKey> setting = receiver::settingKey(key);
    if (!setting ||
        std::find(setting->allowed.begin(), setting->allowed.end(), value) == setting->allowed.end())
        return false;
    if (m_desired.value(key, value + 1) != value) {
        m_desired.insert(key, value);
        emit settingsChanged();
    }
    if (m_usbState == UsbState::Synced || m_usbState == UsbState::Applying)
        applySettings();
    return true;
}

QStringList ReceiverConfigManager::pendingChanges() const
{
    QStringList lines;
    for (const receiver::SettingKey &s : receiver::kSettings) {
        const auto desired = m_desired.constFind(s.key);
        if (desired != m_desired.cend() && m_reported.value(s.key, *desired + 1) != *desired)
            lines.append(QString(s.command).arg(*desired));
    }
    return lines;
}

bool ReceiverConfigManager::applySettings()
{
    if (!m_carActive || !isUsbOpen())
        return false;
    // Lines still waiting from an earlier apply would send older values after the new ones.
    m_queue.removeIf([](const QString &line) {
        return line == kQueryTelemetry || line == kQueryOsd ||
               std::any_of(receiver::kSettings.cbegin(), receiver::kSettings.cend(),
                           [&line](const receiver::SettingKey &s) {
                               return line.startsWith(QString(s.command).arg(QString()));
                           });
    });
    for (const QString &line : pendingChanges())
        queueCommand(line);
    queueCommand(kQueryTelemetry);
    queueCommand(kQueryOsd);
    setUsbState(UsbState::Applying);
    return true;
}

bool ReceiverConfigManager::requestSettings()
{
    if (isUsbOpen()) {
        if (m_usbState != UsbState::Applying)
            setUsbState(UsbState::Reading);
        queueCommand(kQueryTelemetry);
        queueCommand(kQueryOsd);
        return true;
    }
    return m_link && m_link->readAll();
}

void ReceiverConfigManager::onReceiverLine(const QString &raw)
{
    const std::optional<QString> line = receiver::cleanLine(raw);
    if (!line || line->isEmpty())
        return;
    emit consoleLine(*line);
    applyReply(receiver::parseLine(*line));
}

void ReceiverConfigManager::applyReply(const receiver::Reply &reply)
{
    Caps caps = m_caps;
    if (reply.version)
        caps.firmware = *reply.version;

    bool changed = false;
    if (reply.telemetry) {
        for (const auto &[key, value] : *reply.telemetry) {
            if (receiver::settingKey(key))
                storeReported(key, value, changed);
        }
        caps.settings = true;
        caps.olderOsd = false;
        caps.gps = m_reported.contains(QStringLiteral("GPS_ON"));
        caps.imu = m_reported.contains(QStringLiteral("IMU"));
    }
    if (reply.osd) {
        storeReported(QStringLiteral("OSD"), *reply.osd, changed);
        caps.olderOsd = !caps.settings;
    }
    if (reply.gpsOn)
        storeReported(QStringLiteral("GPS_ON"), *reply.gpsOn, changed);
    if (reply.gpsRate)
        storeReported(QStringLiteral("GPS_RATE"), *reply.gpsRate, changed);
    if (reply.gpsStatus && m_gpsStatus != reply.gpsStatus) {
        m_gpsStatus = reply.gpsStatus;
        changed = true;
    }
    if (caps != m_caps) {
        m_caps = caps;
        emit capsChanged();
    }
    if (changed)
        emit settingsChanged();
    if (reply.telemetry || reply.osd)
        onSettingsReply(reply.telemetry.has_value());

    if (reply.imuAxes) {
        m_imuAxes = *reply.imuAxes;
        emit mountingChanged();
    }
    handleOrientReply(reply);
    m_gyroCal->onConsoleReply(reply.gyroCal, reply.reason);
}

void ReceiverConfigManager::storeReported(const QString &key, int value, bool &changed)
{
    if (m_reported.value(key, value + 1) == value)
        return;
    m_reported.insert(key, value);
    changed = true;
}

void ReceiverConfigManager::onSettingsReply(bool telemetry)
{
    m_settingsReplyTimer->stop();
    const bool readBackDone = telemetry && !m_queue.contains(QString(kQueryTelemetry));
    switch (m_usbState) {
    case UsbState::Reading:
    case UsbState::NoReply:
        setUsbState(UsbState::Synced);
        // Values the user chose while the receiver was away go out now.
        if (!pendingChanges().isEmpty())
            applySettings();
        break;
    case UsbState::Applying:
        if (readBackDone)
            setUsbState(UsbState::Synced);
        break;
    default:
        break;
    }
}

void ReceiverConfigManager::onSettingsReplyTimeout()
{
    if (isUsbOpen())
        setUsbState(UsbState::NoReply);
}

QString ReceiverConfigManager::gpsStatusText() const
{
    const bool gpsOn = m_reported.value(QStringLiteral("GPS_ON"), 1) != 0;
    if (gpsOn && !m_gpsStatus)
        return {}; // nothing reported yet
    return receiver::gpsStatusText(m_gpsStatus.value_or(receiver::GpsStatus{}), gpsOn);
}

// --- Mounting ---

bool ReceiverConfigManager::detectMountingStep(int step)
{
    if (!isUsbOpen() || (step != 0 && step != 1) || m_mountingTimer->isActive())
        return false;
    queueCommand(step == 0 ? kOrientFlat : kOrientNoseUp);
    m_mountingTimer->start();
    setMounting(step == 0 ? Mounting::WaitingFlat : Mounting::WaitingNoseUp, m_mountingText);
    return true;
}

void ReceiverConfigManager::handleOrientReply(const receiver::Reply &reply)
{
    using Step = receiver::Reply::Step;
    if (reply.orient == Step::None || !m_mountingTimer->isActive())
        return;
    m_mountingTimer->stop();
    switch (reply.orient) {
    case Step::OrientFlatOk:
        setMounting(Mounting::NeedNoseUp,
                    tr("Level read. Now lift the FRONT of the car about 30° and hold it."));
        break;
    case Step::OrientOk:
        setMounting(Mounting::Saved, tr("Mounting saved. Put the car down and keep it still for a second."));
        queueCommand(kQueryAxes);
        break;
    default:
        setMounting(Mounting::Failed, receiver::mountingErrorText(reply.reason));
        break;
    }
}

void ReceiverConfigManager::onMountingTimeout()
{
    setMounting(Mounting::Failed, tr("No answer from the receiver. Try again."));
}

void ReceiverConfigManager::setMounting(Mounting state, const QString &text)
{
    m_mounting = state;
    m_mountingText = text;
    emit mountingChanged();
}

// --- Gyro calibration ---

bool ReceiverConfigManager::calibrateGyro()
{
    return m_gyroCal->start(isUsbOpen());
}

// --- Raw console ---

bool ReceiverConfigManager::sendConsoleCommand(const QString &line)
{
    const QString command = line.trimmed();
    if (command.isEmpty() || startsBootLoader(command) || !isUsbOpen()) {
        qInfo().noquote() << QStringLiteral("[RX] console command refused: \"%1\"").arg(command);
        return false;
    }
    queueCommand(command);
    return true;
}

// --- Over the radio ---

void ReceiverConfigManager::updateElrsRefresh()
{
    if (isOverElrs())
        m_elrsRefreshTimer->start();
    else
        m_elrsRefreshTimer->stop();
}

void ReceiverConfigManager::searchOverElrs()
{
    if (m_link)
        m_link->startSearch();
}

void ReceiverConfigManager::onElrsRefresh()
{
    if (!isOverElrs() || gyroCal() == GyroCal::Running)
        return;
    if (m_lastTelemetry.isValid() && !m_lastTelemetry.hasExpired(m_timings.elrsTelemetrySilence.count()))
        return;
    m_link->readAll();
}

// --- Status texts ---

QString ReceiverConfigManager::statusText() const
{
    return isUsbOpen() ? usbStatusText() : elrsStatusText();
}

QString ReceiverConfigManager::usbStatusText() const
{
    switch (m_usbState) {
    case UsbState::Closed:
        return elrsStatusText();
    case UsbState::Reading:
        return tr("Connected · reading the receiver's settings…");
    case UsbState::NoReply:
        return tr("Connected · no reply to settings commands (older receiver?)");
    case UsbState::Applying:
        return tr("Connected · applying settings…");
    case UsbState::Synced:
        break;
    }
    if (!m_caps.gps && !m_caps.imu)
        return tr("Connected%1 · this receiver has no GPS/IMU settings").arg(QString());
    return tr("Connected · firmware %1 · settings applied").arg(m_caps.firmware);
}

QString ReceiverConfigManager::elrsStatusText() const
{
    const auto state = m_link ? m_link->state() : ReceiverElrsLink::State::Idle;
    switch (state) {
    case ReceiverElrsLink::State::Ready:
        if (isUsbOpen())
            return tr("Connected · firmware %1 · settings go over the USB cable while it is plugged in")
                .arg(m_link->firmwareVersion());
        return tr("Connected over ELRS · firmware %1 · settings applied").arg(m_link->firmwareVersion());
    case ReceiverElrsLink::State::Reading:
        return tr("Connected over ELRS · getting the receiver's settings…");
    case ReceiverElrsLink::State::Searching:
    case ReceiverElrsLink::State::Idle:
        break;
    }
    if (m_transmitting && !isUsbOpen())
        return tr("Connected · settings not reachable over ELRS yet, trying again (needs receiver firmware "
                  "4.3.0 or later). Changes are saved and applied once they are.");
    if (isUsbOpen())
        return usbStatusText();
    return tr("Receiver not connected. Start transmitting to reach it over ELRS, or plug in the J14 cable. "
              "Changes are saved and applied the next time it is reached.");
}

} // namespace tavrix
