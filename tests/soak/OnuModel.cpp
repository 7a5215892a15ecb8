#include "OnuModel.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "host/MessageLayout.h"

namespace soak {

namespace {

using omci::MessageType;
using omci::Result;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint16_t kOnuData = 2;
constexpr std::uint16_t kPptpEthernetUni = 11;
constexpr std::uint16_t kTagging = 171;
constexpr std::uint16_t kOnuG = 256;
constexpr std::uint16_t kOnu2G = 257;
constexpr std::uint16_t kTCont = 262;
constexpr std::uint16_t kGemPort = 268;

constexpr std::uint16_t kFirstGemPort = 0x400;
constexpr std::uint16_t kFirstTCont = 256;
constexpr std::uint16_t kFirstUni = 257;
constexpr std::uint16_t kTaggingInstance = 1;

/// So many steps lie between two of these, which take the ONU longer than the others.
constexpr unsigned kStepsToUpload = 20011;
constexpr unsigned kStepsToAlarms = 5003;
constexpr unsigned kStepsToTest = 1009;
constexpr unsigned kStepsToDownload = 10007;
constexpr unsigned kStepsToReset = 100003;
constexpr unsigned kStepsToReboot = 500009;

void append(Bytes& bytes, std::uint32_t value, unsigned octets)
{
    while (octets-- > 0) {
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * octets)));
    }
}

Bytes pack(std::initializer_list<std::pair<std::uint32_t, unsigned>> fields)
{
    Bytes bytes;
    for (const auto& [value, octets] : fields) {
        append(bytes, value, octets);
    }
    return bytes;
}

std::string checkResult(const omci::FrameView& answer, Result wanted)
{
    const auto response = omci::parseResultResponse(answer);
    if (!response) {
        return "an answer without a result";
    }
    return response->result == wanted ? ""
                                      : std::string("result ") + omci::resultName(response->result) + " instead of " +
                                            omci::resultName(wanted);
}

Check result(Result wanted)
{
    return [wanted](const omci::FrameView& answer) { return checkResult(answer, wanted); };
}

std::string hex(const std::uint8_t* octets, std::size_t size)
{
    static const char* const digits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        text += digits[octets[i] >> 4];
        text += digits[octets[i] & 0xF];
    }
    return text;
}

Check values(std::uint16_t mask, Bytes wanted)
{
    return [mask, wanted = std::move(wanted)](const omci::FrameView& answer) -> std::string {
        std::string problem = checkResult(answer, Result::Success);
        const auto response = omci::parseGetResponse(answer);
        if (!problem.empty() || !response || response->mask != mask) {
            return problem.empty() ? "other attributes than those asked for" : problem;
        }
        const bool isThere =
            response->values.size >= wanted.size() && std::equal(wanted.begin(), wanted.end(), response->values.data);
        return isThere ? ""
                       : "values " + hex(response->values.data, std::min(wanted.size(), response->values.size)) +
                             " instead of " + hex(wanted.data(), wanted.size());
    };
}

/// A row that gives single-tagged frames of one VID another, G.988 9.3.13; or takes it back.
Bytes vlanRow(unsigned vid, bool isSet)
{
    constexpr std::uint32_t noTag = 15U << 28 | 4096U << 15;
    const std::uint32_t inner = 8U << 28 | vid << 15;
    return isSet ? pack({{noTag, 4}, {inner, 4}, {1U << 30 | 15U << 16, 4}, {8U << 16 | (vid + 1000) << 3, 4}})
                 : pack({{noTag, 4}, {inner, 4}, {0xFFFFFFFF, 4}, {0xFFFFFFFF, 4}});
}

}  // namespace

void OnuModel::send(MessageType type, std::uint16_t entityClass, std::uint16_t entityInstance, Bytes contents,
                    Check check)
{
    m_Peer.send({type, drawFormat(), entityClass, entityInstance, std::move(contents)}, std::move(check));
}

