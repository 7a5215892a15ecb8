#ifndef OMCI_HOST_CRC32_H
#define OMCI_HOST_CRC32_H

/// CRC-32 of AAL5 practice: polynomial 0x04C11DB7, most significant bit first, not reflected, final complement.
/// "123456789" from a running value of 0xFFFFFFFF gives 0xFC891918.
class CRC32
{
public:
    /// The CRC of `length` bytes, starting from the running value m_Crc, which moves on.
    unsigned int getCRC(unsigned char* data, int length);

    /// The running value, to be seeded by the caller (0xFFFFFFFF for an image).
    unsigned int m_Crc = 0;
};

#endif
