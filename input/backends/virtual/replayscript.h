#pragma once

#include "inputbackend.h"
#include "virtualbackend.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <vector>

namespace tavrix {

// One state line of a replay: from timeMs on, device `device` (declaration index) reads `state`.
struct ReplayEvent
{
    qint64 timeMs = 0;
    int device = 0;
    RawInputState state; // complete: axes a line leaves out keep the device's previous values
    int line = 0;
};

// A replay file: JSON lines that declare virtual game controllers and then move them over time.
//   {"device": {"name": "Wheel", "product": "MOZA R9 Base", "axes": 6, "buttons": 32, "povs": 1, "ffb":
//   true}}
//   {"t": 250, "device": "Wheel", "axes": {"lX": 40000}, "buttons": [0], "povs": [9000]}
// Blank lines and lines starting with '#' or '//' are ignored. Times may not go backwards.
class ReplayScript
{
public:
    static constexpr qsizetype kMaxFileBytes = 16 * 1024 * 1024;
    static constexpr qsizetype kMaxLineBytes = 64 * 1024;
    static constexpr int kMaxDevices = 16;

    [[nodiscard]] static ReplayScript parse(const QByteArray &text);
    [[nodiscard]] static ReplayScript load(const QString &path);

    bool isValid() const { return m_error.isEmpty(); }
    // "line N: what is wrong" (or a file-level problem); empty when valid.
    QString errorString() const { return m_error; }
    // 1-based line of the error, 0 for file-level errors or none.
    int errorLine() const { return m_errorLine; }

    const QList<VirtualDeviceSpec> &devices() const { return m_devices; }
    // In file order, which is also time order.
    const std::vector<ReplayEvent> &events() const { return m_events; }
    qint64 durationMs() const { return m_events.empty() ? 0 : m_events.back().timeMs; }

private:
    QList<VirtualDeviceSpec> m_devices;
    std::vector<ReplayEvent> m_events;
    QString m_error;
    int m_errorLine = 0;
};

} // namespace tavrix
