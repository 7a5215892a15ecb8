#ifndef TESTS_MODEL_SUBJECT_H
#define TESTS_MODEL_SUBJECT_H

#include <map>
#include <ostream>

#include "LibraryTest.h"
#include "MibModel.h"
#include "host/Dispatcher.h"

namespace model {

enum class HardwareLayer
{
    Absent,
    Silent  ///< takes every call and has nothing to say
};

/// For the names of tests.
inline void PrintTo(HardwareLayer layer, std::ostream* out)
{
    *out << (layer == HardwareLayer::Absent ? "no hardware layer" : "silent hardware layer");
}

/// By class, instance and mask.
using UploadedValues = std::map<std::pair<std::uint16_t, std::uint16_t>, std::map<std::uint16_t, Bytes>>;

/// The library with its host around it, new with each object, asked by frames.
class Subject : public LibraryTest
{
public:
    explicit Subject(HardwareLayer layer);

    /// The request's frame, under a transaction id of its own.
    Bytes nextFrame(const Request& request);
    /// What comes back lives until the next frame.
    omci::Dispatcher::Reply handle(const Bytes& frame) { return m_Dispatcher.handle(frame.data(), frame.size()); }
    /// The frame that comes back; empty when none does.
    Bytes ask(const Request& request);
    /// Tells the model what the ONU has made at its start.
    void describeStart(MibModel& mib);
    UploadedValues upload(const ClassList& classes, bool isExtended);
    ::testing::NiceMock<MockHardware>& hardwareLayer() { return hardware; }
    std::uint16_t lastTransactionId() const { return m_TransactionId; }

private:
    void TestBody() override {}
    Bytes contentsOfAnswer(const Request& request);
    void addUploaded(const ClassList& classes, const Bytes& contents, bool isExtended, UploadedValues& uploaded);

    omci::Dispatcher m_Dispatcher;
    std::uint16_t m_TransactionId = 0;
};

}  // namespace model

#endif
