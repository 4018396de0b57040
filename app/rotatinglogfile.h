#pragma once

#include <QString>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

class QFile;

namespace tavrix {

// The hub's log on disk: lines handed over from any thread are written by a thread of its own,
// so a log line never waits on the disk (the transmit tick logs on the event-loop thread).
// The file is rotated by size: "orvanehub.log" is the newest, "orvanehub.log.1" the one
// before, and so on; the oldest beyond `keptFiles` is removed. The queue is bounded: lines
// that arrive faster than the disk takes them are counted and the count is written instead.
class RotatingLogFile
{
public:
    struct Limits
    {
        qint64 maxFileBytes = 1024 * 1024;
        int keptFiles = 5; // the current file and four older ones
        int maxQueuedLines = 10000;
    };

    explicit RotatingLogFile(const QString &path, Limits limits);
    explicit RotatingLogFile(const QString &path)
        : RotatingLogFile(path, Limits{})
    {}
    // Writes what is queued, then ends the writing thread.
    ~RotatingLogFile();
    RotatingLogFile(const RotatingLogFile &) = delete;
    RotatingLogFile &operator=(const RotatingLogFile &) = delete;

    // "$XDG_STATE_HOME/OrvaneLabs/orvanehub.log" (~/.local/state when the variable is unset).
    [[nodiscard]] static QString defaultPath();

    // Creates the folder and opens the file for appending; false with the reason when it cannot.
    bool open(QString *error);
    [[nodiscard]] QString path() const { return m_path; }

    // Queues one line (without its newline); never blocks on the disk. Safe from any thread.
    void append(const QString &line);
    // Returns once every line queued so far is written (or writing has failed).
    void flush();

    // Lines dropped because the queue was full, since the start.
    [[nodiscard]] std::uint64_t droppedLines() const;
    // Why writing stopped (the disk full, the file removed and unwritable); empty while it works.
    [[nodiscard]] QString writeError() const;

private:
    void run();
    bool writeBatch(std::deque<QString> &batch, std::uint64_t dropped);
    bool rotate();
    QString olderFile(int age) const;

    const QString m_path;
    const Limits m_limits;
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_written;
    std::deque<QString> m_queue;
    std::uint64_t m_droppedTotal = 0;
    std::uint64_t m_droppedUnreported = 0;
    std::uint64_t m_queuedCount = 0;
    std::uint64_t m_writtenCount = 0;
    bool m_stopping = false;
    QString m_writeError;
    // Touched by the writing thread only, once open() has returned.
    std::unique_ptr<QFile> m_file;
    std::thread m_thread;
};

} // namespace tavrix
