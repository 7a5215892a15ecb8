#include "model/Catalogue.h"

#include <gtest/gtest.h>
#include <map>

#include "model/AttributeValues.h"
#include "model/Errors.h"
#include "model/Names.h"

namespace olt {

namespace {

std::string complaint(const char* name)
{
    try {
        static_cast<void>(Catalogue::builtIn().lookUp(name));
    } catch (const UsageError& error) {
        return error.what();
    }
    return "found";
}

TEST(CatalogueLookUp, AnySpellingOfAName)
{
    for (const char* const name :
         {"AniG", "anig", "ANIG", "ANI-G", "ani g", "OmciMeAniG", "omcimeanig", "263", "0x107"})
        EXPECT_EQ(Catalogue::builtIn().lookUp(name).id, 263) << name;
    EXPECT_EQ(Catalogue::builtIn().lookUp("Physical path termination point Ethernet UNI").id, 11);
    EXPECT_EQ(Catalogue::builtIn().lookUp("PPTP Ethernet UNI").id, 11);
    EXPECT_EQ(Catalogue::builtIn().lookUp("802.1p mapper service profile").id, 130);
    EXPECT_EQ(Catalogue::builtIn().lookUp("GAL Ethernet profile").id, 272);
}

TEST(CatalogueLookUp, EveryClassByItsNameAndByItsTitle)
{
    const auto& catalogue = Catalogue::builtIn();
    EXPECT_EQ(catalogue.classes().size(), 115U);
    for (const auto& entity : catalogue.classes()) {
        EXPECT_EQ(catalogue.lookUp(entity.shortName).id, entity.id) << entity.shortName;
        EXPECT_EQ(catalogue.lookUp("OmciMe" + entity.shortName).id, entity.id) << entity.shortName;
        EXPECT_EQ(catalogue.lookUp(entity.title).id, entity.id) << entity.title;
        for (const auto& attribute : entity.attributes)
            EXPECT_EQ(&entity.attribute(attribute.name), &attribute) << entity.shortName << "." << attribute.name;
    }
}

TEST(CatalogueLookUp, SuggestsOnASlip)
{
    EXPECT_NE(complaint("AmiG").find("did you mean AniG"), std::string::npos);
    EXPECT_NE(complaint("PtpEthernetUni").find("PptpEthernetUni"), std::string::npos);
    EXPECT_EQ(complaint("qqqqqqqqqqqqq").find("did you mean"), std::string::npos);
    EXPECT_NE(complaint("65536").find("out of range"), std::string::npos);
}

TEST(CatalogueLookUp, UnknownNumberHasNamelessAttributes)
{
    const auto& entity = Catalogue::builtIn().lookUp("999");
    EXPECT_FALSE(entity.known);
    EXPECT_EQ(entity.attributes.size(), 16U);
    EXPECT_EQ(&entity, &Catalogue::builtIn().ofNumber(999));
    EXPECT_EQ(entity.attribute("16").mask, 0x0001);
}

TEST(CatalogueAttributes, MasksSizesAndForms)
{
    const auto& onuG = Catalogue::builtIn().ofNumber(256);
    EXPECT_EQ(onuG.attribute("VendorId").mask, 0x8000);
    EXPECT_EQ(onuG.attribute("SerialNumber").form, Form::SerialNumber);
    EXPECT_EQ(onuG.readableMask, 0xFFF0) << "attribute 13 has no definition and can't be asked for";
    EXPECT_EQ(Catalogue::builtIn().ofNumber(158).readableMask, 0xA000) << "the command can only be written";
    const auto& host = Catalogue::builtIn().ofNumber(134);
    EXPECT_EQ(host.attribute("Mask").form, Form::Ipv4);
    EXPECT_EQ(host.attribute("Current address").form, Form::Ipv4);
    EXPECT_EQ(host.attribute("MAC address").form, Form::Mac);
    EXPECT_EQ(Catalogue::builtIn().ofNumber(347).attribute("PrimaryDns").form, Form::Ipv6);
    EXPECT_EQ(Catalogue::builtIn().ofNumber(158).attribute("ReplyTable").sizeInGet(), 4U);
}

TEST(CatalogueAttributes, NamesOfAMask)
{
    const auto& onuG = Catalogue::builtIn().ofNumber(256);
    EXPECT_EQ(onuG.attributeNames(0x8201),
              (std::vector<std::string>{"VendorId", "AdministrativeState", "attribute 16"}));
}

TEST(Names, SuggestionsAreRanked)
{
    const std::vector<std::string> names{"BatteryBackup", "OperationalState", "AdministrativeState"};
    EXPECT_EQ(similarNames("AdminState", names), std::vector<std::string>{"AdministrativeState"});
    EXPECT_EQ(similarNames("Backup", names), std::vector<std::string>{"BatteryBackup"});
    EXPECT_EQ(similarNames("BateryBackpu", names), std::vector<std::string>{"BatteryBackup"});
    EXPECT_TRUE(similarNames("", names).empty());
}

TEST(SplitValues, WalksInAttributeOrder)
{
    const auto& entity = Catalogue::builtIn().ofNumber(256);
    const Bytes octets{'A', 'B', 'C', 'D', 7, 0xEE};
    const auto split = splitValues(entity, 0x8200, octets.data(), octets.size());
    ASSERT_EQ(split.values.size(), 2U);
    EXPECT_EQ(split.values[0].value, Bytes({'A', 'B', 'C', 'D'}));
    EXPECT_EQ(split.values[1].attribute->name, "AdministrativeState");
    EXPECT_EQ(split.values[1].value, Bytes({7}));
    EXPECT_EQ(split.undecoded, 0);
    EXPECT_EQ(split.missing, 0);
}

TEST(SplitValues, KeepsWhatItCantTakeApart)
{
    const auto& entity = Catalogue::builtIn().ofNumber(256);
    const Bytes octets{'A', 'B', 'C', 'D', 7, 8};
    const auto unknown = splitValues(entity, 0x8001, octets.data(), octets.size());
    EXPECT_EQ(unknown.undecoded, 0x0001);
    EXPECT_EQ(unknown.rest, Bytes({7, 8}));
    const auto cut = splitValues(entity, 0xC000, octets.data(), octets.size());
    EXPECT_EQ(cut.values.size(), 1U);
    EXPECT_EQ(cut.missing, 0x4000);
}

TEST(SplitMask, FillsMessagesAndCoversEveryAttributeOnce)
{
    for (const auto& entity : Catalogue::builtIn().classes()) {
        std::vector<const Attribute*> all;
        std::map<std::uint16_t, std::size_t> sizes;
        unsigned wanted = 0;
        for (const auto& attribute : entity.attributes) {
            all.push_back(&attribute);
            sizes[attribute.mask] = attribute.sizeInGet();
            wanted |= attribute.mask;
        }
        unsigned covered = 0;
        for (const auto mask : splitMask(all, 25)) {
            std::size_t total = 0;
            for (const auto& [bit, size] : sizes)
                total += (mask & bit) != 0 ? size : 0;
            EXPECT_LE(total, 25U) << entity.shortName;
            EXPECT_EQ(covered & mask, 0U) << entity.shortName;
            covered |= mask;
        }
        EXPECT_EQ(covered, wanted) << entity.shortName;
    }
}

}  // namespace

}  // namespace olt
