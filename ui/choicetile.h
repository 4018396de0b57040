#pragma once

#include "glyph.h"

#include <QAbstractButton>

class QLabel;

namespace hub {

class GlyphView;
class StatusPill;

// A large clickable choice: glyph, title, one line of description and an optional badge
// such as "Coming soon". A disabled tile is shown but cannot be chosen.
class ChoiceTile : public QAbstractButton
{
    Q_OBJECT
public:
    ChoiceTile(Glyph glyph, const QString &title, const QString &description, QWidget *parent = nullptr);

    QString title() const;
    QString description() const;
    void setBadge(const QString &badge);
    QString badge() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    GlyphView *m_glyph = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_description = nullptr;
    StatusPill *m_badge = nullptr;
};

} // namespace hub
