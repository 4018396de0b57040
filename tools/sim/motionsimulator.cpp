#include "motionsimulator.h"

#include "pseudoterminal.h"

#include <QDateTime>
#include <QTimer>

#include <cmath>
#include <numbers>

namespace tavrix::sim {

namespace {

constexpr int kSetPointCentre = 32767;
constexpr uint8_t kAllActuators = 0xFF;

// How many bytes each command's payload has, its letter included, and how its numbers
// are laid out after the letter: 1 for a byte, 2 for a number sent high byte first.
struct CommandLayout
{
    char code;
    QList<int> fieldWidths;
};

const QList<CommandLayout> kCommandLayouts = {
    {'C', {2, 2, 2, 2, 2}},    // settings: intensity, travel, speed, acceleration, park
    {'Q', {}},                 // echo the settings
    {'H', {}},                 // home
    {'Z', {}},                 // toggle calibration mode
    {'R', {}},                 // release: motors off
    {'M', {1, 2}},             // actuator, position in mm
    {'T', {1, 1, 2, 1}},       // actuator (0xFF all), travel %, centi-hertz, seconds
    {'6', {2, 2, 2, 2, 2, 2}}, // set-points of actuators 1..6
};

const CommandLayout *layoutFor(char code)
{
    for (const CommandLayout &layout : kCommandLayouts)
        if (layout.code == code)
            return &layout;
    return nullptr;
}

int payloadSize(const CommandLayout &layout)
{
    int size = 1;
    for (const int width : layout.fieldWidths)
        size += width;
    return size;
}

QList<int> decodeFields(const CommandLayout &layout, const QByteArray &payload)
{
    QList<int> values;
    qsizetype at = 1;
    for (const int width : layout.fieldWidths) {
        int value = uint8_t(payload.at(at));
        if (width == 2)
            value = value << 8 | uint8_t(payload.at(at + 1));
        values.append(value);
        at += width;
    }
    return values;
}

} // namespace

MotionSimulator::MotionSimulator(const MotionSimulatorSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_pty(new PseudoTerminal(this))
    , m_heartbeatTimer(new QTimer(this))
    , m_motionTimer(new QTimer(this))
    , m_homingTimer(new QTimer(this))
    , m_state(settings.initialState)
{
    m_settings.actuators = qBound(1, m_settings.actuators, kMaxActuators);
    setAllTargets(parkMm());
    m_positions = m_targets;
    connect(m_pty, &PseudoTerminal::readyRead, this, &MotionSimulator::onReadyRead);
    m_heartbeatTimer->setInterval(m_settings.heartbeatIntervalMs);
    connect(m_heartbeatTimer, &QTimer::timeout, this, &MotionSimulator::sendHeartbeat);
    m_motionTimer->setInterval(m_settings.motionStepMs);
    connect(m_motionTimer, &QTimer::timeout, this, [this] { advance(m_settings.motionStepMs); });
    m_homingTimer->setSingleShot(true);
    m_homingTimer->setInterval(m_settings.homingMs);
    connect(m_homingTimer, &QTimer::timeout, this, [this] {
        m_state = QStringLiteral("ready");
        sendLine(QStringLiteral("#HOME done"));
    });
}

MotionSimulator::~MotionSimulator() = default;

bool MotionSimulator::start(const QString &linkPath)
{
    if (!m_pty->open(linkPath))
        return false;
    if (m_settings.heartbeatIntervalMs > 0)
        m_heartbeatTimer->start();
    if (m_settings.motionStepMs > 0)
        m_motionTimer->start();
    return true;
}

QString MotionSimulator::slavePath() const
{
    return m_pty->slavePath();
}

QString MotionSimulator::linkPath() const
{
    return m_pty->linkPath();
}

QString MotionSimulator::clientPath() const
{
    return m_pty->clientPath();
}

QString MotionSimulator::errorString() const
{
    return m_pty->errorString();
}

void MotionSimulator::hangUp()
{
    m_inbox.clear();
    m_pty->hangUp();
}

bool MotionSimulator::plugIn()
{
    return m_pty->isOpen() || m_pty->plugIn();
}

void MotionSimulator::fail()
{
    m_testRemainingMs = 0;
    m_homingTimer->stop();
    m_state = QStringLiteral("FAIL");
    m_targets = m_positions;
}

QString MotionSimulator::describe(const Command &command)
{
    QStringList parts{QString(QLatin1Char(command.code))};
    for (const int value : command.values)
        parts.append(QString::number(value));
    return parts.join(QLatin1Char(' '));
}

void MotionSimulator::onReadyRead()
{
    m_inbox += m_pty->readAll();
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    QByteArray garbage;
    // Resynchronises one byte at a time: a byte that starts no complete, well-ended
    // command is dropped and the next one tried.
    while (!m_inbox.isEmpty()) {
        const CommandLayout *layout =
            m_inbox.size() >= 2 && m_inbox.at(0) == 'P' ? layoutFor(m_inbox.at(1)) : nullptr;
        if (m_inbox.at(0) == 'P' && m_inbox.size() < 2)
            break;
        if (layout) {
            const qsizetype size = payloadSize(*layout);
            if (m_inbox.size() < size + 3)
                break;
            if (m_inbox.mid(1 + size, 2) == "!!") {
                const QByteArray payload = m_inbox.mid(1, size);
                m_inbox.remove(0, size + 3);
                handle(Command{layout->code, decodeFields(*layout, payload), now});
                continue;
            }
        }
        garbage.append(m_inbox.at(0));
        m_inbox.remove(0, 1);
    }
    if (!garbage.isEmpty())
        emit garbageReceived(garbage, now);
}

void MotionSimulator::handle(const Command &command)
{
    if (m_commands.size() >= m_settings.maxRecordedCommands)
        m_commands.removeFirst();
    m_commands.append(command);
    emit commandReceived(describe(command), command.receivedMs);

    const QList<int> &v = command.values;
    switch (command.code) {
    case 'C':
        for (qsizetype i = 0; i < v.size(); ++i)
            m_config[size_t(i)] = v.at(i);
        break;
    case 'Q':
        sendLine(QStringLiteral("#CFG i=%1 t=%2 s=%3 a=%4 p=%5")
                     .arg(m_config[0])
                     .arg(m_config[1])
                     .arg(m_config[2])
                     .arg(m_config[3])
                     .arg(m_config[4]));
        break;
    case 'H':
        m_testRemainingMs = 0;
        m_calibrating = false;
        m_state = QStringLiteral("homing");
        setAllTargets(parkMm());
        m_homingTimer->start();
        break;
    case 'Z':
        if (ready() || m_calibrating) {
            m_calibrating = !m_calibrating;
            m_state = m_calibrating ? QStringLiteral("calibration") : QStringLiteral("ready");
        }
        break;
    case 'R':
        // Motors off: every actuator stays where it is, whatever was asked of it.
        if (m_testRemainingMs > 0)
            sendLine(QStringLiteral("#TST aborted"));
        m_testRemainingMs = 0;
        m_homingTimer->stop();
        m_calibrating = false;
        m_state = QStringLiteral("released");
        m_targets = m_positions;
        break;
    case 'M':
        if (ready() && v.at(0) < m_settings.actuators)
            m_targets[size_t(v.at(0))] = qBound(0, v.at(1), kStrokeMm);
        break;
    case 'T':
        startBoardTest(v);
        break;
    case '6':
        if (ready() && m_testRemainingMs <= 0)
            setSetPoints(v);
        break;
    default:
        break;
    }
}

bool MotionSimulator::ready() const
{
    return m_state == QLatin1String("ready");
}

void MotionSimulator::setAllTargets(double mm)
{
    m_targets.fill(mm);
}

void MotionSimulator::setSetPoints(const QList<int> &values)
{
    // The centre is the park position; full scale either way is half the travel setting.
    for (int k = 0; k < m_settings.actuators; ++k) {
        const double offset = double(values.at(k) - kSetPointCentre) / kSetPointCentre * travelMm() / 2.0;
        m_targets[size_t(k)] = qBound(0.0, parkMm() + offset, double(kStrokeMm));
    }
}

void MotionSimulator::startBoardTest(const QList<int> &values)
{
    if (!ready() || m_testRemainingMs > 0) {
        sendLine(QStringLiteral("#TST refused (%1)").arg(m_state));
        return;
    }
    m_testActuator = values.at(0) == kAllActuators ? -1 : values.at(0);
    m_testAmplitudeMm = qBound(0, values.at(1), 100) / 100.0 * travelMm() / 2.0;
    m_testFrequencyHz = values.at(2) / 100.0;
    m_testElapsedMs = 0;
    m_testRemainingMs = qMax(1, values.at(3)) * qMax(1, m_settings.testSecondMs);
    sendLine(QStringLiteral("#TST start a=%1 t=%2 f=%3 s=%4")
                 .arg(values.at(0))
                 .arg(values.at(1))
                 .arg(values.at(2))
                 .arg(values.at(3)));
}

void MotionSimulator::advance(int ms)
{
    if (m_testRemainingMs > 0) {
        m_testElapsedMs += ms;
        m_testRemainingMs -= ms;
        const double testSeconds = double(m_testElapsedMs) / qMax(1, m_settings.testSecondMs);
        const double offset =
            m_testAmplitudeMm * std::sin(2.0 * std::numbers::pi * m_testFrequencyHz * testSeconds);
        for (int k = 0; k < m_settings.actuators; ++k) {
            const bool moving = m_testActuator < 0 || m_testActuator == k;
            m_targets[size_t(k)] = qBound(0.0, parkMm() + (moving ? offset : 0.0), double(kStrokeMm));
        }
        if (m_testRemainingMs <= 0) {
            m_testRemainingMs = 0;
            setAllTargets(parkMm());
            sendLine(QStringLiteral("#TST done#"));
        }
    }
    const double maxStep = m_settings.maxSpeedMmPerS * m_config[2] / 100.0 * ms / 1000.0;
    for (int k = 0; k < m_settings.actuators; ++k) {
        const double gap = m_targets[size_t(k)] - m_positions[size_t(k)];
        m_positions[size_t(k)] += qBound(-maxStep, gap, maxStep);
    }
}

void MotionSimulator::sendHeartbeat()
{
    QString line = QLatin1Char('[') + m_state + QLatin1Char(']');
    for (int k = 0; k < m_settings.actuators; ++k)
        line += QStringLiteral(" ax%1=%2mm").arg(k + 1).arg(qRound(m_positions[size_t(k)]));
    sendLine(line);
}

void MotionSimulator::sendLine(const QString &line)
{
    if (m_silent || !m_pty->isOpen())
        return;
    m_pty->write(line.toLatin1() + "\r\n");
    emit lineSent(line);
}

QList<MotionSimulator::Command> MotionSimulator::withCode(const QList<Command> &commands, char code)
{
    QList<Command> result;
    for (const Command &command : commands)
        if (command.code == code)
            result.append(command);
    return result;
}

} // namespace tavrix::sim
