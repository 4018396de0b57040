#pragma once

#include "tone.h"

#include <QLabel>

namespace hub {

// A short state word in a rounded pill with a coloured dot, e.g. "Connected" or "No link".
class StatusPill : public QLabel
{
    Q_OBJECT
public:
    explicit StatusPill(Tone tone, const QString &text, QWidget *parent = nullptr);

    void setStatus(Tone tone, const QString &text);
    Tone tone() const { return m_tone; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Tone m_tone;
};

} // namespace hub
