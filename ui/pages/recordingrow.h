#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace tavrix {

// The drive recorder's controls: a Record switch, where the current or last recording goes,
// and a way to the folder of recordings. It presents and asks; the owner records.
class RecordingRow : public QWidget
{
    Q_OBJECT
public:
    explicit RecordingRow(QWidget *parent = nullptr);

    QPushButton *recordButton() const { return m_record; }
    QPushButton *openFolderButton() const { return m_openFolder; }
    QString statusText() const;

public slots:
    // Sets the switch without asking again.
    void setRecording(bool recording);
    // What the recording does, or why it stopped; `problem` shows it as a fault.
    void showStatus(const QString &text, bool problem = false);

signals:
    void recordRequested(bool on);
    void openFolderRequested();

private:
    QPushButton *m_record;
    QPushButton *m_openFolder;
    QLabel *m_status;
};

} // namespace tavrix
