#include "model/Mib.h"

#include <gtest/gtest.h>

#include "model/Errors.h"

namespace olt {

namespace {

using Json = nlohmann::ordered_json;

Mib sample()
{
    const auto& catalogue = Catalogue::builtIn();
    Mib mib;
    const Bytes state{1};
    const Bytes vendor{'A', 'B', 'C', 'D'};
    const Bytes unknown{1, 2, 3};
    mib.add(catalogue.ofNumber(999), 5, 0x8000, unknown.data(), unknown.size());
    mib.add(catalogue.ofNumber(256), 0, 0x0200, state.data(), state.size());
    mib.add(catalogue.ofNumber(256), 0, 0x8000, vendor.data(), vendor.size());
    return mib;
}

std::string complaint(const Json& json)
{
    try {
        static_cast<void>(Mib::fromJson(Catalogue::builtIn(), json));
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(Mib, PortionsOfAnInstanceComeTogetherInOrder)
{
    EXPECT_EQ(
        sample().toJson()["entities"][0].dump(),
        R"({"class":256,"name":"OnuG","instance":0,"attributes":{"VendorId":"0x41424344","AdministrativeState":1}})");
}

TEST(Mib, FileRoundTrip)
{
    const Json json = sample().toJson();
    EXPECT_EQ(Mib::fromJson(Catalogue::builtIn(), Json::parse(json.dump())).toJson(), json);
}

TEST(Mib, BrokenFilesAreRefusedWithThePlace)
{
    EXPECT_NE(complaint(Json::array()).find("isn't a saved MIB"), std::string::npos);
    EXPECT_NE(complaint({{"format", "omci-mib"}, {"version", 2}}).find("another version"), std::string::npos);
    Json json = sample().toJson();
    json["entities"][0]["attributes"]["VendorId"] = "0x4142434445";
    EXPECT_NE(complaint(json).find("entity 1: VendorId=0x4142434445: has 5 octets; 4 fit"), std::string::npos);
    json = sample().toJson();
    json["entities"][0]["attributes"]["NoSuch"] = 1;
    EXPECT_NE(complaint(json).find("has no attribute \"NoSuch\""), std::string::npos);
    json = sample().toJson();
    json["entities"][1].erase("instance");
    EXPECT_NE(complaint(json).find("entity 2: "), std::string::npos);
    json = sample().toJson();
    json["entities"][1]["undecoded"]["0x8000"] = "rubbish";
    EXPECT_NE(complaint(json).find("a mask and octets are expected"), std::string::npos);
}

}  // namespace

}  // namespace olt
