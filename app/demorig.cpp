#include "demorig.h"

#include "bridgesimulator.h"
#include "motionsimulator.h"
#include "receiversimulator.h"
#include "replayplayer.h"
#include "replayscript.h"
#include "serialportdirectory.h"

#include <QDir>

namespace tavrix {

namespace {

// The devices of demo-loop.jsonl, by role.
const QList<RoleChoice> &demoDevices()
{
    static const QList<RoleChoice> devices{
        {DeviceRole::WheelBase, DeviceChoice{-1, QStringLiteral("MOZA R9 Base")}},
        {DeviceRole::Pedals, DeviceChoice{-1, QStringLiteral("MOZA SR-P Pedals")}},
        {DeviceRole::Shifter, DeviceChoice{-1, QStringLiteral("TH8A Shifter")}},
    };
    return devices;
}

} // namespace

DemoRig::DemoRig(Receiver receiver, MotionBoard motion, QObject *parent)
    : QObject(parent)
    , m_dataDirectory(QDir::tempPath() + QStringLiteral("/orvanehub-demo-XXXXXX"))
    , m_bridge(new sim::BridgeSimulator(sim::BridgeSimulatorSettings{}, this))
{
    if (receiver == Receiver::Simulated)
        m_receiver = new sim::ReceiverSimulator(sim::ReceiverSimulatorSettings{}, this);
    if (motion == MotionBoard::Simulated)
        m_motion = new sim::MotionSimulator(sim::MotionSimulatorSettings{}, this);
}

DemoRig::~DemoRig() = default;

bool DemoRig::prepare(QString *error)
{
    if (!m_dataDirectory.isValid()) {
        *error = QStringLiteral("cannot make the demo's folder: %1").arg(m_dataDirectory.errorString());
        return false;
    }
    // A stable name in the private folder: the port list shows it and reconnects find it.
    if (!m_bridge->start(m_dataDirectory.filePath(QStringLiteral("ttyOrvaneDemoBridge")))) {
        *error = QStringLiteral("cannot start the simulated bridge: %1").arg(m_bridge->errorString());
        return false;
    }
    if (m_receiver && !m_receiver->start(m_dataDirectory.filePath(QStringLiteral("ttyOrvaneDemoReceiver")))) {
        *error = QStringLiteral("cannot start the simulated receiver: %1").arg(m_receiver->errorString());
        return false;
    }
    if (m_motion && !m_motion->start(m_dataDirectory.filePath(QStringLiteral("ttyOrvaneDemoMotion")))) {
        *error = QStringLiteral("cannot start the simulated motion board: %1").arg(m_motion->errorString());
        return false;
    }
    return true;
}

QString DemoRig::bridgePort() const
{
    return m_bridge->clientPath();
}

QString DemoRig::receiverPort() const
{
    return m_receiver ? m_receiver->clientPath() : QString();
}

QString DemoRig::motionPort() const
{
    return m_motion ? m_motion->clientPath() : QString();
}

HubServices::Options DemoRig::takeServiceOptions(QString *error)
{
    HubServices::Options options;
    options.dataDirectory = m_dataDirectory.path();
    options.ports =
        std::make_shared<CompositeSerialPortDirectory>(QList<std::shared_ptr<const SerialPortDirectory>>{
            std::make_shared<SystemSerialPortDirectory>(),
            std::make_shared<PathSerialPortDirectory>(
                QStringList{bridgePort(), receiverPort(), motionPort()})});

    ReplayScript script = ReplayScript::load(QString::fromLatin1(kReplayResource));
    if (!script.isValid()) {
        *error = QStringLiteral("the demo drive cannot be read: %1").arg(script.errorString());
        return options;
    }
    auto rig = std::make_unique<ReplayBackend>(std::move(script));
    rig->player().setLooping(true);
    rig->player().start();
    options.inputBackend = std::move(rig);
    return options;
}

SessionPlan DemoRig::plan() const
{
    SessionPlan plan;
    plan.transmitterPort = bridgePort();
    plan.receiverPort = receiverPort();
    plan.devices = demoDevices();
    plan.start = true;
    return plan;
}

} // namespace tavrix
