#include "bridgestreamsplitter.h"

#include "crsfwire.h"

namespace tavrix::sim {

namespace {

bool isLineByte(uint8_t byte)
{
    return byte == '\r' || (byte >= 0x20 && byte <= 0x7E);
}

} // namespace

QList<BridgeStreamSplitter::Item> BridgeStreamSplitter::feed(QByteArrayView bytes)
{
    QList<Item> out;
    m_pending.append(bytes.data(), bytes.size());
    split(out);
    return out;
}

QList<BridgeStreamSplitter::Item> BridgeStreamSplitter::abandonPartialFrame()
{
    QList<Item> out;
    if (m_pending.isEmpty())
        return out;
    dropGarbage(out, QByteArrayView(m_pending).first(1));
    m_pending.remove(0, 1);
    split(out);
    return out;
}

void BridgeStreamSplitter::reset()
{
    m_pending.clear();
    m_line.clear();
}

void BridgeStreamSplitter::split(QList<Item> &out)
{
    qsizetype pos = 0;
    while (pos < m_pending.size()) {
        const auto byte = uint8_t(m_pending[pos]);

        if (crsfwire::isSyncByte(byte)) {
            const qsizetype available = m_pending.size() - pos;
            if (available < 2)
                break; // wait for the length byte
            const int lengthByte = uint8_t(m_pending[pos + 1]);
            if (lengthByte < 2 || lengthByte > crsfwire::kMaxLengthByte) {
                dropGarbage(out, QByteArrayView(m_pending).sliced(pos, 1));
                ++pos;
                continue;
            }
            if (available < lengthByte + 2)
                break; // wait for the rest of the frame
            const QByteArrayView candidate = QByteArrayView(m_pending).sliced(pos, lengthByte + 2);
            if (!crsfwire::isValidFrame(candidate)) {
                // Only the sync byte is condemned: a real frame may start inside.
                dropGarbage(out, candidate.first(1));
                ++pos;
                continue;
            }
            // The host writes commands whole, so a frame cannot sit inside a line:
            // text before it was noise.
            dropPartialLine(out);
            out.append({Item::Kind::Frame, candidate.toByteArray()});
            pos += candidate.size();
            continue;
        }

        if (byte == '\n') {
            QByteArray line = m_line;
            m_line.clear();
            if (line.endsWith('\r'))
                line.chop(1);
            out.append({Item::Kind::Line, line});
        } else if (isLineByte(byte)) {
            if (m_line.size() < kMaxLineLength)
                m_line.append(char(byte));
            else
                dropGarbage(out, QByteArrayView(m_pending).sliced(pos, 1));
        } else {
            // A binary byte that starts no frame: the line it interrupts is broken too.
            dropPartialLine(out);
            dropGarbage(out, QByteArrayView(m_pending).sliced(pos, 1));
        }
        ++pos;
    }
    m_pending.remove(0, pos);
}

void BridgeStreamSplitter::dropGarbage(QList<Item> &out, QByteArrayView bytes)
{
    // Neighbouring garbage bytes are reported as one run.
    if (!out.isEmpty() && out.last().kind == Item::Kind::Garbage)
        out.last().bytes.append(bytes.data(), bytes.size());
    else
        out.append({Item::Kind::Garbage, bytes.toByteArray()});
}

void BridgeStreamSplitter::dropPartialLine(QList<Item> &out)
{
    if (m_line.isEmpty())
        return;
    dropGarbage(out, m_line);
    m_line.clear();
}

} // namespace tavrix::sim
