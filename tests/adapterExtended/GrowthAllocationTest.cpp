// How the work on the whole MIB grows with it, by what is allocated: a clock would measure the machine.
#include <algorithm>

#include "AllocationCounter.h"
#include "Frames.h"
#include "LibraryTest.h"
#include "Logger.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeExtendedVlanTaggingOperationConfigurationDataIf.h"
#include "OmciMePptpEthernetUniIf.h"
#include "host/QuietHardware.h"

namespace {

constexpr unsigned short kGemPort = 268;
constexpr unsigned short kVlanTagging = 171;

class GrowthOfWork : public LibraryTest
{
protected:
    GrowthOfWork()
    {
        startUp();
        OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(&quietHardware);
        // As in a product: lines are dropped by their level, not captured.
        Logger::getInstance(150)->setObserver(nullptr, nullptr);
        Logger::getInstance(150)->setLevel(2);
    }
    ~GrowthOfWork() override { Logger::getInstance(150)->setLevel(6); }

    template <typename Road>
    static std::size_t allocationsOf(Road road)
    {
        const std::size_t before = allocationsOfThisThread();
        road();
        return allocationsOfThisThread() - before;
    }
    /// The GEM ports of the OLT are so many.
    static void growTo(unsigned short count)
    {
        for (unsigned short instance = 0; instance < count; ++instance) {
            adapter(kGemPort).createManagedEntityInstance(static_cast<unsigned short>(0x1000 + instance), true);
        }
    }
    static std::size_t allocationsOfUpload()
    {
        OmciFrame frame = requestFrame(omci::MessageType::MibUpload, 2, 0);
        return allocationsOf([&] { EXPECT_EQ(adapter(2).mibUpload(&frame), 0); });
    }

    omci::QuietHardware quietHardware;
};

TEST_F(GrowthOfWork, UploadAllocatesTheSameForEachEntityHoweverMany)
{
    allocationsOfUpload();  // warm
    const std::size_t none = allocationsOfUpload();
    growTo(1000);
    const std::size_t first = allocationsOfUpload() - none;
    growTo(4000);
    const std::size_t all = allocationsOfUpload() - none;
    EXPECT_GT(first, 1000U);
    EXPECT_NEAR(static_cast<double>(all) / 4000, static_cast<double>(first) / 1000, 0.05);
}

TEST_F(GrowthOfWork, ResetAllocatesNothingForAnEntityThatGoes)
{
    adapter(2).mibReset();  // warm
    const auto reset = [] { EXPECT_EQ(adapter(2).mibReset(), 0); };
    const std::size_t none = allocationsOf(reset);
    growTo(4000);
    EXPECT_LE(allocationsOf(reset), none + 10);
    EXPECT_EQ(adapter(kGemPort).findManagedEntityInstance(0x1000), -1);
}

TEST_F(GrowthOfWork, ARowOfTheVlanTableAllocatesNoMoreAmongThousandsThanAmongFew)
{
    OmciMePptpEthernetUniIf::createManagedEntityInstance(0x101, false);
    auto* tagging = OmciMeExtendedVlanTaggingOperationConfigurationDataIf::createManagedEntityInstance(1, true);
    tagging->setAssociationType(2);
    tagging->setAssociatedMePointer(0x101);
    const attributeDefinition table = definitionOf(kVlanTagging, 0x400);
    // Frames with one tag of the VID, which goes.
    unsigned char row[16] = {0xF8, 0, 0, 0, 0x80, 0, 0, 0, 0x40, 0x0F, 0, 0, 0, 0x0F, 0, 0};
    std::size_t most = 0;
    for (unsigned short vid = 0; vid < 3000; ++vid) {
        row[4] = static_cast<unsigned char>(0x80 | (vid >> 9));
        row[5] = static_cast<unsigned char>(vid >> 1);
        row[6] = static_cast<unsigned char>((vid & 1) << 7);
        const std::size_t taken =
            allocationsOf([&] { EXPECT_EQ(adapter(kVlanTagging).setAttribute(1, &table, row), 0); });
        most = vid > 10 ? std::max(most, taken) : most;
    }
    // Now and then the table moves to a larger place, in one piece.
    EXPECT_LE(most, 2U);
}

}  // namespace
