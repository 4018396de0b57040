#include "consoletee.h"

#include "logrouter.h"

namespace tavrix {

namespace {

// A line longer than this is routed in pieces rather than held without bound.
constexpr qsizetype kMaxLineBytes = 64 * 1024;

} // namespace

ConsoleTee::ConsoleTee(std::FILE *stream, QtMsgType type, LogRouter &router, QObject *parent)
    : QIODevice(parent)
    , m_stream(stream)
    , m_type(type)
    , m_router(router)
{
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

ConsoleTee::~ConsoleTee()
{
    if (!m_partial.isEmpty())
        m_router.route(m_type, QString::fromUtf8(m_partial));
}

qint64 ConsoleTee::writeData(const char *data, qint64 size)
{
    std::fwrite(data, 1, size_t(size), m_stream);
    std::fflush(m_stream);
    m_partial.append(data, size);
    qsizetype newline;
    while ((newline = m_partial.indexOf('\n')) >= 0 || m_partial.size() > kMaxLineBytes) {
        const qsizetype end = newline >= 0 ? newline : kMaxLineBytes;
        m_router.route(m_type, QString::fromUtf8(m_partial.left(end)));
        m_partial.remove(0, newline >= 0 ? end + 1 : end);
    }
    return size;
}

} // namespace tavrix
