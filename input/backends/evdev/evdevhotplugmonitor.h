#pragma once

// Tells when game controllers may have come or gone: watches the folder of event
// nodes with inotify, so it works with or without a udev daemon, and also notices
// a node whose permissions udev fixes after it appeared. The owner reads the list
// again when told; wrap fd() in a QSocketNotifier (or poll it) to be woken.

#include <string>

namespace tavrix {

class EvdevHotplugMonitor
{
public:
    explicit EvdevHotplugMonitor(const std::string &devInput = "/dev/input");
    ~EvdevHotplugMonitor();
    EvdevHotplugMonitor(const EvdevHotplugMonitor &) = delete;
    EvdevHotplugMonitor &operator=(const EvdevHotplugMonitor &) = delete;

    bool isValid() const { return m_fd >= 0; }
    // Readable when there is news; -1 when the folder cannot be watched.
    int fd() const { return m_fd; }
    // Reads what is pending without blocking; true when an eventN node was
    // created, removed, renamed or changed its permissions since the last call.
    bool takeChanges();

private:
    int m_fd = -1;
};

} // namespace tavrix
