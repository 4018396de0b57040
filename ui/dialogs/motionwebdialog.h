#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace tavrix {

// The "motion-web" dialog: the motion web panel's address as a QR code for the phone's
// camera and as text to copy, with the three steps to open it. It presents only; the owner
// gives it the address (empty while the panel is not running).
class MotionWebDialog : public QDialog
{
    Q_OBJECT
public:
    explicit MotionWebDialog(QWidget *parent = nullptr);

    QLabel *qrLabel() const { return m_qr; }
    QLabel *urlLabel() const { return m_url; }
    QPushButton *copyButton() const { return m_copy; }

public slots:
    void setUrl(const QString &url);

private:
    QLabel *m_qr = nullptr;
    QLabel *m_url = nullptr;
    QPushButton *m_copy = nullptr;
};

} // namespace tavrix
