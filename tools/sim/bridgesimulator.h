#pragma once

#include "bridgestreamsplitter.h"
#include "bridgetelemetry.h"
#include "crsfwire.h"
#include "simulatedparameterdevice.h"

#include <QElapsedTimer>
#include <QObject>
#include <QRandomGenerator>
#include <QSet>
#include <QStringList>

#include <deque>

class QTimer;

namespace tavrix {
class PseudoTerminal;
}

namespace tavrix::sim {

struct BridgeSimulatorSettings
{
    TelemetryRates telemetry;
    SimulatedCar::Settings car;
    // The car is switched on (its receiver linked) from the start.
    bool linkUp = true;
    // Who answers as the car's receiver over the radio link.
    SimulatedParameterDevice::ReceiverModel receiver = SimulatedParameterDevice::ReceiverModel::OrvaneV4;
    // The radio link needs a host that talks: after this long without a byte from
    // the host the module stops transmitting and telemetry pauses. The hub's
    // keepalive comes every 2 to 3 s. 0 never pauses.
    int hostSilenceTimeoutMs = 5000;
    // A frame whose tail does not come within this time is given up (its first
    // byte is dropped and the rest split again).
    int partialFrameTimeoutMs = 50;
    // Pace of the text parameter walk, one FIELD line per interval.
    int walkLineIntervalMs = 20;
    // Faults of the walk as the bridge firmware shows them, by module field id: a field
    // the bridge could not read from the module ("FIELD n: (read failed)"), and a field
    // whose header (parent, type, name and NUL) it sends twice before the data.
    QSet<uint8_t> walkReadFailures;
    QSet<uint8_t> walkRepeatedHeaders;
    // Field data per 0x2B parameter entry frame; less than the most a frame holds
    // only to exercise reassembly.
    int parameterChunkSize = crsfwire::kParameterChunkSize;
    // Bounds of what is kept for inspection.
    int maxRecordedTimestamps = 4096;
    int maxRecordedCommands = 1024;
    // Seed of the garbage generator, so a garbled run can be repeated.
    quint32 garbageSeed = 1;
};

// Plays the Orvane Transmitter's RP2040 bridge on a pseudo-terminal: the hub opens
// clientPath() as it would the USB serial port. It answers the bridge's text
// commands, decodes and records every channel frame, walks the transmitter
// module's parameters in configuration mode, answers CRSF parameter frames for the
// module and (over the simulated radio link) the car's receiver, and streams the
// car's telemetry while transmitting. Failure modes for tests: unplug and replug,
// stall, garbage on the line, the car switched off.
class BridgeSimulator : public QObject
{
    Q_OBJECT
public:
    enum class Mode
    {
        Idle,
        Transmitting,
        Configuring
    };
    Q_ENUM(Mode)

    explicit BridgeSimulator(const BridgeSimulatorSettings &settings = {}, QObject *parent = nullptr);
    ~BridgeSimulator() override;

    // Creates the pty (and the symlink at linkPath when given). False with
    // errorString() on failure.
    bool start(const QString &linkPath = QString());
    [[nodiscard]] QString slavePath() const;
    [[nodiscard]] QString linkPath() const;
    [[nodiscard]] QString clientPath() const;
    [[nodiscard]] QString errorString() const;
    [[nodiscard]] bool isPluggedIn() const;

    [[nodiscard]] Mode mode() const { return m_mode; }
    // The parameter tables as they stand, writes included.
    [[nodiscard]] const SimulatedParameterDevice &module() const { return m_module; }
    [[nodiscard]] const SimulatedParameterDevice &receiver() const { return m_receiver; }
    [[nodiscard]] bool isTelemetryFlowing() const { return m_telemetry->isActive(); }

    // What the host has sent so far.
    [[nodiscard]] ChannelArray lastChannels() const { return m_lastChannels; }
    [[nodiscard]] quint64 channelFrameCount() const { return m_channelFrameCount; }
    // Receive times (ms since the epoch) of the most recent channel frames.
    [[nodiscard]] QList<qint64> channelFrameTimes() const;
    // Every text line received, most recent last; a keepalive is an empty string.
    [[nodiscard]] QStringList commands() const { return m_commands; }
    [[nodiscard]] quint64 garbageByteCount() const { return m_garbageBytes; }

    // The car's receiver: switched on, its link statistics and sensors flow
    // (while transmitting) and it answers over the radio link.
    void setLinkUp(bool up);
    [[nodiscard]] bool isLinkUp() const { return m_linkUp; }

    // Unplug: the pty and the link path go away; the bridge forgets its mode.
    void hangUp();
    // Replug under the same link path, freshly booted.
    bool plugIn();
    // A hung firmware: bytes are still taken and recorded, nothing is answered or sent.
    void setStalled(bool stalled);
    [[nodiscard]] bool isStalled() const { return m_stalled; }
    // A bridge that stops reading the USB line (its buffers full): the host's bytes wait
    // in the line until reading resumes.
    void setReadingPaused(bool paused);
    // A noisy line: every write is preceded by a few random bytes.
    void setGarbling(bool garbling);
    // Puts these bytes on the line to the host as they are.
    void injectToHost(const QByteArray &bytes);

signals:
    // Every good frame from the host, whole, with its receive time in ms since the epoch.
    void frameReceived(const QByteArray &frame, qint64 receivedMs);
    void channelFrameReceived(const tavrix::sim::ChannelArray &channels, qint64 receivedMs);
    // Every text line from the host without its line end; a keepalive is empty.
    void commandReceived(const QString &command, qint64 receivedMs);
    // Bytes from the host that were neither a good frame nor text.
    void garbageReceived(const QByteArray &bytes, qint64 receivedMs);
    void textLineSent(const QString &line);
    void telemetryFrameSent(const QByteArray &frame);
    void modeChanged(tavrix::sim::BridgeSimulator::Mode mode);
    void hungUp();
    void pluggedIn();

private:
    void onReadyRead();
    void onPartialFrameTimeout();
    void handleItems(const QList<BridgeStreamSplitter::Item> &items, qint64 receivedMs);
    void handleFrame(const QByteArray &frame, qint64 receivedMs);
    void handleLine(const QByteArray &line, qint64 receivedMs);
    void answerCommand(const QByteArray &command);
    void answerExtendedFrame(uint8_t type, QByteArrayView payload);
    void startWalk();
    [[nodiscard]] QString walkLine(uint8_t fieldId) const;
    void sendNextWalkLine();
    void setMode(Mode mode);
    void updateTelemetry();
    void sendLine(const QString &line);
    void sendToHost(const QByteArray &bytes);
    [[nodiscard]] QString statusText() const;

    BridgeSimulatorSettings m_settings;
    PseudoTerminal *m_pty = nullptr;
    BridgeTelemetry *m_telemetry = nullptr;
    BridgeStreamSplitter m_splitter;
    SimulatedParameterDevice m_module;
    SimulatedParameterDevice m_receiver;
    QTimer *m_partialFrameTimer = nullptr;
    QTimer *m_hostSilenceTimer = nullptr;
    QTimer *m_walkTimer = nullptr;
    QStringList m_walkQueue;
    QRandomGenerator m_garbage;

    Mode m_mode = Mode::Idle;
    bool m_linkUp = true;
    bool m_stalled = false;
    bool m_garbling = false;
    bool m_hostSilent = false;

    ChannelArray m_lastChannels{};
    quint64 m_channelFrameCount = 0;
    std::deque<qint64> m_channelFrameTimes;
    QStringList m_commands;
    quint64 m_garbageBytes = 0;
};

} // namespace tavrix::sim
