#pragma once

#include <QByteArray>
#include <QSet>

#include <cstdint>

namespace tavrix::sim {

// The main flash of a simulated microcontroller: pages that erase to 0xFF and take
// new bytes only where they are erased, as NOR flash does. A write over bytes that
// were not erased first is refused as a whole, so a programmer that forgets to erase
// gets the same refusal it would get from the chip.
class SimulatedFlash
{
public:
    SimulatedFlash(uint32_t baseAddress, int pageSize, int pageCount);

    [[nodiscard]] uint32_t baseAddress() const { return m_base; }
    [[nodiscard]] int pageSize() const { return m_pageSize; }
    [[nodiscard]] int pageCount() const { return m_pageCount; }
    [[nodiscard]] uint32_t size() const { return uint32_t(m_bytes.size()); }
    // True when [address, address + length) lies inside the flash.
    [[nodiscard]] bool contains(uint32_t address, uint32_t length = 1) const;
    [[nodiscard]] int pageOf(uint32_t address) const
    {
        return int((address - m_base) / uint32_t(m_pageSize));
    }

    // The bytes at address; empty when the range is outside the flash.
    [[nodiscard]] QByteArray read(uint32_t address, uint32_t length) const;
    // The whole flash, for tests and dumps.
    [[nodiscard]] const QByteArray &contents() const { return m_bytes; }

    void erasePage(int page);
    void eraseAll();
    // False (and nothing changes) when the range leaves the flash or a byte in it is not erased.
    [[nodiscard]] bool program(uint32_t address, const QByteArray &bytes);
    // Loads bytes at the start of the flash, the rest erased: what the factory left on the chip.
    void load(const QByteArray &image);

    // The first time this page is programmed, its first byte is stored inverted: one
    // verification failure that a rewrite (erase, program) clears. -1: no faulty page.
    void setFaultyPage(int page) { m_faultyPage = page; }

private:
    uint32_t m_base;
    int m_pageSize;
    int m_pageCount;
    QByteArray m_bytes;
    int m_faultyPage = -1;
};

} // namespace tavrix::sim
