// A hardware layer that reports to the library, and changes it, from inside each of its calls.
#include <algorithm>

#include "HookedHardware.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "ServiceSession.h"
#include "Watchdog.h"
#include "host/Notifier.h"

using namespace model;

namespace {

constexpr std::chrono::seconds kLimit{120};
constexpr std::uint16_t kAniG = 263;
constexpr std::uint16_t kFirstAni = 1025;
constexpr std::uint16_t kReceivedLevel = 0x40;
constexpr std::uint16_t kFirstLine = 769;

const ClassList& classes()
{
    static const ClassList list = readClassList(CLASS_LIST_DIRECTORY);
    return list;
}

OmciManagedEntityRegistrar& registrar()
{
    return *OmciManagedEntityRegistrar::getInstance();
}

/// The registrar's record of a class; empty when it has none.
StartupConfigManagedEntity pictureOf(std::uint16_t classId)
{
    std::vector<StartupConfigManagedEntity> picture;
    registrar().getConfigManagedEntityVector(picture);
    const auto found = std::find_if(picture.begin(), picture.end(),
                                    [classId](const auto& record) { return record.classId == classId; });
    return found == picture.end() ? StartupConfigManagedEntity{} : *found;
}

/// An ONU whose hardware layer comes back from inside each call, but not from inside what it has then caused itself.
class ReentrantOnu
{
public:
    ReentrantOnu()
        : m_Onu(HardwareLayer::Silent), m_Notifier([this](const std::uint8_t*, std::size_t) { ++m_Sent; }, omci::Mic())
    {
        m_Notifier.setMibKnown(true);
        m_Hooked.emplace([this] {
            if (!m_IsInside) {
                m_IsInside = true;
                comeBack();
                m_IsInside = false;
            }
        });
    }

    Subject& onu() { return m_Onu; }
    /// What else the hardware layer does from inside a call.
    void alsoDo(std::function<void()> work) { m_Also = std::move(work); }
    unsigned int reports() const { return m_Reports; }
    unsigned int sent() const { return m_Sent; }

    /// The answers without their transaction ids.
    std::vector<Bytes> play(const std::vector<Request>& session, Watchdog& watchdog)
    {
        std::vector<Bytes> answers;
        for (const Request& request : session) {
            watchdog.note("message type " + std::to_string(request.type) + " to class " +
                          std::to_string(request.classId));
            m_Request = request;
            const Bytes answer = m_Onu.ask(request);
            EXPECT_TRUE(isAnswerTo(request, m_Onu.lastTransactionId(), answer)) << hexOf(answer);
            answers.push_back(answer);
        }
        return answers;
    }

    /// Each value is that of the last report, in the picture and in the instance.
    void expectLastReports()
    {
        m_Hooked.reset();
        const std::uint8_t low = static_cast<std::uint8_t>(m_Reports);
        const std::uint8_t high = static_cast<std::uint8_t>(m_Reports >> 8);
        EXPECT_EQ((Bytes{high, low}), stored(kAniG, kFirstAni, kReceivedLevel));
        EXPECT_EQ((Bytes{high, low}), stored(141, kFirstLine, 0x8000));
        EXPECT_EQ((Bytes{0, 0, high, low}), stored(138, 0, 0x2000));
        EXPECT_EQ((Bytes{high, low}), read(kAniG, kFirstAni, kReceivedLevel, 2));
        EXPECT_EQ((Bytes{0, 0, high, low}), read(138, 0, 0x2000, 4));
        std::bitset<223> alarms;
        EXPECT_TRUE(OmciMeFactory::getInstance()->getManagedEntity(kAniG)->getAlarmsBitmap(kFirstAni, alarms));
        EXPECT_EQ((m_Reports & 1) != 0, alarms.test(0));
    }

private:
    void comeBack()
    {
        ++m_Reports;
        const auto low = static_cast<unsigned char>(m_Reports);
        m_Core.updateAniGOpticalSignalLevel(kFirstAni, static_cast<unsigned short>(m_Reports));
        m_Core.updatePptpEthernetUniMEOperStateSpeedMode(257, low & 1, 1000, 1);
        VoipLineStatusData line{};
        line.VoipCodecUsed = static_cast<unsigned short>(m_Reports);
        m_Core.updateVoipLineStatus(kFirstLine, line);
        VoipConfigDataAttr config{};
        config.AvailableVoipConfigurationMethods = m_Reports;
        m_Core.updateVoipConfigData(0, config);
        m_Core.updateIpHostConfigDataMEs_CurrentIpAddress("10.0.0.2", "255.255.255.0", "10.0.0.1");
        m_Core.updateGemPortNetworkCtpPM(1, 1001, GemPortCounters{});
        m_Notifier.raiseAlarm(kAniG, kFirstAni, 0, (low & 1) != 0);
        m_Notifier.raiseAlarm(m_Request.classId, m_Request.instance, 1, (low & 1) != 0);
        writeBackTheSameEntity();
        if (m_Also) {
            m_Also();
        }
    }

