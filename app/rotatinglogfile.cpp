#include "rotatinglogfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace tavrix {

RotatingLogFile::RotatingLogFile(const QString &path, Limits limits)
    : m_path(path)
    , m_limits(limits)
{}

RotatingLogFile::~RotatingLogFile()
{
    {
        std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

QString RotatingLogFile::defaultPath()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (state.isEmpty() || QDir::isRelativePath(state))
        state = QDir::homePath() + QStringLiteral("/.local/state");
    return state + QStringLiteral("/OrvaneLabs/orvanehub.log");
}

bool RotatingLogFile::open(QString *error)
{
    Q_ASSERT(!m_thread.joinable());
    const QFileInfo info(m_path);
    if (!QDir().mkpath(info.absolutePath())) {
        *error = QStringLiteral("cannot create the log folder %1").arg(info.absolutePath());
        return false;
    }
    m_file = std::make_unique<QFile>(m_path);
    if (!m_file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
        *error = QStringLiteral("cannot write the log file %1: %2").arg(m_path, m_file->errorString());
        m_file.reset();
        return false;
    }
    m_thread = std::thread([this] { run(); });
    return true;
}

void RotatingLogFile::append(const QString &line)
{
    {
        std::lock_guard lock(m_mutex);
        if (!m_writeError.isEmpty() || m_stopping)
            return;
        if (m_queue.size() >= size_t(m_limits.maxQueuedLines)) {
            ++m_droppedTotal;
            ++m_droppedUnreported;
            return;
        }
        m_queue.push_back(line);
        ++m_queuedCount;
    }
    m_wake.notify_one();
}

void RotatingLogFile::flush()
{
    std::unique_lock lock(m_mutex);
    if (!m_thread.joinable())
        return;
    const std::uint64_t target = m_queuedCount;
    m_written.wait(lock, [this, target] { return m_writtenCount >= target || !m_writeError.isEmpty(); });
}

std::uint64_t RotatingLogFile::droppedLines() const
{
    std::lock_guard lock(m_mutex);
    return m_droppedTotal;
}

QString RotatingLogFile::writeError() const
{
    std::lock_guard lock(m_mutex);
    return m_writeError;
}

void RotatingLogFile::run()
{
    for (;;) {
        std::deque<QString> batch;
        std::uint64_t dropped = 0;
        bool stopping = false;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_stopping || !m_queue.empty() || m_droppedUnreported > 0; });
            batch.swap(m_queue);
            dropped = std::exchange(m_droppedUnreported, 0);
            stopping = m_stopping;
        }
        const std::uint64_t count = batch.size();
        const bool written = writeBatch(batch, dropped);
        {
            std::lock_guard lock(m_mutex);
            m_writtenCount += count;
            if (!written && m_writeError.isEmpty())
                m_writeError = m_file->errorString();
        }
        m_written.notify_all();
        if (!written) {
            // Not through qWarning: that would come straight back here.
            std::fprintf(stderr, "hub: the log file %s is no longer written: %s\n", qPrintable(m_path),
                         qPrintable(writeError()));
            return;
        }
        if (stopping)
            return;
    }
}

bool RotatingLogFile::writeBatch(std::deque<QString> &batch, std::uint64_t dropped)
{
    if (dropped > 0)
        batch.push_front(QStringLiteral("log: %1 lines dropped, the disk could not keep up").arg(dropped));
    for (const QString &line : batch) {
        const QByteArray bytes = line.toUtf8() + '\n';
        if (m_file->size() > 0 && m_file->size() + bytes.size() > m_limits.maxFileBytes && !rotate())
            return false;
        if (m_file->write(bytes) != bytes.size())
            return false;
    }
    return m_file->flush();
}

QString RotatingLogFile::olderFile(int age) const
{
    return age == 0 ? m_path : m_path + QLatin1Char('.') + QString::number(age);
}

// Shifts every file one age older (the oldest kept one falls off) and starts a new current file.
bool RotatingLogFile::rotate()
{
    m_file->close();
    QFile::remove(olderFile(m_limits.keptFiles - 1));
    for (int age = m_limits.keptFiles - 2; age >= 0; --age) {
        if (QFile::exists(olderFile(age)))
            QFile::rename(olderFile(age), olderFile(age + 1));
    }
    return m_file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
}

} // namespace tavrix
