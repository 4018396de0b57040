#pragma once

#include <QByteArray>
#include <QStringList>

namespace tavrix {

// Cuts the text lines out of the bridge's mixed byte stream. Every byte that
// could belong to a line (LF, CR, printable ASCII) is kept, all others dropped,
// so the printable bytes of a binary frame become part of the next line: the
// bridge's lines are matched by their content, which tolerates that prefix.
class TransmitterLineSplitter
{
public:
    // Without a line feed the buffer grows to at most this many bytes ...
    static constexpr qsizetype kMaxBufferedBytes = 8192;
    // ... and is then cut back to its newest bytes.
    static constexpr qsizetype kBytesKeptOnOverflow = 4096;

    // Adds one chunk; returns the complete non-empty lines it finished, oldest
    // first, without their line ending (LF, or CR LF).
    [[nodiscard]] QStringList feed(const QByteArray &chunk);
    void clear() { m_buffer.clear(); }
    // The bytes of the unfinished line.
    QByteArray pending() const { return m_buffer; }

private:
    QByteArray m_buffer;
};

} // namespace tavrix
