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
    // Connected after recordingChanged, so the fault replaces the "saved" line.
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
    if (recording) {
        m_row->showStatus(tr("Recording to %1").arg(name));
        return;
    }
    QString saved = tr("Saved %1: %2 rows.").arg(name).arg(m_recorder->writtenRows());
    if (m_recorder->droppedRows() > 0)
        saved += QLatin1Char(' ') +
                 tr("%1 rows were dropped because the disk fell behind.").arg(m_recorder->droppedRows());
    m_row->showStatus(saved);
}

void DriveRecorderBinder::openFolder()
{
    // The folder exists before the first recording, so the file browser has something to show.
    QDir().mkpath(m_directory);
    QDesktopServices::openUrl(QUrl::fromLocalFile(m_directory));
}

} // namespace tavrix
