// One car tick and one helicopter tick of the channel computations, one tick of the wheel's
// force computation and one of the motion output (smoothing and one datagram), in ns per
// tick, next to a trivial baseline (touching the sixteen channels) from the same run. The
// budgets are the 7 ms transmit tick, the 20 ms force tick and the 16 ms motion tick; these
// figures should stay a tiny fraction of them.

#include "buttonmappingengine.h"
#include "drivecomputation.h"
#include "forcefeedbackcomputation.h"
#include "helicoptercomputation.h"
#include "inputsource.h"
#include "motiontelemetrysender.h"

#include <QLoggingCategory>

#include <benchmark/benchmark.h>

#include <array>
#include <bitset>

using namespace tavrix;

namespace {

// Keep the every-50th-tick debug line out of the figures' output.
const bool g_quietDriveLog = [] {
    QLoggingCategory::setFilterRules(QStringLiteral("orvane.drive.debug=false"));
    return true;
}();

class BenchController : public ButtonSource, public AxisSource
{
public:
    std::bitset<ButtonMappingEngine::kSourceCount> pressed;
    std::array<float, 8> axes{};

    bool isPressed(int index) const override
    {
        return index >= 0 && index < int(pressed.size()) && pressed.test(size_t(index));
    }
    bool isConnected() const override { return true; }
    float axis(int slot) const override { return axes[size_t(slot)]; }
};

// Ten mappings, one per car button channel CH3..CH12, covering every behaviour,
// plus a pit-limiter button.
ButtonMappingList carMappings()
{
    ButtonMappingList list;
    const ButtonBehaviour modes[] = {ButtonBehaviour::Momentary, ButtonBehaviour::Toggle,
                                     ButtonBehaviour::SwitchPosition, ButtonBehaviour::HoldToRaise,
                                     ButtonBehaviour::HoldToLower};
    for (int i = 0; i < 10; ++i) {
        ButtonMapping m;
        m.buttonIndex = i;
        m.extraButtons = {128 + i % 4, 144 + i % 8};
        m.channel = 2 + i;
        m.mode = modes[i % 5];
        m.startValue = 992;
        m.outputValue = 1811;
        m.minValue = 172;
        m.maxValue = 1811;
        m.rateUnitsPerSec = 500;
        list.append(m);
    }
    ButtonMapping pit;
    pit.buttonIndex = 20;
    pit.channel = 15;
    pit.activatesPitLimiter = true;
    list.append(pit);
    return list;
}

void BM_Baseline(benchmark::State &state)
{
    ChannelValues channels{};
    int32_t n = 0;
    for (auto _ : state) {
        for (int32_t &value : channels)
            value = ++n & 2047;
        benchmark::DoNotOptimize(channels);
    }
}
BENCHMARK(BM_Baseline);

void BM_CarTick(benchmark::State &state)
{
    DriveSettings settings;
    settings.smoothDeceleration = true;
    settings.gearThrottleLimitEnabled = true;
    settings.reverseEnabled = true;
    settings.reverseButtonIndex = 30;
    settings.steeringCenter = 1000; // the custom end-point path
    settings.steeringCalibration.useCalibration = true;
    DriveComputation drive(settings);
    ButtonMappingEngine engine;
    const ButtonMappingList mappings = carMappings();
    engine.reset(mappings);
    BenchController wheel;
    ChannelValues channels{};

    uint32_t tick = 0;
    for (auto _ : state) {
        ++tick;
        // Pedals and wheel sweep slowly so every rule sees changing input.
        const float phase = float(tick % 1000) / 1000.0f;
        DriveInputs in;
        in.steeringRaw = phase * 2.0f - 1.0f;
        in.throttle = phase;
        in.brake = (tick / 1000) % 3 == 0 ? 0.05f : 0.0f;
        in.gear = int32_t(1 + tick / 500 % 7);
        wheel.pressed = std::bitset<ButtonMappingEngine::kSourceCount>((tick / 64) * 0x9E3779B9u);
        in.pitLimiterHeld = ButtonMappingEngine::isPitLimiterActive(mappings, wheel);
        const DriveTickResult result = drive.tick(in, wheel, channels);
        engine.apply(mappings, channels, wheel);
        benchmark::DoNotOptimize(result);
        benchmark::DoNotOptimize(channels);
    }
}
BENCHMARK(BM_CarTick);

void BM_HelicopterTick(benchmark::State &state)
{
    HelicopterSettings settings;
    settings.fly.softStart = true;
    settings.arm.enabled = true;
    settings.pitchCurve = {true, {0.0, 0.3, 0.6, 0.8, 1.0}};
    settings.throttleCurve = {true, {0.0, 0.7, 1.0}};
    HelicopterComputation heli(settings);
    ButtonMappingEngine engine;
    ButtonMappingList mappings = carMappings();
    for (ButtonMapping &m : mappings)
        m.channel += 4; // CH7..CH16
    engine.reset(mappings);
    BenchController joystick;
    BenchController throttle;
    BenchController pedals;
    const HelicopterInputs inputs{&joystick, &throttle, &pedals, &joystick};
    ChannelValues channels{};

    uint32_t tick = 0;
    for (auto _ : state) {
        ++tick;
        const float phase = float(tick % 1000) / 500.0f - 1.0f;
        joystick.axes = {phase, -phase, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f};
        throttle.axes[2] = phase;
        pedals.axes[3] = phase * 0.5f;
        joystick.pressed = std::bitset<ButtonMappingEngine::kSourceCount>((tick / 64) * 0x9E3779B9u);
        heli.tick(inputs, engine, mappings, channels);
        benchmark::DoNotOptimize(channels);
    }
}
BENCHMARK(BM_HelicopterTick);

// The sender's smoothing step (with the output off, so no socket is involved) and the datagram
// it would send, with the car's readings changing every tick.
void BM_MotionTick(benchmark::State &state)
{
    qint64 now = 0;
    MotionTelemetrySender sender([&now] { return now; });
    const MotionDriveState drive{0.1f, 0.6f, 0.0f, 0.0f, 3};
    uint32_t tick = 0;
    for (auto _ : state) {
        ++tick;
        now += 16;
        const float phase = float(tick % 1000) / 500.0f - 1.0f;
        sender.setAcceleration(phase * 0.3f, -phase * 0.4f, phase * 0.05f);
        sender.setAttitude(phase * 3.0f, -phase * 5.0f, phase * 179.0f);
        sender.tick();
        const MotionTelemetrySender::Snapshot s = sender.snapshot();
        const MotionState motion{s.longitudinalG,
                                 s.lateralG,
                                 s.verticalG,
                                 s.heaveVelocity,
                                 s.pitchDeg * 0.0174533f,
                                 s.rollDeg * 0.0174533f,
                                 s.yawDeg * 0.0174533f};
        const QByteArray packet = dirtrally::buildPacket(double(now) / 1000.0, motion, drive);
        benchmark::DoNotOptimize(packet.constData());
    }
}
BENCHMARK(BM_MotionTick);

void BM_ForceFeedbackTick(benchmark::State &state)
{
    ForceFeedbackComputation ffb;
    qint64 nowMs = 0;
    uint32_t tick = 0;
    for (auto _ : state) {
        ++tick;
        nowMs += ForceFeedbackComputation::kTickMs;
        const float phase = float(tick % 100) / 50.0f - 1.0f;
        // Motion on most ticks, with gaps long enough to go stale and idle now and then.
        if (tick % 400 < 300)
            ffb.addMotion({phase * 0.3f, -phase, tick % 7 == 0 ? 1.2f : 1.0f}, nowMs);
        const ForceFeedbackTick result = ffb.tick(nowMs, phase, WheelDrive{0.7f});
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(BM_ForceFeedbackTick);

} // namespace
