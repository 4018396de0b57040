#include "motionsystemcontroller.h"

#include "motionframes.h"
#include "motionsettingsstore.h"
#include "orvaneusbdevices.h"
#include "serialportdirectory.h"
#include "tavrixserialport.h"

#include <QLoggingCategory>
#include <QTimer>

namespace tavrix {

Q_LOGGING_CATEGORY(lcMotionSystem, "orvane.motion")

namespace {

// Board tests and the Full System test name no single pattern: they report this one.
constexpr int kBoardTestPattern = kPatternHeave;

TavrixSerialPort::Timings portTimings()
{
    TavrixSerialPort::Timings timings;
    // A busy port is the user's to free (another program holds it): say so at once.
    timings.openAttempts = 1;
    return timings;
}

} // namespace

MotionSystemController::MotionSystemController(QObject *parent)
    : MotionSystemController(nullptr, Timings{}, parent)
{}

MotionSystemController::MotionSystemController(std::shared_ptr<const SerialPortDirectory> ports,
                                               const Timings &timings, QObject *parent)
    : QObject(parent)
    , m_ports(ports ? std::move(ports) : std::make_shared<SystemSerialPortDirectory>())
    , m_timings(timings)
    , m_port(new TavrixSerialPort(portTimings(), this))
    , m_tickTimer(new QTimer(this))
    , m_firstHeartbeatTimer(new QTimer(this))
    , m_watchdog(new QTimer(this))
    , m_stepGapTimer(new QTimer(this))
    , m_boardFallbackTimer(new QTimer(this))
    , m_settings(MotionSettingsStore::loadSettings())
    , m_platformKind(MotionSettingsStore::loadPlatformKind())
{
    // DTR and RTS reach the ST-LINK's reset and boot lines: opening the port must not
    // restart the board.
    m_port->setControlLines(TavrixSerialPort::ControlLines::Lowered);
    connect(m_port, &TavrixSerialPort::dataReceived, this, &MotionSystemController::onPortData);
    connect(m_port, &TavrixSerialPort::connectedChanged, this,
            &MotionSystemController::onPortConnectedChanged);
    connect(m_port, &TavrixSerialPort::errorOccurred, this, &MotionSystemController::onPortError);

    m_tickTimer->setInterval(m_timings.testTick);
    m_tickTimer->setTimerType(Qt::PreciseTimer);
    connect(m_tickTimer, &QTimer::timeout, this, &MotionSystemController::onTestTick);

    m_firstHeartbeatTimer->setSingleShot(true);
    m_firstHeartbeatTimer->setInterval(m_timings.firstHeartbeat);
    connect(m_firstHeartbeatTimer, &QTimer::timeout, this, [this] {
        if (m_awaitingFirstHeartbeat)
            emit errorOccurred(tr("No heartbeat from the controller within 3.5 s — wrong port, or the "
                                  "ST-LINK is wedged (unplug and replug the USB)."));
    });

    m_watchdog->setSingleShot(true);
    m_watchdog->setInterval(m_timings.heartbeatWatchdog);
    connect(m_watchdog, &QTimer::timeout, this, [this] {
        if (!isConnected())
            return;
        emit controllerStateChanged(m_state);
        emit errorOccurred(
            tr("Heartbeats stopped — link may be wedged (unplug and replug the USB if it persists)."));
    });

    m_stepGapTimer->setSingleShot(true);
    m_stepGapTimer->setInterval(m_timings.stepGap);
    connect(m_stepGapTimer, &QTimer::timeout, this, &MotionSystemController::runNextFullSystemStep);

    m_boardFallbackTimer->setSingleShot(true);
    connect(m_boardFallbackTimer, &QTimer::timeout, this, [this] {
        emit statusLine(tr("Board test assumed finished (no #TST done# seen)"));
        finishBoardTest();
    });
}

MotionSystemController::~MotionSystemController()
{
    // The port closes as our child, writing out what is still queued (a Release among it);
    // that close is nobody's news any more.
    disconnect(m_port, nullptr, this, nullptr);
}

QString MotionSystemController::portLabel(const SerialPortDescription &port)
{
    const bool board = orvaneUsbDevice(OrvaneUsbDevice::Kind::MotionController).matches(port) ||
                       port.description.contains(QLatin1String("STLink"), Qt::CaseInsensitive) ||
                       port.description.contains(QLatin1String("STM32"), Qt::CaseInsensitive);
    const QString description = board ? tr("Orvane Motion Controller") : port.description;
    return description.isEmpty() ? port.portName : port.portName + QLatin1Char(' ') + description;
}

QStringList MotionSystemController::availableControllerPorts() const
{
    QStringList labels;
    for (const SerialPortDescription &port : m_ports->ports())
        labels.append(portLabel(port));
    return labels;
}

bool MotionSystemController::isConnected() const
{
    return m_port->isOpen();
}

QString MotionSystemController::portName() const
{
    return m_port->portName();
}

bool MotionSystemController::isTestRunning() const
{
    return m_tickTimer->isActive() || m_boardTestRunning || m_fullSystemRunning;
}

bool MotionSystemController::connectPort(const QString &portName)
{
    disconnectPort();
    m_connecting = true;
    m_openErrorText.clear();
    const bool opened = m_port->open(portName, kBaudRate);
    m_connecting = false;
    if (!opened) {
        if (m_port->lastError() == QSerialPort::PermissionError)
            emit errorOccurred(
                tr("%1 is in use by another program (PuTTY? a test script?). Close it and connect again.")
                    .arg(portName));
        else
            emit errorOccurred(tr("Failed to open %1: %2").arg(portName, m_openErrorText));
        return false;
    }
    m_lines.clear();
    m_state.clear();
    m_writeFailureReported = false;
    emit connectedChanged(true);
    emit statusLine(tr("Connected to %1 — waiting for heartbeat…").arg(portName));
    m_awaitingFirstHeartbeat = true;
    m_firstHeartbeatTimer->start();
    return true;
}

void MotionSystemController::disconnectPort()
{
    const bool wasTesting = stopAll();
    const bool open = isConnected();
    // A platform left mid-test would hold its last set-point with nobody watching it.
    if (open && wasTesting)
        send(motionframes::release());
    if (wasTesting)
        emit testFinished();
    if (open)
        endConnection(ClosePort::Yes);
    else
        forgetBoard();
}

bool MotionSystemController::stopTests()
{
    const bool wasTesting = isTestRunning();
    m_tickTimer->stop();
    m_boardTestRunning = false;
    m_boardFallbackTimer->stop();
    m_hostPatternStep = false;
    m_fullSystemRunning = false;
    m_plan.clear();
    m_stepGapTimer->stop();
    return wasTesting;
}

bool MotionSystemController::stopAll()
{
    m_awaitingFirstHeartbeat = false;
    m_firstHeartbeatTimer->stop();
    m_watchdog->stop();
    return stopTests();
}

void MotionSystemController::endConnection(ClosePort closePort)
{
    if (closePort == ClosePort::Yes) {
        m_closing = true;
        m_port->close();
        m_closing = false;
    }
    emit connectedChanged(false);
    emit statusLine(tr("Disconnected"));
    forgetBoard();
}

void MotionSystemController::forgetBoard()
{
    m_state.clear();
    m_positions.clear();
}

void MotionSystemController::onPortConnectedChanged(bool connected)
{
    if (connected || m_closing || m_connecting)
        return;
    // The port went away under us (unplugged, or the line hung up).
    if (stopAll())
        emit testFinished();
    endConnection(ClosePort::No);
    emit errorOccurred(tr("Motion controller disconnected (port lost)"));
}

void MotionSystemController::onPortError(const QString &text)
{
    if (m_connecting) {
        m_openErrorText = text;
        return;
    }
    // A lost port has been reported through connectedChanged already.
    if (!isConnected())
        return;
    const QSerialPort::SerialPortError error = m_port->lastError();
    if (error != QSerialPort::WriteError && error != QSerialPort::TimeoutError) {
        qCInfo(lcMotionSystem).noquote() << "Serial error ignored:" << text;
        return;
    }
    qCWarning(lcMotionSystem).noquote() << "Serial writes failing:" << text;
    // Every set-point frame would fail again: say it once per connection.
    if (m_writeFailureReported)
        return;
    m_writeFailureReported = true;
    emit errorOccurred(tr("Serial writes failing — this is the known ST-LINK USB wedge. Unplug and "
                          "replug the controller USB."));
}

void MotionSystemController::send(const QByteArray &frame)
{
    m_port->write(frame);
}

void MotionSystemController::onPortData(const QByteArray &chunk)
{
    const QStringList lines = m_lines.feed(chunk);
    for (const QString &line : lines)
        handleLine(line);
}

void MotionSystemController::handleLine(const QString &line)
{
    const MotionLine parsed = parseMotionLine(line);
    switch (parsed.kind) {
    case MotionLine::Kind::Heartbeat:
        handleHeartbeat(line, parsed);
        return;
    case MotionLine::Kind::TestReport:
        if (parsed.testDone && m_boardTestRunning)
            finishBoardTest();
        break;
    case MotionLine::Kind::ConfigEcho:
        if (parsed.settings) {
            m_settings = *parsed.settings;
            MotionSettingsStore::saveSettings(m_settings);
            emit settingsEchoed(m_settings);
        }
        break;
    case MotionLine::Kind::Other:
        break;
    }
    emit statusLine(line);
}

void MotionSystemController::handleHeartbeat(const QString &line, const MotionLine &parsed)
{
    m_watchdog->start();
    if (parsed.stateWord && *parsed.stateWord != m_state) {
        m_state = *parsed.stateWord;
        emit controllerStateChanged(m_state);
    }
    if (m_awaitingFirstHeartbeat) {
        m_awaitingFirstHeartbeat = false;
        m_firstHeartbeatTimer->stop();
        emit statusLine(tr("Controller alive — state [%1]").arg(m_state));
        // The board starts with its own settings: give it ours, then ask what it took.
        applySettings(m_settings);
        send(motionframes::querySettings());
    }
    m_positions = parsed.positionsMm;
    emit axisPositionsUpdated(m_positions);
    emit heartbeat(line);
}

void MotionSystemController::applySettings(const MotionSystemSettings &settings)
{
    m_settings = settings.clamped();
    MotionSettingsStore::saveSettings(m_settings);
    send(motionframes::settings(m_settings));
}

bool MotionSystemController::setPlatformKind(int kind)
{
    if (!isPlatformKind(kind) || isTestRunning())
        return false;
    m_platformKind = kind;
    MotionSettingsStore::savePlatformKind(kind);
    return true;
}

void MotionSystemController::autoHome()
{
    if (m_tickTimer->isActive()) {
        emit errorOccurred(tr("Test running — wait for it to finish"));
        return;
    }
    send(motionframes::home());
    emit statusLine(tr("Homing requested"));
}

void MotionSystemController::toggleCalibrationMode()
{
    if (m_tickTimer->isActive()) {
        emit errorOccurred(tr("Test running — wait for it to finish"));
        return;
    }
    send(motionframes::toggleCalibration());
}

void MotionSystemController::release()
{
    // Everything that could send another frame stops before "R" goes out, so "R" stays
    // the last word the board hears.
    stopTests();
    emit testFinished();
    send(motionframes::release());
    emit statusLine(tr("Release requested — motion disabled, Home to resume"));
}

bool MotionSystemController::setActuatorPosition(int actuator, int positionMm)
{
    if (!isConnected() || m_tickTimer->isActive() || m_state != kReadyState)
        return false;
    const std::optional<QByteArray> frame = motionframes::actuatorPosition(actuator, positionMm);
    if (!frame)
        return false;
    send(*frame);
    return true;
}

bool MotionSystemController::refuseTestStart(TestKind kind)
{
    const auto refuse = [this](const QString &message) {
        emit errorOccurred(message);
        return true;
    };
    if (!isConnected())
        return refuse(tr("Not connected"));
    if (isTestRunning())
        return refuse(tr("Test already running"));
    if (kind == TestKind::Pattern && m_state.isEmpty())
        return refuse(tr("Waiting for controller status (heartbeat) — try again in a moment"));
    if (m_state != kReadyState) {
        const QString hint = kind == TestKind::Pattern && m_state == kFailState
                                 ? tr(" (use Auto Home after fixing the cause)")
                                 : QString();
        return refuse(tr("Controller is in \"%1\" state — tests need \"ready\"%2").arg(m_state, hint));
    }
    return false;
}

bool MotionSystemController::startPatternTest(int pattern, int travelPct, int freqCentiHz, int seconds)
{
    if (refuseTestStart(TestKind::Pattern))
        return false;
    const PatternTest test = PatternTest::fromRequest(pattern, travelPct, freqCentiHz, seconds);
    startPatternTick(test, false);
    emit testStarted(test.pattern, test.travelPct);
    emit statusLine(tr("Testing %1 — travel %2%, %3 Hz, %4 s")
                        .arg(patternName(test.pattern))
                        .arg(test.travelPct)
                        .arg(test.frequencyHz, 0, 'f', 2)
                        .arg(test.durationMs / 1000));
    return true;
}

void MotionSystemController::startPatternTick(const PatternTest &test, bool partOfFullSystem)
{
    m_pattern = test;
    m_patternElapsedMs = 0;
    m_hostPatternStep = partOfFullSystem;
    m_tickTimer->start();
}

void MotionSystemController::onTestTick()
{
    // A tick queued before a Release or a disconnect must not send another frame.
    if (!m_tickTimer->isActive())
        return;
    m_patternElapsedMs += PatternTest::kTickMs;
    if (m_patternElapsedMs < m_pattern.durationMs) {
        send(motionframes::setPoints(m_pattern.setPointsAt(m_platformKind, m_patternElapsedMs)));
        return;
    }
    motionframes::SetPoints centre;
    centre.fill(motionframes::kSetPointCentre);
    send(motionframes::setPoints(centre));
    m_tickTimer->stop();
    if (m_hostPatternStep) {
        m_hostPatternStep = false;
        m_stepGapTimer->start();
        return;
    }
    emit statusLine(tr("Test finished — recentered to park"));
    emit testFinished();
}

bool MotionSystemController::startBoardTest(int actuator, int travelPct, int freqCentiHz, int seconds)
{
    if (refuseTestStart(TestKind::Board))
        return false;
    const std::optional<QByteArray> frame =
        motionframes::boardTest(actuator, travelPct, freqCentiHz, seconds);
    if (!frame) {
        emit errorOccurred(tr("There is no actuator %1").arg(actuator + 1));
        return false;
    }
    runBoardTest(*frame, seconds);
    emit testStarted(kBoardTestPattern, motionframes::boardTestTravelPct(travelPct));
    return true;
}

void MotionSystemController::runBoardTest(const QByteArray &frame, int seconds)
{
    send(frame);
    m_boardTestRunning = true;
    m_boardFallbackTimer->start(m_timings.testSecond * motionframes::testSeconds(seconds) +
                                m_timings.boardTestGrace);
}

void MotionSystemController::finishBoardTest()
{
    m_boardTestRunning = false;
    m_boardFallbackTimer->stop();
    if (m_fullSystemRunning)
        m_stepGapTimer->start();
    else
        emit testFinished();
}

bool MotionSystemController::startFullSystemTest(int minutes)
{
    if (refuseTestStart(TestKind::FullSystem))
        return false;
    m_plan.start(m_platformKind, minutes);
    m_fullSystemClock.start();
    m_fullSystemRunning = true;
    emit testStarted(kBoardTestPattern, 100);
    emit statusLine(tr("Full system test started — %1 min").arg(m_plan.totalMs() / 60000));
    runNextFullSystemStep();
    return true;
}

qint64 MotionSystemController::fullSystemElapsedMs() const
{
    const qint64 secondMs = qMax<qint64>(1, m_timings.testSecond.count());
    return m_fullSystemClock.elapsed() * 1000 / secondMs;
}

void MotionSystemController::runNextFullSystemStep()
{
    if (!m_fullSystemRunning)
        return;
    if (m_state != kReadyState) {
        m_hostPatternStep = false;
        m_fullSystemRunning = false;
        m_plan.clear();
        emit statusLine(tr("Full system test stopped (controller left ready state)"));
        emit testFinished();
        return;
    }
    const std::optional<FullSystemTestPlan::ScheduledStep> next = m_plan.next(fullSystemElapsedMs());
    if (!next) {
        m_fullSystemRunning = false;
        m_plan.clear();
        emit statusLine(tr("Full system test complete"));
        emit testFinished();
        return;
    }
    emit statusLine(next->statusLine);
    const FullSystemStep &step = next->step;
    if (step.kind == FullSystemStep::Kind::HostPattern) {
        startPatternTick(
            PatternTest::fromRequest(step.pattern, step.travelPct, step.freqCentiHz, step.seconds), true);
        return;
    }
    if (const std::optional<QByteArray> frame =
            motionframes::boardTest(step.actuator, step.travelPct, step.freqCentiHz, step.seconds))
        runBoardTest(*frame, step.seconds);
    else
        m_stepGapTimer->start();
}

} // namespace tavrix
