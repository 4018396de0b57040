#pragma once

#include "glyph.h"

#include <QWidget>

class QLabel;

namespace hub {

class GlyphView;

// What a card shows when there is nothing to show yet: a muted glyph, a short title and one
// plain sentence saying what is missing and how to get it.
class EmptyState : public QWidget
{
    Q_OBJECT
public:
    EmptyState(Glyph glyph, const QString &title, const QString &text, QWidget *parent = nullptr);

    void setTitle(const QString &title);
    QString title() const;
    void setText(const QString &text);
    QString text() const;

private:
    GlyphView *m_glyph = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_text = nullptr;
};

} // namespace hub
