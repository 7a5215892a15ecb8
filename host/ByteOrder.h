#ifndef HOST_BYTE_ORDER_H
#define HOST_BYTE_ORDER_H

#include <cstdint>

namespace omci {

/// A 16-bit number in network byte order, from memory of any alignment.
inline std::uint16_t read16(const std::uint8_t* bytes)
{
    return static_cast<std::uint16_t>((bytes[0] << 8) | bytes[1]);
}

/// A 32-bit number in network byte order, from memory of any alignment.
inline std::uint32_t read32(const std::uint8_t* bytes)
{
    return (static_cast<std::uint32_t>(read16(bytes)) << 16) | read16(bytes + 2);
}

/// Writes two octets in network byte order, to memory of any alignment.
inline void write16(std::uint8_t* bytes, std::uint16_t value)
{
    bytes[0] = static_cast<std::uint8_t>(value >> 8);
    bytes[1] = static_cast<std::uint8_t>(value);
}

/// Writes four octets in network byte order, to memory of any alignment.
inline void write32(std::uint8_t* bytes, std::uint32_t value)
{
    write16(bytes, static_cast<std::uint16_t>(value >> 16));
    write16(bytes + 2, static_cast<std::uint16_t>(value));
}

}  // namespace omci

#endif
