#ifndef NRVK_IMPL_EXTENDED_MAPPER_SERVICE_PROFILE_802_1P_H
#define NRVK_IMPL_EXTENDED_MAPPER_SERVICE_PROFILE_802_1P_H

#include <array>
#include <bitset>

#include "impl/OmciMeMapperServiceProfile802_1PImpl.h"

/// IEEE 802.1p mapper service profile (G.988 9.3.10, class 130).
///
/// One Set can carry several pointers. The setters only store and remember what stood before; the apply step decides
/// once between provisioning and removal, and the hardware layer can ask for the old pointers until it returns.
class OmciMeMapperServiceProfile802_1PImplExtended : public OmciMeMapperServiceProfile802_1PImpl
{
public:
    using OmciMeMapperServiceProfile802_1PImpl::OmciMeMapperServiceProfile802_1PImpl;

    int setInterworkTpPointerForPBitPriority0(unsigned short value) override;
    int setInterworkTpPointerForPBitPriority1(unsigned short value) override;
    int setInterworkTpPointerForPBitPriority2(unsigned short value) override;
    int setInterworkTpPointerForPBitPriority3(unsigned short value) override;
    int setInterworkTpPointerForPBitPriority4(unsigned short value) override;
    int setInterworkTpPointerForPBitPriority5(unsigned short value) override;
    int setInterworkTpPointerForPBitPriority6(unsigned short value) override;
    int setInterworkTpPointerForPBitPriority7(unsigned short value) override;
    /// Logs a change of pointer; always 0.
    int setInterworkTpPointer(unsigned short old, unsigned short newValue, unsigned short defaultValue);
    int setDscpToPBitMapping(const unsigned char* value) override;

    /// For the hardware layer: the interworking TP that the p-bit, 0 to 7, had before the Set being applied. 65535, no
    /// TP, for a p-bit above 7 and outside of an apply; 0 during an apply for a p-bit that the Set did not touch.
    unsigned short getOldInterworkingTpForPbit(unsigned short pbit) const;

    /// Provisions the mapper when a p-bit went from no TP to a TP, or when a DSCP mapping came that is not all zero;
    /// removes its interworking TPs otherwise. Always 0.
    int applyConfigurationToHardwareForSet() override;
    int eraseConfigurationFromHardware() override;

private:
    static constexpr unsigned short kPbits = 8;

    void recordOldPointer(unsigned short pbit, unsigned short pointer);
    /// Completes the old pointers, and tells whether a p-bit went from no TP to a TP.
    bool findAddedPointer();
    void applyDscpMapping();
    void provision();

    /// Fixed arrays in place of a map, so that a Set allocates nothing.
    std::array<unsigned short, kPbits> m_OldPointers{};
    std::bitset<kPbits> m_RecordedPbits;
    bool m_DscpChanged = false;
};

#endif
