#pragma once

#include <QtGlobal>

namespace tavrix {

// Makes sure the host firewall lets the mobile app reach the server's port. On Windows
// this adds an inbound rule once (netsh; it may need administrator rights, and its
// failure is only logged); elsewhere the firewall is the user's business and nothing is done.
class FirewallRule
{
public:
    virtual ~FirewallRule() = default;
    virtual void ensureOpen(quint16 port) = 0;

    // The platform's rule keeper.
    static FirewallRule *platform();
};

} // namespace tavrix
