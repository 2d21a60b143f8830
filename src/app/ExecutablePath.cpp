#include "app/ExecutablePath.h"

#ifdef __APPLE__
#include <mach-o/dyld.h>

#include <array>
#endif

#include <system_error>

namespace tidewright::app {

std::filesystem::path executablePath() {
    std::error_code unreadable;
#ifdef __APPLE__
    std::array<char, 4096> path{};
    std::uint32_t size = path.size();
    if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
    return std::filesystem::canonical(path.data(), unreadable);
#else
    return std::filesystem::read_symlink("/proc/self/exe", unreadable);
#endif
}

}  // namespace tidewright::app
