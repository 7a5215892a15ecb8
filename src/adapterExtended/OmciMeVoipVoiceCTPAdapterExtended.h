#ifndef NRVK_ADAPTER_EXTENDED_OMCIMEVOIPVOICECTPADAPTEREXTENDED_H
#define NRVK_ADAPTER_EXTENDED_OMCIMEVOIPVOICECTPADAPTEREXTENDED_H

#include "adapter/OmciMeVoipVoiceCTPAdapter.h"

/// VoIP voice CTP (G.988 9.9.4, class 139): the signalling code is the last attribute of a create, so its arrival hands
/// the whole line to the hardware layer.
class OmciMeVoipVoiceCTPAdapterExtended : public OmciMeVoipVoiceCTPAdapter
{
public:
    /// Deliberate: 0 even when the instance could not be made or deleted.
    int createManagedEntityInstance(unsigned short instance, bool createdByOlt) const override;
    int deleteManagedEntityInstance(unsigned short instance, bool createdByOlt) const override;
    /// Deliberate: a refused signalling code provisions the line as well; the result is the setter's.
    int setAttribute(unsigned short instance, const attributeDefinition* definition,
                     const unsigned char* buffer) const override;
};

#endif
