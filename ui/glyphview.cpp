#include "glyphview.h"

#include "stylesheetbackground.h"

#include <QPainter>

namespace hub {

GlyphView::GlyphView(Glyph glyph, int size, QWidget *parent)
    : QWidget(parent)
    , m_glyph(glyph)
    , m_size(size)
{
    setFixedSize(size, size);
    setAttribute(Qt::WA_StyledBackground);
}

void GlyphView::setGlyph(Glyph glyph)
{
    m_glyph = glyph;
    update();
}

void GlyphView::setTone(Tone tone)
{
    setStyleProperty(this, "tone", toneName(tone));
}

QSize GlyphView::sizeHint() const
{
    return {m_size, m_size};
}

void GlyphView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintStyleSheetBackground(painter, this);
    const qreal glyphSize = m_size * 0.5;
    const QRectF glyphRect((width() - glyphSize) / 2, (height() - glyphSize) / 2, glyphSize, glyphSize);
    paintGlyph(painter, m_glyph, glyphRect, palette().color(foregroundRole()));
}

} // namespace hub
