#include "pageheader.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace hub {

PageHeader::PageHeader(const QString &title, const QString &subtitle, QWidget *parent)
    : QWidget(parent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);

    auto *titles = new QVBoxLayout;
    titles->setSpacing(4);
    m_back = new QPushButton(this);
    m_back->setObjectName(QStringLiteral("backLink"));
    m_back->setCursor(Qt::PointingHandCursor);
    m_back->setFlat(true);
    m_back->hide();
    connect(m_back, &QPushButton::clicked, this, &PageHeader::backRequested);
    m_title = new QLabel(title, this);
    m_title->setObjectName(QStringLiteral("pageTitle"));
    m_subtitle = new QLabel(subtitle, this);
    m_subtitle->setObjectName(QStringLiteral("pageSubtitle"));
    m_subtitle->setWordWrap(true);
    m_subtitle->setVisible(!subtitle.isEmpty());
    titles->addWidget(m_back, 0, Qt::AlignLeft);
    titles->addWidget(m_title);
    titles->addWidget(m_subtitle);
    row->addLayout(titles, 1);

    m_actions = new QHBoxLayout;
    m_actions->setSpacing(10);
    row->addLayout(m_actions);
    row->setAlignment(m_actions, Qt::AlignBottom);
}

void PageHeader::setTitle(const QString &title)
{
    m_title->setText(title);
}

QString PageHeader::title() const
{
    return m_title->text();
}

void PageHeader::setSubtitle(const QString &subtitle)
{
    m_subtitle->setText(subtitle);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

QString PageHeader::subtitle() const
{
    return m_subtitle->text();
}

void PageHeader::setBackLink(const QString &text)
{
    m_back->setText(QStringLiteral("\u2190  ") + text);
    m_back->setVisible(!text.isEmpty());
}

void PageHeader::addAction(QWidget *widget)
{
    widget->setParent(this);
    m_actions->addWidget(widget, 0, Qt::AlignVCenter);
}

} // namespace hub
