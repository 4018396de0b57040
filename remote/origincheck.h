#pragma once

#include <QByteArray>

namespace tavrix::origincheck {

// The head of an HTTP request is complete once a blank line ends it; a handshake whose
// head grows past this without one is refused.
constexpr qsizetype kMaxHeadSize = 8192;

enum class Verdict
{
    Incomplete, // wait for more bytes
    Allowed,
    Refused,
};

// Decides on a WebSocket handshake from the bytes received so far. A browser always
// sends Origin; a page from another host must not drive the car, so an Origin whose host
// differs from the Host header's is refused, and so is one that names the hub by anything
// but an address, "localhost" or a ".local" name. Native apps send no Origin and are served.
[[nodiscard]] Verdict judge(const QByteArray &received);

} // namespace tavrix::origincheck
