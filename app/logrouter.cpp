#include "logrouter.h"

#include "rotatinglogfile.h"

#include <QDateTime>
#include <QMutexLocker>

namespace tavrix {

namespace {

Q_GLOBAL_STATIC(LogRouter, s_router)

QtMessageHandler s_previousHandler = nullptr;
bool s_installed = false;
// A slot that logs while a message is being routed must not route again: that would recurse
// without end. Its message still reaches the previous handler.
thread_local bool t_routing = false;

void chainedMessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!t_routing && !s_router.isDestroyed()) {
        t_routing = true;
        s_router()->route(type, message);
        t_routing = false;
    }
    if (s_previousHandler)
        s_previousHandler(type, context, message);
}

QString levelName(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QStringLiteral("debug");
    case QtInfoMsg:
        return QStringLiteral("info");
    case QtWarningMsg:
        return QStringLiteral("warning");
    case QtCriticalMsg:
        return QStringLiteral("critical");
    case QtFatalMsg:
        return QStringLiteral("fatal");
    }
    return QStringLiteral("debug");
}

} // namespace

LogRouter::LogRouter(QObject *parent)
    : QObject(parent)
{
    qRegisterMetaType<QtMsgType>("QtMsgType");
}

LogRouter *LogRouter::instance()
{
    return s_router();
}

void LogRouter::installMessageHandler()
{
    if (s_installed)
        return;
    instance(); // made before the first message can arrive
    s_previousHandler = qInstallMessageHandler(chainedMessageHandler);
    s_installed = true;
}

void LogRouter::uninstallMessageHandler()
{
    if (!s_installed)
        return;
    qInstallMessageHandler(s_previousHandler);
    s_previousHandler = nullptr;
    s_installed = false;
}

bool LogRouter::isMessageHandlerInstalled()
{
    return s_installed;
}

void LogRouter::route(QtMsgType type, const QString &message)
{
    const QString line = formatLine(type, message);
    {
        QMutexLocker lock(&m_mutex);
        m_recent.push_back(line);
        while (m_recent.size() > size_t(kHistoryLines))
            m_recent.pop_front();
        if (m_file)
            m_file->append(QDate::currentDate().toString(Qt::ISODate) + QLatin1Char(' ') + line);
    }
    emit messageLogged(type, line);
}

void LogRouter::writeTo(RotatingLogFile *file)
{
    QMutexLocker lock(&m_mutex);
    m_file = file;
}

QString LogRouter::logFilePath() const
{
    QMutexLocker lock(&m_mutex);
    return m_file ? m_file->path() : QString();
}

QStringList LogRouter::recentLines() const
{
    QMutexLocker lock(&m_mutex);
    return QStringList(m_recent.begin(), m_recent.end());
}

QString LogRouter::formatLine(QtMsgType type, const QString &message)
{
    return QStringLiteral("%1  %2  %3")
        .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")), levelName(type).leftJustified(8),
             message);
}

} // namespace tavrix
