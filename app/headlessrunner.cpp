#include "headlessrunner.h"

#include "driverecorder.h"
#include "headlessmotion.h"
#include "hubservices.h"
#include "inputdevice.h"
#include "motiontelemetrysender.h"
#include "receiverport.h"
#include "tavrixcontroller.h"
#include "websocketserver.h"

#include <QDateTime>
#include <QTextStream>

namespace tavrix {

namespace {

QString onOff(bool connected, QLatin1String what)
{
    return QStringLiteral("%1 %2").arg(what, connected ? QStringLiteral("connected")
                                                       : QStringLiteral("disconnected"));
}

} // namespace

HeadlessRunner::HeadlessRunner(HubServices &services, SessionPlan plan, QTextStream &out, QTextStream &err,
                               QObject *parent)
    : HeadlessRunner(services, std::move(plan), out, err, Timings{}, parent)
{}

HeadlessRunner::HeadlessRunner(HubServices &services, SessionPlan plan, QTextStream &out, QTextStream &err,
                               const Timings &timings, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_starter(new SessionStarter(services.controller(), plan, timings.retryInterval, this))
    , m_out(out)
    , m_err(err)
    , m_timings(timings)
    , m_recordingsFolder(plan.recordingsFolder)
{
    m_statusTimer.setInterval(m_timings.statusInterval);
    connect(&m_statusTimer, &QTimer::timeout, this, &HeadlessRunner::printStatus);
    connect(m_starter, &SessionStarter::progress, this, &HeadlessRunner::printLine);
    connect(m_starter, &SessionStarter::failed, this, [this](const QString &message) {
        printError(message);
        emit finished(1);
    });
    watchController();
    if (!plan.motionPort.isEmpty()) {
        m_motion = new HeadlessMotion(services.motionSystem(), plan.motionPort, plan.motionPlatform, this);
        connect(m_motion, &HeadlessMotion::line, this, &HeadlessRunner::printLine);
        connect(m_motion, &HeadlessMotion::error, this, &HeadlessRunner::printError);
    }
}

void HeadlessRunner::watchController()
{
    TavrixController *controller = m_services.controller();
    connect(controller, &TavrixController::serialConnectedChanged, this, [this, controller](bool connected) {
        printLine(connected ? QStringLiteral("transmitter connected on %1").arg(controller->serialPortName())
                            : QStringLiteral("transmitter disconnected"));
    });
    connect(
        controller, &TavrixController::receiverConnectedChanged, this, [this, controller](bool connected) {
            printLine(
                connected
                    ? QStringLiteral("receiver connected on %1").arg(controller->receiverPort()->portName())
                    : QStringLiteral("receiver disconnected"));
        });
    connect(controller, &TavrixController::runningChanged, this, [this, controller](bool running) {
        if (running) {
            printLine(QStringLiteral("transmission started"));
            m_statusTimer.start();
        } else {
            printLine(QStringLiteral("transmission stopped after %1 frames").arg(controller->frameCount()));
            m_statusTimer.stop();
        }
    });
    connect(controller, &TavrixController::carLinkChanged, this, [this](bool linked) {
        printLine(linked ? QStringLiteral("car link up") : QStringLiteral("car link lost"));
    });
    connect(controller, &TavrixController::errorOccurred, this, &HeadlessRunner::printError);
    connect(m_services.remoteServer(), &WebSocketServer::clientCountChanged, this, [this](int count) {
        printLine(QStringLiteral("remote: %1 app client(s) connected").arg(count));
    });

    // The role set reports every role's connection; the controller's per-role signals say the same.
    connect(controller->devices(), &DeviceRoleSet::connectedChanged, this,
            [this, controller](DeviceRole role, bool connected) {
                QString line = onOff(connected, deviceRoleInfo(role).name);
                if (connected)
                    line += QStringLiteral(": %1").arg(controller->devices()->device(role)->deviceName());
                printLine(line);
            });
}

bool HeadlessRunner::begin()
{
    TavrixController *controller = m_services.controller();
    if (!m_services.inputProblem().isEmpty())
        printError(QStringLiteral("game controllers: %1").arg(m_services.inputProblem()));
    printLine(QStringLiteral("profile \"%1\" (%2)")
                  .arg(m_services.profiles()->activeProfileName(),
                       controller->isHelicopter() ? QStringLiteral("helicopter") : QStringLiteral("car")));
    // Devices the profile reopened before anyone listened.
    for (const DeviceRoleInfo &info : deviceRoles()) {
        if (controller->devices()->isConnected(info.role))
            printLine(QStringLiteral("saved device open: %1")
                          .arg(controller->devices()->device(info.role)->deviceName()));
    }
    printRemoteState();
    const MotionTelemetrySender *motion = m_services.motionOutput();
    if (motion->isEnabled())
        printLine(
            QStringLiteral("motion output: streaming to %1:%2").arg(motion->host()).arg(motion->port()));
    if (!m_recordingsFolder.isEmpty() && !beginRecording())
        return false;
    const bool motionRunning = m_motion && m_motion->begin();
    if (m_motion && !m_starter->knowsTransmitterPort()) {
        if (!motionRunning)
            return false;
        printLine(QStringLiteral("no transmitter port: running the motion platform alone"));
        return true;
    }
    return m_starter->begin();
}

bool HeadlessRunner::beginRecording()
{
    DriveRecorder *recorder = m_services.driveRecorder();
    connect(recorder, &DriveRecorder::errorOccurred, this, &HeadlessRunner::printError);
    connect(
        recorder, &DriveRecorder::saved, this, [this](const QString &path, quint64 rows, quint64 dropped) {
            printLine(
                QStringLiteral("drive saved to %1: %2 rows, %3 dropped").arg(path).arg(rows).arg(dropped));
        });
    if (!recorder->start(m_recordingsFolder))
        return false;
    printLine(QStringLiteral("recording the drive to %1").arg(recorder->filePath()));
    return true;
}

void HeadlessRunner::printRemoteState()
{
    const WebSocketServer *remote = m_services.remoteServer();
    if (remote->isListening())
        printLine(QStringLiteral("remote: app server listening on port %1").arg(remote->port()));
    else
        printLine(QStringLiteral("remote: app server off"));
}

void HeadlessRunner::stop(const QString &reason)
{
    if (m_stopping)
        return;
    m_stopping = true;
    printLine(QStringLiteral("stopping (%1)").arg(reason));
    m_starter->halt();
    if (m_motion)
        m_motion->stop();
    m_services.controller()->stopTransmission();
    DriveRecorder *recorder = m_services.driveRecorder();
    if (recorder->isRecording()) {
        // Finish once the writer has the whole drive on the disk, or has given up on it.
        const auto finish = [this] { emit finished(0); };
        connect(recorder, &DriveRecorder::saved, this, finish, Qt::QueuedConnection);
        connect(recorder, &DriveRecorder::errorOccurred, this, finish, Qt::QueuedConnection);
        recorder->stop();
        return;
    }
    // The port flushes "STOP\n" when it closes; finish once this slot has returned.
    QTimer::singleShot(0, this, [this] { emit finished(0); });
}

void HeadlessRunner::printLine(const QString &line)
{
    m_out << QDateTime::currentDateTime().toString(QStringLiteral("HH:mm:ss.zzz")) << ' ' << line << '\n';
    m_out.flush();
}

void HeadlessRunner::printError(const QString &error)
{
    // A refused start is tried again every half second; say so once, then now and then.
    if (error == m_lastError && m_sinceLastError.isValid() &&
        m_sinceLastError.elapsed() < m_timings.repeatErrorAfter.count()) {
        return;
    }
    m_lastError = error;
    m_sinceLastError.start();
    m_err << QDateTime::currentDateTime().toString(QStringLiteral("HH:mm:ss.zzz")) << " error: " << error
          << '\n';
    m_err.flush();
}

void HeadlessRunner::printStatus()
{
    const TavrixController *controller = m_services.controller();
    const ChannelValues &channels = controller->channels();
    QString line =
        QStringLiteral("transmitting: %1 frames, steering %2, throttle %3, brake %4, CH1 %5, CH2 %6")
            .arg(controller->frameCount())
            .arg(double(controller->steering()), 0, 'f', 2)
            .arg(double(controller->throttle()), 0, 'f', 2)
            .arg(double(controller->brake()), 0, 'f', 2)
            .arg(channels[0])
            .arg(channels[1]);
    if (controller->telemetry()->isCarLinked())
        line +=
            QStringLiteral(", link quality %1%").arg(controller->telemetry()->linkStatistics().linkQuality);
    else
        line += QStringLiteral(", no car link");
    printLine(line);
}

} // namespace tavrix
