// The services behind the remote debug entity and the status portal.
#include <algorithm>
#include <cstring>

#include "JsonValues.h"
#include "OmciMeManager.h"
#include "hardware/SimulatedHardware.h"

namespace {
constexpr unsigned short kClassOnuRemoteDebug = 158;
constexpr unsigned short kRemoteDebugCommand = 0x4000;
/// The reply comes in whole rows.
constexpr std::size_t kReplyRow = 29;
}  // namespace

int SimulatedHardware::sendRemoteDebugCommand(const unsigned char* command)
{
    unsigned char size = 0;
    OmciMeManager::getInstance()->getAttributeSize(kClassOnuRemoteDebug, kRemoteDebugCommand, &size);
    const Json bytes = command == nullptr ? Json(nullptr) : Json(toHex(command, size));
    const HardwareCall written = call("sendRemoteDebugCommand", {bytes});
    m_DebugReply.clear();
    if (command != nullptr && m_DebugService) {
        const unsigned char* const end = std::find(command, command + size, 0);
        const std::string reply = m_DebugService(std::string(command, end));
        m_DebugReply.assign(reply.begin(), reply.end());
        m_DebugReply.resize((m_DebugReply.size() + kReplyRow - 1) / kReplyRow * kReplyRow);
    }
    return 0;
}

std::vector<unsigned char> SimulatedHardware::getRemoteDebugReply()
{
    const HardwareCall written = call("getRemoteDebugReply", {});
    return settings().debugReply.value_or(m_DebugReply);
}

int SimulatedHardware::getStatusPortalMessage(EnumOmciAction action, unsigned short instance, unsigned char* buffer)
{
    constexpr std::size_t recordSize = 512;
    constexpr std::size_t textOffset = 18;
    constexpr std::size_t textSize = 256;
    HardwareCall written = call("getStatusPortalMessage", {static_cast<int>(action), instance, nullptr});
    const std::string text = settings().statusMessage.value_or("portal " + std::to_string(instance) + " in service");
    std::memcpy(buffer + textOffset, text.data(), std::min(text.size(), textSize));
    written.setArgument(2, toHex(buffer, recordSize));
    return 0;
}
