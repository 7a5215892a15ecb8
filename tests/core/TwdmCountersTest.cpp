// Counters of TWDM channels.
#include "CoreTest.h"

namespace {

using Core = OmciManagedEntitiesCore;

constexpr unsigned short kInstance = 1025;

class TwdmCounters : public CoreTest
{
protected:
    TwdmCounters()
    {
        startUp();
        for (unsigned int classId = 65406; classId <= 65414; ++classId) {
            addClass(static_cast<unsigned short>(classId), {kInstance});
        }
        log.clear();
    }

    /// The writes of one class whose counters are 1, 2, 3 ...
    static Texts writes(unsigned int classId, unsigned int end, unsigned int counters)
    {
        const std::string head = std::to_string(classId) + "; " + std::to_string(kInstance) + "; 0x";
        Texts expected = {head + "8000 = " + std::to_string(end)};
        for (unsigned int i = 0; i < counters; ++i) {
            char mask[8];
            std::snprintf(mask, sizeof mask, "%X", 0x2000U >> i);
            expected.push_back(head + mask + " = " + std::to_string(i + 1));
        }
        return expected;
    }

    static void append(Texts& texts, const Texts& more) { texts.insert(texts.end(), more.begin(), more.end()); }

    Core core;
};

TEST_F(TwdmCounters, OmciFeedWritesItsClass)
{
    EXPECT_EQ(core.updateTwdmOmciStats(kInstance, {9, 1, 2, 3}), 0);
    EXPECT_EQ(updates(), writes(65414, 9, 3));
    EXPECT_TRUE(log.has(6, "Managed entity instance(1025)"));
    EXPECT_EQ(stored(65414, kInstance, 0x8000), Bytes{9});
    EXPECT_EQ(stored(65414, kInstance, 0x2000), (Bytes{0, 0, 0, 1}));
    EXPECT_EQ(stored(65414, kInstance, 0x4000), Bytes{0}) << "thresholds are not the feed's";
}

TEST_F(TwdmCounters, PhyLodsFeedWritesItsClass)
{
    EXPECT_EQ(core.updateTwdmPhyLodsStats(kInstance, {9, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}), 0);
    EXPECT_EQ(updates(), writes(65406, 9, 13));
    EXPECT_EQ(stored(65406, kInstance, 0x2000).size(), 8U);
    EXPECT_EQ(stored(65406, kInstance, 0x1000).size(), 4U);
    EXPECT_EQ(stored(65406, kInstance, 0x2).size(), 4U);
}

TEST_F(TwdmCounters, XgemFeedWritesItsClass)
{
    EXPECT_EQ(core.updateTwdmXgemStats(kInstance, {9, 1, 2, 3, 4, 5, 6, 7, 8}), 0);
    EXPECT_EQ(updates(), writes(65407, 9, 8));
    EXPECT_EQ(stored(65407, kInstance, 0x100).size(), 4U);
    EXPECT_EQ(stored(65407, kInstance, 0x80).size(), 8U);
    EXPECT_EQ(stored(65407, kInstance, 0x40).size(), 8U);
}

TEST_F(TwdmCounters, PloamFeedWritesItsThreeClassesInTurn)
{
    const TwdmPloamCounters counters = {{7, 1, 2, 3, 4, 5, 6},
                                        {8, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14},
                                        {9, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}};
    EXPECT_EQ(core.updateTwdmPloamStats(kInstance, counters), 0);
    Texts expected = writes(65408, 7, 6);
    append(expected, writes(65409, 8, 14));
    append(expected, writes(65410, 9, 11));
    EXPECT_EQ(updates(), expected);
}

TEST_F(TwdmCounters, TuningFeedWritesItsThreeClassesInTurn)
{
    const TwdmTuningCounters counters = {{7, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13},
                                         {8, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13},
                                         {9, 1, 2, 3, 4, 5, 6, 7, 8}};
    EXPECT_EQ(core.updateTwdmTuningStats(kInstance, counters), 0);
    Texts expected = writes(65411, 7, 13);
    append(expected, writes(65412, 8, 13));
    append(expected, writes(65413, 9, 8));
    EXPECT_EQ(updates(), expected);
}

TEST_F(TwdmCounters, FeedOfAnUnknownInstanceOnlyLogs)
{
    EXPECT_EQ(core.updateTwdmOmciStats(1, {9, 1, 2, 3}), 0);
    for (const char* mask : {"0x8000", "0x2000", "0x1000", "0x800"}) {
        EXPECT_TRUE(log.has(3, std::string("Failed to update managed entity(65414; 1; ") + mask + ")"));
    }
}

}  // namespace
