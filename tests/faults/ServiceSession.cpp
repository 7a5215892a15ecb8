#include "ServiceSession.h"

#include <algorithm>

#include "OmciMe.h"
#include "OmciMeFactory.h"

using namespace model;

Request ask(std::uint8_t type, std::uint16_t classId, std::uint16_t instance, Bytes contents)
{
    return {type, false, true, classId, instance, std::move(contents)};
}

/// A service as an OLT sets it up and takes it down, with each kind of message that changes the MIB or reads it.
std::vector<Request> serviceSession()
{
    constexpr std::uint8_t getAllAlarms = 11;
    const Bytes tagFilter(26, 1);
    // Untagged frames get VID 100.
    const Bytes setRow = {0x04, 0x00, 0xF8, 0, 0, 0, 0xF8, 0, 0, 0, 0, 0x0F, 0, 0, 0, 0x03, 0x20, 0};
    return {ask(MIB_RESET, 2, 0),
            ask(MIB_UPLOAD, 2, 0),
            ask(MIB_UPLOAD_NEXT, 2, 0, {0, 1}),
            ask(SET, 262, 256, {0x80, 0, 4, 0}),
            ask(CREATE, 268, 1, {3, 0xE9, 1, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0}),
            ask(CREATE, 272, 1, {0, 0x30}),
            ask(CREATE, 130, 1, Bytes(22, 0xFF)),
            ask(CREATE, 266, 1, {0, 1, 5, 0, 1, 0, 0, 0, 0, 1}),
            ask(SET, 130, 1, {0x40, 0, 0, 1}),
            ask(CREATE, 45, 1, Bytes(32)),
            ask(CREATE, 47, 2, {0, 1, 2, 1, 1, 1}),
            ask(CREATE, 84, 2, tagFilter),
            ask(CREATE, 171, 1, {2, 1, 1}),
            ask(SET, 171, 1, setRow),
            ask(CREATE, 302, 1, Bytes(24)),
            ask(CREATE, 334, 1, Bytes(16)),
            ask(CREATE, 341, 1, {0, 0}),
            ask(GET, 334, 1, {0xC0, 0}),
            ask(GET, 341, 1, {0xFF, 0}),
            ask(GET_CURRENT_DATA, 24, 1, {0xFF, 0}),
            ask(SET, 256, 0, {0x02, 0, 1}),
            ask(SET, 11, 257, {0x08, 0, 1}),
            ask(GET, 7, 0, {0xF0, 0}),
            ask(GET_NEXT, 158, 0, {0x20, 0, 0, 0}),
            ask(getAllAlarms, 2, 0),
            ask(DELETE, 171, 1),
            ask(DELETE, 84, 2),
            ask(DELETE, 47, 2),
            ask(DELETE, 45, 1),
            ask(DELETE, 334, 1),
            ask(DELETE, 302, 1),
            ask(MIB_RESET, 2, 0)};
}

std::vector<Request> everyClassSession(const ClassList& classes)
{
    constexpr std::uint8_t test = 18;
    constexpr std::uint16_t instanceOfOlt = 5;
    std::vector<Request> session;
    for (const auto& [classId, entity] : classes) {
        const auto values = [&entity = entity](char letter) {
            Bytes octets;
            for (const Attribute& attribute : entity.attributes) {
                octets.insert(octets.end(), attribute.has(letter) ? attribute.size : 0, std::uint8_t{1});
            }
            return octets;
        };
        const auto masked = [](std::uint16_t mask, const Bytes& octets) {
            Bytes contents;
            add16(contents, mask);
            contents.insert(contents.end(), octets.begin(), octets.end());
            return contents;
        };
        unsigned short instance = instanceOfOlt;
        const OmciMe* const me = OmciMeFactory::getInstance()->getManagedEntity(classId);
        if (entity.isCreatedByOlt) {
            session.push_back({CREATE, true, true, classId, instance, values('C')});
        } else if (me == nullptr || me->getFirstManagedEntityInstance(&instance) != 0) {
            continue;
        }
        session.push_back({SET, true, true, classId, instance, masked(entity.maskOf('W'), values('W'))});
        session.push_back({GET, true, true, classId, instance, {0xFF, 0xFF}});
        session.push_back({GET_CURRENT_DATA, true, true, classId, instance, {0xFF, 0xFF}});
        session.push_back({test, false, true, classId, instance, {7}});
        if (entity.isCreatedByOlt) {
            session.push_back({DELETE, true, true, classId, instance, {}});
        }
    }
    return session;
}

bool isAnswerTo(const Request& request, std::uint16_t transactionId, const Bytes& frame)
{
    const std::size_t head = request.isExtended ? 10 : 8;
    constexpr std::size_t mic = 4;
    constexpr std::size_t baselineContents = 32;
    if (frame.size() < head + mic) {
        return false;
    }
    const std::size_t length = request.isExtended ? frame[8] * 256U + frame[9] : baselineContents;
    const auto begin = frame.begin() + static_cast<std::ptrdiff_t>(head);
    const auto end = frame.begin() + static_cast<std::ptrdiff_t>(std::min(head + length, frame.size()));
    return frame == answerOf(request, transactionId, Bytes(begin, end));
}
