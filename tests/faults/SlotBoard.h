#ifndef TESTS_FAULTS_SLOT_BOARD_H
#define TESTS_FAULTS_SLOT_BOARD_H

#include <array>
#include <mutex>
#include <string>

#include "model/Message.h"

/// A board with two image slots, its start and verify scripts, and the file that describes the slots. Slot 0 runs and
/// is committed; slot 1 holds no valid image. What it does to its files are not the library's calls.
class SlotBoard
{
public:
    struct Slot
    {
        bool isCommitted = false;
        bool isActive = false;
        bool isValid = false;
    };

    /// Writes the file; the library reads it at its start.
    SlotBoard();
    /// Takes the library's shell commands from now on. The board must outlive them.
    void connect();
    /// The only image that the verify script takes.
    void expectImage(model::Bytes image);
    /// The slot that is to boot runs now.
    void reboot();

    Slot slot(unsigned int instance) const;
    /// Where the next image goes.
    unsigned int idleSlot() const;
    /// The image as the library has written it.
    static model::Bytes receivedImage();

private:
    int run(const std::string& command);
    int verify();
    void describe() const;

    mutable std::mutex m_Mutex;
    std::array<Slot, 2> m_Slots{{{true, true, true}, {}}};
    unsigned int m_Next = 0;
    model::Bytes m_Image;
};

#endif
