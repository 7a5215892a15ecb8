// One board's counts, and the texts that they change.
#include "CoreTest.h"
#include "OmciMeOnuGIf.h"

namespace {

using Core = OmciManagedEntitiesCore;

constexpr BoardSpecificConfig kBoard = {8, 1, 77, 1, 1, 8, 2, 2};
const std::string kNoFile;

class Board : public CoreTest
{
protected:
    static unsigned char countOf(unsigned short classId)
    {
        for (const DefaultConfigManagedEntity& row : Core::defaultConfigManagedEntity) {
            if (row.classId == classId) {
                return row.instanceCount;
            }
        }
        ADD_FAILURE() << "no row of class " << classId;
        return 0;
    }

    static void haveOnuGWithVersion(const char* version)
    {
        unsigned char bytes[14] = {};
        std::string(version).copy(reinterpret_cast<char*>(bytes), sizeof bytes);
        OmciMeOnuGIf::createManagedEntityInstance(0, false)->setVersion(bytes);
        adapter(256);  // so that the fixture finds the instance again
    }

    using Update = void (*)(unsigned char, Core::AttributeValues&, const std::string&);

    /// The texts after an update of a row whose texts were all "old".
    std::string updated(Update update, unsigned char index, unsigned short attributeMask)
    {
        Core::AttributeValues values;
        for (auto& field : values) {
            std::snprintf(reinterpret_cast<char*>(field), sizeof field, "old");
        }
        update(index, values, kNoFile);
        return text(values, attributeMask);
    }

