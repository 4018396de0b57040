#include "serialhangup.h"

#include <QSerialPort>

#ifdef Q_OS_UNIX
#include <poll.h>
#endif

namespace tavrix {

bool isSerialLineHungUp(const QSerialPort &port)
{
#ifdef Q_OS_UNIX
    if (!port.isOpen() || port.handle() < 0)
        return false;
    pollfd fd{};
    fd.fd = port.handle();
    fd.events = POLLIN;
    // Zero timeout: only asks the kernel for the line's current state.
    if (::poll(&fd, 1, 0) <= 0)
        return false;
    return (fd.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
#else
    // Windows drivers report an unplug as a resource error, handled by the caller.
    Q_UNUSED(port);
    return false;
#endif
}

} // namespace tavrix
