#include "driverecorder.h"

#include "recordingwriter.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
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

// Makes a new file in `directory` with the header; its path, or an empty one with `error` set.
QString createWithHeader(const QString &directory, QString *error)
{
    const QDateTime now = QDateTime::currentDateTime();
    QFile file;
    for (int attempt = 1; attempt <= kMaxNameAttempts; ++attempt) {
        file.setFileName(QDir(directory).filePath(timestampedName(now, attempt)));
        // NewOnly: an earlier recording is never overwritten.
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || !file.exists())
            break;
    }
    const QByteArray header = csvrowformat::header();
    if (file.isOpen() && file.write(header) == header.size() && file.flush())
        return file.fileName();
    *error = file.errorString();
    if (file.isOpen()) {
        file.close();
        file.remove();
    }
    return {};
}

} // namespace

DriveRecorder::DriveRecorder(const Settings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_flushTimer(new QTimer(this))
    , m_writer(new RecordingWriter)
{
    m_settings.queueCapacity = std::max(m_settings.queueCapacity, 1);
    m_settings.chunksInFlight = std::max(m_settings.chunksInFlight, 1);
    m_flushTimer->setInterval(m_settings.flushInterval);
    connect(m_flushTimer, &QTimer::timeout, this, [this] { handOver(false); });

    m_writer->moveToThread(&m_writerThread);
    connect(m_writer, &RecordingWriter::written, this, &DriveRecorder::onWritten);
    connect(m_writer, &RecordingWriter::failed, this, &DriveRecorder::onFailed);
    connect(m_writer, &RecordingWriter::ended, this, &DriveRecorder::onEnded);
    m_writerThread.setObjectName(QStringLiteral("drive recorder"));
    m_writerThread.start(QThread::LowPriority);
}

DriveRecorder::~DriveRecorder()
{
    stop();
    // Returns once everything asked of the writer before is done, so the file is complete.
    QMetaObject::invokeMethod(
        m_writer, [] {}, Qt::BlockingQueuedConnection);
    m_writerThread.quit();
    m_writerThread.wait();
    delete m_writer;
}

bool DriveRecorder::start(const QString &directory)
{
    if (isRecording())
        return true;
    if (!QDir().mkpath(directory)) {
        emit errorOccurred(tr("Cannot record the drive: the folder %1 cannot be made.").arg(directory));
        return false;
    }
    QString reason;
    const QString path = createWithHeader(directory, &reason);
    if (path.isEmpty()) {
        emit errorOccurred(tr("Cannot record the drive to %1: %2").arg(directory, reason));
        return false;
    }
    m_path = path;
    m_queue.assign(size_t(m_settings.queueCapacity), DriveSample{});
    m_head = 0;
    m_size = 0;
    m_written = 0;
    m_dropped = 0;
    const int number = ++m_number;
    QMetaObject::invokeMethod(m_writer, [writer = m_writer, number, path] { writer->begin(number, path); });
    m_recording = true;
    m_clock.start();
    m_flushTimer->start();
    qCInfo(lcRecorder).noquote() << "[Recorder] recording to" << m_path;
    emit recordingChanged(true);
    return true;
}

void DriveRecorder::stop()
{
    if (!isRecording())
        return;
    // The last rows go however busy the writer is: that is one chunk more, once.
    handOver(true);
    m_recording = false;
    m_flushTimer->stop();
    const int number = m_number;
    QMetaObject::invokeMethod(m_writer, [writer = m_writer, number] { writer->end(number); });
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

void DriveRecorder::handOver(bool evenIfBusy)
{
    if (m_size == 0 || (m_inFlight >= m_settings.chunksInFlight && !evenIfBusy))
        return;
    QByteArray text;
    const quint64 rows = m_size;
    for (; m_size > 0; --m_size) {
        csvrowformat::appendRow(m_queue[m_head], text);
        m_head = (m_head + 1) % m_queue.size();
    }
    ++m_inFlight;
    const int number = m_number;
    QMetaObject::invokeMethod(m_writer, [writer = m_writer, number, text = std::move(text), rows] {
        writer->write(number, text, rows);
    });
}

void DriveRecorder::onWritten(int recording, quint64 count)
{
    m_inFlight = std::max(m_inFlight - 1, 0);
    if (recording == m_number)
        m_written += count;
}

void DriveRecorder::onFailed(int recording, const QString &reason)
{
    if (recording != m_number)
        return;
    qCWarning(lcRecorder).noquote() << "[Recorder] writing" << m_path << "failed:" << reason;
    const bool wasRecording = m_recording;
    m_recording = false;
    m_flushTimer->stop();
    m_size = 0;
    // In this order, so the message is what stays on show.
    if (wasRecording)
        emit recordingChanged(false);
    emit errorOccurred(tr("Recording stopped: writing %1 failed (%2). The rows recorded before are kept.")
                           .arg(m_path, reason));
}

void DriveRecorder::onEnded(int recording)
{
    if (recording != m_number || m_recording)
        return;
    qCInfo(lcRecorder).noquote() << "[Recorder] saved" << m_path << ":" << m_written << "rows," << m_dropped
                                 << "dropped";
    emit saved(m_path, m_written, m_dropped);
}

} // namespace tavrix
