#include "telemetryplots.h"

#include <QChart>
#include <QChartView>
#include <QGraphicsLayout>
#include <QHBoxLayout>
#include <QLineSeries>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace tavrix {

namespace {

constexpr double kWindowSeconds = std::chrono::duration<double>(TelemetryPlots::kWindow).count();
constexpr int kChartHeight = 210;
constexpr double kGStep = 0.5;

} // namespace

TelemetryPlots::TelemetryPlots(QWidget *parent)
    : QWidget(parent)
    , m_rings{hub::TimeSeriesRing(kWindow, kResolution), hub::TimeSeriesRing(kWindow, kResolution),
              hub::TimeSeriesRing(kWindow, kResolution), hub::TimeSeriesRing(kWindow, kResolution),
              hub::TimeSeriesRing(kWindow, kResolution)}
{
    const QPalette &p = palette();
    m_colours = {p.color(QPalette::Highlight), p.color(QPalette::Link), p.color(QPalette::Mid),
                 p.color(QPalette::Highlight), p.color(QPalette::Mid)};
    m_gridColour = p.color(QPalette::Midlight);
    m_labelColour = p.color(QPalette::PlaceholderText);

    const std::array<QString, SeriesCount> names{tr("Lateral"), tr("Longitudinal"), tr("Vertical"),
                                                 tr("Link quality"), tr("RSSI")};
    for (int s = 0; s < SeriesCount; ++s) {
        // Owned by the chart it is added to below.
        m_series[s] = new QLineSeries;
        m_series[s]->setName(names[s]);
    }

    auto *forces = new QChart;
    forces->setTitle(tr("G forces"));
    for (Series s : {Lateral, Longitudinal, Vertical})
        forces->addSeries(m_series[s]);
    QValueAxis *forcesTime = addAxis(forces, Qt::AlignBottom, -kWindowSeconds, 0.0, QString());
    m_gAxis = addAxis(forces, Qt::AlignLeft, -kMinimumG, kMinimumG, tr("g"));
    m_gAxis->setLabelFormat(QStringLiteral("%.1f"));
    for (Series s : {Lateral, Longitudinal, Vertical}) {
        m_series[s]->attachAxis(forcesTime);
        m_series[s]->attachAxis(m_gAxis);
    }

    auto *link = new QChart;
    link->setTitle(tr("Radio link"));
    link->addSeries(m_series[LinkQuality]);
    link->addSeries(m_series[Rssi]);
    QValueAxis *linkTime = addAxis(link, Qt::AlignBottom, -kWindowSeconds, 0.0, QString());
    QValueAxis *quality = addAxis(link, Qt::AlignLeft, 0.0, 100.0, tr("LQ %"));
    QValueAxis *rssi = addAxis(link, Qt::AlignRight, kRssiFloorDbm, kRssiCeilingDbm, tr("dBm"));
    m_series[LinkQuality]->attachAxis(linkTime);
    m_series[LinkQuality]->attachAxis(quality);
    m_series[Rssi]->attachAxis(linkTime);
    m_series[Rssi]->attachAxis(rssi);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    row->addWidget(buildChart(forces), 1);
    row->addWidget(buildChart(link), 1);

    for (int s = 0; s < SeriesCount; ++s)
        setSeriesColour(Series(s), m_colours[s]);
    styleAxes();
}

QChartView *TelemetryPlots::buildChart(QChart *chart)
{
    // The card's surface shows through, so both themes need nothing of their own here.
    chart->setBackgroundVisible(false);
    chart->setMargins(QMargins(0, 0, 0, 0));
    chart->layout()->setContentsMargins(0, 0, 0, 0);
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->setAnimationOptions(QChart::NoAnimation);
    auto *view = new QChartView(chart, this);
    view->setRenderHint(QPainter::Antialiasing);
    view->setMinimumHeight(kChartHeight);
    view->setStyleSheet(QStringLiteral("background: transparent"));
    return view;
}

