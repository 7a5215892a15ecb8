#ifndef TESTS_IMPL_EXTENDED_DATA_PATH_TEST_H
#define TESTS_IMPL_EXTENDED_DATA_PATH_TEST_H

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "LibraryTest.h"
#include "OmciMe.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"
#include "OmciMePptpEthernetUniIf.h"

/// Writes every call on the data path down, in order, as "operation(arguments)"; an entity stands as its instance
/// number.
class DataPathTest : public LibraryTest
{
protected:
    DataPathTest()
    {
        recordRemovals();
        recordProvisioning();
        recordStates();
        ON_CALL(hardware, findMacBridgePortByTp)
            .WillByDefault(
                [this](unsigned char kind, unsigned short instance, OmciMeMacBridgePortConfigurationDataIf** port) {
                    EXPECT_EQ(*port, nullptr);
                    const auto known = knownPorts.find({kind, instance});
                    if (known != knownPorts.end()) {
                        *port = known->second;
                    }
                    return record("findMacBridgePortByTp", +kind, instance);
                });
    }

    /// The calls since the last time that this was asked.
    std::vector<std::string> takeCalls() { return std::exchange(m_Calls, {}); }

    /// Runs inside each call on the hardware layer, with its name.
    std::function<void(const std::string& operation)> during;
    /// What findMacBridgePortByTp finds, by key kind and instance.
    std::map<std::pair<unsigned char, unsigned short>, OmciMeMacBridgePortConfigurationDataIf*> knownPorts;

    /// An instance of the ONU's own; the adapter is registered so that the fixture clears it away.
    template <typename If>
    static If& own(unsigned short classId, unsigned short instance)
    {
        adapter(classId);
        return *If::createManagedEntityInstance(instance, false);
    }

    static OmciMePptpEthernetUniIf& ethernetUni(unsigned short instance)
    {
        return own<OmciMePptpEthernetUniIf>(11, instance);
    }

    /// A bridge port with its calls already taken.
    OmciMeMacBridgePortConfigurationDataIf& bridgePort(unsigned short instance, unsigned char tpType,
                                                       unsigned short tpPointer)
    {
        EXPECT_EQ(create(47, instance), 0);
        EXPECT_EQ(set(47, instance, 0x2000, tpType), 0);
        EXPECT_EQ(set(47, instance, 0x1000, tpPointer), 0);
        takeCalls();
        return *OmciMeMacBridgePortConfigurationDataIf::getManagedEntityInstance(instance);
    }

    static std::string operation(const std::string& call) { return call.substr(0, call.find('(')); }

private:
    template <typename... Arguments>
    int record(const std::string& name, const Arguments&... arguments)
    {
        std::ostringstream text;
        const char* separator = "";
        ((text << separator << arguments, separator = ", "), ...);
        m_Calls.push_back(name + '(' + text.str() + ')');
        if (during) {
            during(name);
        }
        // The library must not look at it.
        return -1;
    }

    void recordRemovals();
    void recordProvisioning();
    void recordStates();

    std::vector<std::string> m_Calls;
};

using Calls = std::vector<std::string>;

#endif
