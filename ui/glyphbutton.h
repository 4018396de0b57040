#pragma once

#include "glyph.h"

#include <QAbstractButton>

namespace hub {

// A small borderless button showing only a glyph (card chevrons, toolbar actions).
// Its text is used as the tool tip and the accessible name.
class GlyphButton : public QAbstractButton
{
    Q_OBJECT
public:
    explicit GlyphButton(Glyph glyph, const QString &toolTip, QWidget *parent = nullptr);

    void setGlyph(Glyph glyph);
    Glyph glyph() const { return m_glyph; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Glyph m_glyph;
};

} // namespace hub
