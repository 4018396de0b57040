#pragma once

#include "glyph.h"
#include "tone.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace hub {

class StatusPill;

// One line of a connections list: glyph, name, a detail line and a status pill at the right.
class StatusRow : public QWidget
{
    Q_OBJECT
public:
    StatusRow(Glyph glyph, const QString &name, const QString &detail, QWidget *parent = nullptr);

    void setDetail(const QString &detail);
    QString detail() const;
    void setStatus(Tone tone, const QString &text);
    StatusPill *pill() const { return m_pill; }
    // Places a widget (a button that opens details) just before the pill, so the pills of
    // a list of rows stay lined up at the right.
    void addAccessory(QWidget *widget);

private:
    QHBoxLayout *m_row = nullptr;
    QLabel *m_detail = nullptr;
    StatusPill *m_pill = nullptr;
};

} // namespace hub
