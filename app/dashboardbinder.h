#pragma once

#include "telemetrycatalogue.h"
#include "telemetrygrid.h"

#include <QElapsedTimer>
#include <QObject>

#include <chrono>

class QTimer;

namespace tavrix {

class DashboardPage;
class TavrixController;

// Binds the dashboard to the controller: transmitter and game controllers, the car link,
// the transmission with its measured frame rate, and the profile's chosen telemetry sensors
// with the stale ones marked.
class DashboardBinder : public QObject
{
    Q_OBJECT
public:
    struct Timings
    {
        // A reading older than this (or never received) is marked stale.
        std::chrono::milliseconds staleAfter{2000};
        // The frame rate is measured over this window, and sensor ages are looked at again.
        std::chrono::milliseconds sampleInterval{1000};
    };

    DashboardBinder(DashboardPage *page, TavrixController *controller, const Timings &timings,
                    QObject *parent = nullptr);
    DashboardBinder(DashboardPage *page, TavrixController *controller, QObject *parent = nullptr)
        : DashboardBinder(page, controller, Timings{}, parent)
    {}

    // The readings to show at time nowMs (ms since the epoch, as the sensors are stamped):
    // the profile's chosen keys in its order, or every sensor seen when it chose none. Readings
    // carry the catalogue's keys, whichever spelling the profile chose them by.
    [[nodiscard]] static QList<TelemetryGrid::Reading> readings(const TelemetryCatalogue &sensors,
                                                                const QStringList &chosenKeys, qint64 nowMs,
                                                                std::chrono::milliseconds staleAfter);

private:
    void showTransmitter();
    void showReceiver();
    void showDevices();
    void showTransmission();
    void sampleFrameRate();
    void showTelemetry();
    [[nodiscard]] QStringList chosenKeys() const;

    DashboardPage *m_page;
    TavrixController *m_controller;
    Timings m_timings;
    QTimer *m_sampleTimer;
    QElapsedTimer m_sampleClock;
    quint32 m_sampleFrames = 0;
};

} // namespace tavrix
