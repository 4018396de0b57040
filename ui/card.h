#pragma once

#include <QFrame>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace hub {

class GlyphButton;

// A titled panel that groups one topic of a page. A collapsible card folds its body away
// when its header is clicked and can remember that choice in the settings store.
class Card : public QFrame
{
    Q_OBJECT
public:
    explicit Card(const QString &title, QWidget *parent = nullptr);

    void setTitle(const QString &title);
    QString title() const;
    void setSubtitle(const QString &subtitle);
    QString subtitle() const;

    // Adds a widget at the right end of the header (a status pill, a button).
    void addHeaderWidget(QWidget *widget);

    // The layout of the card's body, for the page to fill.
    QVBoxLayout *body() const { return m_body; }

    void setCollapsible(bool collapsible);
    bool isCollapsible() const { return m_collapsible; }

    // Reads the expanded state from settingsKey now (defaultExpanded when absent) and
    // writes it back whenever it changes. Makes the card collapsible.
    void persistExpanded(const QString &settingsKey, bool defaultExpanded);

    bool isExpanded() const { return m_expanded; }
    void setExpanded(bool expanded);

signals:
    void expandedChanged(bool expanded);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_header = nullptr;
    QHBoxLayout *m_headerLayout = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_subtitle = nullptr;
    GlyphButton *m_toggle = nullptr;
    QWidget *m_bodyWidget = nullptr;
    QVBoxLayout *m_body = nullptr;
    QString m_settingsKey;
    bool m_collapsible = false;
    bool m_expanded = true;
};

} // namespace hub
