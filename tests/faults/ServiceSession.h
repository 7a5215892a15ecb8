#ifndef TESTS_FAULTS_SERVICE_SESSION_H
#define TESTS_FAULTS_SERVICE_SESSION_H

#include <vector>

#include "model/Subject.h"

model::Request ask(std::uint8_t type, std::uint16_t classId, std::uint16_t instance, model::Bytes contents = {});

/// A service as an OLT sets it up and takes it down, with each kind of message that changes the MIB or reads it.
std::vector<model::Request> serviceSession();

/// What an OLT may ask of each class, one after the other: create, set of all that can be set, get, get current data,
/// test, delete. To be asked for while an ONU lives, whose own instances it takes.
std::vector<model::Request> everyClassSession(const model::ClassList& classes);

/// Whether the frame is a whole answer to the request, whatever it says.
bool isAnswerTo(const model::Request& request, std::uint16_t transactionId, const model::Bytes& frame);

#endif
