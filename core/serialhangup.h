#pragma once

class QSerialPort;

namespace tavrix {

// True when the far end of an open serial line has gone away (hang-up), so that
// further reads can only fail. Qt reports such a line as a read error rather than
// a resource error on some devices (pseudo-terminals, some USB CDC drivers) and
// keeps reporting it for as long as the port stays open.
[[nodiscard]] bool isSerialLineHungUp(const QSerialPort &port);

} // namespace tavrix