/// The MIB data sync counts creates, deletes and sets from 1 to 255 and begins again with 1.
void OnuModel::changed()
{
    m_DataSync = m_DataSync == 255 ? std::uint8_t{1} : static_cast<std::uint8_t>(m_DataSync + 1);
}

void OnuModel::forget()
{
    m_DataSync = 0;
    m_GemPorts = {};
    m_AllocIds = {};
    m_VlanRows = {};
    m_HasTagging = false;
}

void OnuModel::begin()
{
    resetMib();
    for (const auto& [entityClass, instance, mask] :
         {std::array<std::uint16_t, 3>{kOnuG, 0, 0xC000}, std::array<std::uint16_t, 3>{kOnu2G, 0, 0x8000},
          std::array<std::uint16_t, 3>{kPptpEthernetUni, kFirstUni, 0xC000}}) {
        const auto read = std::make_shared<Bytes>();
        send(MessageType::Get, entityClass, instance, pack({{mask, 2}}), [read](const omci::FrameView& answer) {
            const auto response = omci::parseGetResponse(answer);
            if (response) {
                // Behind the values of a baseline answer stand zeros.
                read->assign(response->values.data,
                             response->values.data + std::min<std::size_t>(response->values.size, 2));
            }
            return checkResult(answer, Result::Success);
        });
        m_Peer.finish();
        m_Constants.push_back({entityClass, instance, mask, *read});
    }
}

void OnuModel::step()
{
    ++m_Steps;
    doOnuWide();
    const unsigned kind = draw(100);
    if (kind < 70) {
        useGemPort();
    } else if (kind < 80) {
        useTCont();
    } else if (kind < 85) {
        useVlanRow();
    } else if (kind < 90) {
        readConstant();
    } else if (kind < 95) {
        readDataSync();
    } else if (kind < 98) {
        askForWhatIsNotThere();
    } else {
        sendRubbish();
    }
}

void OnuModel::doOnuWide()
{
    const std::pair<unsigned, void (OnuModel::*)()> rare[] = {
        {kStepsToTest, &OnuModel::testAndSetTime}, {kStepsToAlarms, &OnuModel::readAlarms},
        {kStepsToUpload, &OnuModel::upload},       {kStepsToDownload, &OnuModel::downloadDamaged},
        {kStepsToReset, &OnuModel::resetMib},      {kStepsToReboot, &OnuModel::reboot}};
    for (const auto& [steps, what] : rare) {
        if (m_Steps % steps == 0) {
            (this->*what)();
        }
    }
}

void OnuModel::useGemPort()
{
    const unsigned number = draw(kGemPorts);
    const unsigned kind = draw(16);
    if (kind == 0) {
        deleteGemPort(number);
    } else if (kind == 1 || (!m_GemPorts[number] && kind < 12)) {
        createGemPort(number);
    } else if (kind < 6) {
        setGemPort(number);
    } else {
        getGemPort(number);
    }
}

void OnuModel::createGemPort(unsigned number)
{
    const auto portId = static_cast<std::uint16_t>(draw(0xFFF));
    const bool isThere = m_GemPorts[number].has_value();
    send(MessageType::Create, kGemPort, static_cast<std::uint16_t>(kFirstGemPort + number),
         pack({{portId, 2}, {0, 2}, {3, 1}, {0, 2}, {0, 2}, {0, 2}, {0, 2}, {0, 1}}),
         result(isThere ? Result::InstanceExists : Result::Success));
    if (!isThere) {
        m_GemPorts[number] = GemPort{portId, 0};
        changed();
    }
}

void OnuModel::setGemPort(unsigned number)
{
    const auto portId = static_cast<std::uint16_t>(draw(0xFFF));
    const auto descriptor = static_cast<std::uint16_t>(draw(0xFFFF));
    const bool isThere = m_GemPorts[number].has_value();
    send(MessageType::Set, kGemPort, static_cast<std::uint16_t>(kFirstGemPort + number),
         pack({{0x8800, 2}, {portId, 2}, {descriptor, 2}}),
         result(isThere ? Result::Success : Result::UnknownInstance));
    if (isThere) {
        m_GemPorts[number] = GemPort{portId, descriptor};
        changed();
    }
}

