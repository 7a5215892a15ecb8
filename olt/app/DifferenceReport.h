#ifndef OLT_APP_DIFFERENCE_REPORT_H
#define OLT_APP_DIFFERENCE_REPORT_H

#include "app/Context.h"
#include "model/Difference.h"

namespace olt {

/// The differences in words, grouped by class.
void printDifferences(Context& context, const std::vector<Difference>& differences);

/// One object each: class, name, instance, attribute (null: the entity), before, after (null: not there).
[[nodiscard]] Output::Json differencesToJson(const Catalogue& catalogue, const std::vector<Difference>& differences);

/// What --ignore takes.
[[nodiscard]] Ignored parseIgnored(const Catalogue& catalogue, const std::vector<std::string>& texts);

extern const char* const kIgnoreHelp;

}  // namespace olt

#endif
