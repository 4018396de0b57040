#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <array>

class QTimer;

namespace tavrix {
class PseudoTerminal;
}

namespace tavrix::sim {

struct MotionSimulatorSettings
{
    // Actuators the board drives and reports: 2 (2DOF), 4 (3DOF) or 6 (5DOF).
    int actuators = 6;
    int heartbeatIntervalMs = 200;
    // How often the actuators move towards their targets; 0: only when advance() is called.
    int motionStepMs = 20;
    // The actuators' top speed at the "speed" setting 100 %.
    double maxSpeedMmPerS = 250.0;
    // How long homing takes before the board is "ready".
    int homingMs = 1500;
    // Wall time of one second of a board test ("T"), shortened by tests.
    int testSecondMs = 1000;
    // The state word the board starts in.
    QString initialState = QStringLiteral("ready");
    int maxRecordedCommands = 4096;
};

// Plays the Orvane Motion Controller board on a pseudo-terminal: binary commands framed as
// "P", payload, "!!" (numbers high byte first), text lines back ended by CR LF. It sends a
// heartbeat "[state] ax1=..mm ..." every heartbeatIntervalMs, echoes its settings on "Q"
// ("#CFG i=.. t=.. s=.. a=.. p=.."), runs board tests ending in "#TST done#", homes on "H"
// (the way out of "FAIL"), switches its motors off on "R" ("released"), and moves its
// actuators towards their set-points no faster than the speed setting allows. The command
// set is described in tools/sim/README.md.
class MotionSimulator : public QObject
{
    Q_OBJECT
public:
    // One command as received: its letter and its numbers.
    struct Command
    {
        char code = 0;
        QList<int> values;
        qint64 receivedMs = 0;
    };

    static constexpr int kMaxActuators = 6;
    static constexpr int kStrokeMm = 150;

    explicit MotionSimulator(const MotionSimulatorSettings &settings = {}, QObject *parent = nullptr);
    ~MotionSimulator() override;

    // Creates the pty (and the symlink at linkPath when given). False with errorString().
    bool start(const QString &linkPath = QString());
    [[nodiscard]] QString slavePath() const;
    [[nodiscard]] QString linkPath() const;
    [[nodiscard]] QString clientPath() const;
    [[nodiscard]] QString errorString() const;
    void hangUp();
    bool plugIn();

    [[nodiscard]] QString state() const { return m_state; }
    // Actuator positions in millimetres, actuator 1 first.
    [[nodiscard]] std::array<double, kMaxActuators> positions() const { return m_positions; }
    // intensity, travel, speed, acceleration, park, as last set by "C".
    [[nodiscard]] std::array<int, 5> config() const { return m_config; }
    [[nodiscard]] QList<Command> commands() const { return m_commands; }
    // The commands of one kind ('6', 'M', 'R', ...) among `commands`, in their order.
    [[nodiscard]] static QList<Command> withCode(const QList<Command> &commands, char code);
    [[nodiscard]] bool boardTestRunning() const { return m_testRemainingMs > 0; }

    // A fault the board latches: state "FAIL" until the next "H".
    void fail();
    // A wedged link: the board still takes commands but sends nothing at all.
    void setSilent(bool silent) { m_silent = silent; }
    // Sends a line of the test's choosing, as if the board had printed it.
    void injectLine(const QString &line) { sendLine(line); }
    // Moves the actuators as `ms` of time passing would.
    void advance(int ms);

    // The command as the log shows it: its letter and numbers, e.g. "M 0 150".
    [[nodiscard]] static QString describe(const Command &command);

signals:
    void commandReceived(const QString &command, qint64 receivedMs);
    void garbageReceived(const QByteArray &bytes, qint64 receivedMs);
    void lineSent(const QString &line);

private:
    void onReadyRead();
    void handle(const Command &command);
    void setSetPoints(const QList<int> &values);
    void startBoardTest(const QList<int> &values);
    void sendHeartbeat();
    void sendLine(const QString &line);
    void setAllTargets(double mm);
    [[nodiscard]] bool ready() const;
    [[nodiscard]] int parkMm() const { return m_config[4]; }
    [[nodiscard]] int travelMm() const { return m_config[1]; }

    MotionSimulatorSettings m_settings;
    PseudoTerminal *m_pty = nullptr;
    QTimer *m_heartbeatTimer = nullptr;
    QTimer *m_motionTimer = nullptr;
    QTimer *m_homingTimer = nullptr;
    QByteArray m_inbox;
    QString m_state;
    bool m_calibrating = false;
    bool m_silent = false;
    std::array<int, 5> m_config{100, 140, 100, 100, 75};
    std::array<double, kMaxActuators> m_positions{};
    std::array<double, kMaxActuators> m_targets{};
    // The board test in progress.
    int m_testActuator = -1;
    double m_testAmplitudeMm = 0.0;
    double m_testFrequencyHz = 0.0;
    int m_testElapsedMs = 0;
    int m_testRemainingMs = 0;
    QList<Command> m_commands;
};

} // namespace tavrix::sim
