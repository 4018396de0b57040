#pragma once

#include <QByteArray>
#include <QIODevice>

#include <cstdio>

namespace tavrix {

class LogRouter;

// What a console mode prints, on its terminal stream as before and, line by line, into the
// log router (so the headless run's own lines reach its log file beside the services' messages).
class ConsoleTee : public QIODevice
{
    Q_OBJECT
public:
    // `stream` (stdout or stderr) is not owned; lines are routed with `type`.
    ConsoleTee(std::FILE *stream, QtMsgType type, LogRouter &router, QObject *parent = nullptr);
    ~ConsoleTee() override;

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override;

private:
    std::FILE *m_stream;
    QtMsgType m_type;
    LogRouter &m_router;
    QByteArray m_partial;
};

} // namespace tavrix
