#include "app/Command.h"
#include "decode/Description.h"
#include "model/Value.h"

namespace olt {

namespace {

std::string kindText(const Attribute& attribute)
{
    switch (attribute.kind) {
    case Kind::U8:
    case Kind::U16:
    case Kind::U32:
    case Kind::U64:
        return "unsigned, " + std::to_string(attribute.size);
    case Kind::S8:
    case Kind::S16:
        return "signed, " + std::to_string(attribute.size);
    case Kind::Octets:
        return "octets, " + std::to_string(attribute.size);
    case Kind::Table:
        break;
    }
    return "table, rows of " + std::to_string(attribute.size);
}

std::string accessText(const Attribute& attribute)
{
    std::string text;
    const auto add = [&](bool holds, const char* word) {
        if (holds)
            text += (text.empty() ? "" : ", ") + std::string(word);
    };
    add(attribute.setByCreate, "set by create");
    add(attribute.readable, "read");
    add(attribute.writable, "write");
    add(attribute.uploaded, "upload");
    return text;
}

class Classes : public Command
{
public:
    void declare(Options& options) override
    {
        options.positional("CLASS", m_Class, "A class by name or number; all classes when left out",
                           Options::Need::Optional);
    }

    ExitCode run(Context& context) override
    {
        if (m_Class.empty())
            list(context);
        else
            show(context.output(), context.catalogue().lookUp(m_Class));
        return ExitCode::Success;
    }

private:
    static void list(Context& context)
    {
        auto& output = context.output();
        Table table({{"Class", Table::Align::Right}, {"Name"}, {"Managed entity"}});
        for (const auto& entity : context.catalogue().classes()) {
            if (output.isJson())
                output.object({{"class", entity.id}, {"name", entity.shortName}, {"entity", entity.title}});
            else
                table.add({std::to_string(entity.id), entity.shortName, entity.title});
        }
        if (!output.isJson())
            output.table(table);
    }

    static void show(Output& output, const EntityClass& entity)
    {
        Output::Json attributes = Output::Json::array();
        Table table({{"#", Table::Align::Right}, {"Attribute"}, {"Kind, octets"}, {"Access"}, {"Default"}});
        for (const auto& attribute : entity.attributes) {
            const std::string text = attribute.isTable() ? "empty" : formatValue(attribute, attribute.defaultValue);
            table.add(
                {std::to_string(attribute.number), attribute.name, kindText(attribute), accessText(attribute), text});
            attributes.push_back({{"number", attribute.number},
                                  {"name", attribute.name},
                                  {"size", attribute.size},
                                  {"access", accessText(attribute)},
                                  {"default", jsonValue(attribute, attribute.defaultValue)}});
        }
        if (output.isJson()) {
            output.object({{"class", entity.id},
                           {"name", entity.shortName},
                           {"entity", entity.title},
                           {"attributes", std::move(attributes)}});
            return;
        }
        output.line(entity.label() + ": " + entity.title, Style::Bold);
        output.table(table);
    }

    std::string m_Class;
};

const CommandRegistration<Classes> registration("classes", CommandGroup::Tool,
                                                "List the classes, or the attributes of one; needs no ONU",
                                                "Examples:\n  classes\n  classes GemPortNetworkCtp\n  classes 171");

}  // namespace

}  // namespace olt
