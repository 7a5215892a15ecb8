#ifndef TESTS_MODEL_MESSAGE_H
#define TESTS_MODEL_MESSAGE_H

#include <cstdint>
#include <string>

#include "ClassList.h"

/// Frames as G.988 lays them out, written down once more, so that a slip of the host's codec shows.
namespace model {

enum Type : std::uint8_t
{
    CREATE = 4,
    DELETE = 6,
    SET = 8,
    GET = 9,
    MIB_UPLOAD = 13,
    MIB_UPLOAD_NEXT = 14,
    MIB_RESET = 15,
    GET_NEXT = 26,
    GET_CURRENT_DATA = 28,
    SET_TABLE = 29
};

struct Request
{
    std::uint8_t type = GET;
    bool isExtended = false;
    bool wantsAnswer = true;
    std::uint16_t classId = 0;
    std::uint16_t instance = 0;
    Bytes contents;  ///< of a baseline frame, without the padding
};

Bytes frameOf(const Request& request, std::uint16_t transactionId);
/// The frame that answers the request with these contents; its MIC is zero.
Bytes answerOf(const Request& request, std::uint16_t transactionId, const Bytes& contents);

std::string hexOf(const Bytes& bytes);
/// "set 47/258 1000 0001", for people.
std::string textOf(const Request& request);

void add16(Bytes& bytes, unsigned int number);

}  // namespace model

#endif
