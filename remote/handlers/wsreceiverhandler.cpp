#include "wsreceiverhandler.h"

#include "receiverconfigmanager.h"
#include "receiverelrslink.h"
#include "receiverline.h"
#include "tavrixcontroller.h"

#include <QJsonArray>
#include <QTimer>

#include <algorithm>
#include <optional>

namespace tavrix {

namespace {

// A client may type faster than the console's pace; what it queued beyond this is refused
// rather than kept.
constexpr qsizetype kMaxQueuedCommands = 16;

const QString kNoReceiver = QStringLiteral("Receiver not connected");
const QString kConnectFirst = QStringLiteral("Connect the receiver (USB or ELRS) first");
const QString kConnectForSensors =
    QStringLiteral("Connect the receiver (USB, or ELRS with firmware 4.4.3+) first");
const QString kStepRunning = QStringLiteral("A step is already running");

using GyroCal = ReceiverConfigManager::GyroCal;
using Mounting = ReceiverConfigManager::Mounting;

// "0, 1, 2 or 4".
QString allowedText(std::span<const int> allowed)
{
    QStringList values;
    for (const int value : allowed)
        values.append(QString::number(value));
    const QString last = values.takeLast();
    return values.isEmpty() ? last : values.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

QString gyroCalName(GyroCal state)
{
    switch (state) {
    case GyroCal::Idle:
        break;
    case GyroCal::Running:
        return QStringLiteral("running");
    case GyroCal::Done:
        return QStringLiteral("done");
    case GyroCal::Failed:
        return QStringLiteral("failed");
    }
    return QStringLiteral("idle");
}

QString mountingName(Mounting state)
{
    switch (state) {
    case Mounting::Idle:
        break;
    case Mounting::WaitingFlat:
    case Mounting::WaitingNoseUp:
        return QStringLiteral("running");
    case Mounting::NeedNoseUp:
        return QStringLiteral("need_nose_up");
    case Mounting::Saved:
        return QStringLiteral("done");
    case Mounting::Failed:
        return QStringLiteral("failed");
    }
    return QStringLiteral("idle");
}

} // namespace

WsReceiverHandler::WsReceiverHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in receiver handler"), parent)
{
    addRequests<WsReceiverHandler>({
        {"get_receiver_config", &WsReceiverHandler::config},
        {"set_receiver_config", &WsReceiverHandler::setConfig},
        {"action_receiver_sync", &WsReceiverHandler::sync},
        {"action_receiver_calibrate_gyro", &WsReceiverHandler::calibrateGyro},
        {"action_receiver_detect_mounting", &WsReceiverHandler::detectMounting},
        {"action_receiver_search_elrs", &WsReceiverHandler::searchElrs},
        {"action_receiver_command", &WsReceiverHandler::command},
    });

    ReceiverConfigManager *config = manager();
    for (const auto changed :
         {&ReceiverConfigManager::gyroCalChanged, &ReceiverConfigManager::mountingChanged,
          &ReceiverConfigManager::settingsChanged, &ReceiverConfigManager::capsChanged,
          &ReceiverConfigManager::stateChanged})
        connect(config, changed, this, &WsReceiverHandler::schedulePush);
}

ReceiverConfigManager *WsReceiverHandler::manager() const
{
    return controller()->receiverConfig();
}

void WsReceiverHandler::schedulePush()
{
    if (m_pushPending)
        return;
    m_pushPending = true;
    QTimer::singleShot(0, this, [this] {
        m_pushPending = false;
        push(QStringLiteral("event_receiver_config"), configObject());
    });
}

bool WsReceiverHandler::gyroReachable() const
{
    const ReceiverElrsLink *link = controller()->receiverLink();
    return manager()->isUsbOpen() || (link && link->state() == ReceiverElrsLink::State::Ready);
}

// The gyro and the mounting detection both need the car still and read the same sensor.
bool WsReceiverHandler::sensorStepRunning() const
{
    const Mounting mounting = manager()->mounting();
    return manager()->gyroCal() == GyroCal::Running || mounting == Mounting::WaitingFlat ||
           mounting == Mounting::WaitingNoseUp;
}

QJsonObject WsReceiverHandler::configObject() const
{
    const ReceiverConfigManager *config = manager();
    const ReceiverElrsLink *link = controller()->receiverLink();
    const ReceiverConfigManager::Caps &caps = config->caps();
    const auto linkState = link ? link->state() : ReceiverElrsLink::State::Idle;
    const auto usbState = config->usbState();

    // What the receiver reports; a value chosen while it was away, until it does.
    QMap<QString, int> known = config->desiredSettings();
    known.insert(config->reportedSettings());
    QJsonObject settings;
    for (const receiver::SettingKey &setting : receiver::kSettings) {
        const auto value = known.constFind(setting.key);
        if (value != known.cend())
            settings.insert(setting.name, receiver::valueToJson(setting, *value));
    }

    return {
        {QStringLiteral("connected"), config->isUsbOpen() || config->isOverElrs()},
        {QStringLiteral("overElrs"), config->isOverElrs()},
        {QStringLiteral("usbStatus"), config->usbStatusText()},
        {QStringLiteral("elrsStatus"), config->elrsStatusText()},
        {QStringLiteral("caps"),
         QJsonObject{
             {QStringLiteral("v4"), link && link->isV4Receiver()},
             {QStringLiteral("olderOsd"), caps.olderOsd},
             {QStringLiteral("imu"), caps.imu},
             {QStringLiteral("gps"), caps.gps},
             {QStringLiteral("firmware"),
              caps.firmware.isEmpty() && link ? link->firmwareVersion() : caps.firmware},
             {QStringLiteral("supports"), caps.settings},
         }},
        {QStringLiteral("settings"), settings},
        {QStringLiteral("status"), config->statusText()},
        {QStringLiteral("imuAxes"), config->imuAxes()},
        {QStringLiteral("gpsStatus"), config->gpsStatusText()},
        {QStringLiteral("gyroCal"), gyroCalName(config->gyroCal())},
        {QStringLiteral("gyroCalText"), config->gyroCalText()},
        {QStringLiteral("canCalibrateGyro"), gyroReachable() && !sensorStepRunning()},
        {QStringLiteral("mounting"), mountingName(config->mounting())},
        {QStringLiteral("mountingText"), config->mountingText()},
        {QStringLiteral("canDetectMounting"), config->isUsbOpen() && !sensorStepRunning()},
        {QStringLiteral("syncing"),
         usbState == ReceiverConfigManager::UsbState::Reading ||
             usbState == ReceiverConfigManager::UsbState::Applying ||
             (config->isOverElrs() && linkState == ReceiverElrsLink::State::Reading)},
        {QStringLiteral("synced"), usbState == ReceiverConfigManager::UsbState::Synced ||
                                       (config->isOverElrs() && linkState == ReceiverElrsLink::State::Ready)},
    };
}

QJsonObject WsReceiverHandler::config(const RemoteRequest &request)
{
    return request.answer(configObject());
}

// Every value is checked before the first is kept, so a refused request changes nothing.
// A receiver out of reach keeps the values and gets them the next time it is reached.
QJsonObject WsReceiverHandler::setConfig(const RemoteRequest &request)
{
    const QJsonObject settings = request.object(QLatin1String("settings"));
    QList<QPair<QString, int>> changes;
    // In the receiver's order of applying, which is also the order a request is checked in.
    for (const receiver::SettingKey &setting : receiver::kSettings) {
        if (!settings.contains(setting.name))
            continue;
        const std::optional<int> value = receiver::valueFromJson(setting, settings.value(setting.name));
        if (!value)
            return request.failed(setting.name + QStringLiteral(" must be ") + allowedText(setting.allowed));
        changes.append({setting.key, *value});
    }
    for (const auto &[key, value] : changes)
        manager()->setDesiredSetting(key, value);
    return request.succeeded();
}

QJsonObject WsReceiverHandler::sync(const RemoteRequest &request)
{
    if (!manager()->isUsbOpen() && !manager()->isOverElrs())
        return request.failed(kConnectFirst);
    manager()->requestSettings(); // over the radio a read already under way serves as well
    return request.succeeded();
}

QJsonObject WsReceiverHandler::calibrateGyro(const RemoteRequest &request)
{
    if (!gyroReachable())
        return request.failed(kConnectForSensors);
    if (sensorStepRunning())
        return request.failed(kStepRunning);
    // Over the radio an older receiver has no calibration command.
    return request.outcome(manager()->calibrateGyro(), kConnectForSensors);
}

QJsonObject WsReceiverHandler::detectMounting(const RemoteRequest &request)
{
    const int step = request.integer(QLatin1String("step"));
    if (step != 0 && step != 1)
        return request.failed(QStringLiteral("step must be 0 or 1"));
    if (!manager()->isUsbOpen())
        return request.failed(kConnectForSensors);
    if (sensorStepRunning())
        return request.failed(kStepRunning);
    return request.outcome(manager()->detectMountingStep(step), kStepRunning);
}

QJsonObject WsReceiverHandler::searchElrs(const RemoteRequest &request)
{
    manager()->searchOverElrs();
    return request.succeeded();
}

QJsonObject WsReceiverHandler::command(const RemoteRequest &request)
{
    if (!manager()->isUsbOpen())
        return request.failed(kNoReceiver);
    const QString line = request.text(QLatin1String("command"));
    if (line.size() > receiver::kMaxLineLength || manager()->pendingCommands().size() >= kMaxQueuedCommands)
        return request.failed(QStringLiteral("Command refused"));
    return request.outcome(manager()->sendConsoleCommand(line), QStringLiteral("Command refused"));
}

} // namespace tavrix
