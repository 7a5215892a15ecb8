// A resolved line in rows of text.
#include "host/VoiceNames.h"
#include "voice/VoiceLine.h"

namespace olt {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kNothing = "-";

std::string text(const Json& value)
{
    if (value.is_null())
        return kNothing;
    return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string milliseconds(const Json& value)
{
    return text(value) + " ms";
}

std::string yesOrNo(const Json& value)
{
    return value.is_null() ? kNothing : value == true ? "yes" : "no";
}

/// The word of a number that is 0 or 1.
std::string oneOf(const Json& number, const char* zero, const char* one)
{
    return number == 0 ? zero : number == 1 ? one : text(number);
}

std::string credentialsText(const Json& credentials)
{
    if (credentials.is_null())
        return kNothing;
    std::string password =
        credentials["has_password"] == true ? "password hidden (--show-secrets shows it)" : "no password";
    if (credentials.contains("password"))
        password = "password " + text(credentials["password"]);
    const std::string realm = text(credentials["realm"]);
    return text(credentials["user"]) + (realm.empty() ? "" : ", realm " + realm) + ", " + password;
}

std::string addressText(const Json& address)
{
    if (address.is_null())
        return kNothing;
    std::string all = text(address["address"]);
    if (!address["credentials"].is_null())
        all += " (" + credentialsText(address["credentials"]) + ")";
    return all;
}

void addPort(Table& table, const Json& line)
{
    const Json& port = line["pots_port"];
    if (port.is_null()) {
        table.add({"POTS port", kNothing});
        return;
    }
    table.add({"POTS port", text(port["instance"]) + ": " + oneOf(port["administrative"], "unlocked", "locked") + ", " +
                                oneOf(port["operational"], "enabled", "disabled") + ", " +
                                oneOf(port["hook"], "on hook", "off hook") + ", " + text(line["signalling"])});
    const Json& status = line["status"];
    if (status.is_null())
        return;
    const bool isInCall = status["session"] != omci::portSessionName(0);
    table.add({"Line status",
               text(status["server"]) + "; " + text(status["line"]) +
                   (isInCall ? "; session " + text(status["session"]) + "; codec " + text(status["codec"]) : "") +
                   (status["emergency"] == true ? "; emergency call" : "")});
}

void addUser(Table& table, const Json& user)
{
    if (user.is_null()) {
        table.add({"SIP user", kNothing});
        return;
    }
    const std::string name = text(user["display_name"]);
    table.add({"SIP user", text(user["instance"]) + ": user part " + text(user["user_part"]) +
                               (name.empty() ? "" : ", display name " + name)});
    table.add({"Credentials", credentialsText(user["credentials"])});
    table.add({"Voicemail", addressText(user["voicemail"])});
    const Json& plan = user["dial_plan"];
    table.add({"Dial plan", plan.is_null() ? kNothing
                                           : text(plan["instance"]) + ": " + text(plan["format"]) + ", critical " +
                                                 milliseconds(plan["critical_timeout_ms"]) + ", partial " +
                                                 milliseconds(plan["partial_timeout_ms"]) + ", table size " +
                                                 text(plan["table_size"])});
    table.add({"Application services", text(user["services"])});
}

void addAgent(Table& table, const Json& agent)
{
    if (agent.is_null()) {
        table.add({"SIP agent", kNothing});
        return;
    }
    table.add({"SIP agent", text(agent["instance"]) + ": host part " + text(agent["host_part"]) + ", registers for " +
                                text(agent["registration_s"]) + " s, again " +
                                text(agent["reregistration_head_start_s"]) + " s before that ends"});
    table.add({"Proxy", text(agent["proxy"])});
    table.add({"Outbound proxy", text(agent["outbound_proxy"])});
    table.add({"Registrar", addressText(agent["registrar"])});
    const Json& transport = agent["transport"];
    table.add({"Transport", transport.is_null()
                                ? kNothing
                                : text(transport["protocol"]) + " port " + text(transport["port"]) + ", TOS " +
                                      text(transport["tos"]) + ", IP host " + text(transport["ip_host"]) +
                                      (transport["address"].is_null() ? "" : " at " + text(transport["address"]))});
}

void addMedia(Table& table, const Json& media)
{
    if (media.is_null()) {
        table.add({"Media profile", kNothing});
        return;
    }
    table.add({"Media profile", text(media["instance"]) + ": fax " + text(media["fax"]) + ", out-of-band DTMF " +
                                    yesOrNo(media["out_of_band_dtmf"])});
    std::string codecs;
    for (const Json& choice : media["codecs"])
        codecs += (codecs.empty() ? "" : "; ") + text(choice["codec"]) + " " +
                  milliseconds(choice["packet_period_ms"]) +
                  (choice["silence_suppression"] == true ? " with silence suppression" : "");
    table.add({"Codecs", codecs});
    const Json& service = media["voice_service"];
    table.add({"Voice service", service.is_null()
                                    ? kNothing
                                    : text(service["instance"]) + ": jitter target " +
                                          milliseconds(service["jitter_target_ms"]) + ", at most " +
                                          milliseconds(service["jitter_buffer_max_ms"]) + ", echo cancellation " +
                                          yesOrNo(service["echo_cancellation"])});
    const Json& rtp = media["rtp"];
    table.add({"RTP", rtp.is_null() ? kNothing
                                    : text(rtp["instance"]) + ": local ports " + text(rtp["local_port_min"]) + " to " +
                                          text(rtp["local_port_max"]) + ", DSCP " + text(rtp["dscp"])});
}

}  // namespace

Table lineTable(const nlohmann::ordered_json& line)
{
    Table table({{""}, {""}});
    addPort(table, line);
    table.add({"Address of record", text(line["address_of_record"])});
    addUser(table, line["user"]);
    addAgent(table, line["agent"]);
    addMedia(table, line["media"]);
    for (const Json& pointer : line["dangling"])
        table.add({{"Dangling", Style::Red}, {text(pointer), Style::Red}});
    return table;
}

}  // namespace olt
