#pragma once

#include <string>

namespace olt {

/// Text as it stands between the tags of an SVG picture; control characters, which XML does not take, are left out.
std::string xmlText(const std::string& text);

}  // namespace olt
