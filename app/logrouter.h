#pragma once

#include <QMutex>
#include <QObject>
#include <QStringList>

#include <deque>

namespace tavrix {

class RotatingLogFile;

// Collects every log message of the process and hands it to the debug console. One
// process-wide router is made on first use by instance(); the application's message handler
// passes each message to it first and then to the handler that was installed before.
class LogRouter : public QObject
{
    Q_OBJECT
public:
    static constexpr int kHistoryLines = 2000;

    // Prefer instance(); separate routers exist only for tests of one router's behaviour.
    explicit LogRouter(QObject *parent = nullptr);

    static LogRouter *instance();

    // Installs the chaining handler in front of the current one; a second call does nothing.
    static void installMessageHandler();
    // Puts back the handler that was installed before (for tests and shutdown).
    static void uninstallMessageHandler();
    static bool isMessageHandlerInstalled();

    // Records one message and announces it; safe to call from any thread.
    void route(QtMsgType type, const QString &message);

    // Also hands every line, dated, to `file` (null: no longer), which must outlive the
    // attachment. The file writes on its own thread, so routing never waits on the disk.
    void writeTo(RotatingLogFile *file);
    // The file lines go to; empty when the log is not written to disk.
    QString logFilePath() const;

    // The most recent lines, oldest first, at most kHistoryLines.
    QStringList recentLines() const;

    static QString formatLine(QtMsgType type, const QString &message);

signals:
    // Emitted in the routing thread; connect with a context object in the GUI thread.
    void messageLogged(QtMsgType type, const QString &line);

private:
    mutable QMutex m_mutex;
    std::deque<QString> m_recent;
    RotatingLogFile *m_file = nullptr;
};

} // namespace tavrix
