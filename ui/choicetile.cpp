#include "choicetile.h"

#include "stylesheetbackground.h"

#include "glyphview.h"
#include "statuspill.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace hub {

ChoiceTile::ChoiceTile(Glyph glyph, const QString &title, const QString &description, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(title);
    setAccessibleName(title);
    setAccessibleDescription(description);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 20);
    column->setSpacing(6);

    auto *top = new QHBoxLayout;
    m_glyph = new GlyphView(glyph, 48, this);
    m_badge = new StatusPill(Tone::Neutral, QString(), this);
    m_badge->hide();
    top->addWidget(m_glyph);
    top->addStretch(1);
    top->addWidget(m_badge, 0, Qt::AlignTop);
    column->addLayout(top);
    column->addSpacing(10);

    m_title = new QLabel(title, this);
    m_title->setObjectName(QStringLiteral("choiceTitle"));
    m_description = new QLabel(description, this);
    m_description->setObjectName(QStringLiteral("choiceText"));
    m_description->setWordWrap(true);
    column->addWidget(m_title);
    column->addWidget(m_description);
    column->addStretch(1);
}

QString ChoiceTile::title() const
{
    return m_title->text();
}

QString ChoiceTile::description() const
{
    return m_description->text();
}

void ChoiceTile::setBadge(const QString &badge)
{
    m_badge->setText(badge);
    m_badge->setVisible(!badge.isEmpty());
}

QString ChoiceTile::badge() const
{
    return m_badge->text();
}

QSize ChoiceTile::sizeHint() const
{
    return QSize(260, 190).expandedTo(layout()->sizeHint());
}

QSize ChoiceTile::minimumSizeHint() const
{
    return layout()->minimumSize().expandedTo(QSize(180, 170));
}

void ChoiceTile::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintStyleSheetBackground(painter, this, false, isChecked());
}

void ChoiceTile::changeEvent(QEvent *event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        m_glyph->setTone(isEnabled() ? Tone::Accent : Tone::Muted);
        setCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    }
}

} // namespace hub
