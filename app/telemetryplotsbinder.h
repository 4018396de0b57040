#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <chrono>

namespace tavrix {

class RepaintThrottle;
class TavrixController;
class TelemetryPlots;

// Feeds the dashboard's live plots from the controller's telemetry: the car's motion and the
// link statistics go into the plots' rings as they come, stamped on one clock, and the plots
// are redrawn at most a few times a second, so no burst of frames waits on painting.
class TelemetryPlotsBinder : public QObject
{
    Q_OBJECT
public:
    // Plots move slowly across a minute: ten redraws a second look smooth and cost little.
    static constexpr std::chrono::milliseconds kRedrawInterval{100};

    TelemetryPlotsBinder(TelemetryPlots *plots, TavrixController *controller, QObject *parent = nullptr);

private:
    TelemetryPlots *m_plots;
    RepaintThrottle *m_redraw;
    QElapsedTimer m_clock;
};

} // namespace tavrix
