#include "stattile.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace hub {

StatTile::StatTile(const QString &caption, QWidget *parent)
    : QFrame(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(14, 10, 14, 12);
    column->setSpacing(2);
    m_caption = new QLabel(caption, this);
    m_caption->setObjectName(QStringLiteral("statCaption"));
    auto *line = new QHBoxLayout;
    line->setSpacing(4);
    m_value = new QLabel(this);
    m_value->setObjectName(QStringLiteral("statValue"));
    m_unit = new QLabel(this);
    m_unit->setObjectName(QStringLiteral("statUnit"));
    line->addWidget(m_value, 0, Qt::AlignBaseline);
    line->addWidget(m_unit, 0, Qt::AlignBaseline);
    line->addStretch(1);
    column->addWidget(m_caption);
    column->addLayout(line);
    clear();
}

void StatTile::setCaption(const QString &caption)
{
    m_caption->setText(caption);
}

QString StatTile::caption() const
{
    return m_caption->text();
}

void StatTile::setValue(const QString &value, const QString &unit)
{
    m_hasValue = true;
    m_value->setText(value);
    m_unit->setText(unit);
    m_unit->setVisible(!unit.isEmpty());
    setTone(Tone::Neutral);
}

void StatTile::clear()
{
    m_hasValue = false;
    m_value->setText(noValueText());
    m_unit->clear();
    m_unit->hide();
    setTone(Tone::Muted);
}

QString StatTile::value() const
{
    return m_value->text();
}

QString StatTile::unit() const
{
    return m_unit->text();
}

void StatTile::setTone(Tone tone)
{
    setStyleProperty(this, "tone", toneName(tone));
}

QString StatTile::noValueText()
{
    return QStringLiteral("\u2014");
}

} // namespace hub
