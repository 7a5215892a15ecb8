#ifndef SIMULATOR_BOARD_BOARD_SCRIPTS_H
#define SIMULATOR_BOARD_BOARD_SCRIPTS_H

#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "board/ImageDescriptions.h"

/// Stands in for the board's scripts and its boot loader: a board with two application slots. Everything it knows is in
/// files below the sandbox's directory, so that it outlives a reboot of the ONU and the process too.
///
///     /opt/addons/etc/appinfo.ini      the slots, as the library reads them
///     /opt/addons/etc/next_app         the slot to boot next time, once: 1 or 2
///     /opt/addons/etc/sef_status.txt   outcome of the last verification
///     /opt/addons/images/appN.sef      the image in slot N
class BoardScripts
{
public:
    /// What becomes of an image that is to be verified and put into its slot.
    struct Verification
    {
        enum Kind
        {
            OK,
            MISSING,       ///< the script leaves no status file
            MISSING_ONCE,  ///< not the next time, but after it
            LINE           ///< the status file begins with `line`
        };
        Kind kind = OK;
        std::string line;
    };

    ~BoardScripts() { goDown(); }

    /// Runs a shell command of the library. 0, or another number for a script that fails or is not one of the board's.
    /// On any thread; a verification that is held returns when it is released.
    int run(const std::string& command);

    void setVerification(Verification verification);
    /// A verification that is under way, or to come, stays at its beginning until it is released.
    void hold(bool isHeld);

    /// Keys of the description and their values; nothing takes a key out.
    using Descriptions = std::map<std::string, std::optional<std::string>>;
    /// Changes these keys, as the boot side would. std::exception when the file can't be read or written.
    void describe(const Descriptions& values);
    void forgetDescriptions();

    /// Boots: the slot that was selected for once, else the committed one, provided that its image is valid. A board
    /// without a description and without a selection stays as it is.
    void boot();
    /// Ends the scripts that are held, without an outcome, and runs no further one until comeUp.
    void goDown();
    void comeUp();

private:
    void bootSlot();
    int runLocked(const std::string& command, std::unique_lock<std::mutex>& lock);
    int runBoardScript(const std::string& arguments);
    int verify(const std::string& arguments, std::unique_lock<std::mutex>& lock);
    int putInPlace(const std::string& imageFile, std::unique_lock<std::mutex>& lock);

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    Verification m_Verification;
    bool m_IsHeld = false;
    bool m_IsDown = false;
};

#endif
