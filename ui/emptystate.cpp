#include "emptystate.h"

#include "glyphview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace hub {

EmptyState::EmptyState(Glyph glyph, const QString &title, const QString &text, QWidget *parent)
    : QWidget(parent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 4, 0, 4);
    row->setSpacing(14);
    m_glyph = new GlyphView(glyph, 40, this);
    m_glyph->setTone(Tone::Muted);
    row->addWidget(m_glyph, 0, Qt::AlignTop);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(3);
    m_title = new QLabel(title, this);
    m_title->setObjectName(QStringLiteral("emptyTitle"));
    m_title->setWordWrap(true);
    m_text = new QLabel(text, this);
    m_text->setObjectName(QStringLiteral("emptyText"));
    m_text->setWordWrap(true);
    texts->addWidget(m_title);
    texts->addWidget(m_text);
    texts->addStretch(1);
    row->addLayout(texts, 1);
}

void EmptyState::setTitle(const QString &title)
{
    m_title->setText(title);
}

QString EmptyState::title() const
{
    return m_title->text();
}

void EmptyState::setText(const QString &text)
{
    m_text->setText(text);
}

QString EmptyState::text() const
{
    return m_text->text();
}

} // namespace hub
