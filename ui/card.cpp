#include "card.h"

#include "glyphbutton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QSettings>
#include <QVBoxLayout>

namespace hub {

Card::Card(const QString &title, QWidget *parent)
    : QFrame(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 18);
    column->setSpacing(14);

    m_header = new QWidget(this);
    m_header->setObjectName(QStringLiteral("cardHeader"));
    m_header->installEventFilter(this);
    m_header->setMinimumHeight(24); // room for a status pill, so titles line up across cards
    m_headerLayout = new QHBoxLayout(m_header);
    m_headerLayout->setContentsMargins(0, 0, 0, 0);
    m_headerLayout->setSpacing(10);

    auto *titles = new QVBoxLayout;
    titles->setSpacing(2);
    m_title = new QLabel(title, m_header);
    m_title->setObjectName(QStringLiteral("cardTitle"));
    m_subtitle = new QLabel(m_header);
    m_subtitle->setObjectName(QStringLiteral("cardSubtitle"));
    m_subtitle->setWordWrap(true);
    m_subtitle->hide();
    titles->addWidget(m_title);
    titles->addWidget(m_subtitle);
    m_headerLayout->addLayout(titles, 1);

    m_toggle = new GlyphButton(Glyph::ChevronDown, tr("Show or hide"), m_header);
    m_toggle->hide();
    m_headerLayout->addWidget(m_toggle, 0, Qt::AlignTop);
    connect(m_toggle, &QAbstractButton::clicked, this, [this] { setExpanded(!m_expanded); });

    m_bodyWidget = new QWidget(this);
    m_body = new QVBoxLayout(m_bodyWidget);
    m_body->setContentsMargins(0, 0, 0, 0);
    m_body->setSpacing(12);

    column->addWidget(m_header);
    column->addWidget(m_bodyWidget);
}

void Card::setTitle(const QString &title)
{
    m_title->setText(title);
}

QString Card::title() const
{
    return m_title->text();
}

void Card::setSubtitle(const QString &subtitle)
{
    m_subtitle->setText(subtitle);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

QString Card::subtitle() const
{
    return m_subtitle->text();
}

void Card::addHeaderWidget(QWidget *widget)
{
    widget->setParent(m_header);
    // Header widgets sit before the fold toggle so the chevron stays at the edge.
    m_headerLayout->insertWidget(m_headerLayout->count() - 1, widget, 0, Qt::AlignTop);
}

void Card::setCollapsible(bool collapsible)
{
    m_collapsible = collapsible;
    m_toggle->setVisible(collapsible);
    m_header->setProperty("collapsible", collapsible ? QStringLiteral("true") : QStringLiteral("false"));
    m_header->setCursor(collapsible ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (!collapsible)
        setExpanded(true);
}

void Card::persistExpanded(const QString &settingsKey, bool defaultExpanded)
{
    setCollapsible(true);
    m_settingsKey = settingsKey;
    const bool stored = QSettings().value(settingsKey, defaultExpanded).toBool();
    // Apply without writing back: reading a default must not create the key.
    m_expanded = !stored;
    const QString key = m_settingsKey;
    m_settingsKey.clear();
    setExpanded(stored);
    m_settingsKey = key;
}

void Card::setExpanded(bool expanded)
{
    if (expanded == m_expanded)
        return;
    if (!expanded && !m_collapsible)
        return;
    m_expanded = expanded;
    m_bodyWidget->setVisible(expanded);
    m_toggle->setGlyph(expanded ? Glyph::ChevronDown : Glyph::ChevronRight);
    if (!m_settingsKey.isEmpty())
        QSettings().setValue(m_settingsKey, expanded);
    emit expandedChanged(expanded);
}

bool Card::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_header && m_collapsible && event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton && m_header->rect().contains(mouse->position().toPoint())) {
            setExpanded(!m_expanded);
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace hub
