// The image description file and the factory file, broken in every way.
#include <filesystem>
#include <fstream>

#include "FuzzedOnu.h"
#include "sandbox/Sandbox.h"

namespace {

constexpr std::uint16_t kSoftwareImage = 7;
constexpr const char* kImageDescription = "/opt/addons/etc/appinfo.ini";
constexpr const char* kFactory = "/opt/addons/etc/factory.ini";

void write(const char* path, const std::uint8_t* data, std::size_t size)
{
    const std::filesystem::path real = Sandbox::realPath(path);
    std::filesystem::create_directories(real.parent_path());
    std::ofstream(real, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

void getEverything(fuzz::FuzzedOnu& onu, std::uint16_t classId, std::uint16_t instance)
{
    static std::uint16_t transaction = 0;
    omci::FrameHeader header;
    header.transactionId = ++transaction;
    header.type = omci::MessageType::Get;
    header.acknowledgeRequest = true;
    header.format = omci::Format::Extended;
    header.entityClass = classId;
    header.entityInstance = instance;
    onu.handle(fuzz::frameOf(header, {0xFF, 0xFF}));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::FuzzedOnu& onu = fuzz::FuzzedOnu::instance();
    write(kImageDescription, data, size);
    write(kFactory, data, size);
    onu.onu().core().setFactoryConfigurationFile(kFactory);
    // The description is read again only after two seconds: a new life reads it at once.
    onu.onu().restart();
    onu.onu().core().updateOnuGME();
    for (std::uint16_t instance = 0; instance < 3; ++instance) {
        getEverything(onu, kSoftwareImage, instance);
    }
    return 0;
}
