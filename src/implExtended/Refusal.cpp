#include "implExtended/Refusal.h"

#include "impl/Log.h"

namespace nrvk {

int refuse(const char* text, unsigned char value, const char* function, const char* file, unsigned int line)
{
    logger().writeToLog(0, function, file, line, 3, text, logArgument(value));
    return -1;
}

}  // namespace nrvk
