#include "telemetryplotsbinder.h"

#include "repaintthrottle.h"
#include "tavrixcontroller.h"
#include "telemetryplots.h"

namespace tavrix {

TelemetryPlotsBinder::TelemetryPlotsBinder(TelemetryPlots *plots, TavrixController *controller,
                                           QObject *parent)
    : QObject(parent)
    , m_plots(plots)
    , m_redraw(new RepaintThrottle([plots] { plots->redraw(); }, this, kRedrawInterval))
{
    m_clock.start();
    connect(controller, &TavrixController::carMotionReceived, plots,
            [this](float lonG, float latG, float vertG) {
                m_plots->addMotion(m_clock.elapsed(), lonG, latG, vertG);
                m_redraw->request();
            });
    connect(controller, &TavrixController::linkStatisticsUpdated, plots, [this](const LinkStatistics &stats) {
        m_plots->addLink(m_clock.elapsed(), stats.linkQuality, stats.uplinkRssi1);
        m_redraw->request();
    });
}

} // namespace tavrix
