#pragma once

#include "receiverledstrip.h"

#include <QMap>
#include <QObject>
#include <QStringList>

#include <span>

class QTimer;

namespace tavrix {
class PseudoTerminal;
}

namespace tavrix::sim {

struct ReceiverSimulatorSettings
{
    // How the receiver answers the two steps of a mounting detection ("IMU_ORIENT FLAT",
    // then "IMU_ORIENT NOSEUP"). Every failure but NoAnswer is an "IMU_ORIENT_ERR (reason)".
    enum class MountingError
    {
        None,
        NotFlat,       // step 1: the car is not level
        NoTilt,        // step 2: the front was not lifted enough
        FlatFirst,     // step 2: the receiver lost step 1 (rebooted in between)
        ImuNotRunning, // step 1: the motion sensors do not answer
        Other,         // step 1: a reason the hub does not know
        NoAnswer       // step 1: the receiver stays silent
    };

    enum class GyroCalibration
    {
        Succeeds,
        CarMoved, // "IMU_CAL_ERR (moved)" at the end
        NoAnswer  // started, but the result never comes
    };

    // Empty: "4.3.0", or "3.2.0" for an older receiver.
    QString firmwareVersion;
    QString hardware = QStringLiteral("Orvane-RX");
    // An older receiver: answers VER, HW and the LED commands but ignores every settings
    // and IMU command and sends no TELEM lines.
    bool oldFirmware = false;
    // Period of the unasked TELEM line (with the GPS status line); 0 only on GET_TELEM.
    int telemetryIntervalMs = 1000;
    // Period of the "CH1:...us CRSF:..." and "CH2:..." lines; 0 never.
    int calibrationLineIntervalMs = 200;
    // Time from "IMU_CAL" to its result; the hub looks for the result after 2500 ms.
    int gyroCalibrationMs = 2000;
    // Every n-th unasked TELEM line comes right after a binary "$M>" frame of the
    // receiver's MSP output, on the same line; 0 never.
    int mspFrameEveryTelemetry = 3;
    GyroCalibration gyroCalibration = GyroCalibration::Succeeds;
    MountingError mountingError = MountingError::None;
    // The axes a successful mounting detection reports (before one: "FWD=+X LEFT=+Y UP=+Z").
    QString detectedAxes = QStringLiteral("FWD=-Y LEFT=+X UP=+Z");
    // LED command keys answered with "LED_ERR <KEY> (refused)", e.g. "COLOR".
    QSet<QString> refusedLedCommands;
    int maxRecordedCommands = 1024;
};

// The GPS module as the receiver reports it in its status line.
struct ReceiverGpsStatus
{
    enum class Antenna
    {
        Connected,
        Open,
        Short
    };
    bool fix = true;
    int satellites = 9;
    Antenna antenna = Antenna::Connected;
};

// Plays the Orvane receiver's USB console on a pseudo-terminal: text commands ended by
// LF (a CR is tolerated), one reply line each ended by CR LF, periodic TELEM and GPS
// status lines, the gyro calibration and the two-step mounting detection, the LED strip
// commands, and the RC channel lines the hub's radio calibration reads. Its command set
// is described in tools/sim/README.md.
class ReceiverSimulator : public QObject
{
    Q_OBJECT
public:
    explicit ReceiverSimulator(const ReceiverSimulatorSettings &settings = {}, QObject *parent = nullptr);
    ~ReceiverSimulator() override;

    // Creates the pty (and the symlink at linkPath when given). False with
    // errorString() on failure.
    bool start(const QString &linkPath = QString());
    [[nodiscard]] QString slavePath() const;
    [[nodiscard]] QString linkPath() const;
    [[nodiscard]] QString clientPath() const;
    [[nodiscard]] QString errorString() const;

    // Unplug and replug under the same link path (the receiver keeps its settings).
    void hangUp();
    bool plugIn();

    [[nodiscard]] QString firmwareVersion() const;
    // The value the next TELEM line reports for a key ("OSD", "GPS_ON", ...); -1 if unknown.
    [[nodiscard]] int setting(const QString &key) const { return m_values.value(key, -1); }
    [[nodiscard]] QString mountingAxes() const { return m_axes; }
    [[nodiscard]] const ReceiverLedStrip &ledStrip() const { return m_led; }
    // Every command line received, most recent last.
    [[nodiscard]] QStringList commands() const { return m_commands; }

    // The RC channel 1 (steering) and 2 (throttle) pulses in microseconds, as the radio
    // delivers them; clamped to 988..2012.
    void setSticks(int ch1Us, int ch2Us);
    void setGpsStatus(const ReceiverGpsStatus &status) { m_gps = status; }
    void setMountingError(ReceiverSimulatorSettings::MountingError error);
    void setGyroCalibration(ReceiverSimulatorSettings::GyroCalibration outcome);

    // The CRSF value the receiver shows for a pulse width.
    [[nodiscard]] static int crsfValue(int pulseUs);
    // A complete MSP v1 reply frame ("$M>", size, command, payload, XOR checksum).
    [[nodiscard]] static QByteArray mspFrame(uint8_t command, const QByteArray &payload);

signals:
    // Every command line received, with its receive time in ms since the epoch.
    void commandReceived(const QString &command, qint64 receivedMs);
    void lineSent(const QString &line);

private:
    void onReadyRead();
    // A console command by its first word; the rest of the line is its argument.
    struct ConsoleCommand
    {
        const char *name;
        bool sinceSettings; // unknown to an older receiver, which stays silent
        void (ReceiverSimulator::*answer)(const QString &argument);
    };
    static std::span<const ConsoleCommand> consoleCommands();

    void handleCommand(const QString &command);
    void answerVersion(const QString &);
    void answerHardware(const QString &);
    void answerHelp(const QString &);
    void answerTelemetry(const QString &);
    void answerOsd(const QString &);
    void answerAxes(const QString &);
    void answerGyroCalibration(const QString &);
    void answerMounting(const QString &step);
    // False when the name is no settings command.
    [[nodiscard]] bool answerSetting(const QString &name, const QString &argument);
    void finishGyroCalibration();
    void sendTelemetry(bool withMspFrame);
    void sendCalibrationLines();
    void sendLine(const QString &line, const QByteArray &before = {});

    ReceiverSimulatorSettings m_settings;
    PseudoTerminal *m_pty = nullptr;
    QTimer *m_telemetryTimer = nullptr;
    QTimer *m_calibrationLineTimer = nullptr;
    QTimer *m_gyroTimer = nullptr;
    QByteArray m_inbox;
    QMap<QString, int> m_values;
    QString m_axes = QStringLiteral("FWD=+X LEFT=+Y UP=+Z");
    ReceiverGpsStatus m_gps;
    ReceiverLedStrip m_led;
    bool m_flatRead = false;
    int m_ch1Us = 1500;
    int m_ch2Us = 1500;
    quint64 m_telemetryCount = 0;
    QStringList m_commands;
};

} // namespace tavrix::sim
