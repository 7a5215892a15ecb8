#ifndef ONT_OMCI_MANAGED_ENTITY_BOARD_SPECIFIC_CONFIG_H
#define ONT_OMCI_MANAGED_ENTITY_BOARD_SPECIFIC_CONFIG_H

/// Counts that shape the MIB of one board. Totals derived from them are kept to 8 bits.
struct BoardSpecificConfig
{
    unsigned char numberOfTConts;
    unsigned char numberOfEthernetUnis;
    unsigned char reserved;  ///< not read
    unsigned char numberOfVideoUnis;
    unsigned char numberOfVideoAnis;
    unsigned char upstreamQueuesPerTCont;
    unsigned char downstreamQueuesPerUni;
    unsigned char numberOfPotsUnis;
};

#endif
