#ifndef OLT_APP_CONTEXT_H
#define OLT_APP_CONTEXT_H

#include <memory>
#include <optional>
#include <string>

#include "model/Catalogue.h"
#include "session/Session.h"
#include "terminal/Output.h"

namespace olt {

/// What stands before the command on the command line.
struct GlobalOptions
{
    std::string connect;
    std::string mic = "none";
    bool extended = false;
    bool json = false;
    unsigned timeout = 1000;  ///< Milliseconds for one attempt.
    unsigned retries = 3;
};

/// What a command works with. The conversation begins with the first command that needs it.
class Context
{
public:
    Context(const Catalogue& catalogue, const GlobalOptions& options, Output& output)
        : m_Catalogue(catalogue), m_Options(options), m_Output(output)
    {}

    [[nodiscard]] const Catalogue& catalogue() const { return m_Catalogue; }
    [[nodiscard]] const GlobalOptions& options() const { return m_Options; }
    [[nodiscard]] Output& output() { return m_Output; }

    /// Throws UsageError without --connect.
    [[nodiscard]] Session& session();
    [[nodiscard]] bool hasSession() const { return m_Session.has_value(); }

private:
    const Catalogue& m_Catalogue;
    const GlobalOptions& m_Options;
    Output& m_Output;
    std::optional<Session> m_Session;
};

}  // namespace olt

#endif
