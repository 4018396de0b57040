#include "receiverendpointcalibration.h"

#include <QRegularExpression>
#include <QTimer>

#include <algorithm>

namespace tavrix {

namespace {

using Step = ReceiverEndpointCalibration::Step;

// The stability rule: a judgement needs this many readings of the channel, looks at the
// newest kWindow of them, and calls a spread (largest minus smallest CRSF value) above
// kMaxSpread movement. At the receiver's five lines a second the window is four seconds,
// so a stick let go near the end of the hold still counts.
constexpr qsizetype kMinReadings = 10;
constexpr qsizetype kWindow = 20;
constexpr int kMaxSpread = 100;

struct StepInfo
{
    Step step;
    QLatin1String name;
    QLatin1String resultKey;
};

constexpr std::array<StepInfo, ReceiverEndpointCalibration::kStepCount> kSteps{{
    {Step::ThrottleMax, QLatin1String("throttle_max"), QLatin1String("throttleMax")},
    {Step::ThrottleNeutral, QLatin1String("throttle_neutral"), QLatin1String("throttleNeutral")},
    {Step::ThrottleReverse, QLatin1String("throttle_reverse"), QLatin1String("throttleReverse")},
    {Step::SteeringLeft, QLatin1String("steering_left"), QLatin1String("steeringLeft")},
    {Step::SteeringCenter, QLatin1String("steering_center"), QLatin1String("steeringCenter")},
    {Step::SteeringRight, QLatin1String("steering_right"), QLatin1String("steeringRight")},
}};

const QRegularExpression &steeringLine()
{
    static const QRegularExpression pattern(QStringLiteral("CH1:(\\d+)us\\s+CRSF:(\\d+)"));
    return pattern;
}

const QRegularExpression &throttleLine()
{
    static const QRegularExpression pattern(QStringLiteral("CH2:(\\d+)us\\s+CRSF:(\\d+)"));
    return pattern;
}

// Digits too many for an int are no reading at all.
std::optional<ReceiverEndpointCalibration::Reading> readingIn(const QString &line,
                                                              const QRegularExpression &pattern)
{
    const QRegularExpressionMatch match = pattern.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    bool usOk = false;
    bool crsfOk = false;
    const ReceiverEndpointCalibration::Reading reading{match.captured(1).toInt(&usOk),
                                                       match.captured(2).toInt(&crsfOk)};
    if (!usOk || !crsfOk)
        return std::nullopt;
    return reading;
}

} // namespace

ReceiverEndpointCalibration::ReceiverEndpointCalibration(const Timings &timings, QObject *parent)
    : QObject(parent)
    , m_countdownTimer(new QTimer(this))
{
    qRegisterMetaType<tavrix::ReceiverEndpointCalibration::Progress>();
    m_countdownTimer->setInterval(timings.countdownTick);
    connect(m_countdownTimer, &QTimer::timeout, this, &ReceiverEndpointCalibration::onCountdownTick);
}

QString ReceiverEndpointCalibration::stepName(Step step)
{
    if (step == Step::Idle)
        return QStringLiteral("idle");
    if (step == Step::Complete)
        return QStringLiteral("complete");
    const int index = stepIndex(step);
    return index < 0 ? QStringLiteral("unknown") : QString(kSteps[index].name);
}

QString ReceiverEndpointCalibration::resultKey(Step step)
{
    const int index = stepIndex(step);
    return index < 0 ? QString() : QString(kSteps[index].resultKey);
}

QString ReceiverEndpointCalibration::stateName(State state)
{
    switch (state) {
    case State::Waiting:
        break;
    case State::Measuring:
        return QStringLiteral("measuring");
    case State::Stable:
        return QStringLiteral("stable");
    case State::Unstable:
        return QStringLiteral("unstable");
    case State::StepSuccess:
        return QStringLiteral("step_success");
    case State::Cancelled:
        return QStringLiteral("cancelled");
    }
    return QStringLiteral("waiting");
}

std::optional<ReceiverEndpointCalibration::Action>
ReceiverEndpointCalibration::actionNamed(const QString &name)
{
    if (name == QLatin1String("start"))
        return Action::Start;
    if (name == QLatin1String("retry"))
        return Action::Retry;
    if (name == QLatin1String("skip"))
        return Action::Skip;
    return std::nullopt;
}

QString ReceiverEndpointCalibration::acceptedText(Action action)
{
    switch (action) {
    case Action::Start:
        return QStringLiteral("Measurement started. Hold position steady for 5 seconds.");
    case Action::Retry:
        return QStringLiteral("Retrying measurement. Hold position steady for 5 seconds.");
    case Action::Skip:
        break;
    }
    return {};
}

QString ReceiverEndpointCalibration::refusalText(Refusal refusal)
{
    switch (refusal) {
    case Refusal::None:
        break;
    case Refusal::NoReceiver:
        return QStringLiteral("Orvane Receiver is not connected");
    case Refusal::InvalidAction:
        return QStringLiteral("Invalid action. Use 'start', 'retry', or 'skip'.");
    case Refusal::NotCalibrating:
        return QStringLiteral("No calibration in progress. Call action_start_calibration first.");
    case Refusal::AlreadyMeasuring:
        return QStringLiteral("Already measuring. Wait for result or send action='cancel'.");
    }
    return {};
}

int ReceiverEndpointCalibration::stepIndex(Step step)
{
    const auto found = std::ranges::find(kSteps, step, &StepInfo::step);
    return found == kSteps.end() ? -1 : int(found - kSteps.begin());
}

bool ReceiverEndpointCalibration::readsSteering(Step step)
{
    return step == Step::SteeringLeft || step == Step::SteeringCenter || step == Step::SteeringRight;
}

bool ReceiverEndpointCalibration::isMeasuring() const
{
    return m_countdownTimer->isActive();
}

ReceiverEndpointCalibration::Step ReceiverEndpointCalibration::retryStep() const
{
    if (!isCalibrating() || isMeasuring())
        return Step::Idle;
    return m_lastRecorded.value_or(m_step);
}

ReceiverEndpointCalibration::Refusal ReceiverEndpointCalibration::start()
{
    if (!m_receiverConnected)
        return Refusal::NoReceiver;
    m_countdownTimer->stop();
    m_results.fill(kNotRecorded);
    m_lastRecorded.reset();
    moveTo(Step::ThrottleMax);
    return Refusal::None;
}

ReceiverEndpointCalibration::Refusal ReceiverEndpointCalibration::step(Action action)
{
    if (!isCalibrating())
        return Refusal::NotCalibrating;
    if (isMeasuring())
        return Refusal::AlreadyMeasuring;
    if (action == Action::Skip) {
        m_lastRecorded.reset();
        moveTo(Step(int(m_step) + 1));
    } else {
        measure(action == Action::Retry ? retryStep() : m_step);
        report(State::Measuring, acceptedText(action));
    }
    return Refusal::None;
}

void ReceiverEndpointCalibration::cancel()
{
    if (!isCalibrating())
        return;
    m_countdownTimer->stop();
    m_countdown = 0;
    report(State::Cancelled);
    m_step = Step::Idle;
    m_lastRecorded.reset();
    emit changed();
}

void ReceiverEndpointCalibration::setReceiverConnected(bool connected)
{
    m_receiverConnected = connected;
    if (!connected)
        cancel();
}

void ReceiverEndpointCalibration::onReceiverLine(const QString &line)
{
    if (const auto reading = readingIn(line, steeringLine())) {
        m_steering = *reading;
        if (isMeasuring() && readsSteering(m_step))
            m_readings.append(reading->crsf);
    } else if (const auto reading = readingIn(line, throttleLine())) {
        m_throttle = *reading;
        if (isMeasuring() && !readsSteering(m_step))
            m_readings.append(reading->crsf);
    } else {
        return;
    }
    if (m_readings.size() > kWindow)
        m_readings.remove(0, m_readings.size() - kWindow);
    emit changed();
}

void ReceiverEndpointCalibration::measure(Step step)
{
    m_step = step;
    m_readings.clear();
    m_countdown = kHoldSeconds;
    m_countdownTimer->start();
}

// Judged once a second, so a stick held still counts down one second per tick, and any
// movement within the window sends the countdown back to the full hold.
void ReceiverEndpointCalibration::onCountdownTick()
{
    if (m_readings.size() < kMinReadings) {
        report(State::Measuring);
        return;
    }
    const auto [lowest, highest] = std::ranges::minmax(m_readings);
    if (highest - lowest > kMaxSpread) {
        m_countdown = kHoldSeconds;
        report(State::Unstable, QStringLiteral("Hold steady! Input moving too much..."));
        return;
    }
    if (--m_countdown > 0) {
        report(State::Stable, QStringLiteral("Good! Keep holding..."));
        return;
    }
    record();
}

void ReceiverEndpointCalibration::record()
{
    m_countdownTimer->stop();
    const int value = stepChannel().crsf;
    m_results[stepIndex(m_step)] = value;
    m_lastRecorded = m_step;
    report(State::StepSuccess, QStringLiteral("Value recorded: CRSF %1").arg(value), value);
    moveTo(Step(int(m_step) + 1));
}

void ReceiverEndpointCalibration::moveTo(Step step)
{
    m_step = step;
    m_readings.clear();
    m_countdown = step == Step::Complete ? 0 : kHoldSeconds;
    if (step != Step::Complete)
        report(State::Waiting);
    emit changed();
}

void ReceiverEndpointCalibration::report(State state, const QString &message, int recordedValue)
{
    emit progress({m_step, state, m_countdown, stepChannel(), message, recordedValue, m_results});
    emit changed();
}

ReceiverEndpointCalibration::Reading ReceiverEndpointCalibration::stepChannel() const
{
    return readsSteering(m_step) ? m_steering : m_throttle;
}

} // namespace tavrix
