#include "evdevhotplugmonitor.h"

#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

namespace tavrix {

EvdevHotplugMonitor::EvdevHotplugMonitor(const std::string &devInput)
{
    m_fd = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_fd < 0)
        return;
    if (::inotify_add_watch(m_fd, devInput.c_str(),
                            IN_CREATE | IN_DELETE | IN_ATTRIB | IN_MOVED_FROM | IN_MOVED_TO) < 0) {
        ::close(m_fd);
        m_fd = -1;
    }
}

EvdevHotplugMonitor::~EvdevHotplugMonitor()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool EvdevHotplugMonitor::takeChanges()
{
    if (m_fd < 0)
        return false;
    bool changed = false;
    alignas(inotify_event) char buffer[4096];
    for (;;) {
        const ssize_t length = ::read(m_fd, buffer, sizeof(buffer));
        if (length <= 0)
            return changed;
        for (ssize_t at = 0; at + static_cast<ssize_t>(sizeof(inotify_event)) <= length;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
            if (event->mask & IN_Q_OVERFLOW)
                changed = true; // events were lost: assume the worst
            else if (event->len > 0 && std::strncmp(event->name, "event", 5) == 0)
                changed = true;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
}

} // namespace tavrix
