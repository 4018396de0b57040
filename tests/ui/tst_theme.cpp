#include "theme.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>

class TestTheme : public QObject
{
    Q_OBJECT

private slots:
    // A missing sheet, palette or font is logged and start-up goes on unstyled, never aborts.
    void missingThemeFilesLeaveTheAppUnstyled_data()
    {
        QTest::addColumn<bool>("paletteMissing");
        QTest::newRow("style sheet and a font") << false;
        QTest::newRow("palettes") << true;
    }

    void missingThemeFilesLeaveTheAppUnstyled()
    {
        QFETCH(bool, paletteMissing);
        qApp->setStyleSheet(QString());
        hub::ThemePaths paths = hub::ThemePaths::resources();
        if (paletteMissing)
            paths.palettes = QStringLiteral("/nonexistent/palettes.json");
        else
            paths.styleSheet = QStringLiteral(":/theme/missing.qss");
        paths.fonts.prepend(QStringLiteral("/nonexistent/font.ttf"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^hub theme: ")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^hub theme: ")));
        hub::applyTheme(*qApp, QStringLiteral("dark"), paths);

        QVERIFY(qApp->styleSheet().isEmpty());
        QCOMPARE(QApplication::style()->name(), QStringLiteral("fusion"));
        if (paletteMissing)
            return;
        // The palette still applies without the sheet.
        const hub::ThemeColours dark = hub::loadThemeColours(paths.palettes, QStringLiteral("dark"));
        QCOMPARE(QApplication::palette().color(QPalette::Window), dark.value(QStringLiteral("bg")));
    }

    void fullThemeSubstitutesTheChosenPalette_data()
    {
        QTest::addColumn<QString>("theme");
        QTest::newRow("light") << QStringLiteral("light");
        QTest::newRow("dark") << QStringLiteral("dark");
    }

    void fullThemeSubstitutesTheChosenPalette()
    {
        QFETCH(QString, theme);
        // Every colour the sheet names exists in both palettes.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("hub theme")));
        hub::applyTheme(*qApp, theme);
        const QString sheet = qApp->styleSheet();
        QVERIFY(!sheet.isEmpty());
        QVERIFY(!sheet.contains(QLatin1String("{{")));
        const hub::ThemeColours colours =
            hub::loadThemeColours(QStringLiteral(":/theme/palettes.json"), theme);
        QVERIFY(sheet.contains(colours.value(QStringLiteral("accent")).name()));
        QCOMPARE(QApplication::palette().color(QPalette::Highlight), colours.value(QStringLiteral("accent")));
        qApp->setStyleSheet(QString());
    }

    void substitutesKnownNamesAndLeavesUnknownOnes_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QString>("warning");
        QTest::newRow("one") << QStringLiteral("a { color: {{text}}; }")
                             << QStringLiteral("a { color: #102030; }") << QString();
        QTest::newRow("spaces inside braces")
            << QStringLiteral("{{ text }}{{accent}}") << QStringLiteral("#102030#ff0000") << QString();
        QTest::newRow("prefix of another name")
            << QStringLiteral("{{accentHover}}") << QStringLiteral("{{accentHover}}")
            << QStringLiteral("hub theme: style sheet names unknown colour accentHover");
        QTest::newRow("translucent") << QStringLiteral("{{veil}}") << QStringLiteral("#80000000")
                                     << QString();
        QTest::newRow("single braces untouched")
            << QStringLiteral("QWidget { }") << QStringLiteral("QWidget { }") << QString();
    }

    void substitutesKnownNamesAndLeavesUnknownOnes()
    {
        QFETCH(QString, sheet);
        QFETCH(QString, expected);
        QFETCH(QString, warning);
        const hub::ThemeColours colours = {{QStringLiteral("text"), QColor(0x10, 0x20, 0x30)},
                                           {QStringLiteral("accent"), QColor(Qt::red)},
                                           {QStringLiteral("veil"), QColor(0, 0, 0, 128)}};
        if (!warning.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        QCOMPARE(hub::substituteThemeColours(sheet, colours), expected);
    }

    void badPaletteFilesAreLoggedAndGiveNoColours_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("warning");
        QTest::newRow("not json") << QByteArray("{ light: ") << QStringLiteral("is not valid JSON");
        QTest::newRow("no such palette")
            << QByteArray("{\"dark\": {\"bg\": \"#000000\"}}") << QStringLiteral("no palette named light");
    }

    void badPaletteFilesAreLoggedAndGiveNoColours()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, warning);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("palettes.json"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(warning)));
        QVERIFY(hub::loadThemeColours(path, QStringLiteral("light")).isEmpty());
    }
};

QTEST_MAIN(TestTheme)
#include "tst_theme.moc"
