// Runs inside the kernel VM as the only program: checks the evdev backend against
// the real HID core, evdev, uhid and uinput of Debian's stock kernel, then reports
// the verdict through qemu's isa-debug-exit port (0 = all passed).
//
// For every real descriptor: the device is listed as a game controller without a
// udev daemon, the kernel lays it out as its stored layout says, every
// axis DirectInput would show lands on the same slot scaled to 0..65535, every
// button and the hat read back, and removal is reported as loss. Then: a node
// nobody but root may read is reported with the udev advice, a keyboard stays out
// of the list, and a force-feedback wheel sees our effects upload, play, stop (each
// alone), erase, gain and autocentre while we hold it exclusively; another program's
// grab is named as the problem and taken over once it lets go.

#include "devicelayouts.h"
#include "evdevbackend.h"
#include "evdevdevice.h"
#include "evdevhotplugmonitor.h"
#include "evdevmapping.h"
#include "forcefeedbackcomputation.h"
#include "hiddescriptor.h"
#include "vmdevices.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/io.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

using namespace tavrix;

namespace {

// How long to wait for something the kernel does on its own time (probing a device,
// creating a node, answering a force-feedback request). Only a failure waits this long:
// every wait ends as soon as its condition holds, and software emulation on a busy
// machine can be many times slower than an idle one.
constexpr std::chrono::seconds kPatience{60};

int g_passed = 0;
int g_failed = 0;
std::string g_context;

void check(bool ok, const std::string &what)
{
    if (ok) {
        ++g_passed;
        return;
    }
    ++g_failed;
    std::printf("vmtest: FAIL [%s] %s\n", g_context.c_str(), what.c_str());
    std::fflush(stdout);
}

[[noreturn]] void exitVm(int status)
{
    std::printf("vmtest: %d passed, %d failed\n", g_passed, g_failed);
    std::fflush(stdout);
    // The verdict ends qemu at once: let the serial line send what is still queued first.
    ::tcdrain(STDOUT_FILENO);
    if (::ioperm(0xf4, 4, 1) == 0)
        ::outb(static_cast<unsigned char>(status), 0xf4);
    std::printf("vmtest: could not reach the exit port: %s\n", std::strerror(errno));
    ::_exit(2);
}

std::string readFile(const std::string &path)
{
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// Polls until the condition holds, or gives up when patience runs out.
bool waitUntil(const std::function<bool()> &condition)
{
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

// Position of the named device in a fresh enumeration, waiting for the kernel to
// finish probing (hid-generic binds asynchronously).
int waitForDevice(EvdevBackend &backend, const std::string &name, vm::UhidDevice *uhid, Enumeration *found)
{
    int index = -1;
    waitUntil([&] {
        if (uhid)
            uhid->serviceRequests();
        *found = backend.enumerate();
        const auto it = std::find_if(found->devices.begin(), found->devices.end(),
                                     [&](const DeviceListEntry &e) { return e.instanceName == name; });
        index = it == found->devices.end() ? -1 : static_cast<int>(it - found->devices.begin());
        return index >= 0;
    });
    return index;
}

std::string slotList(const std::array<int, AxisSlotCount> &codes)
{
    std::string text;
    for (int code : codes)
        text += std::to_string(code) + ' ';
    return text;
}

// Feeds reports into one uhid device and reads the backend's view of it.
struct Rig
{
    const hid::Descriptor &descriptor;
    vm::UhidDevice &uhid;
    BackendDevice &device;

    // Every input report at rest (a report shared by several fields is sent more than once).
    void rest()
    {
        for (const hid::Field &field : descriptor.fields) {
            if (field.type == hid::ReportType::Input)
                uhid.sendInput(hid::restingInputReport(descriptor, field.reportId));
        }
    }
    RawInputState send(const hid::ElementRef &ref, int64_t value)
    {
        const hid::Field &field = descriptor.fields[static_cast<size_t>(ref.field)];
        std::vector<uint8_t> report = hid::restingInputReport(descriptor, field.reportId);
        hid::setFieldValue(report, descriptor, field, ref.element, value);
        uhid.sendInput(report);
        RawInputState state;
        device.poll(state);
        return state;
    }
    // The event node appears while hid-generic is still probing, and until the probe
    // ends the HID core drops reports without telling uhid. Only a report that gets
    // through shows the device is ready, so press an element until the backend sees it.
    bool waitUntilReportsArrive(const hid::ElementRef &ref, int64_t value)
    {
        RawInputState before;
        device.poll(before);
        const bool arrived = waitUntil([&] {
            const RawInputState after = send(ref, value);
            return after.axes != before.axes || after.buttons != before.buttons || after.povs != before.povs;
        });
        rest();
        return arrived && device.poll(before) == PollResult::Ok;
    }
};

void testDescriptor(const std::string &path, int number)
{
    const std::string file = path.substr(path.find_last_of('/') + 1);
    g_context = file;
    std::string error;
    hid::StoredDevice stored;
    const bool read = hid::loadStoredDevice(path, stored, &error);
    check(read, "descriptor and layouts read: " + error);
    if (!read)
        return;
    const hid::Descriptor &descriptor = stored.descriptor;
    const hid::DeviceLayouts &layouts = stored.layouts;
    const evdev::DeviceLayout expected =
        evdev::layoutDevice(layouts.kernelCapabilities<evdev::DeviceCapabilities>());

    const vm::UhidDevice::Identity identity{"vm " + file.substr(0, std::min<size_t>(100, file.size() - 4)),
                                            "vmtest/uhid" + std::to_string(number), stored.vendor,
                                            stored.product, 0x0111};

    vm::UhidDevice uhid;
    check(uhid.create(identity, stored.bytes, &error), "uhid device created: " + error);
    EvdevBackend backend;
    Enumeration found;
    const int index = waitForDevice(backend, identity.name, &uhid, &found);
    check(index >= 0, "listed as a game controller without udev");
    if (index < 0)
        return;
    const DeviceListEntry &entry = found.devices[static_cast<size_t>(index)];
    check(entry.buttonCount == expected.buttonCodes.size(),
          "button count " + std::to_string(entry.buttonCount) + " as modelled " +
              std::to_string(expected.buttonCodes.size()));
    check(entry.axisCount == expected.axisCount, "axis count as modelled");
    check(!entry.hasForceFeedback, "no force feedback");
    const evdev::DeviceIdentity kernelIdentity{
        BUS_USB, identity.vendor, identity.product, identity.version, {}, identity.phys, {}};
    check(entry.instanceGuid == evdev::instanceGuid(kernelIdentity),
          "instance GUID from ids and physical path");
    check(entry.productGuid == evdev::productGuid(identity.vendor, identity.product), "product GUID");

    std::unique_ptr<BackendDevice> device = backend.open(index, &error);
    check(device != nullptr, "opens: " + error);
    if (!device)
        return;
    const auto *evdevDevice = dynamic_cast<const evdev::EvdevDevice *>(device.get());
    check(
        evdevDevice && evdevDevice->layout().slotCode == expected.slotCode,
        "kernel lays axes out as modelled: " + (evdevDevice ? slotList(evdevDevice->layout().slotCode) : "") +
            "vs " + slotList(expected.slotCode));
    check(evdevDevice && evdevDevice->layout().buttonCodes == expected.buttonCodes,
          "button codes as modelled");
    check(evdevDevice && evdevDevice->layout().povHat == expected.povHat, "hats as modelled");
    check(!device->isExclusive(), "a controller without force feedback is not grabbed");
    check(!device->playConstantForce(0.5) && !device->lastEffectError().empty(),
          "no constant force on a device without force feedback, with a reason");
    const ForceFeedbackProbe noForce = device->probeForceFeedback();
    check(noForce.actuatorAxes == 0 && !noForce.constantForce && noForce.errorCode != 0,
          "the check finds neither an actuator nor an effect");

    Rig rig{descriptor, uhid, *device};
    // Any element shows reports arriving: the first button, else the first axis at its maximum.
    hid::ElementRef probe =
        layouts.directInputButtons.empty() ? hid::ElementRef{} : layouts.directInputButtons.front();
    int64_t probeValue = 1;
    for (const hid::ElementRef &ref : layouts.directInputAxes) {
        if (!probe.valid() && ref.valid()) {
            probe = ref;
            probeValue = descriptor.fields[static_cast<size_t>(ref.field)].logicalMaximum;
        }
    }
    check(!probe.valid() || rig.waitUntilReportsArrive(probe, probeValue),
          "reports reach the backend once the kernel has probed the device");
    rig.rest();
    RawInputState resting;
    check(device->poll(resting) == PollResult::Ok, "polls");

    for (int slot = 0; slot < AxisSlotCount; ++slot) {
        const hid::ElementRef ref = layouts.directInputAxes[static_cast<size_t>(slot)];
        if (!ref.valid()) {
            check(resting.axes[static_cast<size_t>(slot)] == kRawAxisCentre,
                  "slot without an axis reads centred");
            continue;
        }
        const hid::Field &field = descriptor.fields[static_cast<size_t>(ref.field)];
        const std::string name = "slot " + std::to_string(slot);
        check(resting.axes[static_cast<size_t>(slot)] == 0, name + " at logical minimum reads 0");
        RawInputState state = rig.send(ref, field.logicalMaximum);
        check(state.axes[static_cast<size_t>(slot)] == kRawAxisMax,
              name + " at logical maximum reads 65535, got " +
                  std::to_string(state.axes[static_cast<size_t>(slot)]));
        for (int other = 0; other < AxisSlotCount; ++other) {
            if (other != slot)
                check(state.axes[static_cast<size_t>(other)] == resting.axes[static_cast<size_t>(other)],
                      name + " moves no other slot (" + std::to_string(other) + ")");
        }
        const int32_t middle =
            static_cast<int32_t>((int64_t(field.logicalMinimum) + field.logicalMaximum) / 2);
        // DirectInput stretches the logical range over 0..65535 (DIPROP_RANGE).
        state = rig.send(ref, middle);
        const double windows = double(middle - field.logicalMinimum) * kRawAxisMax /
                               (double(field.logicalMaximum) - field.logicalMinimum);
        check(std::abs(state.axes[static_cast<size_t>(slot)] - windows) <= 1.0,
              name + " middle value scaled as DirectInput does");
        rig.rest();
    }

    const size_t buttons = std::min<size_t>(layouts.directInputButtons.size(), 80);
    for (size_t i = 0; i < buttons; ++i) {
        const RawInputState state = rig.send(layouts.directInputButtons[i], 1);
        const auto pressed =
            std::count_if(state.buttons.begin(), state.buttons.end(), [](uint8_t b) { return b; });
        check(state.buttons[i] == 0x80 && pressed == 1,
              "button " + std::to_string(i) + " alone reads pressed");
    }
    rig.rest();

    if (!layouts.directInputPovs.empty()) {
        const hid::Field &hat = descriptor.fields[static_cast<size_t>(layouts.directInputPovs.front().field)];
        for (int64_t value = hat.logicalMinimum; value <= hat.logicalMaximum + 1; ++value) {
            const RawInputState state = rig.send(layouts.directInputPovs.front(), value);
            check(state.povs[0] == hid::directInputPov(value, hat.logicalMinimum, hat.logicalMaximum),
                  "hat value " + std::to_string(value) + " reads the POV DirectInput gives, got " +
                      std::to_string(state.povs[0]));
        }
    }

    uhid.destroy();
    RawInputState state;
    check(device->poll(state) == PollResult::Lost, "removal is reported as loss");
    check(device->poll(state) == PollResult::Lost, "and stays lost");
}

void testPermissionProblem(const std::string &descriptorPath)
{
    g_context = "permission";
    std::string error;
    hid::StoredDevice stored;
    vm::UhidDevice uhid;
    const vm::UhidDevice::Identity identity{"vm permission wheel", "vmtest/permission", 0x046d, 0xc29b, 1};
    check(hid::loadStoredDevice(descriptorPath, stored, &error) &&
              uhid.create(identity, stored.bytes, &error),
          "uhid device created: " + error);
    EvdevBackend backend;
    Enumeration found;
    const int index = waitForDevice(backend, identity.name, &uhid, &found);
    check(index >= 0, "listed for root");
    // devtmpfs makes the node 0600 root: an ordinary user may see it in sysfs, not read it.
    const pid_t child = ::fork();
    if (child == 0) {
        if (::setgid(65534) != 0 || ::setuid(65534) != 0)
            ::_exit(3);
        const Enumeration seen = EvdevBackend().enumerate();
        const bool listed =
            std::any_of(seen.devices.begin(), seen.devices.end(),
                        [&](const DeviceListEntry &e) { return e.instanceName == identity.name; });
        const bool explained =
            std::any_of(seen.problems.begin(), seen.problems.end(), [&](const DeviceProblem &p) {
                return p.message.find("No permission to read " + p.path + " (" + identity.name + ")") == 0 &&
                       p.message.find("60-orvanehub.rules") != std::string::npos;
            });
        ::_exit(listed ? 1 : explained ? 0 : 2);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    check(WIFEXITED(status) && WEXITSTATUS(status) == 0,
          "an unreadable node is reported with the udev advice and not listed (child status " +
              std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + ")");
}

void testKeyboardIsNotListed()
{
    g_context = "classification";
    EvdevHotplugMonitor monitor;
    check(monitor.isValid() && !monitor.takeChanges(), "watching /dev/input");
    vm::UinputKeyboard keyboard;
    check(keyboard.create("vm keyboard"), "uinput keyboard created");
    // Wait until the keyboard has its event node, then make sure it is not listed.
    check(waitUntil([] {
              for (int n = 0; n < 256; ++n) {
                  if (readFile("/sys/class/input/event" + std::to_string(n) + "/device/name") ==
                      "vm keyboard\n")
                      return true;
              }
              return false;
          }),
          "the keyboard has an event node");
    check(waitUntil([&] { return monitor.takeChanges(); }),
          "the hot-plug watch noticed the new node without udev");
    const Enumeration found = EvdevBackend().enumerate();
    check(std::none_of(found.devices.begin(), found.devices.end(),
                       [](const DeviceListEntry &e) { return e.instanceName == "vm keyboard"; }),
          "a keyboard is not a game controller");
}

void testForceFeedback()
{
    g_context = "force feedback";
    std::string error;
    vm::UinputWheel wheel;
    check(wheel.create("vm ffb wheel", &error), "uinput wheel created: " + error);
    EvdevBackend backend;
    Enumeration found;
    const int index = waitForDevice(backend, "vm ffb wheel", nullptr, &found);
    check(index >= 0, "listed");
    if (index < 0)
        return;
    check(found.devices[static_cast<size_t>(index)].hasForceFeedback, "listed with force feedback");
    std::unique_ptr<BackendDevice> device = backend.open(index, &error);
    check(device != nullptr, "opens: " + error);
    if (!device)
        return;
    check(device->isExclusive(), "a force-feedback wheel is taken exclusively");
    const auto *wheelNode = dynamic_cast<const evdev::EvdevDevice *>(device.get());
    const std::string path = wheelNode ? wheelNode->devicePath() : std::string();
    const int other = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    check(other >= 0 && ::ioctl(other, EVIOCGRAB, 1) == -1 && errno == EBUSY, "a second grab gets EBUSY");
    ::close(other);
    // The pedals role on the same wheel base: our own grab, so it is read shared, untroubled.
    const std::unique_ptr<BackendDevice> second = backend.open(index, &error);
    check(second && !second->isExclusive() && second->sharingProblem().empty(),
          "second role opens: " + error);

    size_t mark = wheel.recordCount();
    const int kWait = static_cast<int>(std::chrono::milliseconds(kPatience).count());
    // Wait for the wheel to record a request from `mark` on; an id of -1 matches any effect.
    auto recorded = [&](vm::FfRecord::Kind kind, int id, int value) {
        return wheel.waitFor(
            mark,
            [=](const vm::FfRecord &r) {
                return r.kind == kind && (id < 0 || r.effectId == id) && r.value == value;
            },
            kWait);
    };
    auto uploaded = [&](int type, int16_t level, vm::FfRecord *found) {
        return wheel.waitFor(
            mark,
            [type, level](const vm::FfRecord &r) {
                return r.kind == vm::FfRecord::Upload && r.effect.type == type &&
                       (type == FF_CONSTANT ? r.effect.u.constant.level
                                            : r.effect.u.condition[0].right_coeff) == level;
            },
            kWait, found);
    };
    const ForceFeedbackProbe probe = device->probeForceFeedback();
    check(probe.actuatorAxes == 1 && probe.constantForce, "the check finds the steering actuator");
    vm::FfRecord upload;
    check(uploaded(FF_CONSTANT, 0, &upload), "the check uploads the constant force at rest");
    check(device->playConstantForce(0.5), "constant force plays: " + device->lastEffectError());
    check(uploaded(FF_CONSTANT, 16383, &upload), "constant force uploaded at 0.5");
    check(upload.effect.direction == 0x4000 && upload.effect.replay.length == 0,
          "along the wheel, until stopped");
    const int constantId = upload.effectId;
    check(recorded(vm::FfRecord::Play, constantId, 1), "constant force started");

    mark = wheel.recordCount();
    check(device->playConstantForce(-0.25), "constant force updated");
    check(uploaded(FF_CONSTANT, -8191, &upload) && upload.effectId == constantId,
          "the same effect updated to -0.25");

    mark = wheel.recordCount();
    check(device->playSpring(0.8), "spring plays: " + device->lastEffectError());
    check(uploaded(FF_SPRING, 26213, &upload), "spring uploaded at 0.8");
    const int springId = upload.effectId;
    check(springId != constantId, "spring is its own effect");
    check(recorded(vm::FfRecord::Play, springId, 1), "spring started");

    // Each stop reaches its own effect only. The wheel records in write order, so the
    // gain written last shows that everything before it has arrived.
    mark = wheel.recordCount();
    device->stopConstantForce();
    check(device->setAutocenter(0.0), "autocentre off");
    check(device->playConstantForce(0.3), "constant force plays again");
    device->stopSpring();
    check(device->setGain(0.5) && recorded(vm::FfRecord::Gain, -1, 32767), "gain reaches the wheel");
    std::string sequence;
    for (const vm::FfRecord &r : wheel.records(mark)) {
        const char *effect = r.effectId == constantId ? "constant" : r.effectId == springId ? "spring" : "?";
        if (r.kind == vm::FfRecord::Play)
            sequence += std::string(r.value ? "play " : "stop ") + effect + "; ";
        else if (r.kind != vm::FfRecord::Upload)
            sequence +=
                (r.kind == vm::FfRecord::Gain ? "gain " : "autocentre ") + std::to_string(r.value) + "; ";
    }
    check(sequence == "stop constant; autocentre 0; play constant; stop spring; gain 32767; ",
          "each effect stops alone, autocentre and gain reach the wheel: " + sequence);

    check(device->playSpring(0.8), "spring plays again");
    mark = wheel.recordCount();
    device->stopEffects();
    for (int id : {constantId, springId})
        check(recorded(vm::FfRecord::Play, id, 0), "effect " + std::to_string(id) + " stopped");

    mark = wheel.recordCount();
    device.reset();
    for (int id : {constantId, springId})
        check(recorded(vm::FfRecord::Erase, id, 0), "effect " + std::to_string(id) + " erased on close");
    // Another program takes the wheel, which closing must have let go: we open it shared
    // and take it over once the other program lets go.
    const int holder = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    check(holder >= 0 && ::ioctl(holder, EVIOCGRAB, 1) == 0, "closing released the grab");
    found = backend.enumerate();
    const int reopened = waitForDevice(backend, "vm ffb wheel", nullptr, &found);
    device = backend.open(reopened, &error);
    check(device != nullptr && !device->isExclusive(), "opened shared while another program holds it");
    check(device && device->sharingProblem().find("exclusively") != std::string::npos,
          "and says who holds it");
    if (device)
        device->reacquireExclusive();
    check(device && !device->isExclusive(), "taking it back is refused while the other holds on");
    if (holder >= 0)
        ::close(holder);
    if (device)
        device->reacquireExclusive();
    check(device && device->isExclusive() && device->sharingProblem().empty(), "taken back once it let go");
    wheel.destroy();
    RawInputState state;
    check(device && device->poll(state) == PollResult::Lost, "a vanished wheel is lost");
    check(device && !device->playConstantForce(0.1), "no effects on a lost wheel");
}

} // namespace

// The car's motion felt on a kernel force-feedback wheel the way the hub drives it: force
// feedback on (force at rest, the wheel's own centering off, the spring on), the hub's force
// computation fed a car in a right-hand then a left-hand bend with every force it asks for
// sent, then off again with nothing left playing.
void testCarMotionOnTheWheel()
{
    g_context = "car motion on the wheel";
    std::string error;
    vm::UinputWheel wheel;
    check(wheel.create("vm motion wheel", &error), "uinput wheel created: " + error);
    EvdevBackend backend;
    Enumeration found;
    const int index = waitForDevice(backend, "vm motion wheel", nullptr, &found);
    std::unique_ptr<BackendDevice> device = index >= 0 ? backend.open(index, &error) : nullptr;
    check(device != nullptr, "opens: " + error);
    if (!device)
        return;
    const int kWait = static_cast<int>(std::chrono::milliseconds(kPatience).count());
    const size_t start = wheel.recordCount();
    check(device->playConstantForce(0.0) && device->setAutocenter(0.0) && device->playSpring(0.3),
          "force feedback switched on");

    ForceFeedbackComputation computation;
    std::int64_t nowMs = 0;
    std::vector<float> lastSent;
    for (const float lateralG : {0.5f, -0.5f}) {
        float sent = 0.0f;
        for (int tick = 0; tick < 50; ++tick) { // a second of the car's 50 Hz motion records
            nowMs += ForceFeedbackComputation::kTickMs;
            computation.addMotion({0.0f, lateralG, 0.0f}, nowMs);
            const ForceFeedbackTick result = computation.tick(nowMs, 0.0f, WheelDrive{1.0f});
            if (result.wheelForce && device->playConstantForce(*result.wheelForce))
                sent = *result.wheelForce;
        }
        lastSent.push_back(sent);
    }
    check(lastSent[0] < -0.3f && lastSent[1] > 0.3f,
          "the wheel is pushed against the lateral G: " + std::to_string(lastSent[0]) + ", " +
              std::to_string(lastSent[1]));
    const auto expected = static_cast<int16_t>(lastSent[1] * 0x7fff);
    vm::FfRecord last;
    check(wheel.waitFor(
              start,
              [expected](const vm::FfRecord &r) {
                  return r.kind == vm::FfRecord::Upload && r.effect.type == FF_CONSTANT &&
                         r.effect.u.constant.level == expected;
              },
              kWait, &last),
          "the wheel holds the last force asked for");
    int springId = -1;
    bool springStopped = false;
    for (const vm::FfRecord &r : wheel.records(start)) {
        if (r.kind == vm::FfRecord::Upload && r.effect.type == FF_SPRING)
            springId = r.effectId;
        springStopped = springStopped || (r.kind == vm::FfRecord::Play && r.effectId == springId && !r.value);
    }
    check(springId >= 0 && !springStopped, "the spring plays throughout");

    const size_t off = wheel.recordCount();
    device->stopConstantForce();
    device->stopSpring();
    device->setAutocenter(1.0);
    for (int id : {last.effectId, springId}) {
        check(wheel.waitFor(
                  off,
                  [id](const vm::FfRecord &r) {
                      return r.kind == vm::FfRecord::Play && r.effectId == id && !r.value;
                  },
                  kWait),
              "effect " + std::to_string(id) + " stopped when switched off");
    }
    check(wheel.waitFor(
              off,
              [](const vm::FfRecord &r) { return r.kind == vm::FfRecord::Autocenter && r.value == 0xffff; },
              kWait),
          "the wheel's own centering is back");
    device.reset();
    wheel.destroy();
}

int main(int argc, char **argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const std::string folder = argc > 1 ? argv[1] : "/devices";
    std::vector<std::string> files;
    if (DIR *dir = ::opendir(folder.c_str())) {
        while (const dirent *entry = ::readdir(dir)) {
            const std::string name = entry->d_name;
            if (name.size() > 4 && name.substr(name.size() - 4) == ".hex")
                files.push_back(folder + '/' + name);
        }
        ::closedir(dir);
    }
    std::sort(files.begin(), files.end());
    g_context = "setup";
    check(!files.empty(), "device descriptors present in " + folder);

    const auto started = std::chrono::steady_clock::now();
    auto run = [](const std::function<void()> &test) {
        const int before = g_failed;
        test();
        std::printf("vmtest: %s %s\n", g_failed == before ? "ok  " : "FAIL", g_context.c_str());
    };
    for (size_t i = 0; i < files.size(); ++i)
        run([&] { testDescriptor(files[i], static_cast<int>(i)); });
    if (!files.empty())
        run([&] { testPermissionProblem(files.front()); });
    run(testKeyboardIsNotListed);
    run(testForceFeedback);
    run(testCarMotionOnTheWheel);
    const auto seconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - started)
            .count() /
        1000.0;
    std::printf("vmtest: %zu descriptors checked in %.1f s\n", files.size(), seconds);
    exitVm(g_failed == 0 ? 0 : 1);
}
