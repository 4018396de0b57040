#pragma once

#include <QLoggingCategory>

// The remote control service's log lines: connects, disconnects, listening, the firewall and mDNS.
Q_DECLARE_LOGGING_CATEGORY(lcRemote)
