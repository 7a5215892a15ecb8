#include "Subject.h"

#include "Logger.h"
#include "OmciManagedEntitiesCore.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"
#include "host/HostMib.h"
#include "host/LogSink.h"

namespace model {

namespace {

constexpr std::uint16_t kOnuData = 2;
constexpr std::size_t kBaselineHeader = 8;
constexpr std::size_t kExtendedHeader = 10;
constexpr std::size_t kBaselineContents = 32;
constexpr std::size_t kMic = 4;

std::uint16_t read16(const Bytes& bytes, std::size_t offset)
{
    return static_cast<std::uint16_t>((bytes.at(offset) << 8) | bytes.at(offset + 1));
}

Bytes part(const Bytes& bytes, std::size_t offset, std::size_t size)
{
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    return {begin, begin + static_cast<std::ptrdiff_t>(size)};
}

}  // namespace

Subject::Subject(HardwareLayer layer) : m_Dispatcher(omci::Mic())
{
    Logger::getInstance(omci::kHostLoggerId)->setLevel(0);
    // Nobody reads the library's lines here; there are many.
    Logger::getInstance(omci::kLibraryLoggerId)->setObserver(nullptr, nullptr);
    startUp();
    OmciManagedEntitiesCore core;
    omci::HostMib host(*OmciManagedEntityRegistrar::getInstance(), core);
    host.registerRemainingClasses();
    host.createEthernetUnis(4);
    host.createVideoUnis(1);
    host.createVideoAnis(1);
    if (layer == HardwareLayer::Absent) {
        removeHardware();
    }
}

Bytes Subject::nextFrame(const Request& request)
{
    // 0 is no identity.
    m_TransactionId = m_TransactionId == 0xFFFF ? std::uint16_t{1} : static_cast<std::uint16_t>(m_TransactionId + 1);
    return frameOf(request, m_TransactionId);
}

Bytes Subject::ask(const Request& request)
{
    const omci::Dispatcher::Reply reply = handle(nextFrame(request));
    return {reply.data, reply.data + reply.length};
}

Bytes Subject::contentsOfAnswer(const Request& request)
{
    const Bytes frame = ask(request);
    return request.isExtended ? part(frame, kExtendedHeader, frame.size() - kExtendedHeader - kMic)
                              : part(frame, kBaselineHeader, kBaselineContents);
}

void Subject::describeStart(MibModel& mib)
{
    constexpr std::size_t valuesOffset = 7;
    for (const auto& [classId, entity] : mib.classes()) {
        const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(classId);
        ASSERT_NE(nullptr, me) << classId;
        unsigned short instance = 0;
        for (int more = me->getFirstManagedEntityInstance(&instance); more == 0;
             more = me->getNextManagedEntityInstance(&instance)) {
            std::map<std::uint16_t, Bytes> values;
            for (const Attribute& attribute : entity.attributes) {
                Request request{GET, true, true, classId, instance, {}};
                add16(request.contents, attribute.mask);
                if (attribute.has('R')) {
                    values[attribute.mask] = part(contentsOfAnswer(request), valuesOffset, attribute.readSize());
                }
            }
            mib.addStartInstance(classId, instance, values);
        }
    }
}

void Subject::addUploaded(const ClassList& classes, const Bytes& contents, bool isExtended, UploadedValues& uploaded)
{
    std::size_t offset = 0;
    while (offset + 6 <= contents.size()) {
        // Extended entities begin with the length of their values.
        offset += isExtended ? 2 : 0;
        const std::uint16_t classId = read16(contents, offset);
        auto& values = uploaded[{classId, read16(contents, offset + 2)}];
        const std::uint16_t mask = read16(contents, offset + 4);
        offset += 6;
        for (const Attribute& attribute : classes.at(classId).attributes) {
            if ((attribute.mask & mask) != 0) {
                values[attribute.mask] = part(contents, offset, attribute.size);
                offset += attribute.size;
            }
        }
        offset = isExtended ? offset : contents.size();
    }
}

UploadedValues Subject::upload(const ClassList& classes, bool isExtended)
{
    UploadedValues uploaded;
    const unsigned int count = read16(contentsOfAnswer({MIB_UPLOAD, isExtended, true, kOnuData, 0, {}}), 0);
    for (unsigned int number = 0; number < count; ++number) {
        Request request{MIB_UPLOAD_NEXT, isExtended, true, kOnuData, 0, {}};
        add16(request.contents, number);
        addUploaded(classes, contentsOfAnswer(request), isExtended, uploaded);
    }
    return uploaded;
}

}  // namespace model
