#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace hub {

// The line icons of the widget kit. They are drawn as strokes in the caller's colour, so
// they follow the style sheet's text colour in both themes instead of shipping tinted images.
enum class Glyph
{
    None,
    Dashboard,
    Vehicles,
    Car,
    Helicopter,
    Airplane,
    Motion,
    Info,
    Sun,
    Moon,
    PanelCollapse,
    PanelExpand,
    ChevronDown,
    ChevronRight,
    ChevronLeft,
    Console,
    Antenna,
    Wheel,
    Gauge,
    Sliders,
    Link,
    Phone,
};

// Paints the glyph, designed on a 24x24 grid, scaled into rect with the given pen colour.
void paintGlyph(QPainter &painter, Glyph glyph, const QRectF &rect, const QColor &color);

} // namespace hub
