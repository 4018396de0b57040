#include "receiverlinesplitter.h"

#include <QLoggingCategory>

namespace tavrix {

Q_LOGGING_CATEGORY(lcReceiverLines, "orvane.receiver.lines")

QStringList ReceiverLineSplitter::feed(const QByteArray &chunk)
{
    QStringList lines;
    for (const char byte : chunk) {
        if (byte == '\n' || byte == '\r') {
            if (!m_line.isEmpty())
                lines.append(QString::fromUtf8(m_line));
            clear();
        } else if (m_line.size() < kMaxLineLength) {
            m_line.append(byte);
        } else if (!m_lineCut) {
            m_lineCut = true;
            qCInfo(lcReceiverLines).noquote()
                << "Receiver line longer than" << kMaxLineLength << "bytes, the rest dropped";
        }
    }
    return lines;
}

void ReceiverLineSplitter::clear()
{
    m_line.clear();
    m_lineCut = false;
}

} // namespace tavrix
