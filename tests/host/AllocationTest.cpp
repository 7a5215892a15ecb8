// A get and a set through the dispatcher allocate nothing once warm.

#include "DispatcherFixture.h"
#include "tests/support/AllocationCounter.h"

using namespace omci;

namespace {

class Allocations : public DispatcherTest
{
protected:
    Allocations() { me.add(1); }

    std::size_t countFor(MessageType type, const std::string& hex)
    {
        std::vector<Bytes> requests;
        for (int n = 0; n < 12; ++n) {
            requests.push_back(frame(header(type, 100, 1), hex));
        }
        dispatcher.handle(requests[0].data(), requests[0].size());
        dispatcher.handle(requests[1].data(), requests[1].size());
        const std::size_t before = allocationsOfThisThread();
        for (std::size_t n = 2; n < requests.size(); ++n) {
            EXPECT_NE(0U, dispatcher.handle(requests[n].data(), requests[n].size()).length);
        }
        return allocationsOfThisThread() - before;
    }

    FakeOnuData onuData;
    FakeMe me{100,
              {attribute(0x8000, 1, R | W), attribute(0x4000, 2, R | W), attribute(0x2000, 22, R | W),
               attribute(0x1000, 16, R | W | N, true)}};
};

}  // namespace

TEST_F(Allocations, TheCounterCounts)
{
    const std::size_t before = allocationsOfThisThread();
    ::operator delete(::operator new(5));  // a new expression might be optimised away
    EXPECT_EQ(before + 1, allocationsOfThisThread());
}

TEST_F(Allocations, GetAllocatesNothing)
{
    for (const Format each : {Format::Baseline, Format::Extended}) {
        format = each;
        EXPECT_EQ(0U, countFor(MessageType::Get, "e000"));
        EXPECT_EQ(0U, countFor(MessageType::Get, "1000"));
    }
}

TEST_F(Allocations, SetAllocatesNothing)
{
    EXPECT_EQ(0U, countFor(MessageType::Set, "c000 112233"));
    format = Format::Extended;
    EXPECT_EQ(0U, countFor(MessageType::Set, "c000 112233"));
}
