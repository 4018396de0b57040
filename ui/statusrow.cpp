#include "statusrow.h"

#include "glyphview.h"
#include "statuspill.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace hub {

StatusRow::StatusRow(Glyph glyph, const QString &name, const QString &detail, QWidget *parent)
    : QWidget(parent)
{
    m_row = new QHBoxLayout(this);
    QHBoxLayout *row = m_row;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    auto *icon = new GlyphView(glyph, 36, this);
    icon->setTone(Tone::Muted);
    row->addWidget(icon);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(1);
    auto *title = new QLabel(name, this);
    title->setObjectName(QStringLiteral("emptyTitle"));
    m_detail = new QLabel(detail, this);
    m_detail->setObjectName(QStringLiteral("mutedText"));
    m_detail->setWordWrap(true);
    texts->addWidget(title);
    texts->addWidget(m_detail);
    row->addLayout(texts, 1);

    m_pill = new StatusPill(Tone::Neutral, QString(), this);
    row->addWidget(m_pill, 0, Qt::AlignVCenter);
}

void StatusRow::setDetail(const QString &detail)
{
    m_detail->setText(detail);
}

QString StatusRow::detail() const
{
    return m_detail->text();
}

void StatusRow::addAccessory(QWidget *widget)
{
    widget->setParent(this);
    m_row->insertWidget(m_row->indexOf(m_pill), widget, 0, Qt::AlignVCenter);
}

void StatusRow::setStatus(Tone tone, const QString &text)
{
    m_pill->setStatus(tone, text);
}

} // namespace hub
