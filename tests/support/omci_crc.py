"""The CRC-32 of OMCI, written anew for the tests: frames of the extended format and software images carry it."""


def _crc_of(octet):
    value = octet << 24
    for _ in range(8):
        value = ((value << 1) ^ (0x04C11DB7 if value & 0x80000000 else 0)) & 0xFFFFFFFF
    return value


CRC_TABLE = [_crc_of(octet) for octet in range(256)]


def crc32(octets):
    """Polynomial 0x04C11DB7, most significant bit first, start and final complement all ones."""
    value = 0xFFFFFFFF
    for octet in octets:
        value = (value << 8 & 0xFFFFFFFF) ^ CRC_TABLE[value >> 24 ^ octet]
    return value ^ 0xFFFFFFFF
