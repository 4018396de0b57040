#pragma once

// Kernel-side fakes for the VM test: a HID device through /dev/uhid (the real HID
// core and hid-generic turn its reports into evdev events) and a force-feedback
// wheel through /dev/uinput whose effect requests a thread answers and records.

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <linux/input.h>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tavrix::vm {

class UhidDevice
{
public:
    struct Identity
    {
        std::string name;
        std::string phys;
        uint16_t vendor = 0;
        uint16_t product = 0;
        uint16_t version = 0;
    };

    UhidDevice() = default;
    ~UhidDevice() { destroy(); }
    UhidDevice(const UhidDevice &) = delete;
    UhidDevice &operator=(const UhidDevice &) = delete;

    bool create(const Identity &identity, const std::vector<uint8_t> &descriptor, std::string *error);
    bool sendInput(const std::vector<uint8_t> &report);
    // Answers the kernel's requests (GET_REPORT/SET_REPORT) so that no probe waits on us.
    void serviceRequests();
    void destroy();

private:
    int m_fd = -1;
};

struct FfRecord
{
    enum Kind
    {
        Upload,
        Erase,
        Play, // EV_FF with an effect id: value 1 play, 0 stop
        Gain,
        Autocenter
    } kind;
    int effectId = -1;
    int value = 0;
    ff_effect effect{};
};

class UinputWheel
{
public:
    ~UinputWheel() { destroy(); }
    bool create(const std::string &name, std::string *error);
    void destroy();

    // Waits up to timeoutMs for a record matching the predicate, from position `from` on.
    bool waitFor(size_t from, const std::function<bool(const FfRecord &)> &match, int timeoutMs,
                 FfRecord *found = nullptr);
    size_t recordCount();
    std::vector<FfRecord> records(size_t from);

private:
    void serve();

    int m_fd = -1;
    bool m_stop = false;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<FfRecord> m_records;
};

// A uinput keyboard, to check that non-controllers stay out of the list.
class UinputKeyboard
{
public:
    ~UinputKeyboard();
    bool create(const std::string &name);

private:
    int m_fd = -1;
};

} // namespace tavrix::vm
