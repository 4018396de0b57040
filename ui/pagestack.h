#pragma once

#include <QStackedWidget>

namespace hub {

// A stack of pages addressed by key ("dashboard", "rc-car", ...) instead of by index.
class PageStack : public QStackedWidget
{
    Q_OBJECT
public:
    explicit PageStack(QWidget *parent = nullptr);

    // Adds page under key; refuses (returns false) a key that is taken.
    bool addPage(const QString &key, QWidget *page);

    // Shows the page of key; an unknown key changes nothing and returns false.
    bool setCurrentKey(const QString &key);
    QString currentKey() const;
    QStringList keys() const { return m_keys; }
    QWidget *page(const QString &key) const;

signals:
    void currentKeyChanged(const QString &key);

private:
    QStringList m_keys;
};

} // namespace hub
