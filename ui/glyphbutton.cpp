#include "glyphbutton.h"

#include <QPainter>
#include <QStyleOption>

namespace hub {

GlyphButton::GlyphButton(Glyph glyph, const QString &toolTip, QWidget *parent)
    : QAbstractButton(parent)
    , m_glyph(glyph)
{
    setText(toolTip);
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
}

void GlyphButton::setGlyph(Glyph glyph)
{
    m_glyph = glyph;
    update();
}

QSize GlyphButton::sizeHint() const
{
    return {28, 28};
}

void GlyphButton::paintEvent(QPaintEvent *)
{
    QStyleOption option;
    option.initFrom(this);
    if (isDown())
        option.state |= QStyle::State_Sunken;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    const QRectF glyphRect = QRectF(rect()).adjusted(5, 5, -5, -5);
    paintGlyph(painter, m_glyph, glyphRect, palette().color(foregroundRole()));
}

} // namespace hub
