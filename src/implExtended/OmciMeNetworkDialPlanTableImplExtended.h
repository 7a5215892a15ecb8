#ifndef NRVK_IMPL_EXTENDED_OMCIMENETWORKDIALPLANTABLEIMPLEXTENDED_H
#define NRVK_IMPL_EXTENDED_OMCIMENETWORKDIALPLANTABLEIMPLEXTENDED_H

#include <vector>

#include "impl/OmciMeNetworkDialPlanTableImpl.h"
#include "implExtended/VoiceEntity.h"

/// Network dial plan table (G.988 9.9.10, class 145).
class OmciMeNetworkDialPlanTableImplExtended : public nrvk::VoiceEntity<OmciMeNetworkDialPlanTableImpl>
{
public:
    using Row = nrvk::TableRow<30>;

    using VoiceEntity::VoiceEntity;

    /// Empties the list of rows along with the stored attributes.
    void init() override;
    /// Deliberate: always 0, whatever was created.
    unsigned short getDialPlanNumber(EnumOmciAction action) const override;
    /// Deliberate: always 0, whatever was created; the size is not enforced either.
    unsigned short getDialPlanTableMaxSize(EnumOmciAction action) const override;
    /// Deliberate: a format above 3 becomes 0 without an error.
    int setDialPlanFormat(unsigned char value) override;
    /// Appends a row of 30 bytes; nothing replaces or deletes one.
    int setDialPlanTable(const unsigned char* value) override;

    /// The rows in the order they came, each up to its first zero byte.
    const std::vector<Row>& getRows() const { return m_Rows; }

private:
    std::vector<Row> m_Rows;
};

#endif
