#include "Draw.h"

#include <iterator>
#include <random>

namespace model {

namespace {

constexpr std::uint16_t kOnuData = 2;

/// Numbers that are the same on every machine, as those of the standard distributions are not.
class Dice
{
public:
    explicit Dice(std::uint32_t seed) : m_Engine(seed) {}

    unsigned int below(std::size_t end) { return static_cast<unsigned int>(m_Engine() % end); }
    bool chance(unsigned int percent) { return below(100) < percent; }
    std::uint16_t word() { return static_cast<std::uint16_t>(m_Engine()); }
    std::uint8_t octet() { return static_cast<std::uint8_t>(m_Engine()); }
    template <typename Container>
    const auto& of(const Container& container)
    {
        return *std::next(container.begin(), static_cast<std::ptrdiff_t>(below(container.size())));
    }

private:
    std::mt19937 m_Engine;
};

std::uint16_t drawInstance(Dice& dice, const MibModel& mib, std::uint16_t classId)
{
    const Instances& there = mib.instancesOf(classId);
    if (!there.empty() && dice.chance(70)) {
        return dice.of(there).first;
    }
    return dice.chance(80) ? static_cast<std::uint16_t>(dice.below(4)) : dice.word();
}

std::uint16_t drawMask(Dice& dice, const EntityClass& entity, char letter)
{
    switch (dice.below(4)) {
    case 0:
        return dice.of(entity.attributes).mask;
    case 1:
        return static_cast<std::uint16_t>(entity.maskOf(letter) & dice.word() & dice.word());
    case 2:
        return static_cast<std::uint16_t>(entity.maskOf(letter) & dice.word());
    default:
        return dice.word();
    }
}

Bytes drawValue(Dice& dice, const Attribute& attribute)
{
    // Where the ranges of one-octet attributes begin and end.
    static const std::uint8_t edges[] = {0,  1,    2,    3,    4,    5,    6,    7,    9,    10,
                                         18, 0x13, 0x14, 0x15, 0x1E, 0x1F, 0x20, 0x30, 0x31, 0xFF};
    Bytes value(attribute.size);
    switch (dice.below(4)) {
    case 0:
        value.back() = static_cast<std::uint8_t>(dice.below(4));
        return value;
    case 1:
        return attribute.isTable ? value : attribute.defaultValue;
    case 2:
        if (attribute.size == 1) {
            return {edges[dice.below(std::size(edges))]};
        }
        break;
    default:
        break;
    }
    for (std::uint8_t& octet : value) {
        octet = dice.octet();
    }
    return value;
}

void addValues(Dice& dice, const EntityClass& entity, std::uint16_t mask, Bytes& contents)
{
    for (const Attribute& attribute : entity.attributes) {
        if ((attribute.mask & mask) != 0) {
            const Bytes value = drawValue(dice, attribute);
            contents.insert(contents.end(), value.begin(), value.end());
        }
    }
}

void drawTableRows(Dice& dice, const EntityClass& entity, Bytes& contents)
{
    const Attribute* table = &dice.of(entity.attributes);
    for (const Attribute& attribute : entity.attributes) {
        table = attribute.isTable && dice.chance(60) ? &attribute : table;
    }
    add16(contents, table->mask);
    for (unsigned int rows = dice.below(4); rows > 0; --rows) {
        const Bytes row = drawValue(dice, *table);
        contents.insert(contents.end(), row.begin(), row.end());
    }
}

Bytes drawContents(Dice& dice, const EntityClass& entity, std::uint8_t type)
{
    Bytes contents;
    if (type == CREATE) {
        addValues(dice, entity, entity.maskOf('C'), contents);
    } else if (type == SET) {
        const std::uint16_t mask = drawMask(dice, entity, 'W');
        add16(contents, mask);
        addValues(dice, entity, mask, contents);
    } else if (type == SET_TABLE) {
        drawTableRows(dice, entity, contents);
    } else if (type == GET || type == GET_CURRENT_DATA) {
        add16(contents, drawMask(dice, entity, 'R'));
    }
    return contents;
}

std::uint8_t drawType(Dice& dice)
{
    static const std::uint8_t types[] = {CREATE, CREATE, DELETE, SET, SET, SET, GET, GET, GET, GET_CURRENT_DATA};
    const unsigned int rare = dice.below(300);
    if (rare == 0) {
        return MIB_RESET;
    }
    return rare < 10 ? std::uint8_t{SET_TABLE} : types[dice.below(std::size(types))];
}

/// Contents that are too long or too short by an octet or some.
void spoilLength(Dice& dice, Bytes& contents)
{
    if (dice.chance(50)) {
        contents.push_back(dice.octet());
    } else if (contents.size() > 2) {
        contents.resize(contents.size() - 1);
    }
}

Request drawRequest(Dice& dice, const MibModel& mib)
{
    constexpr std::size_t baselineContents = 32;
    Request request;
    const EntityClass& entity = dice.of(mib.classes()).second;
    request.type = drawType(dice);
    request.isExtended = dice.chance(50);
    request.wantsAnswer = dice.chance(95);
    request.classId = request.type == MIB_RESET ? kOnuData : entity.number;
    request.instance = request.type == MIB_RESET ? std::uint16_t{0} : drawInstance(dice, mib, entity.number);
    if (dice.chance(1) && request.type != MIB_RESET) {
        // A class that nobody has.
        request.classId = 0xF000;
    }
    request.contents = drawContents(dice, entity, request.type);
    if (request.isExtended && (request.type == CREATE || request.type == SET) && dice.chance(5)) {
        spoilLength(dice, request.contents);
    }
    if (!request.isExtended && request.contents.size() > baselineContents) {
        request.contents.resize(baselineContents);
    }
    return request;
}

}  // namespace

Move draw(const Step& step, const MibModel& mib)
{
    Dice dice(step.seed);
    Move move;
    const unsigned int choice = dice.below(500);
    move.request = drawRequest(dice, mib);
    if (choice == 0) {
        move.action = Action::CompareUpload;
    } else if (choice < 10) {
        move.action = Action::CreateAsOnu;
    } else if (choice < 20 && move.request.classId != kOnuData) {
        // Without its ONU data, there would be no MIB to speak of.
        move.action = Action::RemoveAsOnu;
    }
    return move;
}

}  // namespace model
