#include "motionwebdialogbinder.h"

#include "motionwebdialog.h"
#include "motionwebpanel.h"

namespace tavrix {

MotionWebDialogBinder::MotionWebDialogBinder(MotionWebPanel *panel, QObject *parent)
    : QObject(parent)
    , m_panel(panel)
{}

void MotionWebDialogBinder::bindDialog(MotionWebDialog *dialog)
{
    MotionWebPanel *panel = m_panel;
    const auto show = [dialog, panel] { dialog->setUrl(panel->isListening() ? panel->url() : QString()); };
    connect(panel, &MotionWebPanel::statusChanged, dialog, show);
    show();
}

bool MotionWebDialogBinder::startPanel()
{
    if (m_panel->isListening()) {
        emit logLine(tr("Web panel running at %1").arg(m_panel->url()));
        return true;
    }
    const quint16 first = MotionWebPanel::kDefaultPort;
    if (!m_panel->start(first)) {
        emit logLine(tr("! Web panel failed to start (ports %1-%2 in use)")
                         .arg(first)
                         .arg(first + MotionWebPanel::kPortAttempts - 1));
        return false;
    }
    emit logLine(tr("Web panel started at %1").arg(m_panel->url()));
    return true;
}

void MotionWebDialogBinder::stopPanel()
{
    if (!m_panel->isListening())
        return;
    m_panel->stop();
    emit logLine(tr("Web panel stopped"));
}

} // namespace tavrix
