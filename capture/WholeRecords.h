#ifndef CAPTURE_WHOLE_RECORDS_H
#define CAPTURE_WHOLE_RECORDS_H

#include <sys/types.h>

#include <cstdio>

namespace omci {

/// Brings to the file what was written to the stream. When the file does not take it, false with errno set: the stream
/// forgets what it still holds, and the file is cut back to `whole` octets, where its last whole record ends.
[[nodiscard]] bool flushWhole(FILE* file, off_t whole);

}  // namespace omci

#endif
