#pragma once

#include "glyph.h"
#include "tone.h"

#include <QWidget>

namespace hub {

// A glyph on a styled tile, e.g. the emblem of a choice or an empty state. The glyph takes
// the style sheet's "color", the tile its "background".
class GlyphView : public QWidget
{
    Q_OBJECT
public:
    explicit GlyphView(Glyph glyph, int size = 40, QWidget *parent = nullptr);

    void setGlyph(Glyph glyph);
    Glyph glyph() const { return m_glyph; }
    void setTone(Tone tone);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Glyph m_glyph;
    int m_size;
};

} // namespace hub
