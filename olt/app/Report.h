#ifndef OLT_APP_REPORT_H
#define OLT_APP_REPORT_H

#include <string>

#include "app/Context.h"
#include "model/Errors.h"
#include "session/Operations.h"

namespace olt {

/// The members that every JSON result about an entity begins with: command, class, name, instance, result, and the
/// attributes that went wrong.
[[nodiscard]] Output::Json resultJson(const std::string& command, const EntityId& entity, const Outcome& outcome);

/// "AniG (263) instance 1025 (0x0401)"
[[nodiscard]] std::string entityLabel(const EntityId& entity);

/// Tells of a command that has no values to show: `done` ("created") with the entity, or the ONU's refusal.
[[nodiscard]] ExitCode reportOutcome(Context& context, const std::string& command, const std::string& done,
                                     const EntityId& entity, const Outcome& outcome);

/// The refusal in words on standard error: result and attributes. With --json nothing, since the object has it all.
[[nodiscard]] ExitCode reportRefusal(Context& context, const std::string& command, const EntityId& entity,
                                     const Outcome& outcome);

}  // namespace olt

#endif
