#pragma once

#include "csvrowformat.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QThread>

#include <chrono>
#include <vector>

class QTimer;

namespace tavrix {

class RecordingWriter;

// Records a drive to a CSV file (csvrowformat), one row per frame sent. record() runs
// inside the 7 ms tick, so it only copies the sample into a queue of fixed size. A timer
// hands the queued rows, as text, to a writer on a thread of its own: the disk is never
// touched on the tick's thread after the file is made. When the disk falls behind, the
// writer holds a few chunks at most, the queue fills, and rows are dropped and counted
// rather than anything growing. A failed write stops the recording with a message and
// keeps the file with what reached it.
class DriveRecorder : public QObject
{
    Q_OBJECT
public:
    struct Settings
    {
        // About 14 s of frames: a disk stalling that long loses rows, the tick never waits.
        int queueCapacity = 2048;
        std::chrono::milliseconds flushInterval{250};
        // Chunks handed to the writer and not yet written, at most.
        int chunksInFlight = 4;
    };

    explicit DriveRecorder(const Settings &settings, QObject *parent = nullptr);
    explicit DriveRecorder(QObject *parent = nullptr)
        : DriveRecorder(Settings{}, parent)
    {}
    // Writes out what is queued and waits for the writer to finish.
    ~DriveRecorder() override;

    // Makes a new file named after the time in `directory` (made when missing) and writes
    // the header. Refused with errorOccurred when the file cannot be made; nothing changes then.
    bool start(const QString &directory);
    // Hands the rest of the queue to the writer; `saved` follows once it is on the disk.
    void stop();

    [[nodiscard]] bool isRecording() const { return m_recording; }
    // The file of the current or last recording; empty before the first.
    [[nodiscard]] QString filePath() const { return m_path; }
    // Rows of the current or last recording that reached the file.
    [[nodiscard]] quint64 writtenRows() const { return m_written; }
    // Rows lost to a full queue in the current or last recording.
    [[nodiscard]] quint64 droppedRows() const { return m_dropped; }

    // Queues one row, stamped with the time since the start; ignored while not recording.
    void record(const DriveSample &sample);

signals:
    void recordingChanged(bool recording);
    // The stopped recording is complete on the disk.
    void saved(const QString &path, quint64 rows, quint64 dropped);
    void errorOccurred(const QString &message);

private:
    // Hands the queued rows to the writer, unless it already holds as many chunks as allowed.
    void handOver(bool evenIfBusy);
    void onWritten(int recording, quint64 count);
    void onFailed(int recording, const QString &reason);
    void onEnded(int recording);

    Settings m_settings;
    QTimer *m_flushTimer;
    QThread m_writerThread;
    RecordingWriter *m_writer;
    bool m_recording = false;
    // Numbers the recordings, so the writer's answers about an earlier one are told apart.
    int m_number = 0;
    int m_inFlight = 0;
    QString m_path;
    QElapsedTimer m_clock;
    // A ring of queueCapacity samples, allocated once at the start.
    std::vector<DriveSample> m_queue;
    size_t m_head = 0;
    size_t m_size = 0;
    quint64 m_written = 0;
    quint64 m_dropped = 0;
};

} // namespace tavrix
