#include "Upgrade.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include "host/ImageCrc.h"

using model::add16;
using model::Bytes;

namespace {

constexpr std::uint16_t kSoftwareImage = 7;
constexpr unsigned int kWindow = 4;
constexpr unsigned int kSuccess = 0;
constexpr unsigned int kDeviceBusy = 6;
constexpr int kTries = 3;

enum Command : std::uint8_t
{
    START = 19,
    SECTION = 20,
    END = 21,
    ACTIVATE = 22,
    COMMIT = 23
};

void add32(Bytes& bytes, std::size_t number)
{
    add16(bytes, static_cast<unsigned int>(number >> 16));
    add16(bytes, static_cast<unsigned int>(number & 0xFFFF));
}

}  // namespace

Upgrade::Upgrade(Ask ask, Restart restart, SlotBoard& board, bool isExtended)
    : m_Ask(std::move(ask)), m_Restart(std::move(restart)), m_Board(board), m_IsExtended(isExtended)
{}

bool Upgrade::read(unsigned int instance, unsigned int mask)
{
    model::Request request{model::GET, m_IsExtended, true, kSoftwareImage, static_cast<std::uint16_t>(instance), {}};
    add16(request.contents, mask);
    const Bytes answer = m_Ask(request);
    // Result, mask, in an extended answer the masks of what failed, and the value.
    const std::size_t value = m_IsExtended ? 7 : 3;
    return answer.size() > value && answer[0] == kSuccess && answer[value] != 0;
}

unsigned int Upgrade::command(std::uint8_t type, Bytes contents)
{
    const Bytes answer = m_Ask({type, m_IsExtended, true, kSoftwareImage, m_Target, std::move(contents)});
    const unsigned int result = answer.empty() ? 255 : answer[0];
    if (result > kDeviceBusy && m_Complaint.empty()) {
        m_Complaint = "message type " + std::to_string(type) + ": " + model::hexOf(answer);
    }
    return result;
}

bool Upgrade::play(const Bytes& image)
{
    // What an earlier upgrade has left to do.
    const unsigned int running = 1 - m_Board.idleSlot();
    if (!m_Board.slot(running).isCommitted) {
        m_Target = static_cast<std::uint16_t>(running);
        if (!commit()) {
            return false;
        }
    }
    m_Target = static_cast<std::uint16_t>(m_Board.idleSlot());
    m_Board.expectImage(image);
    return start(image) && sendImage(image) && end(image) && activate() && commit();
}

bool Upgrade::start(const Bytes& image)
{
    Bytes contents{kWindow - 1};
    add32(contents, image.size());
    contents.push_back(1);
    add16(contents, m_Target);
    int tries = 0;
    while (command(START, contents) != kSuccess) {
        if (++tries == kTries) {
            return false;
        }
    }
    return true;
}

bool Upgrade::sendImage(const Bytes& image)
{
    const std::size_t room = m_IsExtended ? 300 : 31;
    for (std::size_t begin = 0; begin < image.size(); begin += room * kWindow) {
        int tries = 0;
        while (!sendWindow(image, begin, std::min(begin + room * kWindow, image.size()))) {
            if (++tries == kTries) {
                return false;
            }
        }
    }
    return true;
}

bool Upgrade::sendWindow(const Bytes& image, std::size_t begin, std::size_t end)
{
    const std::size_t room = m_IsExtended ? 300 : 31;
    std::uint8_t number = 0;
    for (; begin + room < end; begin += room) {
        Bytes contents{number++};
        contents.insert(contents.end(), image.begin() + static_cast<std::ptrdiff_t>(begin),
                        image.begin() + static_cast<std::ptrdiff_t>(begin + room));
        m_Ask({SECTION, m_IsExtended, false, kSoftwareImage, m_Target, std::move(contents)});
    }
    Bytes contents{number};
    contents.insert(contents.end(), image.begin() + static_cast<std::ptrdiff_t>(begin),
                    image.begin() + static_cast<std::ptrdiff_t>(end));
    return command(SECTION, std::move(contents)) == kSuccess;
}

bool Upgrade::end(const Bytes& image)
{
    Bytes contents;
    add32(contents, omci::imageCrc(image.data(), image.size()));
    add32(contents, image.size());
    contents.push_back(1);
    add16(contents, m_Target);
    constexpr std::chrono::milliseconds pause(1);
    int tries = 0;
    for (int polls = 0; polls < 10000 && tries < kTries; ++polls) {
        const unsigned int result = command(END, contents);
        if (result == kSuccess) {
            return true;
        }
        if (result == kDeviceBusy) {
            std::this_thread::sleep_for(pause);
        } else {
            ++tries;
        }
    }
    return false;
}

bool Upgrade::activate()
{
    int tries = 0;
    while (command(ACTIVATE, {0}) != kSuccess) {
        if (++tries == kTries) {
            return false;
        }
    }
    m_Restart();
    return isActive(m_Target);
}

bool Upgrade::commit()
{
    int tries = 0;
    while (command(COMMIT, {}) != kSuccess) {
        if (++tries == kTries) {
            return false;
        }
    }
    return isCommitted(m_Target);
}
