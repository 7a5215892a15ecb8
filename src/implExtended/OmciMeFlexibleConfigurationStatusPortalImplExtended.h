#ifndef NRVK_IMPL_EXTENDED_OMCIMEFLEXIBLECONFIGURATIONSTATUSPORTALIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMEFLEXIBLECONFIGURATIONSTATUSPORTALIMPLEXTENDED_H

#include "impl/OmciMeFlexibleConfigurationStatusPortalImpl.h"
#include "impl/ServedTable.h"
#include "implExtended/NoHardware.h"

/// Flexible configuration status portal (class 65420): the status message of the service behind the portal, kept as
/// rows of 29 bytes for get next.
class OmciMeFlexibleConfigurationStatusPortalImplExtended
    : public nrvk::NoHardware<OmciMeFlexibleConfigurationStatusPortalImpl, -1>,
      public nrvk::ServedTable
{
public:
    using NoHardware::NoHardware;

    /// For a Get: fetches the text, keeps it as nine rows and sets get next back to row 0; yields 256, the text's
    /// bytes. 0 for any other action.
    unsigned int getStatusMessage(EnumOmciAction action) const override;
    /// Appends a row of 29 bytes, zeros included. From the ninth row on only 25 bytes are read: that is where the text
    /// ends. Always 0.
    int setStatusMessageExt(const unsigned char* row);
    /// Dropped while the portal is locked. Always 0. May come on a manager's thread.
    int setOperationalState(unsigned char state) override;

    void eraseStatusMessage() { m_StatusMessage.clear(); }
    /// The number of rows.
    unsigned int getStatusMessageSize() const { return static_cast<unsigned int>(m_StatusMessage.size()); }
    /// Throws std::out_of_range for a row that is not there.
    Row getStatusMessageEntry(unsigned short number) const { return m_StatusMessage.at(number); }

    unsigned int servedRows() const override { return getStatusMessageSize(); }
    Row servedRow(unsigned short number) const override { return getStatusMessageEntry(number); }

private:
    unsigned int fetchStatusMessage();
};

#endif
