// Who called: the library, or somebody else.
#include <link.h>
#include <unwind.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>

#include "SandboxState.h"

namespace sandbox {
namespace {
struct Image
{
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;

    bool contains(std::uintptr_t address) const { return address >= begin && address < end; }
};

Image imageOf(const dl_phdr_info& info)
{
    Image image{UINTPTR_MAX, 0};
    for (int index = 0; index < info.dlpi_phnum; ++index) {
        const auto& header = info.dlpi_phdr[index];
        if (header.p_type == PT_LOAD) {
            const std::uintptr_t begin = info.dlpi_addr + header.p_vaddr;
            image.begin = std::min(image.begin, begin);
            image.end = std::max(image.end, begin + header.p_memsz);
        }
    }
    return image;
}

struct Search
{
    const char* name;        ///< part of the image's file name; null: not searched by name
    std::uintptr_t address;  ///< inside the image; 0: not searched by address
    bool wantsExecutable;
    Image found;
};

int visitImage(dl_phdr_info* info, std::size_t, void* argument)
{
    auto& search = *static_cast<Search*>(argument);
    const Image image = imageOf(*info);
    // The executable itself comes first, without a name.
    const bool isExecutable = info->dlpi_name == nullptr || info->dlpi_name[0] == '\0';
    const bool matches = (search.wantsExecutable && isExecutable) ||
                         (search.name != nullptr && !isExecutable && std::strstr(info->dlpi_name, search.name)) ||
                         (search.address != 0 && image.contains(search.address));
    if (matches) {
        search.found = image;
    }
    return matches ? 1 : 0;
}

Image findImage(Search search)
{
    dl_iterate_phdr(visitImage, &search);
    return search.found;
}

std::atomic<std::uintptr_t> libraryBegin{0};
std::atomic<std::uintptr_t> libraryEnd{0};

void setLibrary(const Image& image)
{
    libraryBegin = image.begin;
    libraryEnd = image.end;
}

Image libraryImage()
{
    if (libraryEnd == 0) {
        Image image = findImage({"libnrvk-omci-me", 0, false, {}});
        setLibrary(image.end != 0 ? image : findImage({nullptr, 0, true, {}}));
    }
    return {libraryBegin, libraryEnd};
}

const Image& runtimeImage()
{
    static const Image image = findImage({"libstdc++", 0, false, {}});
    return image;
}

struct Walk
{
    std::uintptr_t caller;
    bool passedRuntime;
};

_Unwind_Reason_Code visitFrame(_Unwind_Context* context, void* argument)
{
    auto& walk = *static_cast<Walk*>(argument);
    const std::uintptr_t address = _Unwind_GetIP(context);
    if (runtimeImage().contains(address)) {
        walk.passedRuntime = true;
        return _URC_NO_REASON;
    }
    if (!walk.passedRuntime) {
        return _URC_NO_REASON;
    }
    walk.caller = address;
    return _URC_END_OF_STACK;
}

/// The first frame beyond the C++ runtime: whose file stream it is. 0, nobody's, where the walk ends in the runtime: on
/// 32-bit ARM it does in functions that throw nothing, std::filesystem's with an error code; the library uses none of
/// them.
std::uintptr_t callerBehindRuntime()
{
    Walk walk{0, false};
    _Unwind_Backtrace(visitFrame, &walk);
    return walk.caller;
}
}  // namespace

void setLibraryImage(const void* address)
{
    setLibrary(findImage({nullptr, reinterpret_cast<std::uintptr_t>(address), false, {}}));
}

bool isLibraryCall(const void* returnAddress)
{
    const Image library = libraryImage();
    const auto address = reinterpret_cast<std::uintptr_t>(returnAddress);
    if (library.contains(address)) {
        return true;
    }
    return runtimeImage().contains(address) && library.contains(callerBehindRuntime());
}
}  // namespace sandbox
