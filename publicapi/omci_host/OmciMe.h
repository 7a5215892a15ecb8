#ifndef OMCI_HOST_OMCI_ME_H
#define OMCI_HOST_OMCI_ME_H

#include <bitset>
#include <cstdio>
#include <list>
#include <string>

class OmciFrame;
class OmciMessage;
struct attributeDefinition;
enum EnumOmciAction : int;

/// One managed-entity class as the host sees it: the base of every adapter of the library.
///
/// There is one object per class, not per instance. The order of the virtual operations is the binary contract
/// between host and library. Buffers cross in network byte order; `int` results are 0 for success and -1 for failure
/// unless told otherwise. Operations marked "MIB-wide" or "image" have a working body here that answers a processing
/// error; the classes that serve them override it. All operations run on the host's OMCI thread.
class OmciMe
{
public:
    OmciMe();

    virtual ~OmciMe();

    /// OMCI activate image (software image, G.988 9.1.4).
    virtual int activateSoftwareImage(OmciFrame* frame);
    /// OMCI commit image (software image, G.988 9.1.4).
    virtual int commitSoftware(OmciFrame* frame);
    /// Makes an instance. Classes that the OLT may not create refuse with -1.
    virtual int createManagedEntityInstance(unsigned short instance, bool createdByOlt) const = 0;
    /// Deletes an instance. The OLT's delete of an instance of the ONU's own succeeds and leaves it standing.
    virtual int deleteManagedEntityInstance(unsigned short instance, bool createdByOlt) const = 0;
    /// OMCI download section (software image, G.988 9.1.4). 1 means: taken, no reply is due.
    virtual int downloadSection(OmciFrame* frame);
    /// Text of one instance, or of all with `instance` 0xFFFFFFFF. Reads stored values only.
    virtual std::string dumpME(unsigned int instance, unsigned short attributeMask) const = 0;
    /// OMCI end software download (software image, G.988 9.1.4).
    virtual int endSoftwareDownload(OmciFrame* frame);
    /// The class's share of a MIB reset: instances of the OLT go, those of the ONU return to their defaults.
    virtual void eraseAllManagedEntityInstances() const = 0;
    /// 0 when the instance exists.
    virtual int findManagedEntityInstance(unsigned short instance) const = 0;
    /// Copies the alarm bitmap, bit n for alarm n. True when the instance exists.
    virtual bool getAlarmsBitmap(unsigned short instance, std::bitset<223>& bitmap) const = 0;
    /// OMCI get all alarms (ONU data, G.988 9.1.3).
    virtual int getAllAlarms(OmciFrame* frame);
    /// OMCI get all alarms next (ONU data, G.988 9.1.3).
    virtual int getAllAlarmsNext(OmciFrame* frame) const;
    /// Writes one attribute into `buffer`, network byte order; a table attribute writes its 4-byte size. `buffer` must
    /// hold the attribute's size and at least 8 bytes. An unknown mask writes nothing and still gives 0.
    virtual int getAttribute(unsigned short instance, const attributeDefinition* definition, unsigned char* buffer,
                             EnumOmciAction action) const = 0;
    /// Attributes that report an attribute value change. Each list operation clears `list` and fills it in attribute
    /// order; -1 on a null list.
    virtual int getAttributesListForAvc(std::list<attributeDefinition>* list) const = 0;
    /// Set-by-create attributes: what a create carries, in this order.
    virtual int getAttributesListForCreate(std::list<attributeDefinition>* list) const = 0;
    /// Attributes that a get may ask for, tables included.
    virtual int getAttributesListForGet(std::list<attributeDefinition>* list) const = 0;
    /// Table attributes that are read by get next.
    virtual int getAttributesListForGetNext(std::list<attributeDefinition>* list) const = 0;
    /// Attributes that the MIB upload carries.
    virtual int getAttributesListForMibUpload(std::list<attributeDefinition>* list) const = 0;
    /// Attributes that a set may write, tables included.
    virtual int getAttributesListForSet(std::list<attributeDefinition>* list) const = 0;
    /// Mask of the set-by-create attributes.
    virtual unsigned short getCreateAttributesMask() const = 0;
    /// OMCI get current data. The body here is the host's Get handler, which passes the message type on as the action.
    virtual int getCurrentData(OmciFrame* frame) const;
    /// Mask of the attributes that a get may ask for.
    virtual unsigned short getGetAttributesMask() const = 0;
    /// Mask of the tables that are read by get next.
    virtual unsigned short getGetNextAttributesMask() const = 0;
    /// Writes the lowest instance id; -1 when there is none.
    virtual int getFirstManagedEntityInstance(unsigned short* instance) const = 0;
    /// The G.988 class number.
    virtual unsigned short getManagedEntityClassId() const = 0;
    /// The class's name in upper case, for example "ANIG".
    virtual std::string getManagedEntityName() const = 0;
    /// Reads a stored upload frame (ONU data). `length` is the capacity on entry and the frame's length on return.
    virtual int getMibUploadMessage(unsigned short sequenceNumber, unsigned char* buffer, unsigned short* length) const;
    /// OMCI get next.
    virtual int getNext(OmciFrame* frame) const;
    /// Replaces `*instance` by the next higher id; -1 at the end of the walk.
    virtual int getNextManagedEntityInstance(unsigned short* instance) const = 0;
    /// Mask of the attributes that a set may write.
    virtual unsigned short getSetAttributesMask() const = 0;
    /// Whether get all alarms walks the class.
    virtual bool isPartOfAlarmsUpload() const = 0;
    /// Whether the MIB upload walks the class.
    virtual bool isPartOfMibUpload() const = 0;
    /// MIB reset of the ONU's own accord (ONU data).
    virtual int mibReset() const;
    /// OMCI MIB reset (ONU data, G.988 9.1.3).
    virtual int mibReset(OmciFrame* frame) const;
    /// OMCI MIB upload (ONU data, G.988 9.1.3).
    virtual int mibUpload(OmciFrame* frame);
    /// Steps the MIB data sync counter (ONU data): 255 is followed by 1.
    virtual int incrementMibDataSyncAttribute();
    /// OMCI MIB upload next (ONU data, G.988 9.1.3).
    virtual int mibUploadNext(OmciFrame* frame) const;
    /// OMCI reboot (ONU-G, G.988 9.1.1).
    virtual int reboot(OmciFrame* frame) const;
    /// Sets one attribute from `buffer`, network byte order, which must hold the attribute's full size. Non-zero:
    /// refused.
    virtual int setAttribute(unsigned short instance, const attributeDefinition* definition,
                             const unsigned char* buffer) const = 0;
    /// To be called once after the last attribute of a Set or create. -1 means "nothing to apply" for most classes.
    virtual int applyConfigurationToHardwareForSet(unsigned short instance) const = 0;
    /// Stores one frame of the alarm snapshot (ONU data).
    virtual int setGetAllAlarmsMessage(unsigned short sequenceNumber, const unsigned char* buffer,
                                       unsigned short length);
    /// Stores one frame of the MIB upload snapshot (ONU data).
    virtual int setMibUploadMessage(unsigned short sequenceNumber, const unsigned char* buffer, unsigned short length);
    /// Prints the state of the software download (software image).
    virtual void showSoftwareDownloadStatus(FILE* file);
    /// OMCI start software download (software image, G.988 9.1.4).
    virtual int startSoftwareDownload(OmciFrame* frame);
    /// OMCI synchronize time (ONU-G, G.988 9.1.1).
    virtual int synchronizeTime(OmciFrame* frame) const;
    /// Sets or clears one alarm, 0 to 222; a higher number throws std::out_of_range.
    virtual int updateAlarmsBitmap(unsigned short instance, unsigned char alarmNumber, bool state) const = 0;
    /// Tells the depth of the host's receive FIFO (software image); 0 is ignored.
    virtual void updateRxOmciFifoDepthInBytes(unsigned int depth);
    /// OMCI test. The result is the OMCI result code; the outcome follows later as a test result message.
    virtual int test(OmciFrame* frame) const;

    /// The host's Get handler (get, get current data): reads the mask from the frame, reads each attribute with the
    /// frame's message type as the action and builds the reply.
    int getAttribute(OmciFrame* frame) const;
    /// Walks the classes that are part of the MIB upload and stores each frame through setMibUploadMessage.
    /// `count` becomes the number of MIB upload next commands that the OLT needs.
    int mibUploadExec(OmciFrame* frame, unsigned short& count);
    /// Walks the classes that are part of get all alarms and stores each frame through setGetAllAlarmsMessage.
    /// Retrieval mode 1 leaves out the instances under alarm reporting control; every other mode takes all.
    int getAllAlarmsExec(OmciFrame* frame, unsigned short& count);
    /// Fills `message` with an attribute value change of the instance, or leaves it empty when the attribute reports
    /// none. Layout, network byte order: class in octets 0 and 1, instance in 2 and 3, attribute mask in 4 and 5, then
    /// the value; a table has no value, as in G.988.
    void buildAttributeValueChangeMessage(unsigned short instance, unsigned short attributeMask,
                                          OmciMessage* message) const;
};

#endif
