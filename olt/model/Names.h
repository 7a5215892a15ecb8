#ifndef OLT_MODEL_NAMES_H
#define OLT_MODEL_NAMES_H

// Names as people type them: any case, with blanks, dashes and dots or without, sometimes with a slip.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace olt {

/// The form in which names are compared: lower-case letters and digits only, without a leading "OmciMe", and with
/// what G.988 spells out cut to its short form ("physical path termination point" to "pptp", "maximum" to "max" ...).
[[nodiscard]] std::string foldName(std::string_view name);

/// The number that a whole text stands for, decimal or 0x hexadecimal; none when it isn't one or exceeds 64 bits.
[[nodiscard]] std::optional<unsigned long long> parseUnsigned(std::string_view text);

/// Up to `limit` of the candidates that resemble what was typed, the likeliest first.
[[nodiscard]] std::vector<std::string> similarNames(std::string_view typed, const std::vector<std::string>& candidates,
                                                    std::size_t limit = 3);

/// "; did you mean A, B or C?", or nothing when there is no suggestion.
[[nodiscard]] std::string didYouMean(std::string_view typed, const std::vector<std::string>& candidates);

}  // namespace olt

#endif
