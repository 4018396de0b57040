#include "curvegraph.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tavrix {

namespace {

// Enough points that the steepest power curve still looks smooth at dialog size.
constexpr int kSamples = 96;
constexpr double kMargin = 8.0;

} // namespace

CurveGraph::CurveGraph(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("curveGraph"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CurveGraph::setShape(std::function<double(double)> shape, double minimum, double maximum)
{
    m_shape = std::move(shape);
    m_min = minimum;
    m_max = maximum > minimum ? maximum : minimum + 1.0;
    update();
}

void CurveGraph::setMarker(double input, double output)
{
    m_hasMarker = true;
    m_markerIn = input;
    m_markerOut = output;
    update();
}

QPointF CurveGraph::toWidget(const QRectF &area, double x, double y) const
{
    const double span = m_max - m_min;
    const double fx = (std::clamp(x, m_min, m_max) - m_min) / span;
    const double fy = (std::clamp(y, m_min, m_max) - m_min) / span;
    return {area.left() + fx * area.width(), area.bottom() - fy * area.height()};
}

void CurveGraph::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height()) - 2 * kMargin;
    const QRectF area((width() - side) / 2.0, (height() - side) / 2.0, side, side);
    const QPalette &colours = palette();

    painter.setPen(QPen(colours.color(QPalette::Mid), 1.0));
    painter.setBrush(colours.color(QPalette::Base));
    painter.drawRect(area);
    // The straight line is what the axis does untouched: the curve reads against it.
    painter.setPen(QPen(colours.color(QPalette::Mid), 1.0, Qt::DashLine));
    painter.drawLine(toWidget(area, m_min, m_min), toWidget(area, m_max, m_max));
    if (m_min < 0.0 && m_max > 0.0) {
        painter.drawLine(toWidget(area, 0.0, m_min), toWidget(area, 0.0, m_max));
        painter.drawLine(toWidget(area, m_min, 0.0), toWidget(area, m_max, 0.0));
    }
    if (!m_shape)
        return;

    QPainterPath curve;
    for (int i = 0; i <= kSamples; ++i) {
        const double x = m_min + (m_max - m_min) * i / kSamples;
        const double y = m_shape(x);
        // A curve the settings leave undefined (NaN) is drawn as a gap, not as a spike.
        if (!std::isfinite(y))
            continue;
        const QPointF point = toWidget(area, x, y);
        if (curve.elementCount() == 0)
            curve.moveTo(point);
        else
            curve.lineTo(point);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.color(QPalette::Highlight), 2.0));
    painter.drawPath(curve);

    if (m_hasMarker) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.color(QPalette::Highlight));
        painter.drawEllipse(toWidget(area, m_markerIn, m_markerOut), 4.5, 4.5);
    }
}

} // namespace tavrix
