#pragma once

class QPainter;
class QWidget;

namespace hub {

// Lets the style sheet paint the background of a widget that draws its own content, so
// hover, pressed ("sunken"), checked ("on") and tone rules of hub.qss apply to it as to any
// styled widget.
void paintStyleSheetBackground(QPainter &painter, QWidget *widget, bool sunken = false, bool on = false);

} // namespace hub
