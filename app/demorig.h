#pragma once

#include "hubservices.h"
#include "inputbackend.h" // HubServices::Options holds one
#include "sessionstarter.h"

#include <QObject>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace tavrix::sim {
class BridgeSimulator;
class MotionSimulator;
class ReceiverSimulator;
} // namespace tavrix::sim

namespace tavrix {

// `orvanehub --demo`: everything a person without hardware needs to watch the whole loop
// move. The bridge simulator runs in this process on a pseudo-terminal and plays the
// transmitter (with a car that sends telemetry); a virtual wheel base, pedals and shifter
// play the drive shipped in the program (":/demo/demo-loop.jsonl") round after round; the
// profiles live in a private temporary folder, so the user's own are never read or written.
// The window's demo also plays the car's receiver on its USB console, so its settings,
// sensors and console show live data, and the motion platform's controller board, so the
// motion page shows live heartbeats and runs its tests.
class DemoRig : public QObject
{
    Q_OBJECT
public:
    static constexpr char kReplayResource[] = ":/demo/demo-loop.jsonl";

    enum class Receiver
    {
        None,
        Simulated,
    };

    enum class MotionBoard
    {
        None,
        Simulated,
    };

    explicit DemoRig(Receiver receiver = Receiver::None, MotionBoard motion = MotionBoard::None,
                     QObject *parent = nullptr);
    ~DemoRig() override;

    // Makes the private folder and starts the simulated bridge. False with *error on failure.
    bool prepare(QString *error);

    // What HubServices needs for the demo: the looping virtual rig, the system's serial ports
    // plus the simulated bridge, and the private profile folder. Call once, after prepare();
    // an empty inputBackend with *error set when the shipped replay cannot be read.
    [[nodiscard]] HubServices::Options takeServiceOptions(QString *error);

    // Connect the simulated bridge (and receiver), open the three devices by name, start
    // transmission.
    [[nodiscard]] SessionPlan plan() const;

    [[nodiscard]] sim::BridgeSimulator *bridge() const { return m_bridge; }
    [[nodiscard]] QString bridgePort() const;
    // Empty without a simulated receiver.
    [[nodiscard]] QString receiverPort() const;
    // Empty without a simulated motion board.
    [[nodiscard]] QString motionPort() const;
    [[nodiscard]] QString dataDirectory() const { return m_dataDirectory.path(); }

private:
    QTemporaryDir m_dataDirectory;
    sim::BridgeSimulator *m_bridge;
    sim::ReceiverSimulator *m_receiver = nullptr;
    sim::MotionSimulator *m_motion = nullptr;
};

} // namespace tavrix