void OnuModel::getGemPort(unsigned number)
{
    const auto& port = m_GemPorts[number];
    send(MessageType::Get, kGemPort, static_cast<std::uint16_t>(kFirstGemPort + number), pack({{0x8800, 2}}),
         port ? values(0x8800, pack({{port->portId, 2}, {port->upstreamDescriptor, 2}}))
              : result(Result::UnknownInstance));
}

void OnuModel::deleteGemPort(unsigned number)
{
    const bool isThere = m_GemPorts[number].has_value();
    send(MessageType::Delete, kGemPort, static_cast<std::uint16_t>(kFirstGemPort + number), {},
         result(isThere ? Result::Success : Result::UnknownInstance));
    if (isThere) {
        m_GemPorts[number].reset();
        changed();
    }
}

void OnuModel::useTCont()
{
    const unsigned number = draw(kTConts);
    const auto instance = static_cast<std::uint16_t>(kFirstTCont + number);
    auto& allocId = m_AllocIds[number];
    if (!allocId || draw(3) == 0) {
        allocId = static_cast<std::uint16_t>(1024 + draw(1000));
        send(MessageType::Set, kTCont, instance, pack({{0x8000, 2}, {*allocId, 2}}), result(Result::Success));
        changed();
    } else {
        send(MessageType::Get, kTCont, instance, pack({{0x8000, 2}}), values(0x8000, pack({{*allocId, 2}})));
    }
}

void OnuModel::useVlanRow()
{
    if (!std::exchange(m_HasTagging, true)) {
        send(MessageType::Create, kTagging, kTaggingInstance, pack({{2, 1}, {kFirstUni, 2}}), result(Result::Success));
        changed();
    }
    const unsigned number = draw(kVlanRows);
    bool& isSet = m_VlanRows[number];
    isSet = !isSet;
    Bytes contents = pack({{0x0400, 2}});
    const Bytes row = vlanRow(100 + number, isSet);
    contents.insert(contents.end(), row.begin(), row.end());
    send(MessageType::Set, kTagging, kTaggingInstance, std::move(contents), result(Result::Success));
    changed();
}

void OnuModel::readConstant()
{
    const Constant& constant = m_Constants[draw(static_cast<unsigned>(m_Constants.size()))];
    send(MessageType::Get, constant.entityClass, constant.entityInstance, pack({{constant.mask, 2}}),
         values(constant.mask, constant.values));
}

void OnuModel::readDataSync()
{
    send(MessageType::Get, kOnuData, 0, pack({{0x8000, 2}}), values(0x8000, {m_DataSync}));
}

void OnuModel::askForWhatIsNotThere()
{
    constexpr std::uint16_t unknownClass = 9999;
    if (draw(2) == 0) {
        send(MessageType::Get, unknownClass, 0, pack({{0x8000, 2}}), result(Result::UnknownManagedEntity));
    } else {
        send(MessageType::Get, kGemPort, 0xFFF0, pack({{0x8000, 2}}), result(Result::UnknownInstance));
    }
}

/// Octets of no kind of frame, and frames that are no requests: the ONU answers none of them.
void OnuModel::sendRubbish()
{
    Bytes octets(draw(60) + 1);
    for (std::uint8_t& octet : octets) {
        octet = static_cast<std::uint8_t>(m_Chance());
    }
    if (octets.size() > 3) {
        octets[2] = 0x29;  // a get response
        octets[3] = draw(2) == 0 ? 0x0A : 0x00;
    }
    m_Peer.sendRubbish(octets);
    readDataSync();
}

