#include "page.h"

#include "pageheader.h"

#include <QScrollArea>
#include <QVBoxLayout>

namespace hub {

Page::Page(const QString &title, const QString &subtitle, QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);

    m_header = new PageHeader(title, subtitle, this);
    m_header->setContentsMargins(kMargin, 28, kMargin, 20);
    column->addWidget(m_header);

    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *inner = new QWidget(m_scroll);
    inner->setObjectName(QStringLiteral("pageContent"));
    m_content = new QVBoxLayout(inner);
    m_content->setContentsMargins(kMargin, 0, kMargin, kMargin);
    m_content->setSpacing(kGap);
    m_scroll->setWidget(inner);
    column->addWidget(m_scroll, 1);
}

} // namespace hub
