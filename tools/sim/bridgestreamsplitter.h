#pragma once

#include <QByteArray>
#include <QList>

namespace tavrix::sim {

// Splits the byte stream a host writes to the bridge into CRSF frames and text
// lines, the way the bridge firmware's receive loop does: a sync byte starts a
// frame that must pass its CRC, printable ASCII builds a line up to a line feed,
// anything else is garbage. It resynchronises one byte at a time, so a good frame
// after any garbage is still found, and it never holds more than one frame and
// one line's worth of bytes.
class BridgeStreamSplitter
{
public:
    struct Item
    {
        enum class Kind
        {
            Frame,
            Line,
            Garbage
        };
        Kind kind = Kind::Garbage;
        // Frame: the whole frame; Line: the text without CR/LF; Garbage: the dropped bytes.
        QByteArray bytes;
    };

    // Longest command line kept; the excess of a longer line is dropped as garbage.
    static constexpr int kMaxLineLength = 128;

    [[nodiscard]] QList<Item> feed(QByteArrayView bytes);

    // True when the bytes held back are the start of a frame still waiting for
    // its tail. A firmware gives up on such a frame after a short silence.
    [[nodiscard]] bool hasPartialFrame() const { return !m_pending.isEmpty(); }

    // Gives up on the partial frame: its first byte is garbage and the rest is
    // split again (it may hold a command or the start of a real frame).
    [[nodiscard]] QList<Item> abandonPartialFrame();

    void reset();

private:
    void split(QList<Item> &out);
    void dropGarbage(QList<Item> &out, QByteArrayView bytes);
    void dropPartialLine(QList<Item> &out);

    QByteArray m_pending; // unconsumed bytes; only ever a frame in progress at the front
    QByteArray m_line;    // text of the line being built
};

} // namespace tavrix::sim
