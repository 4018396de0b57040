#include "pedalverifydialogbinder.h"

#include "pedalverifydialog.h"
#include "repaintthrottle.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

// The dialog names pedals and steps in its own terms; spelled out so that neither side can
// be reordered under the other.
PedalVerifyDialog::Pedal shown(PedalVerification::Pedal pedal)
{
    switch (pedal) {
    case PedalVerification::Pedal::Throttle:
        return PedalVerifyDialog::Pedal::Throttle;
    case PedalVerification::Pedal::Brake:
        return PedalVerifyDialog::Pedal::Brake;
    }
    return PedalVerifyDialog::Pedal::Throttle;
}

PedalVerifyDialog::Step shown(PedalVerification::Step step)
{
    switch (step) {
    case PedalVerification::Step::PressFully:
        return PedalVerifyDialog::Step::PressFully;
    case PedalVerification::Step::Release:
        return PedalVerifyDialog::Step::Release;
    case PedalVerification::Step::Done:
        return PedalVerifyDialog::Step::Done;
    }
    return PedalVerifyDialog::Step::PressFully;
}

} // namespace

PedalVerifyDialogBinder::PedalVerifyDialogBinder(PedalVerifyDialog *dialog, TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_controller(controller)
    , m_repaint(new RepaintThrottle([this] { show(); }, this))
{
    connect(controller, &TavrixController::inputChanged, this, &PedalVerifyDialogBinder::judge);
    connect(dialog, &PedalVerifyDialog::restartRequested, this, [this] {
        m_verification.restart();
        judge();
    });
    judge();
    show();
}

bool PedalVerifyDialogBinder::hasPedals() const
{
    return m_controller->devices()->isConnected(DeviceRole::WheelBase) ||
           m_controller->devices()->isConnected(DeviceRole::Pedals);
}

void PedalVerifyDialogBinder::judge()
{
    // Read as the start check reads them: calibrated, from the pedals or else the wheel base.
    if (hasPedals())
        m_verification.feed(m_controller->throttle(), m_controller->brake());
    m_repaint->request();
}

void PedalVerifyDialogBinder::show()
{
    if (hasPedals())
        m_dialog->showPositions(m_controller->throttle(), m_controller->brake());
    else
        m_dialog->showNoPedals();
    for (auto pedal : {PedalVerification::Pedal::Throttle, PedalVerification::Pedal::Brake})
        m_dialog->showStep(shown(pedal), shown(m_verification.step(pedal)));
    m_dialog->showVerdict(m_verification.passed());
}

} // namespace tavrix
