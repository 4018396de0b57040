#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace hub {

// The head of a page: an optional back link, the title, a one-line subtitle and actions
// (buttons, status pills) at the right.
class PageHeader : public QWidget
{
    Q_OBJECT
public:
    PageHeader(const QString &title, const QString &subtitle, QWidget *parent = nullptr);

    void setTitle(const QString &title);
    QString title() const;
    void setSubtitle(const QString &subtitle);
    QString subtitle() const;

    // Shows a back link with the given text ("Vehicles"); clicking it emits backRequested.
    void setBackLink(const QString &text);
    QPushButton *backLink() const { return m_back; }

    void addAction(QWidget *widget);

signals:
    void backRequested();

private:
    QPushButton *m_back = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_subtitle = nullptr;
    QHBoxLayout *m_actions = nullptr;
};

} // namespace hub
