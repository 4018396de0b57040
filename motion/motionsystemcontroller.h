#pragma once

#include "fullsystemtestplan.h"
#include "motionlineparser.h"
#include "motionpatterns.h"
#include "motionsystemsettings.h"

#include <QElapsedTimer>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>

class QTimer;

namespace tavrix {

class SerialPortDirectory;
struct SerialPortDescription;
class TavrixSerialPort;

// Drives the Orvane Motion Controller board of the motion platforms (2DOF, 3DOF, 5DOF)
// over its USB serial port: frames every command, reads the board's heartbeat, test and
// settings lines, keeps the platform settings, and runs the test programmes (a single
// pattern, board tests, the Full System test, homing and Release). The desktop motion page
// and the web panel both go through it; nothing else touches the port.
class MotionSystemController : public QObject
{
    Q_OBJECT
public:
    struct Timings
    {
        // Wall time between two set-point frames; each frame advances a pattern by 20 ms.
        std::chrono::milliseconds testTick{20};
        std::chrono::milliseconds firstHeartbeat{3500};
        std::chrono::milliseconds heartbeatWatchdog{5000};
        // Pause between two steps of the Full System test.
        std::chrono::milliseconds stepGap{800};
        // How long past its own length a board test may go before it is taken as finished.
        std::chrono::milliseconds boardTestGrace{2500};
        // Wall time of one second of test time: a board test's length, the Full System clock.
        std::chrono::milliseconds testSecond{1000};
    };

    static constexpr qint32 kBaudRate = 115200;
    // The state word in which the board takes tests.
    static inline const QString kReadyState = QStringLiteral("ready");
    static inline const QString kFailState = QStringLiteral("FAIL");

    // The system's serial ports and the real timings.
    explicit MotionSystemController(QObject *parent = nullptr);
    // ports: where availableControllerPorts() looks (the system's ports when null).
    MotionSystemController(std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                           QObject *parent = nullptr);
    ~MotionSystemController() override;

    // "<port> <description>", the board's own ports named as such.
    [[nodiscard]] QStringList availableControllerPorts() const;
    [[nodiscard]] static QString portLabel(const SerialPortDescription &port);

    [[nodiscard]] bool isConnected() const;
    [[nodiscard]] QString portName() const;
    // The word between the brackets of the last heartbeat; empty before the first.
    [[nodiscard]] QString controllerState() const { return m_state; }
    [[nodiscard]] int platformKind() const { return m_platformKind; }
    [[nodiscard]] MotionSystemSettings settings() const { return m_settings; }
    // Millimetres by actuator number (from 1), from the last heartbeat.
    [[nodiscard]] QMap<int, int> axisPositions() const { return m_positions; }
    // A pattern, board or Full System test is running.
    [[nodiscard]] bool isTestRunning() const;
    [[nodiscard]] bool isFullSystemTestRunning() const { return m_fullSystemRunning; }

public slots:
    bool connectPort(const QString &portName);
    void disconnectPort();

    // Clamps, stores and sends the settings.
    void applySettings(const MotionSystemSettings &settings);
    // 2, 3 or 5; refused (false) for anything else and while a test runs.
    bool setPlatformKind(int kind);

    void autoHome();
    void toggleCalibrationMode();
    // Stops every test at once and switches the motors off; allowed at any time.
    void release();

    // Free mode: one actuator (0..5) to a position in millimetres. False, without a
    // message, unless connected, the board is ready and no pattern runs.
    bool setActuatorPosition(int actuator, int positionMm);

    bool startPatternTest(int pattern, int travelPct, int freqCentiHz, int seconds);
    bool startBoardTest(int actuator, int travelPct, int freqCentiHz, int seconds);
    bool startFullSystemTest(int minutes);

    void onTestTick();

signals:
    void connectedChanged(bool connected);
    void controllerStateChanged(const QString &state);
    void heartbeat(const QString &line);
    void axisPositionsUpdated(const QMap<int, int> &mmByAxis);
    // Progress and log text for the controller log.
    void statusLine(const QString &line);
    void settingsEchoed(const tavrix::MotionSystemSettings &settings);
    // Board tests and the Full System test report pattern 4.
    void testStarted(int pattern, int forcePct);
    void testFinished();
    void errorOccurred(const QString &message);

private:
    enum class TestKind
    {
        Pattern,
        Board,
        FullSystem
    };

    void send(const QByteArray &frame);
    void onPortData(const QByteArray &chunk);
    void onPortConnectedChanged(bool connected);
    void onPortError(const QString &text);
    void handleLine(const QString &line);
    void handleHeartbeat(const QString &line, const MotionLine &parsed);
    [[nodiscard]] bool refuseTestStart(TestKind kind);
    void startPatternTick(const PatternTest &test, bool partOfFullSystem);
    void runBoardTest(const QByteArray &frame, int seconds);
    void finishBoardTest();
    void runNextFullSystemStep();
    [[nodiscard]] qint64 fullSystemElapsedMs() const;
    // Stops every test; true when one was running.
    bool stopTests();
    // Stops every test and the heartbeat timers; true when a test was running.
    bool stopAll();
    enum class ClosePort
    {
        Yes,
        No // already closed by the loss of the device
    };
    // Tells the connection is over and forgets what the board last said.
    void endConnection(ClosePort closePort);
    void forgetBoard();

    std::shared_ptr<const SerialPortDirectory> m_ports;
    Timings m_timings;
    TavrixSerialPort *m_port = nullptr;
    QTimer *m_tickTimer = nullptr;
    QTimer *m_firstHeartbeatTimer = nullptr;
    QTimer *m_watchdog = nullptr;
    QTimer *m_stepGapTimer = nullptr;
    QTimer *m_boardFallbackTimer = nullptr;

    MotionLineSplitter m_lines;
    QString m_state;
    MotionSystemSettings m_settings;
    QMap<int, int> m_positions;
    int m_platformKind = kDefaultPlatformKind;
    bool m_awaitingFirstHeartbeat = false;

    PatternTest m_pattern;
    int m_patternElapsedMs = 0;
    bool m_boardTestRunning = false;
    bool m_hostPatternStep = false;
    bool m_fullSystemRunning = false;
    FullSystemTestPlan m_plan;
    QElapsedTimer m_fullSystemClock;

    bool m_connecting = false;
    bool m_closing = false;
    bool m_writeFailureReported = false;
    QString m_openErrorText;
};

} // namespace tavrix
