#include "dashboardpage.h"

#include "card.h"
#include "emptystate.h"
#include "recordingrow.h"
#include "stattile.h"
#include "statuspill.h"
#include "statusrow.h"
#include "telemetryplots.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

DashboardPage::DashboardPage(QWidget *parent)
    : hub::Page(tr("Dashboard"), tr("Connections, transmission and telemetry at a glance."), parent)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(buildConnectionsCard(), 3);
    row->addWidget(buildTransmissionCard(), 2);
    content()->addLayout(row);
    content()->addWidget(buildPlotsCard());
    content()->addWidget(buildTelemetryCard());
    content()->addStretch(1);

    setTransmitterState(false);
    setDevicesState(0, 3, false, tr("Choose them on the vehicle's page"));
    setCarLinked(false);
    setRemoteState(hub::Tone::Neutral, tr("Off"), tr("Companion app on the local network"));
    setTransmission(false);
}

QWidget *DashboardPage::buildConnectionsCard()
{
    auto *card = new hub::Card(tr("Connections"), this);
    m_transmitter = new hub::StatusRow(hub::Glyph::Antenna, tr("Transmitter"), QString(), card);
    m_devices = new hub::StatusRow(hub::Glyph::Wheel, tr("Game controllers"), QString(), card);
    m_carLink = new hub::StatusRow(hub::Glyph::Car, tr("Car link"), QString(), card);
    m_receiver = new hub::StatusRow(hub::Glyph::Link, tr("Receiver"), QString(), card);
    m_remote = new hub::StatusRow(hub::Glyph::Phone, tr("Mobile app"), QString(), card);
    for (hub::StatusRow *r : {m_transmitter, m_devices, m_carLink, m_receiver, m_remote})
        card->body()->addWidget(r);
    m_remoteDetails = new QPushButton(tr("Details"), m_remote);
    m_remote->addAccessory(m_remoteDetails);
    connect(m_remoteDetails, &QAbstractButton::clicked, this, &DashboardPage::remoteDetailsRequested);
    return card;
}

QWidget *DashboardPage::buildTransmissionCard()
{
    auto *card = new hub::Card(tr("Transmission"), this);
    m_transmissionPill = new hub::StatusPill(hub::Tone::Neutral, QString(), card);
    card->addHeaderWidget(m_transmissionPill);
    auto *tiles = new QHBoxLayout;
    tiles->setSpacing(8);
    m_vehicle = new hub::StatTile(tr("Vehicle"), card);
    m_frameRate = new hub::StatTile(tr("Frame rate"), card);
    tiles->addWidget(m_vehicle);
    tiles->addWidget(m_frameRate);
    card->body()->addLayout(tiles);

    auto *actions = new QHBoxLayout;
    actions->setSpacing(8);
    auto *car = new QPushButton(tr("Drive a car"), card);
    car->setProperty("variant", QStringLiteral("primary"));
    auto *heli = new QPushButton(tr("Fly a helicopter"), card);
    actions->addWidget(car);
    actions->addWidget(heli);
    actions->addStretch(1);
    card->body()->addLayout(actions);
    m_recording = new RecordingRow(card);
    card->body()->addWidget(m_recording);
    card->body()->addStretch(1);
    connect(car, &QPushButton::clicked, this, [this] { emit pageRequested(QStringLiteral("rc-car")); });
    connect(heli, &QPushButton::clicked, this, [this] { emit pageRequested(QStringLiteral("rc-heli")); });
    return card;
}

QWidget *DashboardPage::buildTelemetryCard()
{
    auto *card = new hub::Card(tr("Telemetry"), this);
    card->setSubtitle(tr("The car's sensors the profile shows, stale readings dimmed"));
    m_telemetrySettings = new QPushButton(tr("Choose tiles\u2026"), card);
    card->addHeaderWidget(m_telemetrySettings);
    connect(m_telemetrySettings, &QAbstractButton::clicked, this, &DashboardPage::telemetrySettingsRequested);
    m_telemetryEmpty = new hub::EmptyState(
        hub::Glyph::Gauge, tr("No telemetry yet"),
        tr("Readings from the car's sensors appear here while transmission runs and the car is linked."),
        card);
    card->body()->addWidget(m_telemetryEmpty);
    m_telemetry = new TelemetryGrid(card);
    m_telemetry->hide();
    card->body()->addWidget(m_telemetry);
    return card;
}

QWidget *DashboardPage::buildPlotsCard()
{
    auto *card = new hub::Card(tr("Live telemetry"), this);
    card->setSubtitle(tr("The car's G forces and radio link over the last minute"));
    m_plots = new TelemetryPlots(card);
    card->body()->addWidget(m_plots);
    return card;
}

void DashboardPage::setTransmitterState(bool connected, const QString &port)
{
    if (connected) {
        m_transmitter->setDetail(tr("Orvane Transmitter on %1").arg(port));
        m_transmitter->setStatus(hub::Tone::Good, tr("Connected"));
    } else {
        m_transmitter->setDetail(tr("Plug the Orvane Transmitter in over USB"));
        m_transmitter->setStatus(hub::Tone::Neutral, tr("Not connected"));
    }
}

void DashboardPage::setDevicesState(int connected, int roles, bool ready, const QString &detail)
{
    m_devices->setDetail(detail);
    if (connected == 0)
        m_devices->setStatus(hub::Tone::Neutral, tr("None"));
    else
        m_devices->setStatus(ready ? hub::Tone::Good : hub::Tone::Warning,
                             tr("%1 of %2").arg(connected).arg(roles));
}

void DashboardPage::showTelemetry(const QList<TelemetryGrid::Reading> &readings)
{
    m_telemetry->setReadings(readings);
    m_telemetry->setVisible(!readings.isEmpty());
    m_telemetryEmpty->setVisible(readings.isEmpty());
}

void DashboardPage::setReceiverState(hub::Tone tone, const QString &status, const QString &detail)
{
    m_receiver->setStatus(tone, status);
    m_receiver->setDetail(detail);
}

void DashboardPage::setCarLinked(bool linked)
{
    m_carLink->setDetail(tr("Radio link to the car's receiver"));
    if (linked)
        m_carLink->setStatus(hub::Tone::Good, tr("Linked"));
    else
        m_carLink->setStatus(hub::Tone::Neutral, tr("No link"));
}

void DashboardPage::setRemoteState(hub::Tone tone, const QString &status, const QString &detail)
{
    m_remote->setStatus(tone, status);
    if (!detail.isEmpty())
        m_remote->setDetail(detail);
}

void DashboardPage::setTransmission(bool running, const QString &vehicle)
{
    if (running)
        m_transmissionPill->setStatus(hub::Tone::Good, tr("Transmitting"));
    else
        m_transmissionPill->setStatus(hub::Tone::Neutral, tr("Stopped"));
    if (vehicle.isEmpty())
        m_vehicle->clear();
    else
        m_vehicle->setValue(vehicle);
    if (!running)
        m_frameRate->clear();
}

void DashboardPage::showFrameRate(double framesPerSecond)
{
    m_frameRate->setValue(QString::number(framesPerSecond, 'f', 0), tr("Hz"));
}

} // namespace tavrix
