#ifndef TESTS_IMPL_EXTENDED_EXTENDED_VLAN_TAGGING_TEST_H
#define TESTS_IMPL_EXTENDED_EXTENDED_VLAN_TAGGING_TEST_H

#include "DataPathTest.h"
#include "ExtendedVlanTaggingAccess.h"
#include "VlanRows.h"
#include "implExtended/OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended.h"

/// One extended VLAN tagging entity, and rules as the OLT writes them.
class ExtendedVlanTagging : public DataPathTest
{
protected:
    static constexpr unsigned short kEntity = 5;
    static constexpr unsigned short kUni = 0x101;
    static constexpr unsigned short kTable = 0x400;

    ExtendedVlanTagging() { EXPECT_EQ(create(171, kEntity), 0); }

    using Entity = OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended;
    static Entity& entity()
    {
        using If = OmciMeExtendedVlanTaggingOperationConfigurationDataIf;
        return static_cast<Entity&>(*If::getManagedEntityInstance(kEntity));
    }

    void associate(unsigned char type, unsigned short pointer)
    {
        EXPECT_EQ(set(171, kEntity, 0x8000, type), 0);
        set(171, kEntity, 0x200, pointer);
        takeCalls();
    }
    void associateWithUni()
    {
        ethernetUni(kUni);
        associate(2, kUni);
    }

    static int write(const RecVlanTagFilData& rule)
    {
        const vlanrows::Row row = vlanrows::encode(rule);
        return set(171, kEntity, kTable, std::vector<unsigned char>(row.begin(), row.end()));
    }
    static int unset(const RecVlanTagFilData& rule) { return write(vlanrows::unsetOf(rule)); }

    /// The newest rule; all ones when the table is empty.
    static RecVlanTagFilData newest()
    {
        RecVlanTagFilData rule = noRule();
        nrvk::getRecVlanTagFilData(entity(), &rule);
        return rule;
    }
    static RecVlanTagFilData noRule() { return vlanrows::unsetOf(vlanrows::translation(0x1FFF, 0x1FFF)); }

    static std::vector<unsigned char> storedRow() { return get(171, kEntity, kTable); }

    const RecVlanTagFilData ruleA = vlanrows::translation(100, 200);
    const RecVlanTagFilData ruleB = vlanrows::translation(101, 201);
    const RecVlanTagFilData ruleC = vlanrows::translation(102, 202);
    const Calls replaced{"removeUniService(257)", "provisionUniService(257)"};
    const Calls provisioned{"provisionUniService(257)"};
};

#endif
