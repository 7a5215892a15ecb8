#ifndef NRVK_TESTS_IMPL_EXTENDED_PM_TEST_H
#define NRVK_TESTS_IMPL_EXTENDED_PM_TEST_H

#include <algorithm>
#include <list>
#include <string>
#include <vector>

#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeEthernetFrameExtendedPMCommonImplExtended.h"
#include "OmciMeGemPortNetworkCtpIf.h"
#include "OmciMeMacBridgePortConfigurationDataIf.h"

/// What the hardware layer was asked for, as text in the order of the calls: "refreshFecCounters(257,2)".
using Calls = std::vector<std::string>;

template <typename... Arguments>
std::string callText(const std::string& operation, Arguments... arguments)
{
    std::string text;
    ((text += (text.empty() ? "" : ",") + std::to_string(static_cast<unsigned int>(arguments))), ...);
    return operation + "(" + text + ")";
}

/// PM entities with the parents they need, all with the id kInstance, and a record of what the hardware layer was
/// asked.
class PmTest : public LibraryTest
{
protected:
    static constexpr unsigned short kInstance = 0x0101;
    static constexpr unsigned short kUni = 0x0102;
    static constexpr unsigned short kPortId = 1234;
    static constexpr unsigned short kIntervalEndTime = 0x8000;
    static constexpr unsigned short kThresholds = 0x4000;
    static constexpr unsigned short kFirstCounter = 0x2000;
    static constexpr EnumOmciAction kUnknownAction = static_cast<EnumOmciAction>(200);
    static constexpr EnumOmciAction kActions[] = {OMCI_ACTION_SET, OMCI_ACTION_GET, OMCI_ACTION_GET_CURRENT_DATA,
                                                  kUnknownAction};

    PmTest()
    {
        using Interval = OmciMeEthernetFrameExtendedPMCommonImplExtended;
        Interval::resetIntervalCounter();
        record();
    }

    static void makeParents()
    {
        OmciMeGemPortNetworkCtpIf::createManagedEntityInstance(kInstance, true)->setPortId(kPortId);
        auto* port = OmciMeMacBridgePortConfigurationDataIf::createManagedEntityInstance(kInstance, true);
        port->setTpType(1);
        port->setTpPointer(kUni);
    }

    /// Reads the attribute and yields what that asked of the hardware layer.
    Calls callsOfGet(unsigned short classId, unsigned short mask, EnumOmciAction action,
                     unsigned short instance = kInstance)
    {
        calls.clear();
        get(classId, instance, mask, action);
        return calls;
    }

    static std::list<attributeDefinition> readable(unsigned short classId)
    {
        std::list<attributeDefinition> list;
        adapter(classId).getAttributesListForGet(&list);
        return list;
    }

    /// How often the registrar's picture has the instance.
    static long timesInPicture(unsigned short classId, unsigned short instance = kInstance)
    {
        std::vector<StartupConfigManagedEntity> picture;
        OmciManagedEntityRegistrar::getInstance()->getConfigManagedEntityVector(picture);
        long times = 0;
        for (const StartupConfigManagedEntity& record : picture) {
            if (record.classId == classId) {
                times += std::count(record.instances.begin(), record.instances.end(), instance);
            }
        }
        return times;
    }

    /// What a host does for a class that the start-up table does not cover.
    static void enterClass(unsigned short classId, const std::vector<unsigned short>& instances)
    {
        StartupConfigManagedEntity record;
        record.classId = classId;
        record.instances.assign(instances.begin(), instances.end());
        for (const unsigned short instance : instances) {
            for (const attributeDefinition& definition : readable(classId)) {
                record.attributeValues[(static_cast<unsigned int>(instance) << 16) | definition.attributeMask].resize(
                    definition.attributeSize);
            }
        }
        std::vector<StartupConfigManagedEntity> picture;
        OmciManagedEntityRegistrar::getInstance()->getConfigManagedEntityVector(picture);
        picture.push_back(record);
        OmciManagedEntityRegistrar::getInstance()->setSupportedManagedEntities(picture);
    }

    Calls calls;

private:
    void record();

    template <typename... Arguments>
    auto recorder(const char* operation)
    {
        return [this, operation](Arguments... arguments) {
            calls.push_back(callText(operation, arguments...));
            return -1;  // results are ignored
        };
    }
};

#endif