    static unsigned int relatedPort(unsigned char index)
    {
        Core::AttributeValues values{};
        Core::updatePriorityQueue(index, values, kNoFile);
        return static_cast<unsigned int>(std::stoul(text(values, 0x400)));
    }
};

TEST_F(Board, CountsGiveTheTotals)
{
    Core().updatingBoardParams(kBoard);
    EXPECT_EQ(Core::TOTAL_UPSTREAM_PRIORITY_QUEUES, 64);
    EXPECT_EQ(Core::TOTAL_UPSTREAM_TRAFFIC_SCHEDULER, 64);
    EXPECT_EQ(Core::TOTAL_DOWNSTREAM_PRIORITY_QUEUES, 2);
    EXPECT_EQ(Core::TOTAL_NUMBER_OF_PRIORITY_QUEUES, 66);
    EXPECT_EQ(countOf(277), 66);
}

TEST_F(Board, EachCountComesFromItsField)
{
    Core().updatingBoardParams({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(Core::NUMBER_OF_T_CONT_SUPPORTED, 1);
    EXPECT_EQ(Core::NUMBER_OF_ETHERNET_UNI_SUPPORTED, 2);
    EXPECT_EQ(Core::NUMBER_OF_VIDEO_UNI_SUPPORTED, 4);
    EXPECT_EQ(Core::NUMBER_OF_VIDEO_ANI_SUPPORTED, 5);
    EXPECT_EQ(Core::NUMBER_OF_UPSTREAM_QUEUES_PER_T_CONT, 6);
    EXPECT_EQ(Core::NUMBER_OF_DOWNSTREAM_QUEUES_PER_UNI, 7);
    EXPECT_EQ(Core::NUMBER_OF_PPTP_POTS_UNI_SUPPORTED, 8);
}

TEST_F(Board, CountsReachTheTable)
{
    Core().updatingBoardParams({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(countOf(278), 6);
    EXPECT_EQ(countOf(262), 1);
    EXPECT_EQ(countOf(277), 20);
    EXPECT_EQ(countOf(264), 2);
    EXPECT_EQ(countOf(53), 8);
}

TEST_F(Board, TotalsWrapOnEightBits)
{
    Core().updatingBoardParams({32, 200, 0, 0, 0, 8, 3, 0});
    EXPECT_EQ(Core::TOTAL_UPSTREAM_PRIORITY_QUEUES, 0);
    EXPECT_EQ(Core::TOTAL_UPSTREAM_TRAFFIC_SCHEDULER, 0);
    EXPECT_EQ(Core::TOTAL_DOWNSTREAM_PRIORITY_QUEUES, 88);
    Core().updatingBoardParams({20, 200, 0, 0, 0, 10, 1, 0});
    EXPECT_EQ(Core::TOTAL_NUMBER_OF_PRIORITY_QUEUES, 144) << "200 and 200";
}

TEST_F(Board, EthernetUnisAreNeverMadeByTheTable)
{
    Core().updatingBoardParams({8, 4, 0, 1, 1, 8, 2, 2});
    EXPECT_EQ(countOf(11), 0);
}

TEST_F(Board, MissingModelNameIsPartOfEachStart)
{
    Core core(kBoard);
    EXPECT_TRUE(log.has(6, "BoardSpecificConfig (8)"));
    EXPECT_TRUE(log.has(3, "Model name not found \n"));
}

TEST_F(Board, CountsAreInForceWhenTheTableIsExpanded)
{
    startUp({8, 4, 0, 1, 1, 8, 2, 2});
    EXPECT_EQ(get(264, 260, 0x8000).size(), 2U);
    EXPECT_EQ(adapter(264).findManagedEntityInstance(261), -1);
    EXPECT_EQ(adapter(11).findManagedEntityInstance(257), -1);
    EXPECT_EQ(getNumber(277, 0x8000, 0x400), 0x01000007U);
    EXPECT_EQ(getNumber(277, 2, 0x400), 0x01020000U) << "two queues a port";
    EXPECT_EQ(getNumber(277, 7, 0x400), 0x01040001U);
    EXPECT_EQ(adapter(277).findManagedEntityInstance(8), -1);
    EXPECT_EQ(getNumber(263, 1025, 0x4000), 8U);
    EXPECT_EQ(getNumber(257, 0, 0x400), 64U);
}

TEST_F(Board, FindAndUpdateYieldsTheClass)
{
    EXPECT_EQ(Core().findAndUpdate(262, 3), 262);
    EXPECT_EQ(countOf(262), 3);
    EXPECT_EQ(Core().findAndUpdate(65402, 3), 65402) << "a class without a row";
}

TEST_F(Board, AniGTakesTheNumberOfTConts)
{
    Core::NUMBER_OF_T_CONT_SUPPORTED = 5;
    EXPECT_EQ(updated(Core::updateAniG, 0, 0x4000), "5");
    EXPECT_EQ(updated(Core::updateAniG, 0, 0x8000), "old");
    EXPECT_TRUE(log.has(6, "Index(hhu)"));
}

TEST_F(Board, OnuGTakesItsVendorAtIndexZeroOnly)
{
    EXPECT_EQ(updated(Core::updateOnuG, 0, 0x8000), "NRVK");
    EXPECT_EQ(updated(Core::updateOnuG, 1, 0x8000), "old");
}

TEST_F(Board, Onu2GTakesVersionAndQueues)
{
    Core::TOTAL_UPSTREAM_PRIORITY_QUEUES = 64;
    EXPECT_EQ(updated(Core::updateOnu2G, 0, 0x4000), "179");
    EXPECT_EQ(updated(Core::updateOnu2G, 0, 0x400), "64");
    EXPECT_EQ(updated(Core::updateOnu2G, 0, 0x80), "32");
    EXPECT_EQ(updated(Core::updateOnu2G, 0, 0x4), "1024");
    EXPECT_EQ(updated(Core::updateOnu2G, 0, 0x8000), "old");
}

TEST_F(Board, VideoPortsHaveNothingToEdit)
{
    EXPECT_EQ(updated(Core::updatePptpVideo, 0, 0x8000), "old");
    EXPECT_EQ(updated(Core::updatePptpVideoAni, 0, 0x8000), "old");
}

TEST_F(Board, SlotsHaveTheirPluginCodesAndPorts)
{
    Core().updatingBoardParams({8, 3, 0, 4, 5, 8, 2, 6});
    const struct
    {
        unsigned char index;
        const char* code;
        const char* ports;
    } slots[] = {{0, "47", "3"}, {1, "48", "1"}, {2, "32", "6"},    {3, "236", "1"},
                 {4, "38", "4"}, {5, "44", "5"}, {6, "old", "old"}, {255, "old", "old"}};
    for (const auto& slot : slots) {
        SCOPED_TRACE(static_cast<int>(slot.index));
        EXPECT_EQ(updated(Core::updateCardHolder, slot.index, 0x8000), slot.code);
        EXPECT_EQ(updated(Core::updateCardHolder, slot.index, 0x4000), slot.code);
        EXPECT_EQ(updated(Core::updateCardHolder, slot.index, 0x2000), slot.ports);
        EXPECT_EQ(updated(Core::updateCircuitPack, slot.index, 0x8000), slot.code);
        EXPECT_EQ(updated(Core::updateCircuitPack, slot.index, 0x4000), slot.ports);
        const bool known = slot.index < 6;
        EXPECT_EQ(updated(Core::updateCircuitPack, slot.index, 0x20), known ? "8" : "old");
        EXPECT_EQ(updated(Core::updateCircuitPack, slot.index, 0x10), known ? "70" : "old");
    }
}

TEST_F(Board, CircuitPackLogsItsCounts)
{
    Core().updatingBoardParams(kBoard);
    updated(Core::updateCircuitPack, 0, 0x8000);
    for (const char* line : {"Updating attribute(16384); value(1)", "Updating attribute(32); value(8)",
                             "Updating attribute(16); value(66)"}) {
        EXPECT_TRUE(log.has(6, line)) << line;
    }
}

TEST_F(Board, SchedulersPointAtTheirTCont)
{
    Core().updatingBoardParams(kBoard);
    EXPECT_EQ(updated(Core::updateTrafficScheduler, 0, 0x8000), "256");
    EXPECT_EQ(updated(Core::updateTrafficScheduler, 7, 0x8000), "256");
    EXPECT_EQ(updated(Core::updateTrafficScheduler, 8, 0x8000), "257");
    EXPECT_EQ(updated(Core::updateTrafficScheduler, 63, 0x8000), "263");
    EXPECT_EQ(updated(Core::updateTrafficScheduler, 64, 0x8000), "0");
}

TEST_F(Board, UpstreamQueuesRelateToTheirTCont)
{
    Core().updatingBoardParams(kBoard);
    EXPECT_EQ(relatedPort(0), 0x01000007U);
    EXPECT_EQ(relatedPort(7), 0x01000000U);
    EXPECT_EQ(relatedPort(8), 0x01010007U);
    EXPECT_EQ(relatedPort(63), 0x01070000U);
}

TEST_F(Board, DownstreamQueuesRelateToTheirUni)
{
    Core().updatingBoardParams(kBoard);
    EXPECT_EQ(relatedPort(64), 0x01010000U);
    EXPECT_EQ(relatedPort(65), 0x01010001U);
    EXPECT_EQ(relatedPort(66), 0x01020000U);
}

TEST_F(Board, WithoutQueuesNothingIsDividedByZero)
{
    Core().updatingBoardParams({8, 1, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(relatedPort(0), 0x01010000U);
    EXPECT_EQ(updated(Core::updateTrafficScheduler, 0, 0x8000), "0");
}

TEST_F(Board, CodePoint49GoesByThePartNumber)
{
    EXPECT_FALSE(Core::isCodePoint49ReportingRequired());
    EXPECT_TRUE(log.has(4, "OnuG partNumber()"));
    for (const char* partNumber : {"9100452F1", "9100452F2V", "9100452F1V"}) {
        haveOnuGWithVersion(partNumber);
        EXPECT_TRUE(Core::isCodePoint49ReportingRequired()) << partNumber;
        EXPECT_TRUE(log.has(4, std::string("OnuG partNumber(") + partNumber + ")"));
    }
    for (const char* other : {"9100452F2", "9100452F1V ", "", "9100452F1VVVVV"}) {
        haveOnuGWithVersion(other);
        EXPECT_FALSE(Core::isCodePoint49ReportingRequired()) << other;
    }
}

TEST_F(Board, CodePoint49ChangesTheMainSlotAndTheEthernetUnis)
{
    EXPECT_EQ(updated(Core::updatePptpEthernet, 0, 0x8000), "0");
    EXPECT_EQ(updated(Core::updatePptpEthernet, 0, 0x4000), "0");
    haveOnuGWithVersion("9100452F1");
    EXPECT_EQ(updated(Core::updatePptpEthernet, 0, 0x8000), "49");
    EXPECT_EQ(updated(Core::updatePptpEthernet, 0, 0x4000), "49");
    EXPECT_EQ(updated(Core::updateCardHolder, 0, 0x8000), "49");
    EXPECT_EQ(updated(Core::updateCircuitPack, 0, 0x8000), "49");
    EXPECT_EQ(updated(Core::updateCircuitPack, 1, 0x8000), "48");
}

TEST_F(Board, PartNumberCountsFromTheNextExpansionOn)
{
    startUp(kBoard);
    EXPECT_EQ(getNumber(6, 257, 0x8000), 47U);
    registrar().updateManagedEntity<std::string>(256, 0, 0x4000, "9100452F1V");
    EXPECT_EQ(getNumber(6, 257, 0x8000), 47U);
    std::vector<StartupConfigManagedEntity> expanded;
    Core(kBoard).getManagedEntitiesCore(expanded);
    EXPECT_EQ(expanded[2].classId, 6);
    EXPECT_EQ(expanded[2].attributeValues.at(0x01018000), Bytes{49});
    EXPECT_EQ(expanded[1].attributeValues.at(0x01014000), Bytes{49});
}

struct PortalRule
{
    unsigned char index;
    unsigned char ethernetUnis;
    std::string service;
    std::string method;
    std::string associatedClass;
    std::string instance;
};

TEST_F(Board, StatusPortalHasItsTexts)
{
    const PortalRule rules[] = {
        {0, 1, "65281", "3", "11", "257"},   {1, 1, "65281", "3", "263", "1025"},  {2, 1, "54395138", "0", "134", "2"},
        {3, 1, "65281", "3", "263", "1025"}, {2, 4, "54395139", "0", "11", "259"},
    };
    for (const PortalRule& rule : rules) {
        SCOPED_TRACE(static_cast<int>(rule.index));
        Core::NUMBER_OF_ETHERNET_UNI_SUPPORTED = rule.ethernetUnis;
        const std::pair<unsigned short, std::string> texts[] = {{0x8000, rule.service},
                                                                {0x4000, rule.method},
                                                                {0x2000, "2"},
                                                                {0x1000, "0"},
                                                                {0x800, "old"},
                                                                {0x400, "65535"},
                                                                {0x200, "0"},
                                                                {0x100, "old"},
                                                                {0x80, "0"},
                                                                {0x40, "1"},
                                                                {0x20, "old"},
                                                                {0x10, "1"},
                                                                {0x8, rule.associatedClass},
                                                                {0x4, rule.instance}};
        for (const auto& [mask, expected] : texts) {
            EXPECT_EQ(updated(Core::updateFlexibleConfigurationStatusPortal, rule.index, mask), expected) << mask;
        }
    }
}

}  // namespace
