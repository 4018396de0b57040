#include "columnpair.h"

#include <QBoxLayout>
#include <QResizeEvent>

namespace hub {

ColumnPair::ColumnPair(int gap, QWidget *parent)
    : QWidget(parent)
    , m_row(new QBoxLayout(QBoxLayout::LeftToRight, this))
    , m_left(new QVBoxLayout)
    , m_right(new QVBoxLayout)
{
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(gap);
    // The minimum this widget reports is its own (minimumSizeHint), not the side-by-side one.
    m_row->setSizeConstraint(QLayout::SetNoConstraint);
    for (QVBoxLayout *column : {m_left, m_right}) {
        column->setSpacing(gap);
        m_row->addLayout(column, 1);
    }
}

bool ColumnPair::isStacked() const
{
    return m_row->direction() == QBoxLayout::TopToBottom;
}

QSize ColumnPair::minimumSizeHint() const
{
    const QSize left = m_left->minimumSize();
    const QSize right = m_right->minimumSize();
    const int height = isStacked() ? left.height() + m_row->spacing() + right.height()
                                   : std::max(left.height(), right.height());
    return {std::max(left.width(), right.width()), height};
}

void ColumnPair::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int sideBySide = m_left->minimumSize().width() + m_row->spacing() + m_right->minimumSize().width();
    const auto direction =
        event->size().width() >= sideBySide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    if (direction != m_row->direction()) {
        m_row->setDirection(direction);
        updateGeometry();
    }
}

} // namespace hub
