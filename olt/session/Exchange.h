#ifndef OLT_SESSION_EXCHANGE_H
#define OLT_SESSION_EXCHANGE_H

#include <string>

#include "model/Errors.h"
#include "session/Operations.h"

// Small pieces that every request and its answer need.
namespace olt {

/// "get of AniG (263) instance 1025"
inline std::string about(const EntityId& entity, omci::MessageType type)
{
    return std::string(omci::messageTypeName(type)) + " of " + entity.entityClass->label() + " instance " +
           std::to_string(entity.instance);
}

/// The parsed contents. Throws BadAnswer that says whose answer was too short.
template <typename T>
T orBadAnswer(const std::optional<T>& parsed, const EntityId& entity, omci::MessageType type)
{
    if (!parsed)
        throw BadAnswer("the answer to " + about(entity, type) + " is too short");
    return *parsed;
}

inline Request requestTo(const EntityId& entity, omci::MessageType type, Bytes contents = {})
{
    return {type, entity.entityClass->id, entity.instance, std::move(contents)};
}

/// Contents from one of the layouts, whose `write` wants room for the largest message.
template <typename Writer>
Bytes written(Writer write)
{
    Bytes contents(omci::kMaximumContentLength);
    contents.resize(write(contents.data()));
    return contents;
}

}  // namespace olt

#endif
