#pragma once

#include "glyph.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

class QLabel;
class QVBoxLayout;
class QVariantAnimation;

namespace hub {

class SidebarButton;

// The main window's navigation column: the brand, one entry per top-level page, the theme
// button and the collapse toggle. It knows page keys only; the window decides what they show.
class Sidebar : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kExpandedWidth = 224;
    static constexpr int kCollapsedWidth = 64;

    explicit Sidebar(QWidget *parent = nullptr);

    void setBrand(const QPixmap &logo, const QString &title);

    // Adds an entry for pageKey; pages listed in subPages (reached from that page) keep
    // the entry highlighted too.
    void addEntry(const QString &pageKey, Glyph glyph, const QString &text, const QStringList &subPages = {});

    // Highlights the entry that owns pageKey; returns false when no entry does.
    bool setCurrentPage(const QString &pageKey);
    QString activeEntry() const { return m_activeEntry; }
    SidebarButton *entryButton(const QString &pageKey) const;

    // The theme button shows the action it offers, e.g. a moon and "Dark mode" in the light theme.
    void setThemeButton(Glyph glyph, const QString &text);
    SidebarButton *themeButton() const { return m_themeButton; }

    bool isCollapsed() const { return m_collapsed; }
    void setCollapsed(bool collapsed, bool animated = true);
    void setReduceMotion(bool reduce) { m_reduceMotion = reduce; }

signals:
    void entryActivated(const QString &pageKey);
    void collapsedChanged(bool collapsed);
    void themeButtonClicked();

private:
    void applyCollapsedLook();
    void setWidthNow(int width);

    QLabel *m_logo = nullptr;
    QLabel *m_title = nullptr;
    QVBoxLayout *m_entries = nullptr;
    SidebarButton *m_themeButton = nullptr;
    SidebarButton *m_collapseButton = nullptr;
    QHash<QString, SidebarButton *> m_buttons;
    QHash<QString, QString> m_ownerOf; // page key -> entry key
    QString m_activeEntry;
    QVariantAnimation *m_animation = nullptr;
    bool m_collapsed = false;
    bool m_reduceMotion = false;
};

} // namespace hub
