#include "wheelffbdialogbinder.h"

#include "tavrixcontroller.h"
#include "wheelffbdialog.h"
#include "wheelforcefeedback.h"

namespace tavrix {

WheelFfbDialogBinder::WheelFfbDialogBinder(WheelFfbDialog *dialog, TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_ffb(controller->forceFeedback())
{
    connect(dialog, &WheelFfbDialog::checkRequested, this, &WheelFfbDialogBinder::runCheck);
    connect(dialog, &WheelFfbDialog::enableToggled, this, &WheelFfbDialogBinder::setOn);
    connect(dialog, &WheelFfbDialog::strengthChanged, m_ffb,
            [this](double strength) { m_ffb->setStrength(float(strength)); });
    connect(dialog, &WheelFfbDialog::centeringChanged, m_ffb,
            [this](double centering) { m_ffb->setCentering(float(centering)); });
    connect(dialog, &WheelFfbDialog::testRequested, this, &WheelFfbDialogBinder::playTestPulse);
    connect(m_ffb, &WheelForceFeedback::stateChanged, this, &WheelFfbDialogBinder::showState);
    // The level comes from the 20 ms force tick: the meter repaints after it, not inside it.
    connect(m_ffb, &WheelForceFeedback::levelChanged, dialog, &WheelFfbDialog::showLevel,
            Qt::QueuedConnection);
    showState();
    runCheck();
}

void WheelFfbDialogBinder::runCheck()
{
    m_dialog->showCheck(m_ffb->runCheck());
}

void WheelFfbDialogBinder::setOn(bool on)
{
    if (!on) {
        m_ffb->disable();
    } else if (!m_ffb->enable()) {
        m_dialog->showError(tr("Could not enable FFB — re-check the wheel."));
        showState();
        return;
    }
    m_dialog->showError({});
    showState();
}

void WheelFfbDialogBinder::playTestPulse(double level)
{
    if (m_ffb->playTestPulse(float(level)))
        m_dialog->showError({});
    else
        m_dialog->showError(tr("No FFB-capable wheel connected"));
}

void WheelFfbDialogBinder::showState()
{
    m_dialog->setForceFeedbackOn(m_ffb->isEnabled());
    m_dialog->setStrength(m_ffb->settings().strength);
    m_dialog->setCentering(m_ffb->settings().centering);
}

} // namespace tavrix
