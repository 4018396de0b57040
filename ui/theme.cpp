#include "theme.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStyleFactory>

namespace hub {

ThemePaths ThemePaths::resources()
{
    return {
        {QStringLiteral(":/fonts/Geist-Regular.ttf"), QStringLiteral(":/fonts/Geist-Medium.ttf"),
         QStringLiteral(":/fonts/Geist-SemiBold.ttf"), QStringLiteral(":/fonts/GeistMono-Regular.ttf"),
         QStringLiteral(":/fonts/GeistMono-Medium.ttf")},
        QStringLiteral(":/theme/hub.qss"),
        QStringLiteral(":/theme/palettes.json"),
    };
}

int registerThemeFonts(const QStringList &fonts)
{
    int registered = 0;
    for (const QString &font : fonts) {
        if (QFontDatabase::addApplicationFont(font) < 0) {
            qWarning("hub theme: failed to load font %s", qUtf8Printable(font));
            continue;
        }
        ++registered;
    }
    return registered;
}

QString loadThemeStyleSheet(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning("hub theme: stylesheet missing from resources");
        return {};
    }
    return QString::fromUtf8(file.readAll());
}

ThemeColours loadThemeColours(const QString &path, const QString &theme)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("hub theme: palettes missing from resources (%s)", qUtf8Printable(path));
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        qWarning("hub theme: palettes file %s is not valid JSON: %s", qUtf8Printable(path),
                 qUtf8Printable(error.errorString()));
        return {};
    }
    const QJsonObject palette = document.object().value(theme).toObject();
    if (palette.isEmpty()) {
        qWarning("hub theme: no palette named %s in %s", qUtf8Printable(theme), qUtf8Printable(path));
        return {};
    }
    ThemeColours colours;
    for (auto it = palette.begin(); it != palette.end(); ++it) {
        const QColor colour = QColor::fromString(it.value().toString());
        if (!colour.isValid()) {
            qWarning("hub theme: palette %s has no colour for %s", qUtf8Printable(theme),
                     qUtf8Printable(it.key()));
            continue;
        }
        colours.insert(it.key(), colour);
    }
    return colours;
}

QString substituteThemeColours(QString styleSheet, const ThemeColours &colours)
{
    static const QRegularExpression placeholder(QStringLiteral("\\{\\{\\s*([A-Za-z0-9_]+)\\s*\\}\\}"));
    QString result;
    result.reserve(styleSheet.size());
    qsizetype last = 0;
    QRegularExpressionMatchIterator it = placeholder.globalMatch(styleSheet);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        result += QStringView(styleSheet).mid(last, match.capturedStart() - last);
        const auto colour = colours.constFind(match.captured(1));
        if (colour == colours.cend()) {
            qWarning("hub theme: style sheet names unknown colour %s", qUtf8Printable(match.captured(1)));
            result += match.captured(0);
        } else {
            result += colour->name(colour->alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
        }
        last = match.capturedEnd();
    }
    result += QStringView(styleSheet).mid(last);
    return result;
}

QPalette themePalette(const ThemeColours &colours)
{
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, const QString &name) {
        const auto it = colours.constFind(name);
        if (it != colours.cend())
            palette.setColor(role, *it);
    };
    set(QPalette::Window, QStringLiteral("bg"));
    set(QPalette::WindowText, QStringLiteral("text"));
    set(QPalette::Base, QStringLiteral("surface"));
    set(QPalette::AlternateBase, QStringLiteral("track"));
    set(QPalette::Text, QStringLiteral("text"));
    set(QPalette::Button, QStringLiteral("surface"));
    set(QPalette::ButtonText, QStringLiteral("text"));
    set(QPalette::BrightText, QStringLiteral("onAccent"));
    set(QPalette::Highlight, QStringLiteral("accent"));
    set(QPalette::HighlightedText, QStringLiteral("onAccent"));
    set(QPalette::PlaceholderText, QStringLiteral("textFaint"));
    set(QPalette::ToolTipBase, QStringLiteral("tooltipBg"));
    set(QPalette::ToolTipText, QStringLiteral("tooltipText"));
    set(QPalette::Link, QStringLiteral("accent"));
    set(QPalette::Light, QStringLiteral("surface"));
    set(QPalette::Midlight, QStringLiteral("surfaceAlt"));
    set(QPalette::Mid, QStringLiteral("borderStrong"));
    set(QPalette::Dark, QStringLiteral("borderStrong"));
    set(QPalette::Shadow, QStringLiteral("shadow"));
    const auto faint = colours.constFind(QStringLiteral("textFaint"));
    if (faint != colours.cend()) {
        for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(QPalette::Disabled, role, *faint);
    }
    return palette;
}

void applyTheme(QApplication &app, const QString &theme, const ThemePaths &paths)
{
    registerThemeFonts(paths.fonts);
    if (QStyle *fusion = QStyleFactory::create(QStringLiteral("Fusion")))
        app.setStyle(fusion);
    QFont font(QStringLiteral("Geist"));
    font.setPixelSize(13);
    app.setFont(font);

    const QString sheet = loadThemeStyleSheet(paths.styleSheet);
    const ThemeColours colours = loadThemeColours(paths.palettes, theme);
    if (!colours.isEmpty())
        app.setPalette(themePalette(colours));
    // Without colours the sheet's placeholders would be left in place, which reads worse
    // than Fusion's own look, so the sheet goes with its palette or not at all.
    if (!sheet.isEmpty() && !colours.isEmpty())
        app.setStyleSheet(substituteThemeColours(sheet, colours));
}

} // namespace hub
