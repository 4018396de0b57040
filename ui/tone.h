#pragma once

#include <QString>

class QWidget;

namespace hub {

// The meaning of a status colour. Widgets publish it as the "tone" property, and the
// style sheet picks the colours, so the palette stays the only place colours live.
enum class Tone
{
    Neutral,
    Good,
    Warning,
    Danger,
    Accent,
    Muted,
};

QString toneName(Tone tone);

// Sets a dynamic property that style-sheet selectors read and re-applies the sheet,
// which Qt does not do by itself when only a property changes.
void setStyleProperty(QWidget *widget, const char *name, const QString &value);

} // namespace hub
