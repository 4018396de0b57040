#include "statuspill.h"

#include <QPainter>

namespace hub {

StatusPill::StatusPill(Tone tone, const QString &text, QWidget *parent)
    : QLabel(parent)
    , m_tone(tone)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setStatus(tone, text);
}

void StatusPill::setStatus(Tone tone, const QString &text)
{
    m_tone = tone;
    setText(text);
    setStyleProperty(this, "tone", toneName(tone));
}

void StatusPill::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    // The dot repeats the tone in the text colour, so it reads without colour vision too.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(foregroundRole()));
    painter.drawEllipse(QPointF(12.5, height() / 2.0), 3.5, 3.5);
}

} // namespace hub
