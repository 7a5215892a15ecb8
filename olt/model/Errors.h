#ifndef OLT_MODEL_ERRORS_H
#define OLT_MODEL_ERRORS_H

// What can go wrong between the command line and the ONU, apart from an OMCI result (which is a value, not an error).

#include <stdexcept>
#include <string>

namespace olt {

/// The exit codes that omci-olt promises to scripts.
enum class ExitCode : int
{
    Success = 0,
    Refused = 1,       ///< The ONU answered with a result other than success, or with something that makes no sense.
    Usage = 2,         ///< Wrong options, names, values or files. Nothing was sent.
    Unreachable = 3,   ///< No valid answer within the time-out and all retries.
    Interrupted = 130  ///< Ctrl-C.
};

/// The user asked for something that can't be asked for. The message says what, where, and what would do.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The ONU can't be reached, or answers nothing that is valid.
class Unreachable : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The ONU answers success, with contents that can't be right.
class BadAnswer : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The user pressed Ctrl-C.
class Interrupted : public std::runtime_error
{
public:
    Interrupted() : std::runtime_error("interrupted") {}
};

}  // namespace olt

#endif