void OnuModel::testAndSetTime()
{
    send(MessageType::Test, kOnuG, 0, {7}, result(Result::Success));
    send(MessageType::SynchronizeTime, kOnuG, 0,
         pack({{2030, 2}, {1 + draw(12), 1}, {1 + draw(28), 1}, {draw(24), 1}, {draw(60), 1}, {draw(60), 1}}),
         result(Result::Success));
}

void OnuModel::upload()
{
    const omci::Format format = drawFormat();
    const auto count = std::make_shared<unsigned>(0);
    m_Peer.send({MessageType::MibUpload, format, kOnuData, 0, {}}, [count](const omci::FrameView& answer) {
        const auto response = omci::parseCountResponse(answer);
        *count = response ? response->count : 0;
        return *count != 0 ? "" : "an upload of nothing";
    });
    m_Peer.finish();
    for (unsigned sequence = 0; sequence < *count; ++sequence) {
        m_Peer.send({MessageType::MibUploadNext, format, kOnuData, 0, pack({{sequence, 2}})},
                    [](const omci::FrameView& answer) {
                        omci::UploadedEntities entities(answer);
                        omci::UploadedEntity entity;
                        return entities.next(entity) ? "" : "an empty part of an upload";
                    });
    }
}

/// An image of two sections with a wrong CRC, which the ONU takes and then refuses.
void OnuModel::downloadDamaged()
{
    constexpr std::uint16_t softwareImage = 7;
    constexpr std::uint16_t instance = 1;
    constexpr unsigned imageSize = 2 * omci::kBaselineSectionRoom;
    const auto ask = [this](MessageType type, Bytes contents, Check check) {
        m_Peer.send({type, omci::Format::Baseline, softwareImage, instance, std::move(contents)}, std::move(check));
    };
    ask(MessageType::StartSoftwareDownload, pack({{1, 1}, {imageSize, 4}, {1, 1}, {instance, 2}}),
        result(Result::Success));
    for (int i = 0; i < 2; ++i) {
        Bytes contents(1 + omci::kBaselineSectionRoom, static_cast<std::uint8_t>(draw(256)));
        contents[0] = 0;
        ask(MessageType::DownloadSection, std::move(contents), result(Result::Success));
    }
    ask(MessageType::EndSoftwareDownload, pack({{0xDEADBEEF, 4}, {imageSize, 4}, {1, 1}, {instance, 2}}),
        result(Result::ProcessingError));
}

void OnuModel::readAlarms()
{
    send(MessageType::GetAllAlarms, kOnuData, 0, {0}, [](const omci::FrameView& answer) {
        return omci::parseCountResponse(answer) ? "" : "an answer without a count";
    });
}

void OnuModel::resetMib()
{
    forget();
    send(MessageType::MibReset, kOnuData, 0, {}, result(Result::Success));
}

/// The library restarts behind the reply; what is asked before that still finds the old MIB.
void OnuModel::reboot()
{
    constexpr std::chrono::milliseconds pause{5};
    constexpr unsigned mostQuestions = 4000;
    send(MessageType::Set, kTCont, kFirstTCont, pack({{0x8000, 2}, {1024, 2}}), result(Result::Success));
    send(MessageType::Reboot, kOnuG, 0, {0}, result(Result::Success));
    m_Peer.finish();
    forget();
    const auto sync = std::make_shared<int>(-1);
    for (unsigned i = 0; *sync != 0; ++i) {
        if (i == mostQuestions) {
            throw Failure("the ONU does not come back with an empty MIB after a reboot");
        }
        send(MessageType::Get, kOnuData, 0, pack({{0x8000, 2}}), [sync](const omci::FrameView& answer) {
            const auto response = omci::parseGetResponse(answer);
            *sync = response && response->values.size != 0 ? response->values.data[0] : -1;
            return checkResult(answer, Result::Success);
        });
        m_Peer.finish();
        std::this_thread::sleep_for(pause);
    }
}

}  // namespace soak
