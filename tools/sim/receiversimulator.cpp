#include "receiversimulator.h"

#include "pseudoterminal.h"

#include <QDateTime>
#include <QTimer>

namespace tavrix::sim {

namespace {

// One line the receiver holds at most; a longer one without its line end is dropped.
constexpr qsizetype kMaxCommandLength = 256;

// The channel range of a CRSF receiver: 172..1811, printed as 988..2012 us.
constexpr int kPulseMinUs = 988;
constexpr int kPulseMaxUs = 2012;
constexpr int kCrsfMin = 172;
constexpr int kCrsfMax = 1811;

// The settings commands, in the order the TELEM line lists their keys, with the value a
// freshly booted receiver reports. The reply is "<reply> <value>".
struct SettingCommand
{
    const char *command;
    const char *key;
    const char *reply;
    int minimum;
    int maximum;
    int initial;
};

constexpr SettingCommand kSettingCommands[] = {
    {"SET_OSD", "OSD", "OSD_OK", 0, 1, 1},
    {"SET_GPS", "GPS_ON", "GPS_OK", 0, 1, 1},
    {"GPS_RATE", "GPS_RATE", "GPS_RATE_OK", 1, 10, 5},
    {"SET_GPS_TELEM", "GPS", "GPS_TELEM_OK", 0, 1, 1},
    {"SET_IMU_TELEM", "IMU", "IMU_TELEM_OK", 0, 1, 1},
    {"SET_MOTION_TELEM", "MOTION", "MOTION_TELEM_OK", 0, 1, 1},
    {"SET_MOTION_RATE", "MOTION_RATE", "MOTION_RATE_OK", 1, 100, 50},
    {"SET_MOTION_SENSORS", "MOTION_SENSORS", "MOTION_SENSORS_OK", 0, 1, 1},
};

constexpr uint8_t kMspAttitude = 108;

using MountingError = ReceiverSimulatorSettings::MountingError;

// The step (1 or 2) a scripted error fails and the reason its "IMU_ORIENT_ERR" gives;
// no reason: the receiver does not answer at all.
struct MountingFailure
{
    MountingError error;
    int step;
    const char *reason;
};

constexpr MountingFailure kMountingFailures[] = {
    {MountingError::NotFlat, 1, "not flat"},     {MountingError::NoTilt, 2, "tilt not detected"},
    {MountingError::FlatFirst, 2, "flat first"}, {MountingError::ImuNotRunning, 1, "imu not running"},
    {MountingError::Other, 1, "gyro busy"},      {MountingError::NoAnswer, 1, nullptr},
};

QString gpsStatusLine(const ReceiverGpsStatus &gps)
{
    QString line = QStringLiteral("%1, %2 sats")
                       .arg(gps.fix ? QStringLiteral("Fix") : QStringLiteral("No fix"))
                       .arg(gps.satellites);
    if (gps.antenna == ReceiverGpsStatus::Antenna::Open)
        line += QStringLiteral(", antenna open");
    else if (gps.antenna == ReceiverGpsStatus::Antenna::Short)
        line += QStringLiteral(", antenna short");
    return line;
}

} // namespace

ReceiverSimulator::ReceiverSimulator(const ReceiverSimulatorSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_pty(new PseudoTerminal(this))
    , m_telemetryTimer(new QTimer(this))
    , m_calibrationLineTimer(new QTimer(this))
    , m_gyroTimer(new QTimer(this))
{
    for (const SettingCommand &setting : kSettingCommands)
        m_values.insert(QLatin1String(setting.key), setting.initial);
    m_led.setRefusedKeys(m_settings.refusedLedCommands);

    connect(m_pty, &PseudoTerminal::readyRead, this, &ReceiverSimulator::onReadyRead);
    m_telemetryTimer->setInterval(m_settings.telemetryIntervalMs);
    connect(m_telemetryTimer, &QTimer::timeout, this, [this] {
        ++m_telemetryCount;
        const int every = m_settings.mspFrameEveryTelemetry;
        sendTelemetry(every > 0 && m_telemetryCount % quint64(every) == 0);
    });
    m_calibrationLineTimer->setInterval(m_settings.calibrationLineIntervalMs);
    connect(m_calibrationLineTimer, &QTimer::timeout, this, &ReceiverSimulator::sendCalibrationLines);
    m_gyroTimer->setSingleShot(true);
    m_gyroTimer->setInterval(m_settings.gyroCalibrationMs);
    connect(m_gyroTimer, &QTimer::timeout, this, &ReceiverSimulator::finishGyroCalibration);
}

ReceiverSimulator::~ReceiverSimulator() = default;

bool ReceiverSimulator::start(const QString &linkPath)
{
    if (!m_pty->open(linkPath))
        return false;
    if (m_settings.telemetryIntervalMs > 0 && !m_settings.oldFirmware)
        m_telemetryTimer->start();
    if (m_settings.calibrationLineIntervalMs > 0)
        m_calibrationLineTimer->start();
    return true;
}

QString ReceiverSimulator::slavePath() const
{
    return m_pty->slavePath();
}

QString ReceiverSimulator::linkPath() const
{
    return m_pty->linkPath();
}

QString ReceiverSimulator::clientPath() const
{
    return m_pty->clientPath();
}

QString ReceiverSimulator::errorString() const
{
    return m_pty->errorString();
}

void ReceiverSimulator::hangUp()
{
    m_gyroTimer->stop();
    m_flatRead = false;
    m_inbox.clear();
    m_pty->hangUp();
}

bool ReceiverSimulator::plugIn()
{
    return m_pty->isOpen() || m_pty->plugIn();
}

QString ReceiverSimulator::firmwareVersion() const
{
    if (!m_settings.firmwareVersion.isEmpty())
        return m_settings.firmwareVersion;
    return m_settings.oldFirmware ? QStringLiteral("3.2.0") : QStringLiteral("4.3.0");
}

void ReceiverSimulator::setSticks(int ch1Us, int ch2Us)
{
    m_ch1Us = qBound(kPulseMinUs, ch1Us, kPulseMaxUs);
    m_ch2Us = qBound(kPulseMinUs, ch2Us, kPulseMaxUs);
}

void ReceiverSimulator::setMountingError(ReceiverSimulatorSettings::MountingError error)
{
    m_settings.mountingError = error;
}

void ReceiverSimulator::setGyroCalibration(ReceiverSimulatorSettings::GyroCalibration outcome)
{
    m_settings.gyroCalibration = outcome;
}

int ReceiverSimulator::crsfValue(int pulseUs)
{
    // ExpressLRS maps 1000..2000 us onto 192..1792 around the centre 992 (1500 us).
    return qBound(kCrsfMin, 992 + qRound((pulseUs - 1500) * 1.6), kCrsfMax);
}

QByteArray ReceiverSimulator::mspFrame(uint8_t command, const QByteArray &payload)
{
    QByteArray frame("$M>");
    frame += char(payload.size());
    frame += char(command);
    frame += payload;
    uint8_t checksum = uint8_t(payload.size()) ^ command;
    for (const char byte : payload)
        checksum ^= uint8_t(byte);
    frame += char(checksum);
    return frame;
}

void ReceiverSimulator::onReadyRead()
{
    m_inbox += m_pty->readAll();
    for (qsizetype end = m_inbox.indexOf('\n'); end >= 0; end = m_inbox.indexOf('\n')) {
        QByteArray line = m_inbox.left(end);
        m_inbox.remove(0, end + 1);
        line.replace('\r', QByteArray());
        const QString command = QString::fromLatin1(line).trimmed();
        if (!command.isEmpty())
            handleCommand(command);
    }
    if (m_inbox.size() > kMaxCommandLength)
        m_inbox.clear();
}

std::span<const ReceiverSimulator::ConsoleCommand> ReceiverSimulator::consoleCommands()
{
    static const ConsoleCommand commands[] = {
        {"VER", false, &ReceiverSimulator::answerVersion},
        {"HW", false, &ReceiverSimulator::answerHardware},
        {"HELP", false, &ReceiverSimulator::answerHelp},
        {"GET_TELEM", true, &ReceiverSimulator::answerTelemetry},
        {"GET_OSD", true, &ReceiverSimulator::answerOsd},
        {"GET_IMU_AXES", true, &ReceiverSimulator::answerAxes},
        {"IMU_CAL", true, &ReceiverSimulator::answerGyroCalibration},
        {"IMU_ORIENT", true, &ReceiverSimulator::answerMounting},
    };
    return commands;
}

void ReceiverSimulator::handleCommand(const QString &command)
{
    m_commands.append(command);
    while (m_commands.size() > m_settings.maxRecordedCommands)
        m_commands.removeFirst();
    emit commandReceived(command, QDateTime::currentMSecsSinceEpoch());

    if (ReceiverLedStrip::isLedCommand(command)) {
        sendLine(m_led.handle(command));
        return;
    }
    const QString name = command.section(QLatin1Char(' '), 0, 0);
    const QString argument = command.section(QLatin1Char(' '), 1);
    for (const ConsoleCommand &console : consoleCommands()) {
        if (name != QLatin1String(console.name))
            continue;
        if (!(console.sinceSettings && m_settings.oldFirmware))
            (this->*console.answer)(argument);
        return;
    }
    if (!answerSetting(name, argument))
        sendLine(QStringLiteral("ERR unknown command: ") + command);
}

void ReceiverSimulator::answerVersion(const QString &)
{
    sendLine(QStringLiteral("Orvane:") + firmwareVersion());
}

void ReceiverSimulator::answerHardware(const QString &)
{
    sendLine(QStringLiteral("HW:") + m_settings.hardware);
}

void ReceiverSimulator::answerHelp(const QString &)
{
    QStringList names;
    for (const ConsoleCommand &console : consoleCommands())
        names.append(QLatin1String(console.name));
    for (const SettingCommand &setting : kSettingCommands)
        names.append(QLatin1String(setting.command));
    names.append(QStringLiteral("LED_*"));
    sendLine(QStringLiteral("Commands: ") + names.join(QLatin1Char(' ')));
}

void ReceiverSimulator::answerTelemetry(const QString &)
{
    sendTelemetry(false);
}

void ReceiverSimulator::answerOsd(const QString &)
{
    sendLine(QStringLiteral("OSD:%1").arg(m_values.value(QStringLiteral("OSD"))));
}

void ReceiverSimulator::answerAxes(const QString &)
{
    sendLine(QStringLiteral("IMU_AXES:") + m_axes);
}

bool ReceiverSimulator::answerSetting(const QString &name, const QString &argument)
{
    for (const SettingCommand &setting : kSettingCommands) {
        if (name != QLatin1String(setting.command))
            continue;
        if (m_settings.oldFirmware)
            return true;
        bool ok = false;
        const int value = argument.toInt(&ok);
        if (!ok || value < setting.minimum || value > setting.maximum) {
            sendLine(
                QStringLiteral("ERR %1 needs %2..%3").arg(name).arg(setting.minimum).arg(setting.maximum));
            return true;
        }
        m_values.insert(QLatin1String(setting.key), value);
        sendLine(QStringLiteral("%1 %2").arg(QLatin1String(setting.reply)).arg(value));
        return true;
    }
    return false;
}

void ReceiverSimulator::answerMounting(const QString &step)
{
    const int stepNumber = step == QLatin1String("FLAT") ? 1 : (step == QLatin1String("NOSEUP") ? 2 : 0);
    if (stepNumber == 0) {
        sendLine(QStringLiteral("IMU_ORIENT_ERR (unknown step %1)").arg(step));
        return;
    }
    const char *reason = nullptr;
    for (const MountingFailure &failure : kMountingFailures) {
        if (failure.error == m_settings.mountingError && failure.step == stepNumber) {
            if (failure.error == MountingError::NoAnswer)
                return;
            reason = failure.reason;
        }
    }
    // The receiver's own checks, whatever the script says.
    if (m_values.value(QStringLiteral("MOTION_SENSORS")) == 0)
        reason = "imu not running";
    else if (stepNumber == 2 && !m_flatRead && !reason)
        reason = "flat first";
    if (reason) {
        m_flatRead = false;
        sendLine(QStringLiteral("IMU_ORIENT_ERR (%1)").arg(QLatin1String(reason)));
        return;
    }
    if (stepNumber == 1) {
        m_flatRead = true;
        sendLine(QStringLiteral("IMU_ORIENT_FLAT_OK"));
        return;
    }
    m_flatRead = false;
    m_axes = m_settings.detectedAxes;
    sendLine(QStringLiteral("IMU_ORIENT_OK"));
}

void ReceiverSimulator::answerGyroCalibration(const QString &)
{
    if (m_gyroTimer->isActive())
        return; // one calibration at a time; the running one still reports
    if (m_values.value(QStringLiteral("MOTION_SENSORS")) == 0) {
        sendLine(QStringLiteral("IMU_CAL_ERR (imu not running)"));
        return;
    }
    sendLine(QStringLiteral("IMU_CAL_STARTED"));
    m_gyroTimer->start();
}

void ReceiverSimulator::finishGyroCalibration()
{
    switch (m_settings.gyroCalibration) {
    case ReceiverSimulatorSettings::GyroCalibration::Succeeds:
        sendLine(QStringLiteral("IMU_CAL_OK"));
        break;
    case ReceiverSimulatorSettings::GyroCalibration::CarMoved:
        sendLine(QStringLiteral("IMU_CAL_ERR (moved)"));
        break;
    case ReceiverSimulatorSettings::GyroCalibration::NoAnswer:
        break;
    }
}

void ReceiverSimulator::sendTelemetry(bool withMspFrame)
{
    QString line = QStringLiteral("TELEM:");
    for (const SettingCommand &setting : kSettingCommands)
        line += QStringLiteral(" %1:%2")
                    .arg(QLatin1String(setting.key))
                    .arg(m_values.value(QLatin1String(setting.key)));
    QByteArray frame;
    if (withMspFrame) {
        // The car's attitude as the MSP attitude reply carries it: roll and pitch in
        // tenths of a degree, yaw in degrees, each int16 little-endian.
        const QByteArray attitude = QByteArray::fromHex("0c00fbff5a00");
        frame = mspFrame(kMspAttitude, attitude);
    }
    sendLine(line, frame);
    if (m_values.value(QStringLiteral("GPS_ON")) == 1)
        sendLine(gpsStatusLine(m_gps));
}

void ReceiverSimulator::sendCalibrationLines()
{
    sendLine(QStringLiteral("CH1:%1us CRSF:%2").arg(m_ch1Us).arg(crsfValue(m_ch1Us)));
    sendLine(QStringLiteral("CH2:%1us CRSF:%2").arg(m_ch2Us).arg(crsfValue(m_ch2Us)));
}

void ReceiverSimulator::sendLine(const QString &line, const QByteArray &before)
{
    if (!m_pty->isOpen())
        return;
    m_pty->write(before + line.toLatin1() + "\r\n");
    emit lineSent(line);
}

} // namespace tavrix::sim