    /// What the entity of the request has now, written once more by the road of a report.
    void writeBackTheSameEntity()
    {
        const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(m_Request.classId);
        const auto entity = classes().find(m_Request.classId);
        // What is set there is no value of its own: it swaps the IP hosts, or runs a command.
        constexpr std::uint16_t oltG = 131;
        constexpr std::uint16_t remoteDebug = 158;
        if (me == nullptr || entity == classes().end() || entity->first == oltG || entity->first == remoteDebug) {
            return;
        }
        for (const Attribute& attribute : entity->second.attributes) {
            attributeDefinition definition{};
            definition.attributeMask = attribute.mask;
            definition.attributeSize = static_cast<unsigned short>(attribute.size);
            Bytes value(attribute.size + 8);
            if (attribute.isTable || !attribute.has('W') || !attribute.has('R') ||
                me->findManagedEntityInstance(m_Request.instance) != 0 ||
                me->getAttribute(m_Request.instance, &definition, value.data(), OMCI_ACTION_GET) != 0) {
                continue;
            }
            value.resize(attribute.size);
            registrar().setManagedEntityAttribute(m_Request.classId, m_Request.instance, attribute.mask, value);
        }
    }

    static Bytes stored(std::uint16_t classId, std::uint16_t instance, std::uint16_t mask)
    {
        return pictureOf(classId).attributeValues[static_cast<unsigned int>(instance) << 16 | mask];
    }
    Bytes read(std::uint16_t classId, std::uint16_t instance, std::uint16_t mask, std::size_t size)
    {
        Request request = ask(GET, classId, instance);
        add16(request.contents, mask);
        const Bytes answer = m_Onu.ask(request);
        constexpr std::ptrdiff_t value = 11;
        return {answer.begin() + value, answer.begin() + value + static_cast<std::ptrdiff_t>(size)};
    }

    Subject m_Onu;
    OmciManagedEntitiesCore m_Core;
    omci::Notifier m_Notifier;
    std::optional<HookedHardware> m_Hooked;
    std::function<void()> m_Also;
    Request m_Request;
    bool m_IsInside = false;
    unsigned int m_Reports = 0;
    unsigned int m_Sent = 0;
};

std::vector<Request> wholeSession()
{
    std::vector<Request> session = serviceSession();
    const std::vector<Request> more = everyClassSession(classes());
    session.insert(session.end(), more.begin(), more.end());
    session.push_back(ask(MIB_RESET, 2, 0));
    return session;
}

/// The octets of an answer that tell its result: the first of the contents.
std::uint8_t resultOf(const Request& request, const Bytes& answer)
{
    return answer.at(request.isExtended ? 10 : 8);
}

}  // namespace

