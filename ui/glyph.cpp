#include "glyph.h"

#include <QPainter>
#include <QPainterPath>

namespace hub {

namespace {

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    auto it = points.begin();
    path.moveTo(*it);
    for (++it; it != points.end(); ++it)
        path.lineTo(*it);
    return path;
}

QPainterPath circle(QPointF centre, qreal radius)
{
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

QPainterPath roundedRect(qreal x, qreal y, qreal w, qreal h, qreal r)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(x, y, w, h), r, r);
    return path;
}

// The glyph's outline on the 24x24 design grid.
QPainterPath glyphPath(Glyph glyph)
{
    QPainterPath p;
    switch (glyph) {
    case Glyph::None:
        break;
    case Glyph::Dashboard:
        p.addPath(roundedRect(3.5, 3.5, 7, 9, 1.5));
        p.addPath(roundedRect(13.5, 3.5, 7, 5, 1.5));
        p.addPath(roundedRect(13.5, 11.5, 7, 9, 1.5));
        p.addPath(roundedRect(3.5, 15.5, 7, 5, 1.5));
        break;
    case Glyph::Vehicles:
    case Glyph::Car:
        p.addPath(polyline({{5.5, 11}, {7.2, 6.8}, {16.8, 6.8}, {18.5, 11}}));
        p.addPath(roundedRect(3, 11, 18, 5.5, 1.8));
        p.addPath(circle({7.5, 18}, 1.8));
        p.addPath(circle({16.5, 18}, 1.8));
        break;
    case Glyph::Helicopter:
        p.addPath(polyline({{3, 4.5}, {19, 4.5}}));
        p.addPath(polyline({{11, 4.5}, {11, 7.5}}));
        p.addPath(roundedRect(4.5, 7.5, 11, 7.5, 3.75));
        p.addPath(polyline({{15.5, 11}, {21.5, 10}}));
        p.addPath(polyline({{21.5, 8}, {21.5, 12}}));
        p.addPath(polyline({{7.5, 15}, {7.5, 19}}));
        p.addPath(polyline({{12.5, 15}, {12.5, 19}}));
        p.addPath(polyline({{4.5, 19}, {16, 19}}));
        break;
    case Glyph::Airplane:
        p.addPath(polyline({{12, 2.5}, {12, 21}}));
        p.addPath(polyline({{3, 13.5}, {12, 9}, {21, 13.5}}));
        p.addPath(polyline({{8.5, 20.5}, {12, 18.5}, {15.5, 20.5}}));
        break;
    case Glyph::Motion:
        // Three axes from one origin: the degrees of freedom of a motion platform.
        p.addPath(polyline({{9, 15}, {9, 3.5}}));
        p.addPath(polyline({{6.5, 6}, {9, 3.5}, {11.5, 6}}));
        p.addPath(polyline({{9, 15}, {20.5, 15}}));
        p.addPath(polyline({{18, 12.5}, {20.5, 15}, {18, 17.5}}));
        p.addPath(polyline({{9, 15}, {3.5, 20.5}}));
        p.addPath(polyline({{3.5, 17}, {3.5, 20.5}, {7, 20.5}}));
        break;
    case Glyph::Info:
        p.addPath(circle({12, 12}, 9));
        p.addPath(polyline({{12, 11}, {12, 16.5}}));
        p.addPath(polyline({{12, 7.6}, {12, 7.7}}));
        break;
    case Glyph::Sun:
        p.addPath(circle({12, 12}, 4));
        for (int i = 0; i < 8; ++i) {
            QLineF ray = QLineF::fromPolar(9.5, i * 45.0).translated(12, 12);
            QLineF inner = QLineF::fromPolar(7, i * 45.0).translated(12, 12);
            p.addPath(polyline({inner.p2(), ray.p2()}));
        }
        break;
    case Glyph::Moon: {
        QPainterPath outer = circle({12, 12}, 8.5);
        QPainterPath cut = circle({17, 7.5}, 7);
        p.addPath(outer.subtracted(cut));
        break;
    }
    case Glyph::PanelCollapse:
    case Glyph::PanelExpand:
        p.addPath(roundedRect(3, 4, 18, 16, 2.5));
        p.addPath(polyline({{9, 4}, {9, 20}}));
        if (glyph == Glyph::PanelCollapse)
            p.addPath(polyline({{16, 9.5}, {13.5, 12}, {16, 14.5}}));
        else
            p.addPath(polyline({{13.5, 9.5}, {16, 12}, {13.5, 14.5}}));
        break;
    case Glyph::ChevronDown:
        p.addPath(polyline({{6, 9}, {12, 15}, {18, 9}}));
        break;
    case Glyph::ChevronRight:
        p.addPath(polyline({{9, 6}, {15, 12}, {9, 18}}));
        break;
    case Glyph::ChevronLeft:
        p.addPath(polyline({{15, 6}, {9, 12}, {15, 18}}));
        break;
    case Glyph::Console:
        p.addPath(roundedRect(3, 4, 18, 16, 2.5));
        p.addPath(polyline({{7, 9}, {10, 12}, {7, 15}}));
        p.addPath(polyline({{12.5, 15}, {17, 15}}));
        break;
    case Glyph::Antenna:
        p.addPath(circle({12, 9}, 1.6));
        p.addPath(polyline({{12, 10.6}, {12, 21}}));
        p.addPath(polyline({{8, 21}, {16, 21}}));
        p.arcMoveTo(QRectF(7, 4, 10, 10), 135);
        p.arcTo(QRectF(7, 4, 10, 10), 135, 90);
        p.arcMoveTo(QRectF(7, 4, 10, 10), -45);
        p.arcTo(QRectF(7, 4, 10, 10), -45, 90);
        p.arcMoveTo(QRectF(3.5, 0.5, 17, 17), 140);
        p.arcTo(QRectF(3.5, 0.5, 17, 17), 140, 80);
        p.arcMoveTo(QRectF(3.5, 0.5, 17, 17), -40);
        p.arcTo(QRectF(3.5, 0.5, 17, 17), -40, 80);
        break;
    case Glyph::Wheel:
        p.addPath(circle({12, 12}, 9));
        p.addPath(circle({12, 12}, 2.5));
        p.addPath(polyline({{3, 12}, {9.5, 12}}));
        p.addPath(polyline({{14.5, 12}, {21, 12}}));
        p.addPath(polyline({{12, 14.5}, {12, 21}}));
        break;
    case Glyph::Gauge:
        p.arcMoveTo(QRectF(3, 4, 18, 18), 200);
        p.arcTo(QRectF(3, 4, 18, 18), 200, -220);
        p.addPath(polyline({{12, 13}, {16, 9}}));
        p.addPath(circle({12, 13}, 1.2));
        break;
    case Glyph::Sliders:
        p.addPath(polyline({{4, 7}, {20, 7}}));
        p.addPath(polyline({{4, 12}, {20, 12}}));
        p.addPath(polyline({{4, 17}, {20, 17}}));
        p.addPath(circle({9, 7}, 2));
        p.addPath(circle({15, 12}, 2));
        p.addPath(circle({7, 17}, 2));
        break;
    case Glyph::Link:
        p.addPath(roundedRect(2.5, 9, 10, 6, 3));
        p.addPath(roundedRect(11.5, 9, 10, 6, 3));
        break;
    case Glyph::Phone:
        p.addPath(roundedRect(6.5, 2.5, 11, 19, 2.5));
        p.addPath(polyline({{10.5, 18}, {13.5, 18}}));
        break;
    }
    return p;
}

} // namespace

void paintGlyph(QPainter &painter, Glyph glyph, const QRectF &rect, const QColor &color)
{
    if (glyph == Glyph::None || rect.isEmpty())
        return;
    const qreal scale = std::min(rect.width(), rect.height()) / 24.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center() - QPointF(12 * scale, 12 * scale));
    painter.scale(scale, scale);
    // Keep the stroke near 1.6 device pixels at small sizes and let it grow gently with size.
    QPen pen(color, std::max(1.6, 1.5 + scale * 0.1) / scale);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(glyphPath(glyph));
    painter.restore();
}

} // namespace hub
