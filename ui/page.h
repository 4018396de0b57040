#pragma once

#include <QWidget>

class QScrollArea;
class QVBoxLayout;

namespace hub {

class PageHeader;

// Base of every page of the main window: a fixed header over a scrolling column, so pages
// stay usable in a small window instead of squeezing or cutting off their cards.
class Page : public QWidget
{
    Q_OBJECT
public:
    Page(const QString &title, const QString &subtitle, QWidget *parent = nullptr);

    PageHeader *header() const { return m_header; }
    // The scrolling column the page fills with cards and rows of cards.
    QVBoxLayout *content() const { return m_content; }
    QScrollArea *scrollArea() const { return m_scroll; }

    static constexpr int kMargin = 32;
    static constexpr int kGap = 16;

private:
    PageHeader *m_header = nullptr;
    QScrollArea *m_scroll = nullptr;
    QVBoxLayout *m_content = nullptr;
};

} // namespace hub
