#pragma once

#include <QObject>
#include <QString>

namespace tavrix {

class MotionWebDialog;
class MotionWebPanel;

// Ties the "motion-web" dialog to the motion web panel (the dialog shows its address while it
// listens) and starts or stops the panel on the desktop's request, saying so in a log line.
class MotionWebDialogBinder : public QObject
{
    Q_OBJECT
public:
    // The panel is not owned and must outlive the bound dialogs.
    explicit MotionWebDialogBinder(MotionWebPanel *panel, QObject *parent = nullptr);

    void bindDialog(MotionWebDialog *dialog);

public slots:
    // Listens on the usual ports unless it already does; false when every port is taken.
    bool startPanel();
    void stopPanel();

signals:
    // What happened, for the motion page's log ("! " marks a failure).
    void logLine(const QString &line);

private:
    MotionWebPanel *m_panel;
};

} // namespace tavrix
