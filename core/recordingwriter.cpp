#include "recordingwriter.h"

namespace tavrix {

void RecordingWriter::begin(int recording, const QString &path)
{
    if (m_file.isOpen())
        m_file.close();
    m_recording = recording;
    m_failed = false;
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append))
        fail(m_file.errorString());
}

void RecordingWriter::write(int recording, const QByteArray &rows, quint64 count)
{
    // Rows of a recording that failed or ended have nowhere to go. They are acknowledged all
    // the same, with nothing kept, so the recorder's count of chunks in flight stays true.
    quint64 kept = 0;
    if (recording == m_recording && !m_failed && m_file.isOpen()) {
        if (m_file.write(rows) == rows.size() && m_file.flush())
            kept = count;
        else
            fail(m_file.errorString());
    }
    emit written(recording, kept);
}

void RecordingWriter::end(int recording)
{
    if (recording != m_recording || m_failed || !m_file.isOpen())
        return;
    if (!m_file.flush()) {
        fail(m_file.errorString());
        return;
    }
    m_file.close();
    emit ended(recording);
}

void RecordingWriter::fail(const QString &reason)
{
    m_failed = true;
    m_file.close();
    emit failed(m_recording, reason);
}

} // namespace tavrix
