#pragma once

#include "glyph.h"
#include "tone.h"

#include <QFrame>

class QHBoxLayout;
class QLabel;

namespace hub {

// A tinted banner across a page that tells the user something about the whole page,
// e.g. that a feature comes in a later version.
class Notice : public QFrame
{
    Q_OBJECT
public:
    Notice(Glyph glyph, const QString &text, QWidget *parent = nullptr);
    // A Danger banner, hidden until showMessage() gives it something to say: where a dialog
    // or page shows why what the user asked for was refused.
    static Notice *refusal(Glyph glyph, QWidget *parent);

    void setText(const QString &text);
    // Shows the text, or hides the banner when the text is empty.
    void showMessage(const QString &text);
    QString text() const;
    // Accent (the default) informs; Danger tells that something the user asked for failed.
    void setTone(Tone tone);
    // Adds a widget (typically a button) at the right end of the banner.
    void addAction(QWidget *widget);

private:
    QLabel *m_text = nullptr;
    QHBoxLayout *m_row = nullptr;
};

} // namespace hub
