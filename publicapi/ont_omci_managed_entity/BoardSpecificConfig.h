#ifndef ONT_OMCI_MANAGED_ENTITY_BOARD_SPECIFIC_CONFIG_H
#define ONT_OMCI_MANAGED_ENTITY_BOARD_SPECIFIC_CONFIG_H

/// Counts that shape the MIB of one board. Totals derived from them are kept to 8 bits.
struct BoardSpecificConfig
{
    unsigned char numberOfTConts;  ///< instances of T-CONT (G.988 9.2.2, class 262)
    unsigned char
        numberOfEthernetUnis;         ///< Ethernet ports, which the host makes as PPTP Ethernet UNI (9.5.1, class 11)
    unsigned char reserved;           ///< not read
    unsigned char numberOfVideoUnis;  ///< video ports (PPTP video UNI, 9.13.1, class 82)
    unsigned char numberOfVideoAnis;  ///< video receivers (PPTP video ANI, 9.13.2, class 90)
    unsigned char upstreamQueuesPerTCont;  ///< priority queues (9.2.10, class 277) of each T-CONT
    unsigned char downstreamQueuesPerUni;  ///< priority queues of each Ethernet port
    unsigned char numberOfPotsUnis;        ///< phone ports (PPTP POTS UNI, 9.9.1, class 53)
};

#endif
