#pragma once

#include <QColor>
#include <QObject>
#include <QString>

namespace tavrix {

class MotionOutputDialog;
class MotionTelemetrySender;

// Ties the "motion-output" dialog to the motion telemetry sender: its target and switch go
// to the sender, and the stream's status is shown every half second while the dialog is open.
class MotionOutputBinder : public QObject
{
    Q_OBJECT
public:
    struct Status
    {
        QString text;
        QColor colour;
    };

    // The sender is not owned and must outlive the bound dialogs; null leaves them "Not available."
    explicit MotionOutputBinder(MotionTelemetrySender *sender, QObject *parent = nullptr);

    void bindDialog(MotionOutputDialog *dialog);
    // What the dialog's status line says now.
    [[nodiscard]] Status status() const;

private:
    MotionTelemetrySender *m_sender;
};

} // namespace tavrix
