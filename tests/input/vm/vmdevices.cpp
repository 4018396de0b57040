#include "vmdevices.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <linux/uhid.h>
#include <linux/uinput.h>
#include <memory>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tavrix::vm {

namespace {

bool writeAll(int fd, const void *data, size_t size)
{
    return ::write(fd, data, size) == static_cast<ssize_t>(size);
}

void copyName(void *target, size_t capacity, const std::string &text)
{
    std::memset(target, 0, capacity);
    std::memcpy(target, text.data(), std::min(text.size(), capacity - 1));
}

// A uinput device of ours (vendor 0x1234): `declare` announces its events before it is
// created. The descriptor, or -1 with errno set.
int createUinput(const std::string &name, uint16_t product, uint32_t ffEffects,
                 const std::function<bool(int)> &declare)
{
    const int fd = ::open("/dev/uinput", O_RDWR | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return -1;
    uinput_setup setup{};
    setup.id = {BUS_USB, 0x1234, product, 1};
    copyName(setup.name, sizeof(setup.name), name);
    setup.ff_effects_max = ffEffects;
    if (declare(fd) && ::ioctl(fd, UI_DEV_SETUP, &setup) == 0 && ::ioctl(fd, UI_DEV_CREATE) == 0)
        return fd;
    const int failure = errno;
    ::close(fd);
    errno = failure;
    return -1;
}

} // namespace

bool UhidDevice::create(const Identity &identity, const std::vector<uint8_t> &descriptor, std::string *error)
{
    m_fd = ::open("/dev/uhid", O_RDWR | O_CLOEXEC | O_NONBLOCK);
    if (m_fd < 0) {
        *error = std::string("/dev/uhid: ") + std::strerror(errno);
        return false;
    }
    auto event = std::make_unique<uhid_event>();
    std::memset(event.get(), 0, sizeof(uhid_event));
    event->type = UHID_CREATE2;
    uhid_create2_req &req = event->u.create2;
    copyName(req.name, sizeof(req.name), identity.name);
    copyName(req.phys, sizeof(req.phys), identity.phys);
    req.rd_size = static_cast<uint16_t>(descriptor.size());
    req.bus = BUS_USB;
    req.vendor = identity.vendor;
    req.product = identity.product;
    req.version = identity.version;
    std::memcpy(req.rd_data, descriptor.data(), descriptor.size());
    if (!writeAll(m_fd, event.get(), sizeof(uhid_event))) {
        *error = std::string("UHID_CREATE2: ") + std::strerror(errno);
        return false;
    }
    return true;
}

bool UhidDevice::sendInput(const std::vector<uint8_t> &report)
{
    if (m_fd < 0 || report.size() > UHID_DATA_MAX)
        return false;
    auto event = std::make_unique<uhid_event>();
    std::memset(event.get(), 0, sizeof(uhid_event));
    event->type = UHID_INPUT2;
    event->u.input2.size = static_cast<uint16_t>(report.size());
    std::memcpy(event->u.input2.data, report.data(), report.size());
    // The HID core turns the report into evdev events before this write returns.
    return writeAll(m_fd, event.get(), sizeof(uhid_event));
}

void UhidDevice::serviceRequests()
{
    if (m_fd < 0)
        return;
    auto event = std::make_unique<uhid_event>();
    while (::read(m_fd, event.get(), sizeof(uhid_event)) > 0) {
        const bool get = event->type == UHID_GET_REPORT;
        if (!get && event->type != UHID_SET_REPORT)
            continue;
        const uint32_t id = get ? event->u.get_report.id : event->u.set_report.id;
        std::memset(event.get(), 0, sizeof(uhid_event));
        event->type = get ? UHID_GET_REPORT_REPLY : UHID_SET_REPORT_REPLY;
        // Both replies start with the request's id and an error.
        event->u.set_report_reply.id = id;
        event->u.set_report_reply.err = EIO;
        writeAll(m_fd, event.get(), sizeof(uhid_event));
    }
}

void UhidDevice::destroy()
{
    if (m_fd < 0)
        return;
    uhid_event event{};
    event.type = UHID_DESTROY;
    writeAll(m_fd, &event, sizeof(event));
    ::close(m_fd);
    m_fd = -1;
}

bool UinputWheel::create(const std::string &name, std::string *error)
{
    m_fd = createUinput(name, 0x5678, 16, [](int fd) {
        bool ok = ::ioctl(fd, UI_SET_EVBIT, EV_KEY) == 0 && ::ioctl(fd, UI_SET_EVBIT, EV_ABS) == 0 &&
                  ::ioctl(fd, UI_SET_EVBIT, EV_FF) == 0;
        for (int key = BTN_TRIGGER; key < BTN_TRIGGER + 8; ++key)
            ok = ok && ::ioctl(fd, UI_SET_KEYBIT, key) == 0;
        for (int effect : {FF_CONSTANT, FF_SPRING, FF_GAIN, FF_AUTOCENTER})
            ok = ok && ::ioctl(fd, UI_SET_FFBIT, effect) == 0;
        for (int axis : {ABS_X, ABS_Y, ABS_Z}) {
            uinput_abs_setup setup{};
            setup.code = static_cast<uint16_t>(axis);
            setup.absinfo.minimum = axis == ABS_X ? -32768 : 0;
            setup.absinfo.maximum = axis == ABS_X ? 32767 : 255;
            ok = ok && ::ioctl(fd, UI_SET_ABSBIT, axis) == 0 && ::ioctl(fd, UI_ABS_SETUP, &setup) == 0;
        }
        return ok;
    });
    if (m_fd < 0) {
        *error = std::string("uinput wheel: ") + std::strerror(errno);
        return false;
    }
    m_thread = std::thread([this] { serve(); });
    return true;
}

void UinputWheel::serve()
{
    for (;;) {
        {
            std::lock_guard lock(m_mutex);
            if (m_stop)
                return;
        }
        pollfd pfd{m_fd, POLLIN, 0};
        if (::poll(&pfd, 1, 50) <= 0)
            continue;
        input_event event{};
        while (::read(m_fd, &event, sizeof(event)) == static_cast<ssize_t>(sizeof(event))) {
            FfRecord record{};
            if (event.type == EV_UINPUT && event.code == UI_FF_UPLOAD) {
                uinput_ff_upload upload{};
                upload.request_id = static_cast<uint32_t>(event.value);
                if (::ioctl(m_fd, UI_BEGIN_FF_UPLOAD, &upload) != 0)
                    continue;
                record.kind = FfRecord::Upload;
                record.effect = upload.effect;
                record.effectId = upload.effect.id;
                upload.retval = 0;
                ::ioctl(m_fd, UI_END_FF_UPLOAD, &upload);
            } else if (event.type == EV_UINPUT && event.code == UI_FF_ERASE) {
                uinput_ff_erase erase{};
                erase.request_id = static_cast<uint32_t>(event.value);
                if (::ioctl(m_fd, UI_BEGIN_FF_ERASE, &erase) != 0)
                    continue;
                record.kind = FfRecord::Erase;
                record.effectId = static_cast<int>(erase.effect_id);
                erase.retval = 0;
                ::ioctl(m_fd, UI_END_FF_ERASE, &erase);
            } else if (event.type == EV_FF) {
                record.kind = event.code == FF_GAIN         ? FfRecord::Gain
                              : event.code == FF_AUTOCENTER ? FfRecord::Autocenter
                                                            : FfRecord::Play;
                record.effectId = event.code;
                record.value = event.value;
            } else {
                continue;
            }
            std::lock_guard lock(m_mutex);
            m_records.push_back(record);
            m_changed.notify_all();
        }
    }
}

bool UinputWheel::waitFor(size_t from, const std::function<bool(const FfRecord &)> &match, int timeoutMs,
                          FfRecord *found)
{
    std::unique_lock lock(m_mutex);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
        for (size_t i = from; i < m_records.size(); ++i) {
            if (match(m_records[i])) {
                if (found)
                    *found = m_records[i];
                return true;
            }
        }
        if (m_changed.wait_until(lock, deadline) == std::cv_status::timeout)
            return false;
    }
}

