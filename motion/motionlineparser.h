#pragma once

#include "motionsystemsettings.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace tavrix {

// Cuts the motion controller board's output into text lines at each line feed, decoded
// as Latin-1 and trimmed; blank lines are skipped.
class MotionLineSplitter
{
public:
    // More than this without a line feed is no line the board sends: it is thrown away,
    // so a babbling or wedged link cannot grow the buffer.
    static constexpr qsizetype kMaxPendingBytes = 4096;

    // Adds one chunk; returns the lines it finished, oldest first.
    [[nodiscard]] QStringList feed(const QByteArray &chunk);
    void clear() { m_pending.clear(); }

private:
    QByteArray m_pending;
};

// What one line from the board says.
struct MotionLine
{
    enum class Kind
    {
        Heartbeat,  // "[state] ax1=..mm ax2=..mm ..."
        TestReport, // a "#TST" line from a board test
        ConfigEcho, // a "#CFG" line answering "Q"
        Other       // anything else, only shown
    };

    Kind kind = Kind::Other;
    // Heartbeat: the word between the brackets, when the line has one.
    std::optional<QString> stateWord;
    // Heartbeat: millimetres by actuator number (from 1), as the board reports them.
    QMap<int, int> positionsMm;
    // TestReport: the board says its test is done.
    bool testDone = false;
    // ConfigEcho: all five settings, clamped, when the line carries every one of them.
    std::optional<MotionSystemSettings> settings;
};

[[nodiscard]] MotionLine parseMotionLine(const QString &line);

} // namespace tavrix
