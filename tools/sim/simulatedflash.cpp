#include "simulatedflash.h"

#include <algorithm>

namespace tavrix::sim {

namespace {
constexpr char kErased = char(0xFF);
}

SimulatedFlash::SimulatedFlash(uint32_t baseAddress, int pageSize, int pageCount)
    : m_base(baseAddress)
    , m_pageSize(pageSize)
    , m_pageCount(pageCount)
    , m_bytes(qsizetype(pageSize) * pageCount, kErased)
{}

bool SimulatedFlash::contains(uint32_t address, uint32_t length) const
{
    if (address < m_base || length == 0)
        return false;
    const uint64_t offset = address - m_base;
    return offset + length <= uint64_t(m_bytes.size());
}

QByteArray SimulatedFlash::read(uint32_t address, uint32_t length) const
{
    if (!contains(address, length))
        return {};
    return m_bytes.mid(qsizetype(address - m_base), qsizetype(length));
}

void SimulatedFlash::erasePage(int page)
{
    if (page < 0 || page >= m_pageCount)
        return;
    std::fill_n(m_bytes.begin() + qsizetype(page) * m_pageSize, m_pageSize, kErased);
}

void SimulatedFlash::eraseAll()
{
    m_bytes.fill(kErased);
}

bool SimulatedFlash::program(uint32_t address, const QByteArray &bytes)
{
    if (!contains(address, uint32_t(bytes.size())))
        return false;
    const qsizetype offset = qsizetype(address - m_base);
    for (qsizetype i = 0; i < bytes.size(); ++i)
        if (m_bytes.at(offset + i) != kErased)
            return false;
    m_bytes.replace(offset, bytes.size(), bytes);
    const int page = pageOf(address);
    if (page == m_faultyPage) {
        m_faultyPage = -1;
        m_bytes[offset] = char(~bytes.at(0));
    }
    return true;
}

void SimulatedFlash::load(const QByteArray &image)
{
    eraseAll();
    m_bytes.replace(0, qMin(image.size(), m_bytes.size()), image.left(m_bytes.size()));
}

} // namespace tavrix::sim
