#include "DataPathTest.h"

#include "OmciMeGemInterworkingTpIf.h"
#include "OmciMeMapperServiceProfile802_1PIf.h"
#include "OmciMeMulticastGemInterworkingTpIf.h"
#include "OmciMeTContIf.h"
#include "OmciMeVirtualEthernetInterfacePointIf.h"

/// An operation that takes an entity.
#define RECORD_ENTITY(operation, If)                                                                                   \
    ON_CALL(hardware, operation).WillByDefault([this](If* entity) {                                                    \
        return record(#operation, entity->getManagedEntityInstance());                                                 \
    })

void DataPathTest::recordRemovals()
{
    RECORD_ENTITY(removeUniService, OmciMePptpEthernetUniIf);
    RECORD_ENTITY(removeGemInterworkingTp, OmciMeGemInterworkingTpIf);
    RECORD_ENTITY(removeMulticastGemInterworkingTp, OmciMeMulticastGemInterworkingTpIf);
    RECORD_ENTITY(removeTCont, OmciMeTContIf);
    RECORD_ENTITY(removeVeip, OmciMeVirtualEthernetInterfacePointIf);
    ON_CALL(hardware, removeBridgePortService).WillByDefault([this](unsigned short instance) {
        return record("removeBridgePortService", instance);
    });
    ON_CALL(hardware, removeMapperInterworkingTps)
        .WillByDefault([this](OmciMeMapperServiceProfile802_1PIf* mapper, unsigned short defaultTpPointer) {
            return record("removeMapperInterworkingTps", mapper->getManagedEntityInstance(), defaultTpPointer);
        });
}

void DataPathTest::recordProvisioning()
{
    RECORD_ENTITY(provisionGemInterworkingTp, OmciMeGemInterworkingTpIf);
    RECORD_ENTITY(provisionMulticastGemInterworkingTp, OmciMeMulticastGemInterworkingTpIf);
    RECORD_ENTITY(provisionBridgePort, OmciMeMacBridgePortConfigurationDataIf);
    RECORD_ENTITY(provisionMapper, OmciMeMapperServiceProfile802_1PIf);
    RECORD_ENTITY(provisionVeip, OmciMeVirtualEthernetInterfacePointIf);
    RECORD_ENTITY(provisionUniService, OmciMePptpEthernetUniIf);
}

void DataPathTest::recordStates()
{
    ON_CALL(hardware, setUniAutodetection).WillByDefault([this](unsigned short instance, unsigned char value) {
        return record("setUniAutodetection", instance, +value);
    });
    ON_CALL(hardware, setUniAdminState).WillByDefault([this](unsigned short instance, unsigned char state) {
        return record("setUniAdminState", instance, +state);
    });
    ON_CALL(hardware, setVideoAdminState).WillByDefault([this](unsigned short instance, unsigned char state) {
        return record("setVideoAdminState", instance, +state);
    });
}
