#pragma once

#include "csvrowformat.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QString>

#include <chrono>
#include <vector>

class QTimer;

namespace tavrix {

// Records a drive to a CSV file (csvrowformat), one row per frame sent. record() runs
// inside the 7 ms tick, so it only copies the sample into a queue of fixed size; a timer
// writes the queue out between ticks. When the disk falls behind and the queue is full,
// rows are dropped and counted rather than the queue growing. A failed write stops the
// recording with a message and keeps the file with what reached it.
class DriveRecorder : public QObject
{
    Q_OBJECT
public:
    struct Settings
    {
        // About 14 s of frames: a disk stalling that long loses rows, the tick never waits.
        int queueCapacity = 2048;
        std::chrono::milliseconds flushInterval{250};
    };

    explicit DriveRecorder(const Settings &settings, QObject *parent = nullptr);
    explicit DriveRecorder(QObject *parent = nullptr)
        : DriveRecorder(Settings{}, parent)
    {}
    // Writes out what is queued.
    ~DriveRecorder() override;

    // Opens a new file named after the time in `directory` (made when missing) and writes
    // the header. Refused with errorOccurred when the file cannot be made; nothing changes then.
    bool start(const QString &directory);
    // Writes out the queue and closes the file.
    void stop();

    [[nodiscard]] bool isRecording() const { return m_file.isOpen(); }
    // The file of the current or last recording; empty before the first.
    [[nodiscard]] QString filePath() const { return m_file.fileName(); }
    [[nodiscard]] quint64 writtenRows() const { return m_written; }
    // Rows lost to a full queue in the current or last recording.
    [[nodiscard]] quint64 droppedRows() const { return m_dropped; }

    // Queues one row, stamped with the time since the start; ignored while not recording.
    void record(const DriveSample &sample);

signals:
    void recordingChanged(bool recording);
    void errorOccurred(const QString &message);

private:
    // Writes the queued rows to the file; false (and stopped) when the write failed.
    bool writeQueue();
    void fail(const QString &reason);
    void close();

    Settings m_settings;
    QTimer *m_flushTimer;
    QFile m_file;
    QElapsedTimer m_clock;
    // A ring of queueCapacity samples, allocated once at the start.
    std::vector<DriveSample> m_queue;
    size_t m_head = 0;
    size_t m_size = 0;
    QByteArray m_text;
    quint64 m_written = 0;
    quint64 m_dropped = 0;
};

} // namespace tavrix
