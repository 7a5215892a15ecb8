#ifndef SIMULATOR_DEBUG_SERVICE_H
#define SIMULATOR_DEBUG_SERVICE_H

#include <string>

class Onu;

/// The debug service that the OLT reaches through the remote debug entity: a few commands that only look.
///
/// Yields the reply to a command as lines of text. Commands go by any case; what is unknown is answered with the list
/// of those there are. To be called on the thread that runs the ONU.
std::string answerDebugCommand(Onu& onu, const std::string& command);

#endif
