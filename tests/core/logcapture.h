#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace tavrix::testing {

// Collects the application's log lines for the lifetime of the object (and still
// passes them on), so a test can check what was logged and how often.
class LogCapture
{
public:
    LogCapture()
        : m_previous(qInstallMessageHandler(&LogCapture::handle))
    {
        current() = this;
    }
    ~LogCapture()
    {
        qInstallMessageHandler(m_previous);
        current() = nullptr;
    }
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QStringList lines() const { return m_lines; }
    qsizetype count(const QString &fragment) const
    {
        qsizetype n = 0;
        for (const QString &line : m_lines)
            n += line.contains(fragment) ? 1 : 0;
        return n;
    }

private:
    static LogCapture *&current()
    {
        static LogCapture *instance = nullptr;
        return instance;
    }
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        if (LogCapture *self = current()) {
            self->m_lines.append(message);
            if (self->m_previous)
                self->m_previous(type, context, message);
        }
    }

    QtMessageHandler m_previous = nullptr;
    QStringList m_lines;
};

} // namespace tavrix::testing
