#pragma once

#include <QObject>
#include <QSize>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

class MainWindow;
class QWidget;

namespace tavrix {

// Produces images of every page and dialog without a user: each step runs from a single-shot
// timer so the window paints in between. Files: "<dir>/<theme>-<page>.png",
// "<dir>/<theme>-sidebar-collapsed.png" and, with dialogs on, "<dir>/<theme>-dlg-<key>.png".
class ScreenshotMode : public QObject
{
    Q_OBJECT
public:
    struct Options
    {
        QString directory;
        QSize size;           // invalid: keep the window's size
        bool dialogs = false; // also open and save every registered dialog
        std::chrono::milliseconds stepDelay{400};
    };

    // The environment that turns the mode on (the folder), sizes the window and adds the dialogs.
    static constexpr char kDirectoryVariable[] = "ORVANEHUB_SNAPSHOT_DIR";
    static constexpr char kSizeVariable[] = "ORVANEHUB_SNAPSHOT_SIZE";
    static constexpr char kDialogsVariable[] = "ORVANEHUB_SNAPSHOT_DIALOGS";

    // The options from those variables; none when the directory is not set.
    static std::optional<Options> fromEnvironment();
    // "1280x800" -> 1280 x 800; anything else gives an invalid size.
    static QSize parseSize(const QString &text);

    ScreenshotMode(MainWindow *window, const QString &themeName, const Options &options,
                   QObject *parent = nullptr);

    void start();

signals:
    // All images are written (or their failures logged); the caller quits the application.
    void finished();

private:
    void then(std::function<void()> step);
    void runNext();
    void save(QWidget *widget, const QString &path);

    MainWindow *m_window;
    QString m_theme;
    Options m_options;
    QList<std::function<void()>> m_steps;
};

} // namespace tavrix
