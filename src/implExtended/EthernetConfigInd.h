#ifndef NRVK_IMPL_EXTENDED_ETHERNET_CONFIG_IND_H
#define NRVK_IMPL_EXTENDED_ETHERNET_CONFIG_IND_H

namespace nrvk {

/// The configuration indication of a PPTP Ethernet UNI (G.988 9.5.1, class 11): speed in Mbit/s, and duplex 0 half,
/// 1 full. 0 when there is no code for the two.
inline unsigned char ethernetConfigInd(unsigned int speed, unsigned char duplex)
{
    struct Row
    {
        unsigned int speed;
        unsigned char code[2];
    };
    static constexpr Row rows[] = {
        {10, {0x11, 1}}, {100, {0x12, 2}}, {1000, {0x13, 3}}, {2500, {0, 5}}, {5000, {0, 6}}, {10000, {0, 4}},
    };
    for (const Row& row : rows) {
        if (row.speed == speed && duplex <= 1) {
            return row.code[duplex];
        }
    }
    return 0;
}

}  // namespace nrvk

#endif
