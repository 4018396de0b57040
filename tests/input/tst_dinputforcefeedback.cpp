// The DirectInput backend's force-feedback logic against a device that answers from a script
// and records every call: the order in which exclusive access and the constant-force effect
// are tried, what the compatibility check is told, and what reaches the wheel. Plain C++ with
// no Windows or Qt headers, so the same program builds natively and with mingw-w64.

#include "dinputforcefeedback.h"

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

using namespace tavrix::dinput;

namespace {

constexpr Result kInvalidArgument = static_cast<Result>(0x80070057u);
constexpr Result kHeldElsewhere = static_cast<Result>(0x80070005u);
constexpr Result kBadWindow = static_cast<Result>(0x80070006u);

struct Script
{
    std::vector<ActuatorAxis> axes;
    std::map<std::string, Result> failures; // by call as recorded; every other call succeeds
};

class RecordingDevice final : public EffectDevice
{
public:
    explicit RecordingDevice(Script script)
        : m_script(std::move(script))
    {}

    std::vector<std::string> calls;

    void unacquire() override { calls.push_back("unacquire"); }
    Result setCooperation(Cooperation level) override
    {
        m_level = level == Cooperation::ExclusiveBackground   ? "bg"
                  : level == Cooperation::ExclusiveForeground ? "fg"
                                                              : "shared";
        return answer("coop " + m_level);
    }
    Result acquire() override { return answer("acquire " + m_level); }
    Result setAutocenter(bool on) override { return answer(on ? "autocenter on" : "autocenter off"); }
    Result resetForceFeedback() override { return answer("reset"); }
    std::vector<ActuatorAxis> actuatorAxes() override
    {
        calls.push_back("axes");
        return m_script.axes;
    }
    Result createConstantForce(const EffectAxes &axes) override
    {
        std::string objects;
        for (uint32_t object : axes.objects)
            objects += (objects.empty() ? "" : ",") + std::to_string(object);
        return answer(std::string("constant ") + (axes.byId ? "id " : "off ") + objects);
    }
    Result startConstantForce(int32_t magnitude) override
    {
        return answer("start constant " + std::to_string(magnitude));
    }
    void stopConstantForce() override { calls.push_back("stop constant"); }
    Result createSpring(uint32_t axisOffset) override
    {
        return answer("spring off " + std::to_string(axisOffset));
    }
    Result setSpringGain(uint32_t gain) override { return answer("spring gain " + std::to_string(gain)); }
    Result startSpring() override { return answer("start spring"); }
    void stopSpring() override { calls.push_back("stop spring"); }

private:
    Result answer(const std::string &call)
    {
        calls.push_back(call);
        const auto failure = m_script.failures.find(call);
        return failure == m_script.failures.end() ? kOk : failure->second;
    }