size_t UinputWheel::recordCount()
{
    std::lock_guard lock(m_mutex);
    return m_records.size();
}

std::vector<FfRecord> UinputWheel::records(size_t from)
{
    std::lock_guard lock(m_mutex);
    return {m_records.begin() + static_cast<std::ptrdiff_t>(std::min(from, m_records.size())),
            m_records.end()};
}

void UinputWheel::destroy()
{
    if (m_fd < 0)
        return;
    ::ioctl(m_fd, UI_DEV_DESTROY);
    {
        std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    if (m_thread.joinable())
        m_thread.join();
    ::close(m_fd);
    m_fd = -1;
}

UinputKeyboard::~UinputKeyboard()
{
    if (m_fd >= 0) {
        ::ioctl(m_fd, UI_DEV_DESTROY);
        ::close(m_fd);
    }
}

bool UinputKeyboard::create(const std::string &name)
{
    m_fd = createUinput(name, 0x0001, 0, [](int fd) {
        bool ok = ::ioctl(fd, UI_SET_EVBIT, EV_KEY) == 0;
        for (int key = KEY_ESC; key <= KEY_SPACE; ++key)
            ok = ok && ::ioctl(fd, UI_SET_KEYBIT, key) == 0;
        return ok;
    });
    return m_fd >= 0;
}

} // namespace tavrix::vm
