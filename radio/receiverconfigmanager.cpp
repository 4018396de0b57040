#include "receiverconfigmanager.h"

#include "receiverelrslink.h"

#include <QDebug>
#include <QRegularExpression>
#include <QTimer>

namespace tavrix {

namespace {

// The command field's status byte over the radio, as the parameter protocol defines it.
enum CommandStatus : uint8_t
{
    kCommandIdle = 0,
    kCommandStart = 1,
    kCommandProgress = 2,
    kCommandCancel = 5,
    kCommandPoll = 6,
};

const QLatin1String kQueryTelemetry{"GET_TELEM"};
const QLatin1String kQueryOsd{"GET_OSD"};
const QLatin1String kQueryAxes{"GET_IMU_AXES"};
const QLatin1String kGyroCal{"IMU_CAL"};
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
    , m_commandTimer(makeTimer(this, timings.commandInterval, false))
    , m_settingsReplyTimer(makeTimer(this, timings.settingsReplyTimeout, true))
    , m_mountingTimer(makeTimer(this, timings.mountingStepTimeout, true))
    , m_usbGyroTimer(makeTimer(this, timings.usbGyroCalCheck, true))
    , m_elrsGyroLimitTimer(makeTimer(this, timings.elrsGyroCalLimit, true))
    , m_elrsGyroPollTimer(makeTimer(this, timings.elrsGyroCalPoll, true))
    , m_elrsRefreshTimer(makeTimer(this, timings.elrsRefreshInterval, false))
{
    connect(m_commandTimer, &QTimer::timeout, this, &ReceiverConfigManager::sendNextCommand);
    connect(m_settingsReplyTimer, &QTimer::timeout, this, &ReceiverConfigManager::onSettingsReplyTimeout);
    connect(m_mountingTimer, &QTimer::timeout, this, &ReceiverConfigManager::onMountingTimeout);
    connect(m_usbGyroTimer, &QTimer::timeout, this, &ReceiverConfigManager::onUsbGyroCalCheck);
    connect(m_elrsGyroLimitTimer, &QTimer::timeout, this, &ReceiverConfigManager::onElrsGyroCalLimit);
    connect(m_elrsGyroPollTimer, &QTimer::timeout, this, &ReceiverConfigManager::pollElrsGyroCal);
    connect(m_elrsRefreshTimer, &QTimer::timeout, this, &ReceiverConfigManager::onElrsRefresh);
    if (!m_link)
        return;
    connect(m_link, &ReceiverElrsLink::stateChanged, this, [this] {
        updateElrsRefresh();
        emit stateChanged();
    });
    connect(m_link, &ReceiverElrsLink::idle, this, &ReceiverConfigManager::onElrsLinkIdle);
    // Queued: a link that is dropped reports the unanswered write before it turns idle, and
    // the calibration must see the loss rather than a missing answer.
    connect(
        m_link, &ReceiverElrsLink::directWriteDone, this,
        [this](uint8_t param, bool, int value) { onElrsWriteDone(param, value); }, Qt::QueuedConnection);
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
    if (!open) {
        setUsbState(UsbState::Closed);
        updateElrsRefresh();
        return;
    }
    setUsbState(UsbState::Reading);
    updateElrsRefresh();
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
    m_carActive = vehicleType == QLatin1String("rc_car");
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
    if (!receiver::settingKey(key))
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
    if (reply.gyroCal != receiver::Reply::GyroCal::None && m_usbGyroTimer->isActive()) {
        m_usbGyroResult = reply.gyroCal;
        m_usbGyroReason = reply.reason;
    }
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
    if (!m_gpsStatus && m_reported.value(QStringLiteral("GPS_ON"), 1) != 0)
        return {};
    return receiver::gpsStatusText(m_gpsStatus.value_or(receiver::GpsStatus{}),
                                   m_reported.value(QStringLiteral("GPS_ON"), 1) != 0);
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
    if (m_gyroCal == GyroCal::Running)
        return false;
    if (isUsbOpen()) {
        m_usbGyroResult = receiver::Reply::GyroCal::None;
        m_usbGyroReason.clear();
        queueCommand(kGyroCal);
        m_usbGyroTimer->start();
        setGyroCal(GyroCal::Running, tr("Calibrating: keep the car still…"));
        return true;
    }
    return startElrsGyroCal();
}

void ReceiverConfigManager::onUsbGyroCalCheck()
{
    using Result = receiver::Reply::GyroCal;
    if (m_gyroCal != GyroCal::Running)
        return;
    if (m_usbGyroResult == Result::Ok)
        setGyroCal(GyroCal::Done, tr("Gyro calibrated, yaw reset to 0"));
    else if (m_usbGyroResult == Result::None)
        setGyroCal(GyroCal::Failed, tr("No answer from the receiver. Try again."));
    else if (m_usbGyroReason.isEmpty())
        setGyroCal(GyroCal::Failed, tr("The receiver did not calibrate."));
    else
        setGyroCal(GyroCal::Failed, tr("The receiver says: %1").arg(m_usbGyroReason));
}

bool ReceiverConfigManager::startElrsGyroCal()
{
    if (!m_link || m_link->state() != ReceiverElrsLink::State::Ready)
        return false;
    const std::optional<uint8_t> field = m_link->fieldId(kElrsGyroCalField);
    if (!field || !m_link->writeParameter(*field, kCommandStart))
        return false;
    m_elrsGyroField = *field;
    m_elrsCancelPending = false;
    m_elrsGyroLimitTimer->start();
    setGyroCal(GyroCal::Running, tr("Starting over ELRS…"));
    return true;
}

// The receiver answers each write of the command field with the field read back: its
// status says whether the calibration still runs, ended, or was refused (with a text).
void ReceiverConfigManager::onElrsWriteDone(uint8_t param, int value)
{
    if (m_elrsGyroField < 0 || param != m_elrsGyroField)
        return;
    if (m_elrsCancelPending) {
        m_elrsCancelPending = false;
        if (m_link)
            m_link->writeParameter(param, kCommandCancel);
        return;
    }
    if (m_gyroCal != GyroCal::Running)
        return;
    if (value == kCommandStart || value == kCommandProgress) {
        m_elrsGyroPollTimer->start();
        return;
    }
    m_elrsGyroLimitTimer->stop();
    if (value == kCommandIdle) {
        setGyroCal(GyroCal::Done, tr("Gyro calibrated, yaw reset to 0"));
        return;
    }
    if (value < 0) {
        setGyroCal(GyroCal::Failed, tr("No answer from the receiver. Try again."));
        return;
    }
    const QString said = m_link ? m_link->parameters().value(param).text : QString();
    setGyroCal(GyroCal::Failed, said.isEmpty() ? tr("The receiver did not calibrate.")
                                               : tr("The receiver says: %1").arg(said));
}

void ReceiverConfigManager::pollElrsGyroCal()
{
    if (m_gyroCal == GyroCal::Running && m_link && m_elrsGyroField >= 0)
        m_link->writeParameter(uint8_t(m_elrsGyroField), kCommandPoll);
}

void ReceiverConfigManager::onElrsGyroCalLimit()
{
    if (m_gyroCal != GyroCal::Running || m_elrsGyroField < 0)
        return;
    m_elrsGyroPollTimer->stop();
    // A poll may still be on its way; the cancel then goes out once it is answered.
    if (!m_link || !m_link->writeParameter(uint8_t(m_elrsGyroField), kCommandCancel))
        m_elrsCancelPending = true;
    setGyroCal(GyroCal::Failed, tr("Not finished: the car must stand still. Try again."));
}

void ReceiverConfigManager::onElrsLinkIdle()
{
    updateElrsRefresh();
    if (m_gyroCal != GyroCal::Running || m_elrsGyroField < 0 || isUsbOpen())
        return;
    m_elrsGyroLimitTimer->stop();
    m_elrsGyroPollTimer->stop();
    m_elrsCancelPending = false;
    setGyroCal(GyroCal::Failed, tr("Lost the receiver during calibration."));
}

void ReceiverConfigManager::setGyroCal(GyroCal state, const QString &text)
{
    m_gyroCal = state;
    m_gyroCalText = text;
    if (state != GyroCal::Running && !m_elrsCancelPending)
        m_elrsGyroField = -1;
    emit gyroCalChanged();
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

void ReceiverConfigManager::onElrsRefresh()
{
    if (!isOverElrs() || m_gyroCal == GyroCal::Running)
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
