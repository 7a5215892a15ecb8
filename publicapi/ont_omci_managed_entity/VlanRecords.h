#ifndef ONT_OMCI_MANAGED_ENTITY_VLAN_RECORDS_H
#define ONT_OMCI_MANAGED_ENTITY_VLAN_RECORDS_H

/// One decoded 16-byte row of the received frame VLAN tagging operation table (G.988 9.3.13, class 171).
/// F: filter, T: treatment; O: outer tag, I: inner tag; P: priority, V: VID, T: TPID/DE.
struct RecVlanTagFilData
{
    unsigned char FOP;    ///< 4 bits; 15: no outer tag in the filter
    unsigned short FOV;   ///< 13 bits
    unsigned char FOT;    ///< 3 bits
    unsigned short pad1;  ///< 12 bits, kept
    unsigned char FIP;    ///< 4 bits; 15: no inner tag in the filter
    unsigned short FIV;   ///< 13 bits
    unsigned char FIT;    ///< 3 bits
    unsigned char pad2;   ///< 8 bits, kept
    unsigned char FET;    ///< 4 bits, Ethertype code
    unsigned char TTR;    ///< 2 bits, tags to remove
    unsigned short pad3;  ///< 10 bits, kept
    unsigned char TOP;    ///< 4 bits; 15: add no outer tag
    unsigned short TOV;   ///< 13 bits
    unsigned char TOT;    ///< 3 bits
    unsigned short pad4;  ///< 12 bits, kept
    unsigned char TIP;    ///< 4 bits; 15: add no inner tag
    unsigned short TIV;   ///< 13 bits
    unsigned char TIT;    ///< 3 bits
};

/// A classified rule, owned by the hardware layer and filled by parseReceivedFrameVlanTaggingOperationTable.
struct ExtendedVlanTaggingRuleContainer
{
    unsigned int ruleFlags;         ///< bits are only ever set: pass 0
    unsigned char hostData[6];      ///< the hardware layer's own; never touched
    unsigned short inputTpid;       ///< TPID that the filter calls "input TPID"; host byte order
    unsigned short outputTpid;      ///< TPID that the treatment calls "output TPID"; host byte order
    unsigned short downstreamMode;  ///< attribute 5 of class 171: what happens to frames towards the UNI
    unsigned short frameTagCount;   ///< 0 untagged, 1 single tagged, 2 double tagged
    unsigned short tagAction;       ///< 0 to 6
    /// @{

    /// A field of the row, of the width that RecVlanTagFilData tells.
    unsigned short FET;
    unsigned short FOT;
    unsigned short FOV;
    unsigned short FOP;
    unsigned short FIT;
    unsigned short FIV;
    unsigned short FIP;
    unsigned short TTR;
    unsigned short TOT;
    unsigned short TOV;
    unsigned short TOP;
    unsigned short TIT;
    unsigned short TIV;
    unsigned short TIP;
    /// @}
    char dscpToPbitMapping[49];  ///< 24 bytes as 48 hexadecimal digits and a zero
};

#endif
