#include "ExtendedVlanTaggingAccess.h"

#include "implExtended/OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended.h"

namespace {

/// The store makes no other kind of object for the class.
const OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended&
boundEntity(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity)
{
    return static_cast<const OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended&>(entity);
}

}  // namespace

namespace nrvk {

void getRecVlanTagFilData(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity, RecVlanTagFilData* out)
{
    boundEntity(entity).getRecVlanTagFilData(out);
}

int parseReceivedFrameVlanTaggingOperationTable(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity,
                                                ExtendedVlanTaggingRuleContainer* container)
{
    return boundEntity(entity).parseReceivedFrameVlanTaggingOperationTable(container);
}

unsigned int sendEvcAndEvcMapToTmb(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity,
                                   const RecVlanTagFilData& frame, bool request)
{
    return boundEntity(entity).sendEvcAndEvcMapToTmb(frame, request);
}

std::vector<RecVlanTagFilData>
getTableOfReceivedFrames(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity)
{
    return boundEntity(entity).getTableOfReceivedFrames();
}

unsigned char getRuleCount(const OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity)
{
    return boundEntity(entity).getRuleCount();
}

bool deleteAllEntriesFromTableOfReceivedFrames(OmciMeExtendedVlanTaggingOperationConfigurationDataIf& entity)
{
    return static_cast<OmciMeExtendedVlanTaggingOperationConfigurationDataImplExtended&>(entity)
        .deleteAllEntriesFromTableOfReceivedFrames();
}

}  // namespace nrvk
