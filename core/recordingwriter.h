#pragma once

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QString>

namespace tavrix {

// Writes a drive recording's rows to its file. It lives on a thread of its own and is only
// reached through queued signals, so a disk that stalls holds up neither the transmit tick
// nor the window. Every request names its recording, so the acknowledgements of one that
// is still being saved are never taken for the next one's.
class RecordingWriter : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    // Opens `path` for appending (the recorder made it and wrote its header).
    void begin(int recording, const QString &path);
    void write(int recording, const QByteArray &rows, quint64 count);
    // Flushes and closes the file; `ended` follows unless writing had failed.
    void end(int recording);

signals:
    void written(int recording, quint64 count);
    // Writing stopped for good; what reached the file before stays there.
    void failed(int recording, const QString &reason);
    void ended(int recording);

private:
    void fail(const QString &reason);

    QFile m_file;
    int m_recording = -1;
    bool m_failed = false;
};

} // namespace tavrix
