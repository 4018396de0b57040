#include "dashboardbinder.h"

#include "dashboardkeys.h"
#include "dashboardpage.h"
#include "deviceroleset.h"
#include "inputdevice.h"
#include "profilekeys.h"
#include "receiverelrslink.h"
#include "tavrixcontroller.h"
#include "telemetrysensorbook.h"

#include <QDateTime>
#include <QJsonArray>
#include <QTimer>

namespace tavrix {

DashboardBinder::DashboardBinder(DashboardPage *page, TavrixController *controller, const Timings &timings,
                                 QObject *parent)
    : QObject(parent)
    , m_page(page)
    , m_controller(controller)
    , m_timings(timings)
    , m_sampleTimer(new QTimer(this))
{
    m_sampleTimer->setInterval(timings.sampleInterval);
    connect(m_sampleTimer, &QTimer::timeout, this, [this] {
        sampleFrameRate();
        showTelemetry();
    });
    m_sampleTimer->start();

    connect(controller, &TavrixController::serialConnectedChanged, this, &DashboardBinder::showTransmitter);
    connect(controller, &TavrixController::serialPortNameChanged, this, &DashboardBinder::showTransmitter);
    for (auto signal :
         {&TavrixController::wheelBaseConnectedChanged, &TavrixController::pedalsConnectedChanged,
          &TavrixController::shifterConnectedChanged, &TavrixController::heliJoystickConnectedChanged,
          &TavrixController::heliThrottleConnectedChanged, &TavrixController::heliPedalsConnectedChanged})
        connect(controller, signal, this, &DashboardBinder::showDevices);
    connect(controller, &TavrixController::carLinkChanged, page, &DashboardPage::setCarLinked);
    connect(controller->receiverLink(), &ReceiverElrsLink::stateChanged, this,
            &DashboardBinder::showReceiver);
    connect(controller, &TavrixController::runningChanged, this, &DashboardBinder::showTransmission);
    connect(controller, &TavrixController::profileChanged, this, [this] {
        showDevices();
        showTransmission();
        showTelemetry();
    });
    connect(controller->profileManager(), &ProfileManager::profileModified, this,
            &DashboardBinder::showTelemetry);
    for (auto signal :
         {&TavrixController::telemetrySensorListChanged, &TavrixController::telemetryDashboardChanged})
        connect(controller, signal, this, &DashboardBinder::showTelemetry);

    showTransmitter();
    showDevices();
    page->setCarLinked(controller->telemetry()->isCarLinked());
    showReceiver();
    showTransmission();
    showTelemetry();
}

void DashboardBinder::showTransmitter()
{
    m_page->setTransmitterState(m_controller->isSerialConnected(), m_controller->serialPortName());
}

void DashboardBinder::showReceiver()
{
    const ReceiverElrsLink *link = m_controller->receiverLink();
    switch (link->state()) {
    case ReceiverElrsLink::State::Idle:
        m_page->setReceiverState(hub::Tone::Neutral, tr("Not found"),
                                 tr("Looked for over the radio while transmitting"));
        return;
    case ReceiverElrsLink::State::Searching:
        m_page->setReceiverState(hub::Tone::Warning, tr("Searching"),
                                 tr("Asking the car's receiver to answer"));
        return;
    case ReceiverElrsLink::State::Reading:
        m_page->setReceiverState(hub::Tone::Accent, tr("Reading settings"),
                                 tr("%1, firmware %2").arg(link->receiverName(), link->firmwareVersion()));
        return;
    case ReceiverElrsLink::State::Ready:
        m_page->setReceiverState(hub::Tone::Good, link->receiverName(),
                                 tr("Firmware %1, reached over the radio").arg(link->firmwareVersion()));
        return;
    }
}

void DashboardBinder::showDevices()
{
    const QList<DeviceRole> roles = DeviceRoleSet::rolesFor(m_controller->vehicleType());
    QStringList names;
    for (DeviceRole role : roles) {
        if (m_controller->devices()->isConnected(role))
            names.append(m_controller->devices()->device(role)->deviceName());
    }
    // The first role (wheel base, joystick) is the one transmission needs; the others are optional.
    const bool ready = !roles.isEmpty() && m_controller->devices()->isConnected(roles.first());
    m_page->setDevicesState(int(names.size()), int(roles.size()), ready,
                            names.isEmpty() ? tr("Choose them on the vehicle's page")
                                            : names.join(QStringLiteral(", ")));
}

void DashboardBinder::showTransmission()
{
    const bool running = m_controller->isRunning();
    const QString vehicle = m_controller->isHelicopter() ? tr("RC Helicopter") : tr("RC Car");
    m_page->setTransmission(running, vehicle);
    m_sampleFrames = m_controller->frameCount();
    m_sampleClock.start();
    showDevices();
}

void DashboardBinder::sampleFrameRate()
{
    if (!m_controller->isRunning())
        return;
    const quint32 frames = m_controller->frameCount();
    const qint64 elapsedMs = m_sampleClock.restart();
    if (elapsedMs > 0 && frames >= m_sampleFrames)
        m_page->showFrameRate((frames - m_sampleFrames) * 1000.0 / double(elapsedMs));
    m_sampleFrames = frames;
}

QStringList DashboardBinder::chosenKeys() const
{
    QStringList keys;
    const QJsonArray chosen =
        m_controller->profileManager()->setting(profilekeys::kTelemetryDashboard).toArray();
    for (const QJsonValue &key : chosen) {
        if (!key.toString().isEmpty())
            keys.append(key.toString());
    }
    return keys;
}

void DashboardBinder::showTelemetry()
{
    const TelemetryCatalogue sensors = m_controller->telemetry()->catalogue();
    // Until the car has reported anything, the card says how to get readings instead of
    // showing a grid of dashes.
    if (sensors.isEmpty()) {
        m_page->showTelemetry({});
        return;
    }
    QList<TelemetryGrid::Reading> shown =
        readings(sensors, chosenKeys(), QDateTime::currentMSecsSinceEpoch(), m_timings.staleAfter);
    // Each tile under the label the profile gives its sensor.
    QHash<QString, QString> labels;
    for (const TelemetrySensorBook::Sensor &sensor : m_controller->telemetrySensors()->sensors())
        labels.insert(sensor.id, sensor.label);
    for (TelemetryGrid::Reading &reading : shown)
        reading.label = labels.value(reading.key);
    m_page->showTelemetry(shown);
}

QList<TelemetryGrid::Reading> DashboardBinder::readings(const TelemetryCatalogue &sensors,
                                                        const QStringList &chosenKeys, qint64 nowMs,
                                                        std::chrono::milliseconds staleAfter)
{
    const auto reading = [&](const TelemetrySensor *sensor, const QString &key) {
        TelemetryGrid::Reading r{.key = key, .stale = true};
        if (sensor) {
            r.value = sensor->value;
            r.stale = sensor->updatedMs == 0 || nowMs - sensor->updatedMs > staleAfter.count();
        }
        return r;
    };
    QList<TelemetryGrid::Reading> out;
    if (chosenKeys.isEmpty()) {
        for (const TelemetrySensor &sensor : sensors)
            out.append(reading(&sensor, sensor.key));
        return out;
    }
    QStringList shown;
    for (const QString &chosen : chosenKeys) {
        // The profile spells the car's motion readings its own way; the catalogue's spelling finds them.
        const QString key = dashboardkeys::catalogueKey(chosen);
        if (key.isEmpty() || shown.contains(key))
            continue;
        shown.append(key);
        const auto it = std::find_if(sensors.cbegin(), sensors.cend(),
                                     [&key](const TelemetrySensor &s) { return s.key == key; });
        out.append(reading(it == sensors.cend() ? nullptr : &*it, key));
    }
    return out;
}

} // namespace tavrix
