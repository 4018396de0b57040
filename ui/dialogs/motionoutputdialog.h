#pragma once

#include <QDialog>

class QColor;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace tavrix {

// The "motion-output" dialog: switches the car's motion stream to motion software on and
// off, edits where it goes and shows how the stream is doing. It presents only; the owner
// feeds it through the slots and acts on its requests. Until then it says "Not available."
class MotionOutputDialog : public QDialog
{
    Q_OBJECT
public:
    // Ports below this belong to the system's services.
    static constexpr int kLowestPort = 1024;
    static constexpr int kHighestPort = 65535;

    explicit MotionOutputDialog(QWidget *parent = nullptr);

    QPushButton *startButton() const { return m_start; }
    QLineEdit *hostEdit() const { return m_host; }
    QSpinBox *portBox() const { return m_port; }
    QLabel *statusLabel() const { return m_status; }

public slots:
    void setAvailable(bool available);
    void setTarget(const QString &host, int port);
    void setStreaming(bool streaming);
    void setStatus(const QString &text, const QColor &colour);

signals:
    void startRequested(const QString &host, int port);
    void stopRequested();
    // The user finished editing the host or the port.
    void targetEdited(const QString &host, int port);

private:
    QLineEdit *m_host = nullptr;
    QSpinBox *m_port = nullptr;
    QPushButton *m_start = nullptr;
    QLabel *m_status = nullptr;
};

} // namespace tavrix
