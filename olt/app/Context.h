#ifndef OLT_APP_CONTEXT_H
#define OLT_APP_CONTEXT_H

#include <memory>
#include <optional>
#include <string>

#include "capture/CaptureWriter.h"
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
    std::string capture;      ///< File that all frames go to; empty: none.
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
    void startCapture();

    const Catalogue& m_Catalogue;
    const GlobalOptions& m_Options;
    Output& m_Output;
    omci::CaptureWriter m_Capture;
    std::optional<Session> m_Session;
};

}  // namespace olt

#endif
