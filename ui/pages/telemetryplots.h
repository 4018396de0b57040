#pragma once

#include "timeseriesring.h"

#include <QColor>
#include <QWidget>

#include <array>
#include <chrono>

class QChart;
class QChartView;
class QLineSeries;
class QValueAxis;

namespace tavrix {

// The car's last minute as two live plots: its G forces (lateral, longitudinal, vertical) and
// the radio link (link quality and RSSI). Samples go into fixed rings at once; the plots are
// drawn only by redraw(), which the owner calls at a paintable rate and which does nothing
// while the plots are hidden. Colours come from the theme's style sheet.
class TelemetryPlots : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor lateralColor READ lateralColor WRITE setLateralColor)
    Q_PROPERTY(QColor longitudinalColor READ longitudinalColor WRITE setLongitudinalColor)
    Q_PROPERTY(QColor verticalColor READ verticalColor WRITE setVerticalColor)
    Q_PROPERTY(QColor linkQualityColor READ linkQualityColor WRITE setLinkQualityColor)
    Q_PROPERTY(QColor rssiColor READ rssiColor WRITE setRssiColor)
    Q_PROPERTY(QColor gridColor READ gridColor WRITE setGridColor)
    Q_PROPERTY(QColor labelColor READ labelColor WRITE setLabelColor)
public:
    enum Series
    {
        Lateral,
        Longitudinal,
        Vertical,
        LinkQuality,
        Rssi,
        SeriesCount
    };

    static constexpr std::chrono::milliseconds kWindow{60000};
    // The receiver's motion record comes at about 50 Hz: one point each, no more.
    static constexpr std::chrono::milliseconds kResolution{20};
    // The G axis shows at least this either side of zero and grows in half-g steps beyond.
    static constexpr double kMinimumG = 2.0;
    static constexpr double kRssiFloorDbm = -120.0;
    static constexpr double kRssiCeilingDbm = 0.0;

    explicit TelemetryPlots(QWidget *parent = nullptr);

    void addMotion(qint64 timeMs, float lonG, float latG, float vertG);
    void addLink(qint64 timeMs, int linkQualityPercent, int rssiDbm);
    void clear();
    // Puts the rings on the plots, the newest sample at the right edge. Skipped while hidden;
    // showing the plots again draws them.
    void redraw();

    [[nodiscard]] const hub::TimeSeriesRing &ring(Series series) const { return m_rings[series]; }
    // How many points the plot of a series holds since the last redraw.
    [[nodiscard]] int plottedPoints(Series series) const;
    // Half the span of the G axis.
    [[nodiscard]] double gRange() const;

    QColor lateralColor() const { return m_colours[Lateral]; }
    void setLateralColor(const QColor &c) { setSeriesColour(Lateral, c); }
    QColor longitudinalColor() const { return m_colours[Longitudinal]; }
    void setLongitudinalColor(const QColor &c) { setSeriesColour(Longitudinal, c); }
    QColor verticalColor() const { return m_colours[Vertical]; }
    void setVerticalColor(const QColor &c) { setSeriesColour(Vertical, c); }
    QColor linkQualityColor() const { return m_colours[LinkQuality]; }
    void setLinkQualityColor(const QColor &c) { setSeriesColour(LinkQuality, c); }
    QColor rssiColor() const { return m_colours[Rssi]; }
    void setRssiColor(const QColor &c) { setSeriesColour(Rssi, c); }
    QColor gridColor() const { return m_gridColour; }
    void setGridColor(const QColor &colour);
    QColor labelColor() const { return m_labelColour; }
    void setLabelColor(const QColor &colour);

protected:
    void showEvent(QShowEvent *event) override;

private:
    QChartView *buildChart(QChart *chart);
    QValueAxis *addAxis(QChart *chart, Qt::Alignment side, double low, double high, const QString &title);
    void setSeriesColour(Series series, const QColor &colour);
    void styleAxes();
    void append(Series series, qint64 timeMs, float value);

    std::array<hub::TimeSeriesRing, SeriesCount> m_rings;
    std::array<QLineSeries *, SeriesCount> m_series{};
    std::array<QColor, SeriesCount> m_colours;
    QList<QValueAxis *> m_axes;
    QValueAxis *m_gAxis = nullptr;
    QColor m_gridColour;
    QColor m_labelColour;
    qint64 m_newestMs = 0;
    bool m_hasSamples = false;
};

} // namespace tavrix