    Script m_script;
    std::string m_level;
};

struct Case
{
    const char *name;
    Script script;
    bool openedExclusive;
    // Runs against the device; what it returns is compared with `expected`.
    std::function<std::string(ForceFeedback &, RecordingDevice &)> action;
    std::string expected;
    std::vector<std::string> calls;
    bool exclusiveAfter;
};

std::string probeText(ForceFeedback &ffb)
{
    const tavrix::ForceFeedbackProbe probe = ffb.probe();
    return "axes " + std::to_string(probe.actuatorAxes) + (probe.constantForce ? " effect" : " none") +
           " 0x" + hexResult(static_cast<Result>(probe.errorCode)) + " [" + probe.diagnostic + "]";
}

const std::vector<ActuatorAxis> kOneAxis = {{8, 0x102}};
const std::vector<ActuatorAxis> kTwoAxes = {{8, 0x102}, {12, 0x202}};

const std::vector<std::string> kExclusiveStart = {"unacquire",      "coop bg", "acquire bg",
                                                  "autocenter off", "reset",   "axes"};

std::vector<std::string> concat(std::initializer_list<std::vector<std::string>> parts)
{
    std::vector<std::string> all;
    for (const auto &part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

const std::vector<Case> &cases()
{
    static const std::vector<Case> table = {
        {"another program holds the wheel: both modes refused, shared access kept",
         {kTwoAxes, {{"acquire bg", kHeldElsewhere}, {"coop fg", kBadWindow}}},
         true,
         [](ForceFeedback &ffb, RecordingDevice &) { return probeText(ffb); },
         "axes 2 none 0x80070006 []",
         {"axes", "unacquire", "coop bg", "acquire bg", "unacquire", "coop fg", "unacquire", "coop shared",
          "acquire shared"},
         false},
        {"one actuator axis: the two-axis configurations are never tried",
         {kOneAxis,
          {{"constant off 0", kInvalidArgument},
           {"constant off 8", kInvalidArgument},
           {"constant id 258", kInvalidArgument}}},
         false,
         [](ForceFeedback &ffb, RecordingDevice &) { return probeText(ffb); },
         "axes 1 none 0x80070057 [bg axes=1 ofs=[8,-]  X/offset=0x80070057  enum0/offset=0x80070057  "
         "enum0/id=0x80070057  fg axes=1 ofs=[8,-]  X/offset=0x80070057  enum0/offset=0x80070057  "
         "enum0/id=0x80070057]",
         concat({{"axes"},
                 kExclusiveStart,
                 {"constant off 0", "constant off 8", "constant id 258"},
                 {"unacquire", "coop fg", "acquire fg", "autocenter off", "reset", "axes", "constant off 0",
                  "constant off 8", "constant id 258", "unacquire", "coop shared", "acquire shared"}}),
         false},
        {"X axis by offset refused, the first enumerated axis by id accepted",
         {kTwoAxes, {{"constant off 0", kInvalidArgument}, {"constant off 8", kInvalidArgument}}},
         false,
         [](ForceFeedback &ffb, RecordingDevice &) { return probeText(ffb) + " / " + probeText(ffb); },
         "axes 2 effect 0x00000000 [bg axes=2 ofs=[8,12]  X/offset=0x80070057  enum0/offset=0x80070057  "
         "OK via bg/enum0/id] / axes 2 effect 0x00000000 [bg axes=2 ofs=[8,12]  X/offset=0x80070057  "
         "enum0/offset=0x80070057  OK via bg/enum0/id]",
         concat({{"axes"}, kExclusiveStart, {"constant off 0", "constant off 8", "constant id 258", "axes"}}),
         true},
        {"reacquiring while someone else holds the wheel falls back to shared access",
         {kTwoAxes, {{"acquire bg", kHeldElsewhere}}},
         true,
         [](ForceFeedback &ffb, RecordingDevice &) {
             ffb.reacquireExclusive();
             return std::string();
         },
         "",
         {"unacquire", "coop bg", "acquire bg", "coop shared", "acquire shared"},
         false},
        {"magnitudes truncated and clamped; the spring started once, each effect stopped alone",
         {kTwoAxes, {}},
         false,
         [](ForceFeedback &ffb, RecordingDevice &device) {
             ffb.playConstantForce(0.0);
             device.calls.clear();
             bool played = true;
             for (double level : {0.50009, -0.99999, 1.7, -3.0})
                 played = ffb.playConstantForce(level) && played;
             played = ffb.playSpring(0.25) && ffb.playSpring(1.5) && played;
             ffb.stopConstantForce();
             played = ffb.playSpring(0.0) && played;
             ffb.stopSpring();
             return std::string(played ? "played" : "refused");
         },
         "played",
         {"start constant 5000", "start constant -9999", "start constant 10000", "start constant -10000",
          "autocenter off", "axes", "spring off 8", "spring gain 2500", "start spring", "spring gain 10000",
          "stop constant", "spring gain 0", "stop spring"},
         true},
    };
    return table;
}

std::string lines(const std::vector<std::string> &calls)
{
    std::string text;
    for (const std::string &call : calls)
        text += "\n    " + call;
    return text;
}

} // namespace

int main()
{
    int failures = 0;
    for (const Case &c : cases()) {
        RecordingDevice device(c.script);
        ForceFeedback ffb(device, c.openedExclusive);
        const std::string result = c.action(ffb, device);
        const bool ok =
            result == c.expected && device.calls == c.calls && ffb.isExclusive() == c.exclusiveAfter;
        std::printf("%s: %s\n", ok ? "PASS" : "FAIL", c.name);
        if (!ok) {
            ++failures;
            std::printf(
                "  got      %s (exclusive %d)\n  expected %s (exclusive %d)\n  calls:%s\n  expected:%s\n",
                result.c_str(), ffb.isExclusive(), c.expected.c_str(), c.exclusiveAfter,
                lines(device.calls).c_str(), lines(c.calls).c_str());
        }
    }
    std::printf("%d of %zu failed\n", failures, cases().size());
    return failures == 0 ? 0 : 1;
}
