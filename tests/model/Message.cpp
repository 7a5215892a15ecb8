#include "Message.h"

#include <cstdio>
#include <map>

namespace model {

namespace {

constexpr std::size_t kBaselineContents = 32;
constexpr std::uint8_t kAcknowledgeRequest = 0x40;
constexpr std::uint8_t kAcknowledgement = 0x20;

Bytes frame(const Request& request, std::uint16_t transactionId, std::uint8_t flag, Bytes contents)
{
    Bytes bytes;
    add16(bytes, transactionId);
    bytes.push_back(static_cast<std::uint8_t>(request.type | flag));
    bytes.push_back(request.isExtended ? 0x0B : 0x0A);
    add16(bytes, request.classId);
    add16(bytes, request.instance);
    if (request.isExtended) {
        add16(bytes, static_cast<unsigned int>(contents.size()));
    } else {
        contents.resize(kBaselineContents);
        const Bytes trailer = {0, 0, 0, 0x28};
        contents.insert(contents.end(), trailer.begin(), trailer.end());
    }
    bytes.insert(bytes.end(), contents.begin(), contents.end());
    bytes.insert(bytes.end(), 4, 0);
    return bytes;
}

std::string nameOf(std::uint8_t type)
{
    static const std::map<std::uint8_t, std::string> names = {{CREATE, "create"},
                                                              {DELETE, "delete"},
                                                              {SET, "set"},
                                                              {GET, "get"},
                                                              {MIB_UPLOAD, "MIB upload"},
                                                              {MIB_UPLOAD_NEXT, "MIB upload next"},
                                                              {MIB_RESET, "MIB reset"},
                                                              {GET_CURRENT_DATA, "get current data"},
                                                              {SET_TABLE, "set table"},
                                                              {GET_NEXT, "get next"}};
    return names.at(type);
}

}  // namespace

void add16(Bytes& bytes, unsigned int number)
{
    bytes.push_back(static_cast<std::uint8_t>(number >> 8));
    bytes.push_back(static_cast<std::uint8_t>(number));
}

Bytes frameOf(const Request& request, std::uint16_t transactionId)
{
    return frame(request, transactionId, request.wantsAnswer ? kAcknowledgeRequest : 0, request.contents);
}

Bytes answerOf(const Request& request, std::uint16_t transactionId, const Bytes& contents)
{
    return frame(request, transactionId, kAcknowledgement, contents);
}

std::string hexOf(const Bytes& bytes)
{
    std::string text;
    char digits[3];
    for (const std::uint8_t byte : bytes) {
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

std::string textOf(const Request& request)
{
    return nameOf(request.type) + (request.isExtended ? ", extended, " : " ") + std::to_string(request.classId) + "/" +
           std::to_string(request.instance) + " " + hexOf(request.contents) +
           (request.wantsAnswer ? "" : " (no answer wanted)");
}

}  // namespace model
