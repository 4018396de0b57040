#pragma once

#include <QObject>
#include <QString>

namespace tavrix {

class DriveRecorder;
class RecordingRow;

// Binds the Record switch to the drive recorder: starts and stops it in the folder of
// recordings, shows the file while it records and what it kept after, shows the recorder's
// own message when it refuses or stops on a fault, and opens the folder on request.
class DriveRecorderBinder : public QObject
{
    Q_OBJECT
public:
    DriveRecorderBinder(RecordingRow *row, DriveRecorder *recorder, const QString &directory,
                        QObject *parent = nullptr);

private:
    void setRecording(bool on);
    void showState(bool recording);
    void showSaved(const QString &path, quint64 rows, quint64 dropped);
    void openFolder();

    RecordingRow *m_row;
    DriveRecorder *m_recorder;
    QString m_directory;
};

} // namespace tavrix
