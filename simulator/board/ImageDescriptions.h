#ifndef SIMULATOR_BOARD_IMAGE_DESCRIPTIONS_H
#define SIMULATOR_BOARD_IMAGE_DESCRIPTIONS_H

#include <map>
#include <optional>
#include <string>

/// One of the board's two application slots, by the number that the boot side gives it.
enum class Slot
{
    App1 = 1,
    App2 = 2
};

constexpr Slot otherThan(Slot slot)
{
    return slot == Slot::App1 ? Slot::App2 : Slot::App1;
}

/// The file in which the boot side describes its slots: the one thing that the library knows of them. A file that is
/// missing reads as that of a board fresh from the factory, which runs slot 1 and has nothing in slot 2.
class ImageDescriptions
{
public:
    static constexpr const char* kPath = "/opt/addons/etc/appinfo.ini";

    /// std::runtime_error when there is a file that can't be read.
    static ImageDescriptions load();
    static bool exist();
    /// As if the boot side had never written one.
    static void remove();
    /// Replaces the file in one step: whoever reads meanwhile has the old one. std::system_error when that fails.
    void save() const;

    /// Whether the boot side writes a key of this name.
    static bool isKnown(const std::string& key);
    /// Nothing takes the key out.
    void set(const std::string& key, const std::optional<std::string>& value);

    bool isCommitted(Slot slot) const { return isSet(slot, "COMMIT"); }
    bool isActive(Slot slot) const { return isSet(slot, "ACTIVE"); }
    bool isValid(Slot slot) const { return isSet(slot, "VALID"); }
    /// The slot's image is good and has that version; it is not committed.
    void setImage(Slot slot, const std::string& version);
    /// The other slot loses the mark.
    void commit(Slot slot) { mark(slot, "COMMIT"); }
    void run(Slot slot) { mark(slot, "ACTIVE"); }

private:
    bool isSet(Slot slot, const char* what) const;
    void mark(Slot slot, const char* what);

    std::map<std::string, std::string> m_Values;
};

#endif
