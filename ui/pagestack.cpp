#include "pagestack.h"

namespace hub {

PageStack::PageStack(QWidget *parent)
    : QStackedWidget(parent)
{
    connect(this, &QStackedWidget::currentChanged, this, [this](int index) {
        if (index >= 0 && index < m_keys.size())
            emit currentKeyChanged(m_keys.at(index));
    });
}

bool PageStack::addPage(const QString &key, QWidget *page)
{
    if (key.isEmpty() || m_keys.contains(key) || !page)
        return false;
    m_keys.append(key);
    addWidget(page);
    return true;
}

bool PageStack::setCurrentKey(const QString &key)
{
    const int index = m_keys.indexOf(key);
    if (index < 0)
        return false;
    setCurrentIndex(index);
    return true;
}

QString PageStack::currentKey() const
{
    return m_keys.value(currentIndex());
}

QWidget *PageStack::page(const QString &key) const
{
    const int index = m_keys.indexOf(key);
    return index < 0 ? nullptr : widget(index);
}

} // namespace hub
