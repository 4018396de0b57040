#pragma once

#include "glyph.h"

#include <QAbstractButton>

namespace hub {

// One entry of the sidebar: a glyph and a label. The glyph sits at the same place whether
// the sidebar is expanded or collapsed, so collapsing only hides the label.
class SidebarButton : public QAbstractButton
{
    Q_OBJECT
public:
    SidebarButton(Glyph glyph, const QString &text, QWidget *parent = nullptr);

    void setGlyph(Glyph glyph);
    Glyph glyph() const { return m_glyph; }

    // The entry of the page on show; published as the style property "active".
    void setActive(bool active);
    bool isActive() const { return m_active; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    static constexpr int kGlyphInset = 12;
    static constexpr int kGlyphSize = 20;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Glyph m_glyph;
    bool m_active = false;
};

} // namespace hub
