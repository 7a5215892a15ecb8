#include "FuzzedOnu.h"

#include "Logger.h"
#include "MibAccess.h"
#include "OmciMeFactory.h"
#include "host/LogSink.h"
#include "sandbox/Sandbox.h"

namespace fuzz {
namespace {

constexpr unsigned kInputsPerLife = 2000;
constexpr std::uint16_t kOnuData = 2;
constexpr omci::MessageType kMessages[] = {omci::MessageType::Create,
                                           omci::MessageType::Delete,
                                           omci::MessageType::Set,
                                           omci::MessageType::Get,
                                           omci::MessageType::GetAllAlarms,
                                           omci::MessageType::GetAllAlarmsNext,
                                           omci::MessageType::MibUpload,
                                           omci::MessageType::MibUploadNext,
                                           omci::MessageType::MibReset,
                                           omci::MessageType::Test,
                                           omci::MessageType::Set,
                                           omci::MessageType::Create,
                                           omci::MessageType::StartSoftwareDownload,
                                           omci::MessageType::DownloadSection,
                                           omci::MessageType::EndSoftwareDownload,
                                           omci::MessageType::ActivateImage,
                                           omci::MessageType::CommitImage,
                                           omci::MessageType::SynchronizeTime,
                                           omci::MessageType::Reboot,
                                           omci::MessageType::GetNext,
                                           omci::MessageType::GetCurrentData,
                                           omci::MessageType::SetTable};

const OmciMe* drawClass(FuzzedDataProvider& data)
{
    // Asked anew: each ONU has adapters of its own.
    const std::vector<OmciMe*> classes = mib::registeredClasses();
    return data.PickValueInArray({true, false})
               ? OmciMeFactory::getInstance()->getManagedEntity(
                     data.PickValueInArray<unsigned short>({7, 45, 47, 84, 130, 171, 256, 263, 266, 268}))
               : classes[data.ConsumeIntegralInRange<std::size_t>(0, classes.size() - 1)];
}

std::uint16_t drawInstance(FuzzedDataProvider& data, const OmciMe& me)
{
    const std::vector<unsigned short> instances = mib::instancesOf(me);
    if (!instances.empty() && data.ConsumeBool()) {
        return instances[data.ConsumeIntegralInRange<std::size_t>(0, instances.size() - 1)];
    }
    return data.ConsumeBool() ? data.ConsumeIntegralInRange<std::uint16_t>(0, 4)
                              : data.ConsumeIntegral<std::uint16_t>();
}

/// Values of the right length for the mask, for the class's own attributes.
void addValues(FuzzedDataProvider& data, const OmciMe& me, std::uint16_t mask, Bytes& contents)
{
    for (const attributeDefinition& attribute : mib::attributesOf(me)) {
        if ((attribute.attributeMask & mask) != 0) {
            Bytes value = data.ConsumeBytes<std::uint8_t>(attribute.attributeSize);
            value.resize(attribute.attributeSize);
            contents.insert(contents.end(), value.begin(), value.end());
        }
    }
}

Bytes drawContents(FuzzedDataProvider& data, const OmciMe& me, omci::MessageType type, bool extended)
{
    Bytes contents;
    const auto mask = data.ConsumeIntegral<std::uint16_t>();
    const auto addMask = [&] {
        contents.push_back(static_cast<std::uint8_t>(mask >> 8));
        contents.push_back(static_cast<std::uint8_t>(mask & 0xFF));
    };
    if (type == omci::MessageType::Set || type == omci::MessageType::SetTable) {
        addMask();
        addValues(data, me, mask, contents);
    } else if (type == omci::MessageType::Create) {
        addValues(data, me, 0xFFFF, contents);
    } else if (type == omci::MessageType::Get || type == omci::MessageType::GetCurrentData) {
        addMask();
    } else {
        contents = data.ConsumeBytes<std::uint8_t>(data.ConsumeIntegralInRange<std::size_t>(0, 64));
    }
    if (!extended && contents.size() > omci::kBaselineContentLength) {
        contents.resize(omci::kBaselineContentLength);
    }
    return contents;
}

void checkReply(const Bytes& request, const omci::Dispatcher::Reply& reply)
{
    if (reply.length == 0) {
        return;
    }
    const omci::Decoded decoded = omci::decode(reply.data, reply.length);
    FUZZ_CHECK(decoded);
    FUZZ_CHECK(decoded.frame.header.acknowledgement);
    const omci::Decoded asked = omci::decode(request.data(), request.size());
    FUZZ_CHECK(asked.hasHeader());
    FUZZ_CHECK(asked.frame.header.transactionId == decoded.frame.header.transactionId);
    FUZZ_CHECK(asked.frame.header.format == decoded.frame.header.format);
    FUZZ_CHECK(asked.frame.header.type == decoded.frame.header.type);
    FUZZ_CHECK(asked.frame.header.entityClass == decoded.frame.header.entityClass);
    FUZZ_CHECK(asked.frame.header.entityInstance == decoded.frame.header.entityInstance);
}

Onu::Setup defaultSetup()
{
    Onu::Setup setup;
    setup.mic = "none";
    return setup;
}

}  // namespace

Bytes frameOf(omci::FrameHeader header, const Bytes& contents)
{
    Bytes frame(omci::kMaximumFrameLength);
    frame.resize(omci::encode(header, contents.data(), contents.size(), frame.data()));
    return frame;
}

Bytes drawFrame(FuzzedDataProvider& data)
{
    const OmciMe* me = drawClass(data);
    omci::FrameHeader header;
    header.transactionId = data.ConsumeIntegral<std::uint16_t>();
    header.type = data.PickValueInArray(kMessages);
    header.acknowledgeRequest = data.ConsumeIntegralInRange(0, 9) != 0;
    header.format = data.ConsumeBool() ? omci::Format::Extended : omci::Format::Baseline;
    if (me == nullptr) {
        return frameOf(header, {});
    }
    header.entityClass = me->getManagedEntityClassId();
    header.entityInstance = drawInstance(data, *me);
    return frameOf(header, drawContents(data, *me, header.type, header.format == omci::Format::Extended));
}

FuzzedOnu& FuzzedOnu::instance()
{
    // Never destroyed: timers and the image writer may outlive main.
    static FuzzedOnu* const onu = new FuzzedOnu();
    return *onu;
}

FuzzedOnu::FuzzedOnu() : m_Onu(defaultSetup(), m_Recorder, [](const std::uint8_t*, std::size_t) {}), m_Requests(m_Onu)
{
    Logger::getInstance(omci::kLibraryLoggerId)->setLevel(0);
    Logger::getInstance(omci::kHostLoggerId)->setLevel(0);
    // What the library prints on standard output is not looked at.
    if (std::freopen("/dev/null", "w", stdout) == nullptr) {
        std::abort();
    }
    m_Onu.start();
}

void FuzzedOnu::begin(unsigned inputsPerReset)
{
    Sandbox::reset();
    m_Onu.connectHardware(true);
    m_Onu.hardware().change({{"throw", Json::array()}, {"answer_refresh", true}});
    if (++m_Inputs % kInputsPerLife == 0) {
        m_Onu.restart();
    }
    m_Onu.dispatcher().forgetRequests();
    if (m_Inputs % inputsPerReset != 0) {
        return;
    }
    omci::FrameHeader header;
    header.type = omci::MessageType::MibReset;
    header.acknowledgeRequest = true;
    header.entityClass = kOnuData;
    handle(frameOf(header, {}));
}

void FuzzedOnu::handle(const Bytes& frame)
{
    checkReply(frame, m_Onu.dispatcher().handle(frame.data(), frame.size()));
}

}  // namespace fuzz
