#include "omci_host/CRC32.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "ByteOrder.h"

namespace {

constexpr std::uint32_t kPolynomial = 0x04C11DB7;
/// Octets that one round of table look-ups takes in.
constexpr std::size_t kSlices = 8;

using Tables = std::array<std::array<std::uint32_t, 256>, kSlices>;

/// tables[n][b]: what octet b contributes when n more octets follow it in the round.
constexpr Tables makeTables()
{
    Tables tables{};
    for (std::uint32_t octet = 0; octet < 256; ++octet) {
        std::uint32_t crc = octet << 24;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc << 1) ^ ((crc & 0x80000000U) != 0 ? kPolynomial : 0);
        }
        tables[0][octet] = crc;
    }
    for (std::size_t slice = 1; slice < kSlices; ++slice) {
        for (std::size_t octet = 0; octet < 256; ++octet) {
            const std::uint32_t previous = tables[slice - 1][octet];
            tables[slice][octet] = (previous << 8) ^ tables[0][previous >> 24];
        }
    }
    return tables;
}

constexpr Tables kTables = makeTables();

}  // namespace

unsigned int CRC32::getCRC(unsigned char* data, int length)
{
    std::uint32_t crc = m_Crc;
    const unsigned char* octet = data;
    std::size_t left = length > 0 ? static_cast<std::size_t>(length) : 0;
    for (; left >= kSlices; left -= kSlices, octet += kSlices) {
        const std::uint32_t first = crc ^ omci::read32(octet);
        const std::uint32_t second = omci::read32(octet + 4);
        crc = kTables[7][first >> 24] ^ kTables[6][(first >> 16) & 0xFF] ^ kTables[5][(first >> 8) & 0xFF] ^
              kTables[4][first & 0xFF] ^ kTables[3][second >> 24] ^ kTables[2][(second >> 16) & 0xFF] ^
              kTables[1][(second >> 8) & 0xFF] ^ kTables[0][second & 0xFF];
    }
    for (; left != 0; --left, ++octet) {
        crc = (crc << 8) ^ kTables[0][(crc >> 24) ^ *octet];
    }
    m_Crc = crc;
    return ~crc;
}
