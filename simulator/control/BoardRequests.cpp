// Requests about the board: the stand-ins of its scripts, its image slots, the room that it has.
#include <optional>
#include <string>

#include "Onu.h"
#include "control/ControlRequests.h"
#include "control/RequestFields.h"
#include "sandbox/Sandbox.h"

namespace {
using Verification = BoardScripts::Verification;

/// What one request changes; whatever it does not name stays.
struct BoardChange
{
    std::optional<Verification> verification;
    std::optional<bool> isHeld;
    std::optional<std::uint64_t> freeSpace;
    std::optional<BoardScripts::Descriptions> descriptions;
    bool forgetsDescriptions = false;
};

void readVerification(const std::string& text, BoardChange& change)
{
    const std::string line = "line:";
    if (text == "hold" || text == "release") {
        change.isHeld = text == "hold";
    } else if (text == "ok") {
        change.verification = Verification{Verification::OK, ""};
    } else if (text == "missing") {
        change.verification = Verification{Verification::MISSING, ""};
    } else if (text == "missing-once") {
        change.verification = Verification{Verification::MISSING_ONCE, ""};
    } else if (text.compare(0, line.size(), line) == 0) {
        change.verification = Verification{Verification::LINE, text.substr(line.size())};
    } else {
        throw BadRequest("board.verify: \"" + text +
                         "\" is none of ok, missing, missing-once, line:TEXT, hold and release");
    }
}

std::optional<std::string> descriptionValue(const Json& value, const std::string& what)
{
    if (value.is_null()) {
        return std::nullopt;
    }
    if (value.is_string()) {
        const auto text = value.get<std::string>();
        if (text.find_first_of("\r\n") != std::string::npos) {
            throw BadRequest(what + ": a value is one line");
        }
        return text;
    }
    if (value.is_boolean()) {
        return value.get<bool>() ? "1" : "0";
    }
    if (value.is_number_integer()) {
        return value.dump();
    }
    throw BadRequest(what + " is neither a number nor a text nor null");
}

void readDescriptions(const Json& json, BoardChange& change)
{
    if (json.is_null()) {
        change.forgetsDescriptions = true;
        return;
    }
    if (!json.is_object()) {
        throw BadRequest("board.description is not an object like {\"APP1_COMMIT\":1}");
    }
    change.descriptions.emplace();
    for (const auto& [key, value] : json.items()) {
        if (!ImageDescriptions::isKnown(key)) {
            throw BadRequest("board.description has no key \"" + key +
                             "\"; there are SW_VERSION, COMMIT, ACTIVE, VALID and PART_SEL of APP1_ and APP2_");
        }
        (*change.descriptions)[key] = descriptionValue(value, "board.description." + key);
    }
}

BoardChange readChange(const Json& request)
{
    const RequestFields fields(request, "board", {"verify", "free_space", "description"});
    if (fields.isEmpty()) {
        throw BadRequest("board names nothing to change; there are verify, free_space and description");
    }
    BoardChange change;
    if (fields.has("verify")) {
        readVerification(fields.get<std::string>("verify"), change);
    }
    if (fields.has("free_space")) {
        change.freeSpace = fields.get<std::uint64_t>("free_space");
    }
    if (fields.has("description")) {
        readDescriptions(fields.member("description"), change);
    }
    return change;
}

Json changeBoard(BoardScripts& scripts, const Json& request)
{
    const BoardChange change = readChange(request);
    // First what may fail, so that nothing is half done.
    if (change.forgetsDescriptions) {
        scripts.forgetDescriptions();
    }
    if (change.descriptions) {
        try {
            scripts.describe(*change.descriptions);
        } catch (const std::exception& problem) {
            throw BadRequest(std::string("board.description: ") + problem.what());
        }
    }
    if (change.freeSpace) {
        Sandbox::setFreeSpace(change.freeSpace);
    }
    if (change.verification) {
        scripts.setVerification(*change.verification);
    }
    if (change.isHeld) {
        scripts.hold(*change.isHeld);
    }
    return {{"result", 0}};
}
}  // namespace

void ControlRequests::addBoardRequests()
{
    m_Requests["board"] = [this](const Json& request) { return changeBoard(m_Onu.boardScripts(), request); };
}
