#include "implExtended/OmciMeFlexibleConfigurationStatusPortalImplExtended.h"

#include <algorithm>
#include <array>

#include "impl/BoundedText.h"
#include "impl/Hardware.h"
#include "impl/Log.h"

namespace {

constexpr std::size_t kRecordSize = 512;
constexpr std::size_t kTextOffset = 18;
constexpr std::size_t kTextSize = 256;
constexpr std::size_t kRows = 9;
/// What the last row takes: the rest of the text and one zero byte behind it.
constexpr std::size_t kLastRowSize = 25;

}  // namespace

unsigned int OmciMeFlexibleConfigurationStatusPortalImplExtended::getStatusMessage(EnumOmciAction action) const
{
    NRVK_LOG(6, "Got request to getStatusMessage");
    if (action != OMCI_ACTION_GET) {
        return 0;
    }
    // A Get is what starts a read, so here a getter changes the entity.
    return const_cast<OmciMeFlexibleConfigurationStatusPortalImplExtended*>(this)->fetchStatusMessage();
}

unsigned int OmciMeFlexibleConfigurationStatusPortalImplExtended::fetchStatusMessage()
{
    std::array<unsigned char, kRecordSize> record{};
    if (OmciHardwareIfc* hardware = nrvk::hardwareOrLog()) {
        hardware->getStatusPortalMessage(OMCI_ACTION_GET, m_ManagedEntityInstance, record.data());
    }
    eraseStatusMessage();
    std::array<unsigned char, kTextSize + 1> text{};
    std::copy_n(&record[kTextOffset], kTextSize, text.begin());
    nrvk::restartRowSequence(m_Description.classId);
    for (std::size_t row = 0; row < kRows; ++row) {
        setStatusMessageExt(&text[row * kRowSize]);
    }
    return kTextSize;
}

int OmciMeFlexibleConfigurationStatusPortalImplExtended::setStatusMessageExt(const unsigned char* row)
{
    const bool isLast = m_StatusMessage.size() >= kRows - 1;
    Row copy{};
    std::copy_n(row, isLast ? kLastRowSize : kRowSize, copy.begin());
    NRVK_LOG_RENDERED(6, "StatusMessage(%s)", nrvk::BoundedText<kRowSize>(copy.data()).get());
    m_StatusMessage.push_back(copy);
    return 0;
}

int OmciMeFlexibleConfigurationStatusPortalImplExtended::setOperationalState(unsigned char state)
{
    NRVK_LOG(6, "Operational state(%hhu)", state);
    constexpr unsigned char unlocked = 0;
    if (getAdministrativeState(OMCI_ACTION_GET) == unlocked) {
        OmciMeFlexibleConfigurationStatusPortalImpl::setOperationalState(state);
    }
    return 0;
}
