#include "radiocalibrationbinder.h"

#include "radiocalibrationdialog.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

using Calibration = ReceiverEndpointCalibration;

static_assert(RadioCalibrationDialog::kStepCount == Calibration::kStepCount);

int dialogStep(Calibration::Step step)
{
    if (step == Calibration::Step::Complete)
        return RadioCalibrationDialog::kStepCount;
    const int index = Calibration::stepIndex(step);
    return index < 0 ? RadioCalibrationDialog::kNoStep : index;
}

} // namespace

RadioCalibrationBinder::RadioCalibrationBinder(RadioCalibrationDialog *dialog, TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_calibration(controller->receiverCalibration())
{
    connect(dialog, &RadioCalibrationDialog::startRequested, this, &RadioCalibrationBinder::start);
    connect(dialog, &RadioCalibrationDialog::retryRequested, this,
            [this] { act(Calibration::Action::Retry); });
    connect(dialog, &RadioCalibrationDialog::skipRequested, this, [this] { act(Calibration::Action::Skip); });
    connect(dialog, &RadioCalibrationDialog::cancelRequested, m_calibration, &Calibration::cancel);
    connect(m_calibration, &Calibration::changed, this, &RadioCalibrationBinder::showState);
    connect(m_calibration, &Calibration::progress, this, &RadioCalibrationBinder::showProgress);
    showState();
}

// One button starts the calibration and then measures each step in turn.
void RadioCalibrationBinder::start()
{
    if (m_calibration->isCalibrating())
        act(Calibration::Action::Start);
    else
        showRefusal(m_calibration->start());
}

void RadioCalibrationBinder::act(Calibration::Action action)
{
    showRefusal(m_calibration->step(action));
}

void RadioCalibrationBinder::showRefusal(Calibration::Refusal refusal)
{
    switch (refusal) {
    case Calibration::Refusal::None:
        return;
    case Calibration::Refusal::NoReceiver:
        m_dialog->showMessage(tr("Connect the car's receiver over USB first."), hub::Tone::Danger);
        return;
    case Calibration::Refusal::InvalidAction:
    case Calibration::Refusal::NotCalibrating:
    case Calibration::Refusal::AlreadyMeasuring:
        break;
    }
    // The app may have moved the same calibration on meanwhile.
    m_dialog->showMessage(tr("Not possible right now: the calibration has moved on."), hub::Tone::Warning);
    showState();
}

void RadioCalibrationBinder::showState()
{
    const Calibration *calibration = m_calibration;
    m_dialog->showStep(dialogStep(calibration->step()), calibration->isMeasuring(),
                       calibration->retryStep() != Calibration::Step::Idle);
    m_dialog->showChannels(calibration->steering().us, calibration->steering().crsf,
                           calibration->throttle().us, calibration->throttle().crsf);
    m_dialog->showCountdown(calibration->isMeasuring() ? calibration->countdown() : 0);
    for (int step = 0; step < Calibration::kStepCount; ++step)
        m_dialog->showResult(step, calibration->results()[step]);
    if (calibration->step() == Calibration::Step::Complete)
        m_dialog->showMessage(tr("All six end points are measured."), hub::Tone::Good);
}

void RadioCalibrationBinder::showProgress(const Calibration::Progress &progress)
{
    using State = Calibration::State;
    switch (progress.state) {
    case State::Waiting:
        m_dialog->showHold(hub::Tone::Muted, tr("Waiting"));
        // The value just recorded stays in view until the next step is measured.
        if (m_lastState != State::StepSuccess)
            m_dialog->showMessage(tr("Put the control in place, then press Measure."));
        break;
    case State::Measuring:
        m_dialog->showHold(hub::Tone::Accent, tr("Measuring"));
        m_dialog->showMessage(tr("Measuring… hold the control still."));
        break;
    case State::Stable:
        m_dialog->showHold(hub::Tone::Good, tr("Stable"));
        m_dialog->showMessage(tr("Good! Keep holding..."), hub::Tone::Good);
        break;
    case State::Unstable:
        m_dialog->showHold(hub::Tone::Warning, tr("Unstable"));
        m_dialog->showMessage(tr("Hold steady! Input moving too much..."), hub::Tone::Warning);
        break;
    case State::StepSuccess:
        m_dialog->showHold(hub::Tone::Good, tr("Recorded"));
        m_dialog->showMessage(tr("Value recorded: CRSF %1").arg(progress.recordedValue), hub::Tone::Good);
        break;
    case State::Cancelled:
        m_dialog->showHold(hub::Tone::Muted, tr("Cancelled"));
        m_dialog->showMessage(tr("Calibration cancelled."));
        break;
    }
    m_lastState = progress.state;
}

} // namespace tavrix
