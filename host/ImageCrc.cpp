#include "ImageCrc.h"

#include <algorithm>

#include "omci_host/CRC32.h"

std::uint32_t omci::imageCrc(const std::uint8_t* image, std::size_t size)
{
    constexpr std::size_t part = std::size_t{1} << 30;  // the length of a part is a signed number
    CRC32 crc;
    crc.m_Crc = 0xFFFFFFFF;
    std::uint32_t value = 0;
    for (std::size_t at = 0; at < size; at += part) {
        value = crc.getCRC(const_cast<std::uint8_t*>(image + at), static_cast<int>(std::min(part, size - at)));
    }
    return value;
}
