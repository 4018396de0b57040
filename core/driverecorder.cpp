#include "driverecorder.h"

#include <QDateTime>
#include <QDir>
#include <QLoggingCategory>
#include <QTimer>

namespace tavrix {

namespace {

Q_LOGGING_CATEGORY(lcRecorder, "orvane.recorder")

// Two recordings started in the same second get "-2", "-3" ... instead of sharing a file.
constexpr int kMaxNameAttempts = 100;

QString timestampedName(const QDateTime &now, int attempt)
{
    const QString stem = QStringLiteral("drive-") + now.toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss"));
    return attempt == 1 ? stem + QStringLiteral(".csv") : QStringLiteral("%1-%2.csv").arg(stem).arg(attempt);
}

} // namespace

DriveRecorder::DriveRecorder(const Settings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_flushTimer(new QTimer(this))
{
    m_settings.queueCapacity = std::max(m_settings.queueCapacity, 1);
    m_flushTimer->setInterval(m_settings.flushInterval);
    connect(m_flushTimer, &QTimer::timeout, this, &DriveRecorder::writeQueue);
}

DriveRecorder::~DriveRecorder()
{
    if (isRecording() && writeQueue())
        close();
}

bool DriveRecorder::start(const QString &directory)
{
    if (isRecording())
        return true;
    if (!QDir().mkpath(directory)) {
        emit errorOccurred(tr("Cannot record the drive: the folder %1 cannot be made.").arg(directory));
        return false;
    }
    const QDateTime now = QDateTime::currentDateTime();
    for (int attempt = 1; attempt <= kMaxNameAttempts; ++attempt) {
        m_file.setFileName(QDir(directory).filePath(timestampedName(now, attempt)));
        // NewOnly: an earlier recording is never overwritten.
        if (m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || !m_file.exists())
            break;
    }
    const QByteArray header = csvrowformat::header();
    if (!m_file.isOpen() || m_file.write(header) != header.size() || !m_file.flush()) {
        const QString reason = m_file.errorString();
        if (m_file.isOpen()) {
            m_file.close();
            m_file.remove();
        }
        emit errorOccurred(tr("Cannot record the drive to %1: %2").arg(m_file.fileName(), reason));
        return false;
    }
    m_queue.assign(size_t(m_settings.queueCapacity), DriveSample{});
    m_head = 0;
    m_size = 0;
    m_written = 0;
    m_dropped = 0;
    m_clock.start();
    m_flushTimer->start();
    qCInfo(lcRecorder).noquote() << "[Recorder] recording to" << m_file.fileName();
    emit recordingChanged(true);
    return true;
}

void DriveRecorder::stop()
{
    if (!isRecording())
        return;
    if (!writeQueue())
        return;
    close();
    qCInfo(lcRecorder).noquote() << "[Recorder] stopped:" << m_written << "rows," << m_dropped << "dropped";
    emit recordingChanged(false);
}

void DriveRecorder::record(const DriveSample &sample)
{
    if (!isRecording())
        return;
    if (m_size == m_queue.size()) {
        ++m_dropped;
        return;
    }
    DriveSample &slot = m_queue[(m_head + m_size) % m_queue.size()];
    slot = sample;
    slot.timeMs = m_clock.elapsed();
    ++m_size;
}

bool DriveRecorder::writeQueue()
{
    if (!isRecording())
        return false;
    m_text.clear();
    const size_t rows = m_size;
    for (; m_size > 0; --m_size) {
        csvrowformat::appendRow(m_queue[m_head], m_text);
        m_head = (m_head + 1) % m_queue.size();
    }
    if (m_text.isEmpty())
        return true;
    if (m_file.write(m_text) != m_text.size() || !m_file.flush()) {
        fail(m_file.errorString());
        return false;
    }
    m_written += rows;
    return true;
}

void DriveRecorder::fail(const QString &reason)
{
    qCWarning(lcRecorder).noquote() << "[Recorder] writing" << m_file.fileName() << "failed:" << reason;
    close();
    emit errorOccurred(tr("Recording stopped: writing %1 failed (%2). The rows recorded before are kept.")
                           .arg(m_file.fileName(), reason));
    emit recordingChanged(false);
}

void DriveRecorder::close()
{
    m_flushTimer->stop();
    m_file.close();
    m_size = 0;
}

} // namespace tavrix