QValueAxis *TelemetryPlots::addAxis(QChart *chart, Qt::Alignment side, double low, double high,
                                    const QString &title)
{
    auto *axis = new QValueAxis(chart);
    axis->setRange(low, high);
    axis->setTitleText(title);
    // Time runs from a minute ago to now; its unit goes with the labels, not a title line.
    const bool time = side == Qt::AlignBottom;
    axis->setLabelFormat(time ? QStringLiteral("%.0f s") : QStringLiteral("%.0f"));
    axis->setTickCount(time ? 4 : 5);
    chart->addAxis(axis, side);
    m_axes.append(axis);
    return axis;
}

void TelemetryPlots::addMotion(qint64 timeMs, float lonG, float latG, float vertG)
{
    append(Lateral, timeMs, latG);
    append(Longitudinal, timeMs, lonG);
    append(Vertical, timeMs, vertG);
}

void TelemetryPlots::addLink(qint64 timeMs, int linkQualityPercent, int rssiDbm)
{
    append(LinkQuality, timeMs, float(linkQualityPercent));
    append(Rssi, timeMs, float(rssiDbm));
}

void TelemetryPlots::append(Series series, qint64 timeMs, float value)
{
    m_rings[series].append(timeMs, value);
    m_newestMs = m_hasSamples ? std::max(m_newestMs, timeMs) : timeMs;
    m_hasSamples = true;
}

void TelemetryPlots::clear()
{
    for (hub::TimeSeriesRing &ring : m_rings)
        ring.clear();
    m_hasSamples = false;
    for (QLineSeries *series : m_series)
        series->clear();
    m_gAxis->setRange(-kMinimumG, kMinimumG);
}

void TelemetryPlots::redraw()
{
    if (!isVisible())
        return;
    double largestG = 0.0;
    QList<QPointF> points;
    for (int s = 0; s < SeriesCount; ++s) {
        const hub::TimeSeriesRing &ring = m_rings[s];
        points.clear();
        points.reserve(ring.size());
        for (int i = 0; i < ring.size(); ++i) {
            const hub::TimeSeriesRing::Sample &sample = ring.at(i);
            const double age = double(sample.timeMs - m_newestMs) / 1000.0;
            if (age < -kWindowSeconds)
                continue;
            points.append(QPointF(age, sample.value));
            if (s <= Vertical)
                largestG = std::max(largestG, std::abs(double(sample.value)));
        }
        // One replace per series: a single repaint instead of one per point.
        m_series[s]->replace(points);
    }
    const double range = std::max(kMinimumG, std::ceil(largestG / kGStep) * kGStep);
    if (range != m_gAxis->max())
        m_gAxis->setRange(-range, range);
}

int TelemetryPlots::plottedPoints(Series series) const
{
    return int(m_series[series]->count());
}

double TelemetryPlots::gRange() const
{
    return m_gAxis->max();
}

void TelemetryPlots::setSeriesColour(Series series, const QColor &colour)
{
    m_colours[series] = colour;
    QPen pen(colour);
    pen.setWidthF(1.6);
    m_series[series]->setPen(pen);
}

void TelemetryPlots::setGridColor(const QColor &colour)
{
    m_gridColour = colour;
    styleAxes();
}

void TelemetryPlots::setLabelColor(const QColor &colour)
{
    m_labelColour = colour;
    styleAxes();
}

void TelemetryPlots::styleAxes()
{
    for (QValueAxis *axis : std::as_const(m_axes)) {
        axis->setGridLineColor(m_gridColour);
        axis->setLinePenColor(m_gridColour);
        axis->setLabelsColor(m_labelColour);
        axis->setTitleBrush(m_labelColour);
    }
    for (QLineSeries *series : m_series) {
        if (QChart *chart = series->chart()) {
            chart->setTitleBrush(m_labelColour);
            chart->legend()->setLabelColor(m_labelColour);
        }
    }
}

void TelemetryPlots::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    redraw();
}

} // namespace tavrix
