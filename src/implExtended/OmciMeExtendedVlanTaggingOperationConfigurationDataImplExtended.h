#ifndef NRVK_IMPL_EXTENDED_EXTENDED_VLAN_TAGGING_OPERATION_CONFIGURATION_DATA_H
#define NRVK_IMPL_EXTENDED_EXTENDED_VLAN_TAGGING_OPERATION_CONFIGURATION_DATA_H

#include "VlanRecords.h"
#include "impl/OmciMeExtendedVlanTaggingOperationConfigurationDataImpl.h"
#include "implExtended/NoHardware.h"
#include "implExtended/VlanRuleTable.h"

/// Extended VLAN tagging operation configuration data (G.988 9.3.13, class 171).
///
/// The OLT writes one row of the table per Set. The attribute keeps the last row; the table of received frames keeps
/// the rules. Each row has the associated UNI or bridge port provisioned again, and the hardware layer asks for the
/// rule, for its classification or for its EVC meanwhile (ExtendedVlanTaggingAccess.h).
class OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended
    : public nrvk::DataPathEntity<OmciMeExtendedVlanTaggingOperationConfigurationDataImpl>
{
public:
    using NoHardware::NoHardware;

    /// `row`: 16 bytes, network byte order. Takes a rule in, or out for the unset frame. -1 when the associated entity
    /// is not there; the rule stays all the same.
    int setReceivedFrameVlanTaggingOperationTable(const unsigned char* row) override;
    /// Provisions an associated bridge port; -1 when it is not there. The value is kept.
    int setAssociatedMePointer(unsigned short value) override;
    int setInputTpid(unsigned short value) override;
    /// Takes an associated UNI's service away and empties the table. -1, with the table intact, when the UNI is not
    /// there.
    int eraseConfigurationFromHardware() override;

    /// Decodes `row` into the current frame.
    void parseInputOperationTable(const unsigned char* row);
    /// 1 when a rule with the frame's filter was removed, the first one; 0 when there was none.
    int deleteEntryFromTableOfReceivedFrames(RecVlanTagFilData frame);
    /// False, with the table intact, when the hardware interface is not set.
    bool deleteAllEntriesFromTableOfReceivedFrames();

    /// @name For the hardware layer, during its provision operations
    /// @{
    /// Copies the newest rule; nothing for a null pointer or an empty table.
    void getRecVlanTagFilData(RecVlanTagFilData* out) const;
    /// Fills the container with the row decoded last, classified. 1, or 0 when there is no container or no row.
    int parseReceivedFrameVlanTaggingOperationTable(ExtendedVlanTaggingRuleContainer* container) const;
    /// Has the rule's EVC and EVC map provisioned; the hardware operation's result, or 0 without one.
    unsigned int sendEvcAndEvcMapToTmb(const RecVlanTagFilData& frame, bool request) const;
    /// All rules, in order of arrival.
    const std::vector<RecVlanTagFilData>& getTableOfReceivedFrames() const { return m_TableOfReceivedFrames.rules(); }
    /// How many they are, in 8 bits.
    unsigned char getRuleCount() const { return m_TableOfReceivedFrames.ruleCount(); }
    /// @}

private:
    bool holdsDefaultRow() const;
    void logCurrentFrame() const;
    /// The associated entity takes the changed table. -1 when it is not there.
    int provisionAssociatedEntity();
    int provisionEthernetUni();
    int provisionBridgePort();
    int provisionIpHost();
    /// For an attribute other than the table; an IP host's port hears of those from the IP host.
    int provisionBridgePortOnly();

    RecVlanTagFilData m_CurrentFrame{};
    nrvk::VlanRuleTable m_TableOfReceivedFrames;
};

#endif
