#pragma once

#include <QByteArray>
#include <QStringList>

namespace tavrix {

// Cuts the receiver's console output into lines. The receiver ends its lines with LF,
// CR or both, so either byte ends a line and the empty "line" between CR and LF is
// skipped. What the lines mean is for their readers; nothing is filtered here.
class ReceiverLineSplitter
{
public:
    // A line that grows past this without ending is cut here and the rest of it dropped
    // up to its end, so a receiver printing garbage cannot grow the buffer.
    static constexpr qsizetype kMaxLineLength = 512;

    // Adds one chunk; returns the non-empty lines it finished, oldest first.
    [[nodiscard]] QStringList feed(const QByteArray &chunk);
    void clear();

private:
    QByteArray m_line;
    bool m_lineCut = false;
};

} // namespace tavrix
