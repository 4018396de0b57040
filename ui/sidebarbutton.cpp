#include "sidebarbutton.h"

#include "stylesheetbackground.h"

#include "tone.h"

#include <QPainter>

namespace hub {

SidebarButton::SidebarButton(Glyph glyph, const QString &text, QWidget *parent)
    : QAbstractButton(parent)
    , m_glyph(glyph)
{
    setText(text);
    setAccessibleName(text);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setProperty("active", QStringLiteral("false"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SidebarButton::setGlyph(Glyph glyph)
{
    m_glyph = glyph;
    update();
}

void SidebarButton::setActive(bool active)
{
    m_active = active;
    setStyleProperty(this, "active", active ? QStringLiteral("true") : QStringLiteral("false"));
}

QSize SidebarButton::sizeHint() const
{
    return {kGlyphInset * 2 + kGlyphSize + fontMetrics().horizontalAdvance(text()) + 12, 40};
}

QSize SidebarButton::minimumSizeHint() const
{
    return {kGlyphInset * 2 + kGlyphSize, 40};
}

void SidebarButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintStyleSheetBackground(painter, this, isDown());

    const QColor color = palette().color(foregroundRole());
    const QRectF glyphRect(kGlyphInset, (height() - kGlyphSize) / 2.0, kGlyphSize, kGlyphSize);
    paintGlyph(painter, m_glyph, glyphRect, color);

    const int textLeft = kGlyphInset + kGlyphSize + 12;
    const int textWidth = width() - textLeft - 8;
    if (textWidth < 24)
        return; // collapsed: glyph only
    painter.setPen(color);
    const QString elided = fontMetrics().elidedText(text(), Qt::ElideRight, textWidth);
    painter.drawText(QRect(textLeft, 0, textWidth, height()), Qt::AlignVCenter | Qt::AlignLeft, elided);
}

} // namespace hub
