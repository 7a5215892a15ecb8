#include <algorithm>
#include <array>

#include "app/Command.h"
#include "app/ImageArgument.h"
#include "app/Report.h"
#include "model/Hex.h"
#include "model/Value.h"

namespace olt {

namespace {

constexpr std::array<std::uint16_t, 2> kInstances = {0, 1};

/// One software image as the ONU describes it.
struct Image
{
    std::uint16_t instance = 0;
    GetOutcome outcome;

    [[nodiscard]] const Bytes* value(const char* name) const
    {
        for (const auto& value : outcome.values.values) {
            if (value.attribute->name == name)
                return &value.value;
        }
        return nullptr;
    }
};

/// As text where it is one, without its padding.
std::string textOf(const Bytes* value)
{
    if (!value)
        return "?";
    Bytes octets = *value;
    while (!octets.empty() && (octets.back() == 0 || octets.back() == ' '))
        octets.pop_back();
    const bool isText =
        std::all_of(octets.begin(), octets.end(), [](auto octet) { return octet >= 32 && octet < 127; });
    return isText ? std::string(octets.begin(), octets.end()) : formatOctets(*value);
}

bool isSet(const Bytes* value)
{
    return value && !value->empty() && value->front() != 0;
}

class Images : public Command
{
public:
    void declare(Options&) override {}

    ExitCode run(Context& context) override
    {
        const auto& entityClass = context.catalogue().ofNumber(kSoftwareImageClass);
        std::vector<const Attribute*> attributes;
        for (const auto& attribute : entityClass.attributes)
            attributes.push_back(&attribute);
        std::vector<Image> images;
        for (const auto instance : kInstances) {
            const EntityId entity{&entityClass, instance};
            Image image{instance, getAttributes(context.session(), entity, attributes)};
            const bool isAbsent = image.outcome.result == omci::Result::UnknownInstance;
            if (!image.outcome.succeeded() && image.outcome.values.values.empty() && !isAbsent)
                return refusal(context, entity, image.outcome);
            if (!isAbsent)
                images.push_back(std::move(image));
        }
        if (images.empty())
            return refusal(context, {&entityClass, 0}, {omci::Result::UnknownInstance, 0, 0});
        context.output().isJson() ? printJson(context.output(), images) : printTable(context.output(), images);
        return ExitCode::Success;
    }

private:
    static ExitCode refusal(Context& context, const EntityId& entity, const Outcome& outcome)
    {
        if (context.output().isJson())
            context.output().object(resultJson("images", entity, outcome));
        return reportRefusal(context, "images", entity, outcome);
    }

    static void printTable(Output& output, const std::vector<Image>& images)
    {
        const auto flag = [](const Bytes* value) {
            return isSet(value) ? Table::Cell("yes", Style::Green) : Table::Cell(value ? "no" : "?");
        };
        Table table(
            {{"Image", Table::Align::Right}, {"Version"}, {"Committed"}, {"Active"}, {"Valid"}, {"Product code"}});
        for (const auto& image : images)
            table.add({std::to_string(image.instance), textOf(image.value("Version")), flag(image.value("IsCommitted")),
                       flag(image.value("IsActive")), flag(image.value("IsValid")),
                       textOf(image.value("ProductCode"))});
        output.table(table);
    }

    static void printJson(Output& output, const std::vector<Image>& images)
    {
        auto list = Output::Json::array();
        for (const auto& image : images) {
            Output::Json json{{"instance", image.instance},
                              {"version", textOf(image.value("Version"))},
                              {"committed", isSet(image.value("IsCommitted"))},
                              {"active", isSet(image.value("IsActive"))},
                              {"valid", isSet(image.value("IsValid"))},
                              {"product_code", textOf(image.value("ProductCode"))}};
            if (const Bytes* const hash = image.value("ImageHash"))
                json["hash"] = "0x" + toHex(*hash);
            list.push_back(std::move(json));
        }
        output.object({{"command", "images"}, {"images", std::move(list)}});
    }
};

const CommandRegistration<Images> registration("images", CommandGroup::Action,
                                               "Show the ONU's two software images: version, committed, active, valid",
                                               "Example:\n  images");

}  // namespace

}  // namespace olt
