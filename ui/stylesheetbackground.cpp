#include "stylesheetbackground.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

namespace hub {

void paintStyleSheetBackground(QPainter &painter, QWidget *widget, bool sunken, bool on)
{
    QStyleOption option;
    option.initFrom(widget);
    if (sunken)
        option.state |= QStyle::State_Sunken;
    if (on)
        option.state |= QStyle::State_On;
    widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
}

} // namespace hub
