// Sessions in which one call on the hardware layer after the other throws.
#include "HookedHardware.h"
#include "ServiceSession.h"

using namespace model;

namespace {

using What = ThrowingHardware::What;

const ClassList& classes()
{
    static const ClassList list = readClassList(CLASS_LIST_DIRECTORY);
    return list;
}

/// The answers of a session, from behind their transaction ids.
struct Played
{
    std::vector<Bytes> answers;
    std::string complaint;  ///< of the first request that was not answered

    Played(Subject& onu, const std::vector<Request>& session)
    {
        for (const Request& request : session) {
            const Bytes answer = onu.ask(request);
            if (complaint.empty() && !isAnswerTo(request, onu.lastTransactionId(), answer)) {
                complaint = "message type " + std::to_string(request.type) + " to class " +
                            std::to_string(request.classId) + ": " + hexOf(answer);
            }
            answers.emplace_back(answer.begin() + (answer.size() < 2 ? 0 : 2), answer.end());
        }
    }
};

std::vector<Request> wholeSession()
{
    const Subject onu(HardwareLayer::Silent);
    std::vector<Request> session = serviceSession();
    const std::vector<Request> more = everyClassSession(classes());
    session.insert(session.end(), more.begin(), more.end());
    session.push_back(ask(MIB_RESET, 2, 0));
    return session;
}

/// What an ONU answers, and holds, after a session and a MIB reset.
struct Aftermath
{
    std::vector<Bytes> answers;
    UploadedValues mib;

    explicit Aftermath(Subject& onu)
    {
        ThrowingHardware sound(ThrowingHardware::kNever, What::Exception);
        Played(onu, {ask(MIB_RESET, 2, 0)});
        answers = Played(onu, serviceSession()).answers;
        mib = onu.upload(classes(), true);
    }
};

class ThrowingCall : public ::testing::TestWithParam<What>
{};

std::string nameOf(const ::testing::TestParamInfo<What>& info)
{
    return info.param == What::Exception ? "Exception" : "SomethingElse";
}

}  // namespace

TEST_P(ThrowingCall, IsAnsweredAndTheSessionAfterItIsAsEver)
{
    const std::vector<Request> session = wholeSession();
    std::size_t calls = 0;
    std::optional<Aftermath> sound;
    {
        Subject onu(HardwareLayer::Silent);
        {
            const ThrowingHardware hardware(ThrowingHardware::kNever, GetParam());
            EXPECT_EQ("", Played(onu, session).complaint);
            calls = hardware.calls();
        }
        sound.emplace(onu);
    }
    ASSERT_LT(100U, calls);
    for (std::size_t throwing = 0; throwing < calls; ++throwing) {
        SCOPED_TRACE("call " + std::to_string(throwing));
        Subject onu(HardwareLayer::Silent);
        {
            const ThrowingHardware hardware(throwing, GetParam());
            EXPECT_EQ("", Played(onu, session).complaint);
            EXPECT_TRUE(hardware.hasThrown());
        }
        const Aftermath aftermath(onu);
        EXPECT_EQ(sound->answers, aftermath.answers);
        EXPECT_EQ(sound->mib, aftermath.mib);
    }
}

TEST(ThrowingNotification, OfAMibUploadLeavesItWhole)
{
    Subject onu(HardwareLayer::Silent);
    const UploadedValues whole = onu.upload(classes(), false);
    ASSERT_FALSE(whole.empty());
    ON_CALL(onu.hardwareLayer(), notifyMibUploadState).WillByDefault(::testing::Throw(std::runtime_error("state")));
    EXPECT_EQ(whole, onu.upload(classes(), false));
    EXPECT_EQ(whole, onu.upload(classes(), true));
    ON_CALL(onu.hardwareLayer(), notifyMibUploadState).WillByDefault(::testing::Throw(4));
    EXPECT_EQ(whole, onu.upload(classes(), false));
}

TEST(ThrowingCreate, LeavesNoInstanceThatTheOltDoesNotKnowOf)
{
    constexpr std::uint8_t success = 0;
    constexpr std::size_t result = 8;
    Subject onu(HardwareLayer::Silent);
    const Request create = ask(CREATE, 334, 1, Bytes(16));
    {
        const ThrowingHardware hardware(0, What::Exception);
        EXPECT_NE(success, onu.ask(create).at(result));
        EXPECT_TRUE(hardware.hasThrown());
    }
    EXPECT_EQ(success, onu.ask(create).at(result));
}

INSTANTIATE_TEST_SUITE_P(What, ThrowingCall, ::testing::Values(What::Exception, What::SomethingElse), nameOf);
