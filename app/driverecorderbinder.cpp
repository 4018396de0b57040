#include "driverecorderbinder.h"

#include "driverecorder.h"
#include "recordingrow.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace tavrix {

DriveRecorderBinder::DriveRecorderBinder(RecordingRow *row, DriveRecorder *recorder, const QString &directory,
                                         QObject *parent)
    : QObject(parent)
    , m_row(row)
    , m_recorder(recorder)
    , m_directory(directory)
{
    connect(row, &RecordingRow::recordRequested, this, &DriveRecorderBinder::setRecording);
    connect(row, &RecordingRow::openFolderRequested, this, &DriveRecorderBinder::openFolder);
    connect(recorder, &DriveRecorder::recordingChanged, this, &DriveRecorderBinder::showState);
    connect(recorder, &DriveRecorder::saved, this, &DriveRecorderBinder::showSaved);
    connect(recorder, &DriveRecorder::errorOccurred, row,
            [row](const QString &message) { row->showStatus(message, true); });
    if (recorder->isRecording())
        showState(true);
}

void DriveRecorderBinder::setRecording(bool on)
{
    if (on)
        m_recorder->start(m_directory);
    else
        m_recorder->stop();
}

void DriveRecorderBinder::showState(bool recording)
{
    m_row->setRecording(recording);
    const QString name = QFileInfo(m_recorder->filePath()).fileName();
    m_row->showStatus(recording ? tr("Recording to %1").arg(name) : tr("Saving %1…").arg(name));
}

void DriveRecorderBinder::showSaved(const QString &path, quint64 rows, quint64 dropped)
{
    QString saved = tr("Saved %1: %2 rows.").arg(QFileInfo(path).fileName()).arg(rows);
    if (dropped > 0)
        saved += QLatin1Char(' ') + tr("%1 rows were dropped because the disk fell behind.").arg(dropped);
    m_row->showStatus(saved);
}

void DriveRecorderBinder::openFolder()
{
    // The folder exists before the first recording, so the file browser has something to show.
    QDir().mkpath(m_directory);
    QDesktopServices::openUrl(QUrl::fromLocalFile(m_directory));
}

} // namespace tavrix
