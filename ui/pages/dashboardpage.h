#pragma once

#include "page.h"
#include "telemetrygrid.h"
#include "tone.h"

class QAbstractButton;

namespace hub {
class EmptyState;
class StatTile;
class StatusPill;
class StatusRow;
} // namespace hub

namespace tavrix {

class RecordingRow;
class TelemetryPlots;

// The "dashboard" page: the connections, the transmission with the drive recorder, the chosen
// telemetry sensors and the car's last minute as live plots at a glance. It presents only; the owner feeds it
// through the slots.
class DashboardPage : public hub::Page
{
    Q_OBJECT
public:
    explicit DashboardPage(QWidget *parent = nullptr);

    hub::StatusRow *transmitterRow() const { return m_transmitter; }
    hub::StatusRow *devicesRow() const { return m_devices; }
    hub::StatusRow *carLinkRow() const { return m_carLink; }
    hub::StatusRow *receiverRow() const { return m_receiver; }
    TelemetryGrid *telemetryGrid() const { return m_telemetry; }
    hub::StatTile *frameRateTile() const { return m_frameRate; }
    hub::StatusRow *remoteRow() const { return m_remote; }
    QAbstractButton *remoteDetailsButton() const { return m_remoteDetails; }
    hub::EmptyState *telemetryEmptyState() const { return m_telemetryEmpty; }
    QAbstractButton *telemetrySettingsButton() const { return m_telemetrySettings; }
    TelemetryPlots *telemetryPlots() const { return m_plots; }
    RecordingRow *recordingRow() const { return m_recording; }

public slots:
    void setTransmitterState(bool connected, const QString &port = {});
    // How many of the vehicle's controller roles have a device, whether the one transmission
    // needs is among them, and which ones.
    void setDevicesState(int connected, int roles, bool ready, const QString &detail);
    void setCarLinked(bool linked);
    // The car's receiver as reached over the radio: searched for, being read, or found.
    void setReceiverState(hub::Tone tone, const QString &status, const QString &detail);
    // The mobile app server: not listening, listening (with its address) or with clients.
    void setRemoteState(hub::Tone tone, const QString &status, const QString &detail = {});
    void setTransmission(bool running, const QString &vehicle = {});
    void showFrameRate(double framesPerSecond);
    // The chosen sensors; an empty list shows what is missing instead.
    void showTelemetry(const QList<tavrix::TelemetryGrid::Reading> &readings);

signals:
    void pageRequested(const QString &pageKey);
    // The mobile app server's details, from the button beside its row.
    void remoteDetailsRequested();
    // Which readings the telemetry card shows, from the button in its header.
    void telemetrySettingsRequested();

private:
    QWidget *buildConnectionsCard();
    QWidget *buildTransmissionCard();
    QWidget *buildTelemetryCard();
    QWidget *buildPlotsCard();

    hub::StatusRow *m_transmitter = nullptr;
    hub::StatusRow *m_devices = nullptr;
    hub::StatusRow *m_carLink = nullptr;
    hub::StatusRow *m_receiver = nullptr;
    hub::StatusRow *m_remote = nullptr;
    QAbstractButton *m_remoteDetails = nullptr;
    QAbstractButton *m_telemetrySettings = nullptr;
    hub::StatusPill *m_transmissionPill = nullptr;
    hub::StatTile *m_vehicle = nullptr;
    hub::StatTile *m_frameRate = nullptr;
    hub::EmptyState *m_telemetryEmpty = nullptr;
    TelemetryGrid *m_telemetry = nullptr;
    TelemetryPlots *m_plots = nullptr;
    RecordingRow *m_recording = nullptr;
};

} // namespace tavrix