TEST(ReentrantHardware, ReportsFromInsideEachCallOfASessionAreKeptAndChangeNoResult)
{
    Watchdog watchdog(kLimit);
    std::vector<Bytes> sound;
    std::vector<Request> session;
    {
        Subject onu(HardwareLayer::Silent);
        const HookedHardware silent([] {});
        session = wholeSession();
        for (const Request& request : session) {
            sound.push_back(onu.ask(request));
        }
    }
    ReentrantOnu reentrant;
    const std::vector<Bytes> answers = reentrant.play(session, watchdog);
    ASSERT_EQ(sound.size(), answers.size());
    for (std::size_t number = 0; number < session.size(); ++number) {
        EXPECT_EQ(resultOf(session[number], sound[number]), resultOf(session[number], answers[number]))
            << "message type " << int{session[number].type} << " to class " << session[number].classId;
    }
    EXPECT_LT(100U, reentrant.reports());
    EXPECT_LT(0U, reentrant.sent());
    reentrant.expectLastReports();
}

TEST(ReentrantHardware, ReportsFromInsideAResetOfTheOnusOwnAreKept)
{
    Watchdog watchdog(kLimit);
    ReentrantOnu reentrant;
    watchdog.note("MIB reset of the ONU's own");
    EXPECT_EQ(0, OmciMeFactory::getInstance()->getManagedEntity(2)->mibReset());
    EXPECT_LT(0U, reentrant.reports());
    reentrant.expectLastReports();
}

TEST(ReentrantHardware, MaySwapTheIpHostsFromInsideAResetOfTheOnusOwn)
{
    Watchdog watchdog(kLimit);
    ReentrantOnu reentrant;
    OmciManagedEntitiesCore core;
    reentrant.alsoDo([&core] { core.swapSubtendedHostInstanceId(true); });
    watchdog.note("MIB reset of the ONU's own");
    EXPECT_EQ(0, OmciMeFactory::getInstance()->getManagedEntity(2)->mibReset());
    const OmciMe* const ipHosts = OmciMeFactory::getInstance()->getManagedEntity(134);
    EXPECT_NE(0, ipHosts->findManagedEntityInstance(0));
    EXPECT_EQ(0, ipHosts->findManagedEntityInstance(514));
    EXPECT_EQ(0, ipHosts->findManagedEntityInstance(515));
    reentrant.expectLastReports();
}

TEST(ReentrantHardware, MayResetTheMibFromInsideTheSwapOfTheIpHosts)
{
    Watchdog watchdog(kLimit);
    ReentrantOnu reentrant;
    unsigned int resets = 0;
    reentrant.alsoDo([&resets] {
        if (resets++ == 0) {
            EXPECT_EQ(0, OmciMeFactory::getInstance()->getManagedEntity(2)->mibReset());
        }
    });
    watchdog.note("swap of the IP hosts");
    OmciManagedEntitiesCore().swapSubtendedHostInstanceId(true);
    watchdog.note("MIB reset after it");
    EXPECT_EQ(0, OmciMeFactory::getInstance()->getManagedEntity(2)->mibReset());
    EXPECT_LT(0U, resets);
    reentrant.expectLastReports();
}

TEST(ReentrantHardware, MayRenameAnInstanceWhileItsClassIsBeingReset)
{
    constexpr std::uint16_t cardholder = 5;
    constexpr std::uint16_t renamed = 0x0199;
    Watchdog watchdog(kLimit);
    Subject onu(HardwareLayer::Silent);
    const std::uint16_t first = pictureOf(cardholder).instances.front();
    bool isRenamed = false;
    ON_CALL(onu.hardwareLayer(), sendAttributeValueChange).WillByDefault([&](OmciMessage*) {
        if (!isRenamed) {
            isRenamed = true;
            EXPECT_EQ(0, registrar().swapManagedEntityInstanceId(cardholder, first, renamed));
        }
        return 0;
    });
    watchdog.note("MIB reset");
    onu.ask(ask(MIB_RESET, 2, 0));
    EXPECT_TRUE(isRenamed);
    EXPECT_EQ(renamed, pictureOf(cardholder).instances.front());
    const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(cardholder);
    EXPECT_EQ(0, me->findManagedEntityInstance(renamed));
    EXPECT_NE(0, me->findManagedEntityInstance(first));
    EXPECT_EQ(1U, onu.upload(classes(), true).count({cardholder, renamed}));
}
