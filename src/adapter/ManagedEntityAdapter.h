#ifndef NRVK_ADAPTER_MANAGED_ENTITY_ADAPTER_H
#define NRVK_ADAPTER_MANAGED_ENTITY_ADAPTER_H

#include "OmciMe.h"
#include "adapter/AdapterDescription.h"

/// The adapter of any class: bytes on the host's side, typed attributes on the entity's. Driven by the class's constant
/// description, so that 115 adapters share one piece of code; holds nothing else.
class ManagedEntityAdapter : public OmciMe
{
public:
    ~ManagedEntityAdapter() override;

    int createManagedEntityInstance(unsigned short instance, bool createdByOlt) const override;
    int deleteManagedEntityInstance(unsigned short instance, bool createdByOlt) const override;
    std::string dumpME(unsigned int instance, unsigned short attributeMask) const override;
    void eraseAllManagedEntityInstances() const override;
    int findManagedEntityInstance(unsigned short instance) const override;
    bool getAlarmsBitmap(unsigned short instance, std::bitset<223>& bitmap) const override;
    int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                     EnumOmciAction action) const override;
    int getAttributesListForAvc(std::list<attributeDefinition>* list) const override;
    int getAttributesListForCreate(std::list<attributeDefinition>* list) const override;
    int getAttributesListForGet(std::list<attributeDefinition>* list) const override;
    int getAttributesListForGetNext(std::list<attributeDefinition>* list) const override;
    int getAttributesListForMibUpload(std::list<attributeDefinition>* list) const override;
    int getAttributesListForSet(std::list<attributeDefinition>* list) const override;
    unsigned short getCreateAttributesMask() const override;
    unsigned short getGetAttributesMask() const override;
    unsigned short getGetNextAttributesMask() const override;
    int getFirstManagedEntityInstance(unsigned short* instance) const override;
    unsigned short getManagedEntityClassId() const override;
    std::string getManagedEntityName() const override;
    int getNextManagedEntityInstance(unsigned short* instance) const override;
    unsigned short getSetAttributesMask() const override;
    bool isPartOfAlarmsUpload() const override;
    bool isPartOfMibUpload() const override;
    int setAttribute(unsigned short instance, const attributeDefinition* definition,
                     const unsigned char* buffer) const override;
    int applyConfigurationToHardwareForSet(unsigned short instance) const override;
    int updateAlarmsBitmap(unsigned short instance, unsigned char alarmNumber, bool state) const override;

    /// @name The host's bodies, passed on. An entry of the host in 115 tables of virtual operations would be 115
    /// symbols to look up at start; here it is one.
    /// @{
    int activateSoftwareImage(OmciFrame* frame) override;
    int commitSoftware(OmciFrame* frame) override;
    int downloadSection(OmciFrame* frame) override;
    int endSoftwareDownload(OmciFrame* frame) override;
    int getAllAlarms(OmciFrame* frame) override;
    int getAllAlarmsNext(OmciFrame* frame) const override;
    int getCurrentData(OmciFrame* frame) const override;
    int getMibUploadMessage(unsigned short sequenceNumber, unsigned char* buffer,
                            unsigned short* length) const override;
    int getNext(OmciFrame* frame) const override;
    int mibReset() const override;
    int mibReset(OmciFrame* frame) const override;
    int mibUpload(OmciFrame* frame) override;
    int incrementMibDataSyncAttribute() override;
    int mibUploadNext(OmciFrame* frame) const override;
    int reboot(OmciFrame* frame) const override;
    int setGetAllAlarmsMessage(unsigned short sequenceNumber, const unsigned char* buffer,
                               unsigned short length) override;
    int setMibUploadMessage(unsigned short sequenceNumber, const unsigned char* buffer, unsigned short length) override;
    void showSoftwareDownloadStatus(FILE* file) override;
    int startSoftwareDownload(OmciFrame* frame) override;
    int synchronizeTime(OmciFrame* frame) const override;
    void updateRxOmciFifoDepthInBytes(unsigned int depth) override;
    int test(OmciFrame* frame) const override;
    /// @}

protected:
    /// Registers the adapter with OmciMeFactory.
    explicit ManagedEntityAdapter(const nrvk::AdapterDescription& description);

    const nrvk::AdapterDescription& description() const { return m_Description; }

private:
    /// The same with every line: for a host that takes them, and where something is wrong.
    int setAttributeWithLines(unsigned short instance, const attributeDefinition* definition,
                              const unsigned char* buffer) const;
    int getAttributeWithLines(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                              EnumOmciAction action) const;
    int copyAttributes(std::list<attributeDefinition>* list, EnumAttributeFlag flag,
                       const nrvk::LogName& function) const;

    const nrvk::AdapterDescription& m_Description;
};

#endif
