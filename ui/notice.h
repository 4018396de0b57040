#pragma once

#include "glyph.h"

#include <QFrame>

class QLabel;

namespace hub {

// A tinted banner across a page that tells the user something about the whole page,
// e.g. that a feature comes in a later version.
class Notice : public QFrame
{
    Q_OBJECT
public:
    Notice(Glyph glyph, const QString &text, QWidget *parent = nullptr);

    void setText(const QString &text);
    QString text() const;

private:
    QLabel *m_text = nullptr;
};

} // namespace hub
