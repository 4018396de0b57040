#include "transmitterlinesplitter.h"

namespace tavrix {

namespace {

bool belongsToTextLine(char byte)
{
    const auto c = static_cast<unsigned char>(byte);
    return c == '\n' || c == '\r' || (c >= 0x20 && c <= 0x7E);
}

} // namespace

QStringList TransmitterLineSplitter::feed(const QByteArray &chunk)
{
    for (const char byte : chunk) {
        if (belongsToTextLine(byte))
            m_buffer.append(byte);
    }

    QStringList lines;
    qsizetype start = 0;
    for (qsizetype end = m_buffer.indexOf('\n'); end >= 0; end = m_buffer.indexOf('\n', start)) {
        qsizetype length = end - start;
        if (length > 0 && m_buffer.at(end - 1) == '\r')
            --length;
        if (length > 0)
            lines.append(QString::fromUtf8(m_buffer.constData() + start, length));
        start = end + 1;
    }
    m_buffer.remove(0, start);

    if (m_buffer.size() > kMaxBufferedBytes)
        m_buffer.remove(0, m_buffer.size() - kBytesKeptOnOverflow);
    return lines;
}

} // namespace tavrix
