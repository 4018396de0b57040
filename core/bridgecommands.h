#pragma once

#include <QByteArray>

namespace tavrix::bridge {

// The text commands the transmitter's bridge understands, each a single line. Channel
// frames travel on the same stream; these switch what the bridge does with them.
inline const QByteArray kStartCommand = QByteArrayLiteral("START\n");
inline const QByteArray kStopCommand = QByteArrayLiteral("STOP\n");
// Configuration mode: no channel frames, parameter traffic only.
inline const QByteArray kConfigOnCommand = QByteArrayLiteral("CFGMODE ON\n");
inline const QByteArray kConfigOffCommand = QByteArrayLiteral("CFGMODE OFF\n");

} // namespace tavrix::bridge
