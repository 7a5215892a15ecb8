#ifndef OLT_REPLAY_COMPARISON_H
#define OLT_REPLAY_COMPARISON_H

#include "decode/Description.h"
#include "model/Difference.h"

namespace olt {

/// What two answers to the same request don't agree on: result, attributes at fault, values, fields of the message. The
/// attribute of a difference in the result is "result".
[[nodiscard]] std::vector<Difference> compareAnswers(const Description& before, const Description& after,
                                                     const Ignored& ignored);

}  // namespace olt

#endif
