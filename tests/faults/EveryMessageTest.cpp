// Every message type at every class, with a hardware layer that is absent, does nothing, fails or throws: a well-formed
// answer to each, and an ONU that still uploads its MIB.

#include <optional>

#include "BrokenHardware.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "host/QuietHardware.h"
#include "model/Subject.h"

using namespace model;

namespace {

constexpr std::uint16_t kUnknownClass = 0xF000;
constexpr std::uint8_t kMessageTypes = 32;
constexpr std::size_t kBaselineFrame = 48;

enum class Layer
{
    Absent,
    Quiet,
    Fails,
    Throws
};

void PrintTo(Layer layer, std::ostream* out)
{
    constexpr const char* names[] = {"absent", "quiet", "fails", "throws"};
    *out << names[static_cast<std::size_t>(layer)];
}

/// Alarms, attribute value changes and test results are the ONU's to send.
bool isNotification(std::uint8_t type)
{
    return type == 16 || type == 17 || type == 27;
}

/// Contents that mean something to most messages: all attributes, or a small number.
Bytes contentsFor(std::uint8_t type, const EntityClass* entity, bool isExtended)
{
    Bytes contents;
    const auto addValues = [&](char letter) {
        for (const Attribute& attribute : entity->attributes) {
            if (attribute.has(letter)) {
                contents.insert(contents.end(), attribute.size, std::uint8_t{1});
            }
        }
    };
    if (entity != nullptr && type == CREATE) {
        addValues('C');
    } else if (entity != nullptr && type == SET) {
        add16(contents, entity->maskOf('W'));
        addValues('W');
    } else if (type == GET || type == GET_CURRENT_DATA) {
        add16(contents, 0xFFFF);
    } else {
        contents.assign(isExtended ? 4 : 32, 1);
    }
    if (!isExtended) {
        contents.resize(32);
    }
    return contents;
}

class EveryMessage : public ::testing::TestWithParam<Layer>
{
protected:
    EveryMessage() : onu(GetParam() == Layer::Absent ? HardwareLayer::Absent : HardwareLayer::Silent)
    {
        if (GetParam() == Layer::Quiet) {
            OmciManagedEntityRegistrar::getInstance()->setOmciHardwareIfc(&m_Quiet);
        } else if (GetParam() != Layer::Absent) {
            m_Broken.emplace(GetParam() == Layer::Fails ? BrokenHardware::Manner::Fails
                                                        : BrokenHardware::Manner::Throws);
        }
    }

    static const ClassList& classes()
    {
        static const ClassList list = readClassList(CLASS_LIST_DIRECTORY);
        return list;
    }

    static const EntityClass* find(std::uint16_t classId)
    {
        const auto found = classes().find(classId);
        return found == classes().end() ? nullptr : &found->second;
    }

    /// The first instance; 1, made now where an OLT may, when there is none.
    std::uint16_t instanceOf(std::uint16_t classId)
    {
        const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(classId);
        unsigned short instance = 1;
        if (me != nullptr && me->getFirstManagedEntityInstance(&instance) != 0) {
            instance = 1;
            try {
                me->createManagedEntityInstance(instance, true);
            } catch (const std::runtime_error&) {
                // The hardware's; the instance is there or is not.
            }
        }
        return instance;
    }

    /// What makes the frame no answer to the request; empty when it is one.
    std::string complaint(const Request& request, const Bytes& answer) const
    {
        const std::size_t head = request.isExtended ? 10 : 8;
        if (answer.size() < head) {
            return "no answer";
        }
        const std::size_t length = request.isExtended ? answer[8] * 256U + answer[9] : 32U;
        const Bytes contents(answer.begin() + static_cast<std::ptrdiff_t>(head),
                             answer.begin() + static_cast<std::ptrdiff_t>(std::min(head + length, answer.size())));
        const std::size_t whole = request.isExtended ? head + length + 4 : kBaselineFrame;
        const bool isAnswer = answer == answerOf(request, onu.lastTransactionId(), contents);
        return answer.size() == whole && isAnswer ? "" : "not well-formed: " + hexOf(answer);
    }

    void askEverything(std::uint16_t classId)
    {
        for (const bool isExtended : {false, true}) {
            for (std::uint8_t type = 0; type < kMessageTypes; ++type) {
                const std::uint16_t instance = instanceOf(classId);
                const Request request{type,    isExtended, true,
                                      classId, instance,   contentsFor(type, find(classId), isExtended)};
                const Bytes answer = onu.ask(request);
                const std::string found =
                    isNotification(type) ? (answer.empty() ? "" : "an answer") : complaint(request, answer);
                EXPECT_EQ("", found) << "type " << int{type} << (isExtended ? ", extended, " : ", baseline, ")
                                     << classId << "/" << instance;
            }
        }
    }

    void mendHardware() { m_Broken.reset(); }

private:
    omci::QuietHardware m_Quiet;

protected:
    Subject onu;

private:
    std::optional<BrokenHardware> m_Broken;
};

}  // namespace

TEST_P(EveryMessage, GetsAWellFormedAnswerFromEveryClass)
{
    for (const auto& [classId, entity] : classes()) {
        askEverything(classId);
    }
    askEverything(kUnknownClass);
}

TEST_P(EveryMessage, LeavesAnOnuThatUploadsItsMib)
{
    for (const auto& [classId, entity] : classes()) {
        askEverything(classId);
    }
    mendHardware();
    for (const bool isExtended : {false, true}) {
        const UploadedValues uploaded = onu.upload(classes(), isExtended);
        for (const auto& [classId, entity] : classes()) {
            unsigned short instance = 0;
            const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(classId);
            if (entity.isInMibUpload && me->getFirstManagedEntityInstance(&instance) == 0) {
                EXPECT_EQ(1U, uploaded.count({classId, instance})) << classId << "/" << instance;
            }
        }
    }
}

TEST(BrokenRead, LeavesItsAttributeAloneOutOfTheMibUpload)
{
    const ClassList classes = readClassList(CLASS_LIST_DIRECTORY);
    constexpr std::uint16_t aniG = 263;
    constexpr std::uint16_t opticalSignalLevel = 0x0040;
    Subject onu(HardwareLayer::Silent);
    UploadedValues expected = onu.upload(classes, false);
    ON_CALL(onu.hardwareLayer(), refreshAniOpticalSignalLevel)
        .WillByDefault(::testing::Throw(std::runtime_error("no answer")));
    for (auto& [key, values] : expected) {
        EXPECT_EQ(key.first == aniG ? 1U : 0U, key.first == aniG ? values.erase(opticalSignalLevel) : 0U);
    }
    EXPECT_EQ(expected, onu.upload(classes, false));
    EXPECT_EQ(expected, onu.upload(classes, true));
}

INSTANTIATE_TEST_SUITE_P(HardwareLayer, EveryMessage,
                         ::testing::Values(Layer::Absent, Layer::Quiet, Layer::Fails, Layer::Throws),
                         ::testing::PrintToStringParamName());
