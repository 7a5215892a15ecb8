// Attribute lists, masks and flags, over all classes.
#include <list>

#include "LibraryTest.h"
#include "OmciManagedEntityRegistrar.h"
#include "OmciMe.h"
#include "OmciMeFactory.h"

namespace {

using List = std::list<attributeDefinition>;
using ListOperation = int (OmciMe::*)(List*) const;

class AdapterLists : public LibraryTest
{
protected:
    AdapterLists()
    {
        for (unsigned int classId = 0; classId <= 0xFFFF; ++classId) {
            registrar().registerManagedEntity(static_cast<unsigned short>(classId));
        }
    }

    static OmciManagedEntityRegistrar& registrar() { return *OmciManagedEntityRegistrar::getInstance(); }

    static std::vector<OmciMe*> all()
    {
        std::vector<OmciMe*> adapters;
        OmciMeFactory* factory = OmciMeFactory::getInstance();
        for (OmciMe* me = factory->getFirstManagedEntity(); me != nullptr;
             me = factory->getNextManagedEntity(me->getManagedEntityClassId())) {
            adapters.push_back(me);
        }
        return adapters;
    }

    static unsigned short orOfMasks(const OmciMe& me, ListOperation operation)
    {
        List list;
        (me.*operation)(&list);
        unsigned int masks = 0;
        for (const attributeDefinition& definition : list) {
            masks |= definition.attributeMask;
        }
        return static_cast<unsigned short>(masks);
    }
};

TEST_F(AdapterLists, ThereAre115Classes)
{
    EXPECT_EQ(all().size(), 115U);
}

TEST_F(AdapterLists, MasksAreTheOrOfTheLetters)
{
    for (const OmciMe* me : all()) {
        const unsigned short classId = me->getManagedEntityClassId();
        EXPECT_EQ(me->getSetAttributesMask(), orOfMasks(*me, &OmciMe::getAttributesListForSet)) << classId;
        EXPECT_EQ(me->getCreateAttributesMask(), orOfMasks(*me, &OmciMe::getAttributesListForCreate)) << classId;
        EXPECT_EQ(me->getGetNextAttributesMask(), orOfMasks(*me, &OmciMe::getAttributesListForGetNext)) << classId;
        const bool deviates = classId == 138 || classId == 158 || classId == 256 || classId == 332;
        EXPECT_EQ(me->getGetAttributesMask() != orOfMasks(*me, &OmciMe::getAttributesListForGet), deviates) << classId;
    }
}

TEST_F(AdapterLists, StatedGetMasksOfTheClassesThatDeviate)
{
    EXPECT_EQ(adapter(138).getGetAttributesMask(), 0xFF00);
    EXPECT_EQ(adapter(158).getGetAttributesMask(), 0xE000);
    EXPECT_EQ(adapter(256).getGetAttributesMask(), 0xFFF8);
    EXPECT_EQ(adapter(332).getGetAttributesMask(), 0xFFF0);
}

TEST_F(AdapterLists, ListsAreInAttributeOrderAndCleared)
{
    for (const ListOperation operation :
         {&OmciMe::getAttributesListForGet, &OmciMe::getAttributesListForSet, &OmciMe::getAttributesListForMibUpload,
          &OmciMe::getAttributesListForAvc, &OmciMe::getAttributesListForGetNext}) {
        for (const OmciMe* me : all()) {
            List list(3);
            EXPECT_EQ((me->*operation)(&list), 0);
            unsigned int previous = 0x10000;
            for (const attributeDefinition& definition : list) {
                EXPECT_LT(definition.attributeMask, previous) << me->getManagedEntityClassId();
                previous = definition.attributeMask;
            }
        }
    }
}

TEST_F(AdapterLists, ClassWithNothingSetByCreateLeavesTheListUntouched)
{
    List list(2);
    EXPECT_EQ(adapter(5).getAttributesListForCreate(&list), 0);
    EXPECT_EQ(list.size(), 2U);
    EXPECT_EQ(adapter(5).getAttributesListForCreate(nullptr), 0);
}

TEST_F(AdapterLists, NullListIsRefused)
{
    const OmciMe& me = adapter(279);
    for (const ListOperation operation : {&OmciMe::getAttributesListForGet, &OmciMe::getAttributesListForSet,
                                          &OmciMe::getAttributesListForMibUpload, &OmciMe::getAttributesListForAvc,
                                          &OmciMe::getAttributesListForGetNext, &OmciMe::getAttributesListForCreate}) {
        EXPECT_EQ((me.*operation)(nullptr), -1);
    }
    EXPECT_EQ(log.count(3, "NULL AttributeDefinition list pointer"), 6U);
}

TEST_F(AdapterLists, NumberOfAttributesIsLogged)
{
    List list;
    adapter(279).getAttributesListForGet(&list);
    EXPECT_TRUE(log.has(6, "Number of attributes(6)"));
}

TEST_F(AdapterLists, UploadFlagsAreLogged)
{
    EXPECT_TRUE(adapter(263).isPartOfMibUpload());
    EXPECT_TRUE(adapter(263).isPartOfAlarmsUpload());
    EXPECT_FALSE(adapter(49).isPartOfMibUpload());
    EXPECT_FALSE(adapter(49).isPartOfAlarmsUpload());
    EXPECT_TRUE(log.has(6, "MIB upload(true)"));
    EXPECT_TRUE(log.has(6, "MIB upload(false)"));
    EXPECT_TRUE(log.has(6, "Alarms upload(true)"));
    EXPECT_TRUE(log.has(6, "Alarms upload(false)"));
}

TEST_F(AdapterLists, TableWriteModeStandsOnThreeTablesOnly)
{
    std::vector<std::pair<unsigned short, unsigned short>> found;
    for (const OmciMe* me : all()) {
        for (const ListOperation operation : {&OmciMe::getAttributesListForGet}) {
            List list;
            (me->*operation)(&list);
            for (const attributeDefinition& definition : list) {
                if (definition.tableWriteMode != 0) {
                    EXPECT_EQ(definition.tableWriteMode, 1);
                    found.emplace_back(me->getManagedEntityClassId(), definition.attributeMask);
                }
            }
        }
    }
    const std::vector<std::pair<unsigned short, unsigned short>> expected = {
        {332, 0x4000}, {332, 0x0200}, {332, 0x0020}};
    EXPECT_EQ(found, expected);
}

TEST_F(AdapterLists, SeventyOneClassesAreTheOltsToCreate)
{
    int creatable = 0;
    for (const OmciMe* me : all()) {
        creatable += me->createManagedEntityInstance(0x7FF0, true) == 0 ? 1 : 0;
    }
    EXPECT_EQ(creatable, 71);
}

TEST_F(AdapterLists, SixtyThreeClassesAreTheOnusToCreate)
{
    int creatable = 0;
    for (const OmciMe* me : all()) {
        creatable += registrar().createManagedEntityInstance(me->getManagedEntityClassId(), 0x7FF1) == 0 ? 1 : 0;
    }
    EXPECT_EQ(creatable, 63);
}

}  // namespace
