#ifndef OLT_MODEL_ATOMIC_FILE_H
#define OLT_MODEL_ATOMIC_FILE_H

#include <string>

namespace olt {

/// The whole text as a file, or no change at all: it is written beside the file and then put in its place. Throws
/// UsageError with the reason.
void writeFileAtomically(const std::string& path, const std::string& text);

/// The whole file. Throws UsageError with the reason.
[[nodiscard]] std::string readFile(const std::string& path);

}  // namespace olt

#endif
