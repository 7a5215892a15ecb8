#include "app/Report.h"

#include "model/Hex.h"
#include "model/Value.h"

namespace olt {

namespace {

std::string listed(const EntityClass& entity, const char* label, std::uint16_t mask)
{
    std::string text;
    for (const auto& name : entity.attributeNames(mask))
        text += (text.empty() ? std::string("; ") + label + " " : ", ") + name;
    return text;
}

}  // namespace

std::string entityLabel(const EntityId& entity)
{
    return entity.entityClass->label() + " instance " + std::to_string(entity.instance) + " (0x" +
           toHex(bigEndianBytes(entity.instance, 2)) + ")";
}

Output::Json resultJson(const std::string& command, const EntityId& entity, const Outcome& outcome)
{
    Output::Json json{{"command", command},
                      {"class", entity.entityClass->id},
                      {"name", entity.entityClass->shortName},
                      {"instance", entity.instance},
                      {"result", static_cast<unsigned>(outcome.result)},
                      {"result_text", omci::resultName(outcome.result)}};
    if (outcome.failed != 0)
        json["failed"] = entity.entityClass->attributeNames(outcome.failed);
    if (outcome.unsupported != 0)
        json["unsupported"] = entity.entityClass->attributeNames(outcome.unsupported);
    return json;
}

ExitCode reportRefusal(Context& context, const std::string& command, const EntityId& entity, const Outcome& outcome)
{
    if (!context.output().isJson())
        context.output().note(command + " " + entityLabel(entity) + ": " + omci::resultName(outcome.result) +
                              " (result " + std::to_string(static_cast<unsigned>(outcome.result)) + ")" +
                              listed(*entity.entityClass, "failed:", outcome.failed) +
                              listed(*entity.entityClass, "not supported:", outcome.unsupported));
    return ExitCode::Refused;
}

ExitCode reportOutcome(Context& context, const std::string& command, const std::string& done, const EntityId& entity,
                       const Outcome& outcome)
{
    if (context.output().isJson())
        context.output().object(resultJson(command, entity, outcome));
    if (!outcome.succeeded())
        return reportRefusal(context, command, entity, outcome);
    if (!context.output().isJson())
        context.output().line(done + " " + entityLabel(entity));
    return ExitCode::Success;
}

}  // namespace olt
