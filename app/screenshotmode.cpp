#include "screenshotmode.h"

#include "dialogregistry.h"
#include "mainwindow.h"
#include "sidebar.h"

#include <QDir>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

namespace tavrix {

std::optional<ScreenshotMode::Options> ScreenshotMode::fromEnvironment()
{
    const QString directory = qEnvironmentVariable(kDirectoryVariable);
    if (directory.isEmpty())
        return std::nullopt;
    Options options;
    options.directory = directory;
    if (qEnvironmentVariableIsSet(kSizeVariable)) {
        const QString size = qEnvironmentVariable(kSizeVariable);
        options.size = parseSize(size);
        if (!options.size.isValid())
            qWarning("Screenshot: ignoring %s \"%s\", expected WIDTHxHEIGHT", kSizeVariable,
                     qUtf8Printable(size));
    }
    options.dialogs = qEnvironmentVariableIsSet(kDialogsVariable);
    return options;
}

QSize ScreenshotMode::parseSize(const QString &text)
{
    const QStringList parts = text.trimmed().split(QLatin1Char('x'));
    if (parts.size() != 2)
        return {};
    bool widthOk = false;
    bool heightOk = false;
    const int width = parts.at(0).toInt(&widthOk);
    const int height = parts.at(1).toInt(&heightOk);
    if (!widthOk || !heightOk || width <= 0 || height <= 0 || width > 16384 || height > 16384)
        return {};
    return {width, height};
}

ScreenshotMode::ScreenshotMode(MainWindow *window, const QString &themeName, const Options &options,
                               QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_theme(themeName)
    , m_options(options)
{}

void ScreenshotMode::start()
{
    QDir().mkpath(m_options.directory);
    const QString dir = m_options.directory;

    if (m_options.size.isValid())
        then([this] { m_window->resize(m_options.size); });

    for (const QString &key : m_window->pageKeys()) {
        then([this, key] { m_window->showPage(key); });
        then([this, dir, key] { save(m_window, QStringLiteral("%1/%2-%3.png").arg(dir, m_theme, key)); });
    }

    then([this] {
        m_window->showPage(m_window->pageKeys().value(0));
        m_window->sidebar()->setCollapsed(true, false);
    });
    then([this, dir] {
        save(m_window, QStringLiteral("%1/%2-sidebar-collapsed.png").arg(dir, m_theme));
        m_window->sidebar()->setCollapsed(false, false);
    });

    if (m_options.dialogs) {
        for (const QString &key : m_window->dialogs().keys()) {
            auto dialog = std::make_shared<QPointer<QWidget>>();
            then([this, key, dialog] {
                *dialog = m_window->dialogs().create(key, m_window);
                if (*dialog)
                    (*dialog)->show();
            });
            then([this, dir, key, dialog] {
                if (QWidget *widget = dialog->data()) {
                    save(widget, QStringLiteral("%1/%2-dlg-%3.png").arg(dir, m_theme, key));
                    widget->close();
                    widget->deleteLater();
                }
            });
        }
    }

    then([this] { emit finished(); });
    runNext();
}

void ScreenshotMode::then(std::function<void()> step)
{
    m_steps.append(std::move(step));
}

void ScreenshotMode::runNext()
{
    if (m_steps.isEmpty())
        return;
    QTimer::singleShot(m_options.stepDelay, this, [this] {
        const std::function<void()> step = m_steps.takeFirst();
        step();
        runNext();
    });
}

void ScreenshotMode::save(QWidget *widget, const QString &path)
{
    if (!widget->grab().save(path))
        qWarning("Screenshot: could not write %s", qUtf8Printable(path));
}

} // namespace tavrix
