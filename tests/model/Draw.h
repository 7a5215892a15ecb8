#ifndef TESTS_MODEL_DRAW_H
#define TESTS_MODEL_DRAW_H

#include <cstdint>

#include "MibModel.h"

namespace model {

/// One step of a random session: a seed for everything about it. What it comes to depends on the model's state, never
/// on the library's, so that a session from which steps were taken away can be played again.
struct Step
{
    std::uint32_t seed = 0;
};

enum class Action
{
    Ask,           ///< an OMCI message
    CreateAsOnu,   ///< the registrar makes the entity
    RemoveAsOnu,   ///< the registrar removes it
    CompareUpload  ///< a whole MIB upload against the model
};

struct Move
{
    Action action = Action::Ask;
    Request request;  ///< the class and instance of the registrar's; the format of the upload
};

Move draw(const Step& step, const MibModel& mib);

}  // namespace model

#endif
