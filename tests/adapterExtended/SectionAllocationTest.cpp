// A download section allocates nothing.
#include "AllocationCounter.h"
#include "Logger.h"
#include "SoftwareDownloadTest.h"

class SectionAllocation : public SoftwareDownloadTest
{
protected:
    SectionAllocation()
    {
        // As in a product: lines are dropped by their level, not captured.
        Logger::getInstance(150)->setObserver(nullptr, nullptr);
        Logger::getInstance(150)->setLevel(2);
    }

    std::size_t countOf(OmciFrame& frame, int result)
    {
        Adapter& adapterOfClass = images();
        const std::size_t before = allocationsOfThisThread();
        EXPECT_EQ(adapterOfClass.downloadSection(&frame), result);
        return allocationsOfThisThread() - before;
    }
};

TEST_F(SectionAllocation, IsNoneOnceWarmInBothFormats)
{
    for (const omci::Format each : {omci::Format::Baseline, omci::Format::Extended}) {
        format = each;
        const Image bytes = imageOf(format == omci::Format::Baseline ? 31 : 1965);
        ASSERT_EQ(start(100000), 0);
        section(0, bytes, true);  // warm, as is each line that a wrong section logs
        section(7, bytes, true);
        OmciFrame first = sectionFrame(0, bytes, false);
        OmciFrame last = sectionFrame(1, bytes, true);
        OmciFrame wrong = sectionFrame(7, bytes, true);
        EXPECT_EQ(countOf(first, 1), 0U);
        EXPECT_EQ(countOf(last, 0), 0U);
        EXPECT_EQ(countOf(wrong, -1), 0U);
        section(0, bytes, false, 0);
    }
}
