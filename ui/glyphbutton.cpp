#include "glyphbutton.h"

#include "stylesheetbackground.h"

#include <QPainter>

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
    QPainter painter(this);
    paintStyleSheetBackground(painter, this, isDown());
    const QRectF glyphRect = QRectF(rect()).adjusted(5, 5, -5, -5);
    paintGlyph(painter, m_glyph, glyphRect, palette().color(foregroundRole()));
}

} // namespace hub
