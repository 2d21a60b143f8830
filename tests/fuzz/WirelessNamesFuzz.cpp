#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>

#include "FuzzInput.h"
#include "network/WirelessNames.h"
#include "platform/Check.h"

namespace tidewright::fuzz {

using network::FriendlyNames;
using platform::check;

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostInterfaces = 6;

bool canBeAFile(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.size() <= 255 &&
           name.find_first_of(std::string("/\0", 2)) == std::string::npos;
}

/// A folder like the kernel's, one folder an interface, that goes away at the end.
class PretendKernel {
public:
    PretendKernel() { fs::create_directories(root_); }
    PretendKernel(const PretendKernel&) = delete;
    PretendKernel& operator=(const PretendKernel&) = delete;
    ~PretendKernel() { fs::remove_all(root_); }

    const fs::path& root() const { return root_; }

    /// An interface whose folder has one entry; a dangling link if `entry` cannot be a name.
    void add(const std::string& interface, const std::string& entry) const {
        if (canBeAFile(entry))
            fs::create_directories(root_ / interface / entry);
        else
            fs::create_symlink("nowhere", root_ / interface);
    }

private:
    fs::path root_ = fs::temp_directory_path() / ("tidewright-fuzz-" + std::to_string(getpid()));
};

}  // namespace

/// One interface a line: its name, a tab, the one entry of its folder.
void tryInput(FuzzInput input) {
    const PretendKernel kernel;
    std::set<std::string> interfaces;
    FriendlyNames expected;
    while (!input.isSpent() && interfaces.size() < mostInterfaces) {
        FuzzInput line(input.textUpTo('\n'));
        const std::string interface(line.textUpTo('\t'));
        const std::string entry(line.rest());
        if (!canBeAFile(interface) || !interfaces.insert(interface).second) continue;
        kernel.add(interface, entry);
        if (entry == "wireless" || entry == "phy80211") expected[interface] = "Wi-Fi";
    }
    check(network::wirelessNames(kernel.root()) == expected, "wireless interfaces have a name");
    check(network::wirelessNames(kernel.root() / "nowhere else").empty(), "nothing has no names");
}

}  // namespace tidewright::fuzz
