#ifndef NRVK_TESTS_SUPPORT_LIBRARY_TEST_H
#define NRVK_TESTS_SUPPORT_LIBRARY_TEST_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <vector>

#include "BoardSpecificConfig.h"
#include "MockHardware.h"
#include "attributeDefinition.h"

class OmciMe;

/// One line that the library logged.
struct LogLine
{
    unsigned char level;
    std::string function;
    std::string file;
    unsigned int line;
    std::string text;
};

/// Every line logged since construction (or clear), of every level, from every thread.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();

    std::vector<LogLine> lines() const;
    /// The texts of one level, in order.
    std::vector<std::string> texts(unsigned char level) const;
    bool has(unsigned char level, const std::string& text) const;
    std::size_t count(unsigned char level, const std::string& text) const;
    void clear();

    /// For Logger's observer.
    void add(LogLine line);

private:
    mutable std::mutex m_Mutex;
    std::vector<LogLine> m_Lines;
};

/// Starts and ends each test with an empty process: no instance, no adapter, no registrar, statics as at the start of
/// the program, a private directory for files, no command recorded. The hardware is a NiceMock, set on the registrar.
class LibraryTest : public ::testing::Test
{
protected:
    LibraryTest();
    ~LibraryTest() override;

    /// Brings the default MIB up (or that of a board), as a host does at start.
    static void startUp();
    static void startUp(BoardSpecificConfig board);
    /// The registrar holds no hardware interface from now on.
    static void removeHardware();
    /// Registers the class's adapter when it is not there yet.
    static OmciMe& adapter(unsigned short classId);
    /// OMCI create (as the OLT), Set and Get of one attribute through the adapter, bytes in network order.
    static int create(unsigned short classId, unsigned short instance);
    static int set(unsigned short classId, unsigned short instance, unsigned short mask,
                   std::vector<unsigned char> bytes);
    static int set(unsigned short classId, unsigned short instance, unsigned short mask, unsigned long long value);
    /// As many bytes as the class defines for the attribute (4 for a table).
    static std::vector<unsigned char> get(unsigned short classId, unsigned short instance, unsigned short mask,
                                          EnumOmciAction action = OMCI_ACTION_GET);
    static unsigned long long getNumber(unsigned short classId, unsigned short instance, unsigned short mask,
                                        EnumOmciAction action = OMCI_ACTION_GET);
    static attributeDefinition definitionOf(unsigned short classId, unsigned short mask);

    LogCapture log;
    ::testing::NiceMock<MockHardware> hardware;
};

#endif
