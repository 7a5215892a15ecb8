#ifndef OLT_SESSION_INTERRUPT_H
#define OLT_SESSION_INTERRUPT_H

namespace olt {

/// Ctrl-C and SIGTERM as something that a wait can be woken by. One object at a time; a second signal ends the process
/// the hard way.
class Interrupt
{
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// Readable for poll once a signal has come.
    [[nodiscard]] static int descriptor();
    /// Throws Interrupted once a signal has come.
    static void check();
};

}  // namespace olt

#endif
