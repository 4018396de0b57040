#pragma once

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
        s_current = this;
    }
    ~LogCapture()
    {
        qInstallMessageHandler(m_previous);
        s_current = nullptr;
    }
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    // Lines containing `fragment`; all lines for an empty one.
    [[nodiscard]] qsizetype count(const QString &fragment = QString()) const
    {
        return m_lines.filter(fragment).size();
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        if (s_current) {
            s_current->m_lines.append(message);
            if (s_current->m_previous)
                s_current->m_previous(type, context, message);
        }
    }

    static inline LogCapture *s_current = nullptr;
    QtMessageHandler m_previous = nullptr;
    QStringList m_lines;
};

} // namespace tavrix::testing
