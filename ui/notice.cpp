#include "notice.h"

#include "glyphview.h"

#include <QHBoxLayout>
#include <QLabel>

namespace hub {

Notice::Notice(Glyph glyph, const QString &text, QWidget *parent)
    : QFrame(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    auto *row = m_row = new QHBoxLayout(this);
    row->setContentsMargins(12, 10, 16, 10);
    row->setSpacing(10);
    auto *icon = new GlyphView(glyph, 32, this);
    row->addWidget(icon, 0, Qt::AlignVCenter);
    m_text = new QLabel(text, this);
    m_text->setWordWrap(true);
    row->addWidget(m_text, 1);
}

Notice *Notice::refusal(Glyph glyph, QWidget *parent)
{
    auto *notice = new Notice(glyph, QString(), parent);
    notice->setTone(Tone::Danger);
    notice->hide();
    return notice;
}

void Notice::showMessage(const QString &text)
{
    m_text->setText(text);
    setVisible(!text.isEmpty());
}

void Notice::setText(const QString &text)
{
    m_text->setText(text);
}

QString Notice::text() const
{
    return m_text->text();
}

void Notice::setTone(Tone tone)
{
    setStyleProperty(this, "tone", toneName(tone));
}

void Notice::addAction(QWidget *widget)
{
    m_row->addWidget(widget, 0, Qt::AlignVCenter);
}

} // namespace hub
