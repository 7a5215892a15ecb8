#include "app/Command.h"
#include "app/Report.h"
#include "model/Value.h"

namespace olt {

namespace {

constexpr std::uint16_t kClassIpv4Host = 134;
constexpr std::uint16_t kClassIpv6Host = 347;

/// IP options of G.988 9.4.1 and 9.4.5; the first is address autoconfiguration for IPv6.
struct OptionName
{
    std::uint8_t bit;
    const char* ipv4;
    const char* ipv6;
};
constexpr OptionName kOptions[] = {
    {0x08, "IP stack", "IP stack"},
    {0x01, "DHCP", "autoconfiguration"},
    {0x02, "ping", "ping"},
    {0x04, "traceroute", "traceroute"},
};

std::string optionsText(std::uint16_t entityClass, std::uint8_t options)
{
    std::string text;
    for (const auto& option : kOptions) {
        if ((options & option.bit) != 0)
            text += (text.empty() ? "" : ", ") + std::string(entityClass == kClassIpv6Host ? option.ipv6 : option.ipv4);
    }
    return text.empty() ? "none" : text;
}

class Ip : public Command
{
public:
    void declare(Options&) override {}

    ExitCode run(Context& context) override
    {
        const Mib mib = uploadMib(context.session(), context.catalogue(), nullptr);
        ExitCode code = ExitCode::Success;
        bool any = false;
        for (const auto& [key, entity] : mib.entities()) {
            if (key.first != kClassIpv4Host && key.first != kClassIpv6Host)
                continue;
            any = true;
            const ExitCode one = show(context, {entity.entityClass, entity.instance});
            code = code == ExitCode::Success ? one : code;
        }
        if (!any && !context.output().isJson())
            context.output().line("no IP hosts");
        return code;
    }

private:
    static ExitCode show(Context& context, const EntityId& host)
    {
        const GetOutcome outcome = getAttributes(context.session(), host, host.entityClass->readableAttributes());
        auto& output = context.output();
        if (output.isJson())
            output.object(toJson(host, outcome));
        else
            print(output, host, outcome);
        return outcome.succeeded() ? ExitCode::Success : reportRefusal(context, "ip", host, outcome);
    }

    /// Addresses as people write them, since nobody calculates with them.
    static Output::Json toJson(const EntityId& host, const GetOutcome& outcome)
    {
        auto json = resultJson("ip", host, outcome);
        auto& attributes = json["attributes"] = Output::Json::object();
        for (const auto& [attribute, value] : outcome.values.values) {
            const bool isWritten = attribute->kind == Kind::Octets && attribute->form != Form::Plain;
            attributes[attribute->name] =
                isWritten ? Output::Json(formatValue(*attribute, value)) : jsonValue(*attribute, value);
            if (attribute->number == 1)
                json["options"] = optionsText(host.entityClass->id, value.at(0));
        }
        return json;
    }

    static void print(Output& output, const EntityId& host, const GetOutcome& outcome)
    {
        Table table({{""}, {""}});
        for (const auto& [attribute, value] : outcome.values.values) {
            const bool isOptions = attribute->number == 1;
            const std::string text = formatValue(*attribute, value);
            table.add({attribute->name,
                       isOptions ? text + " (" + optionsText(host.entityClass->id, value.at(0)) + ")" : text});
        }
        if (table.isEmpty())
            return;
        output.line(entityLabel(host), Style::Bold);
        output.table(table);
    }
};

const CommandRegistration<Ip>
    registration("ip", CommandGroup::Entity, "Show the IP hosts with their addresses",
                 "The hosts are found by a MIB upload and then read one by one.\n\nExample:\n  ip");

}  // namespace

}  // namespace olt
