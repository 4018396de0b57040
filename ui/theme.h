#pragma once

#include <QHash>
#include <QPalette>
#include <QString>
#include <QStringList>

class QApplication;

namespace hub {

// Where the theme's parts come from. The defaults are the compiled-in resources; tests
// point single entries at missing files to check that start-up goes on without them.
struct ThemePaths
{
    QStringList fonts;
    QString styleSheet;
    QString palettes;

    static ThemePaths resources();
};

// Colour names of one palette ("bg", "accent", ...) to colours, as read from palettes.json.
using ThemeColours = QHash<QString, QColor>;

// Registers the fonts; a font that cannot be loaded is logged and skipped.
// Returns how many were registered.
int registerThemeFonts(const QStringList &fonts);

// The style sheet's text, or an empty string (logged) when it is missing.
QString loadThemeStyleSheet(const QString &path);

// The named palette ("light" or "dark") from a palettes file, or an empty set (logged) when
// the file or the palette is missing or malformed. Entries that are not colours are dropped.
ThemeColours loadThemeColours(const QString &path, const QString &theme);

// Replaces every {{name}} in the sheet by its colour. Unknown names are logged and left in
// place, where Qt ignores the broken declaration instead of the whole sheet.
QString substituteThemeColours(QString styleSheet, const ThemeColours &colours);

// The widget palette that matches the colours, for what the style sheet does not cover
// (Fusion's own drawing, custom-painted widgets, dialogs of other libraries).
QPalette themePalette(const ThemeColours &colours);

// Applies the whole theme: fonts, the "Fusion" style, the "Geist" font, the style sheet
// and the palette. Missing parts are logged and skipped; it never stops start-up.
void applyTheme(QApplication &app, const QString &theme, const ThemePaths &paths = ThemePaths::resources());

} // namespace hub
