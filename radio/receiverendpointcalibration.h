#pragma once

#include "endpointcalibrationtimings.h"

#include <QList>
#include <QObject>
#include <QString>

#include <array>
#include <optional>

class QTimer;

namespace tavrix {

// Measures where the car's receiver sees the ends of throttle and steering: the user holds
// the transmitter's stick at each end point in turn while the receiver prints its channels
// ("CH1:1500us CRSF:992" for steering, "CH2:..." for throttle) on its USB console, and once
// the channel held still for the whole countdown its CRSF value is recorded for that step.
//
// A calibration goes through the six steps in order. After start() the first step is
// "waiting": chosen, but not measured until the user says step(Start), so the stick can be
// moved into place first. A recorded value moves the calibration on to the next step, again
// waiting; Retry measures the value just recorded once more (or the current step when none
// was), Skip leaves the current step unmeasured. After the last step it is complete.
class ReceiverEndpointCalibration : public QObject
{
    Q_OBJECT
public:
    using Timings = EndpointCalibrationTimings;

    enum class Step
    {
        Idle,
        ThrottleMax,
        ThrottleNeutral,
        ThrottleReverse,
        SteeringLeft,
        SteeringCenter,
        SteeringRight,
        Complete,
    };
    Q_ENUM(Step)

    enum class State
    {
        Waiting,
        Measuring, // fewer readings than the stability rule needs
        Stable,
        Unstable,
        StepSuccess,
        Cancelled,
    };
    Q_ENUM(State)

    enum class Action
    {
        Start,
        Retry,
        Skip,
    };

    enum class Refusal
    {
        None,
        NoReceiver,
        InvalidAction,
        NotCalibrating,
        AlreadyMeasuring,
    };

    // The six measured steps, in order.
    static constexpr int kStepCount = 6;
    // Seconds the stick must be held still.
    static constexpr int kHoldSeconds = 5;
    // A value not recorded (skipped, or not reached yet).
    static constexpr int kNotRecorded = 0;

    // Indexed by the measured steps in order (stepIndex()).
    using Results = std::array<int, kStepCount>;

    struct Reading
    {
        int us = 0;
        int crsf = 0;
        friend bool operator==(const Reading &, const Reading &) = default;
    };

    // What the app's progress event carries.
    struct Progress
    {
        Step step = Step::Idle;
        State state = State::Waiting;
        int countdown = 0;
        Reading channel; // the step's channel, as last read
        QString message;
        int recordedValue = kNotRecorded;
        Results results{};
    };

    explicit ReceiverEndpointCalibration(const Timings &timings = {}, QObject *parent = nullptr);

    // "throttle_max" ... "steering_right", "complete", "idle"; "unknown" for anything else.
    [[nodiscard]] static QString stepName(Step step);
    // "throttleMax" ... "steeringRight"; empty for a step that records nothing.
    [[nodiscard]] static QString resultKey(Step step);
    // "waiting", "measuring", "stable", "unstable", "step_success", "cancelled".
    [[nodiscard]] static QString stateName(State state);
    // The app's names "start", "retry" and "skip".
    [[nodiscard]] static std::optional<Action> actionNamed(const QString &name);
    // The text the app is shown when a step action is taken; empty for Skip.
    [[nodiscard]] static QString acceptedText(Action action);
    // The text the app is shown for a refusal; empty for None.
    [[nodiscard]] static QString refusalText(Refusal refusal);
    // 0..5 for the measured steps, -1 for the others.
    [[nodiscard]] static int stepIndex(Step step);
    // The steering steps read channel 1, the throttle steps channel 2.
    [[nodiscard]] static bool readsSteering(Step step);

    [[nodiscard]] Step step() const { return m_step; }
    [[nodiscard]] bool isCalibrating() const { return m_step != Step::Idle && m_step != Step::Complete; }
    [[nodiscard]] bool isMeasuring() const;
    [[nodiscard]] int countdown() const { return m_countdown; }
    [[nodiscard]] const Results &results() const { return m_results; }
    // The last value of each channel the receiver printed, whether measuring or not.
    [[nodiscard]] Reading steering() const { return m_steering; }
    [[nodiscard]] Reading throttle() const { return m_throttle; }
    // The step Retry would measure; Idle when none.
    [[nodiscard]] Step retryStep() const;
    [[nodiscard]] bool isReceiverConnected() const { return m_receiverConnected; }

public slots:
    // Starts over at the first step, forgetting earlier results. Needs the receiver's USB port.
    Refusal start();
    Refusal step(tavrix::ReceiverEndpointCalibration::Action action);
    // Ends the calibration; the results recorded so far are kept for display.
    void cancel();
    // One line from the receiver's console.
    void onReceiverLine(const QString &line);
    // The receiver's USB port opened or closed; closing ends a calibration under way.
    void setReceiverConnected(bool connected);

signals:
    void progress(const tavrix::ReceiverEndpointCalibration::Progress &progress);
    // Step, countdown, results or live channels changed (for a display that polls nothing).
    void changed();

private:
    void measure(Step step);
    void onCountdownTick();
    void record();
    void moveTo(Step step);
    void report(State state, const QString &message = {}, int recordedValue = kNotRecorded);
    [[nodiscard]] Reading stepChannel() const;

    QTimer *m_countdownTimer = nullptr;
    Step m_step = Step::Idle;
    std::optional<Step> m_lastRecorded; // retried while the calibration waits right after it
    int m_countdown = 0;
    Results m_results{};
    Reading m_steering;
    Reading m_throttle;
    // The measured channel's CRSF values since the measurement began, the newest last.
    QList<int> m_readings;
    bool m_receiverConnected = false;
};

} // namespace tavrix

Q_DECLARE_METATYPE(tavrix::ReceiverEndpointCalibration::Progress)
