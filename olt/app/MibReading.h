#ifndef OLT_APP_MIB_READING_H
#define OLT_APP_MIB_READING_H

#include "app/Context.h"
#include "model/Mib.h"

namespace olt {

/// Asks the ONU for each entity that a pointer names and the MIB lacks, until nothing more is found: classes like the
/// 802.1p mapper are no part of an upload. What the ONU doesn't have stays away.
void completeMib(Session& session, const Catalogue& catalogue, Mib& mib);

/// The MIB of a file that mib-upload saved; "-" is standard input. Throws UsageError with the file's name.
[[nodiscard]] Mib loadMib(const Catalogue& catalogue, const std::string& path);

/// From the file, or where there is none uploaded and completed from the ONU.
[[nodiscard]] Mib readMib(Context& context, const std::string& path);

}  // namespace olt

#endif
