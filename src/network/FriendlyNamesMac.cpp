#include <SystemConfiguration/SystemConfiguration.h>

#include <array>
#include <memory>
#include <optional>
#include <type_traits>

#include "network/FriendlyNames.h"

namespace tidewright::network {

namespace {

std::optional<std::string> utf8(CFStringRef text) {
    std::array<char, 256> bytes{};
    const bool fits = text != nullptr &&
                      CFStringGetCString(text, bytes.data(), bytes.size(), kCFStringEncodingUTF8);
    return fits ? std::optional<std::string>(bytes.data()) : std::nullopt;
}

void addName(FriendlyNames& names, SCNetworkInterfaceRef interface) {
    const auto name = utf8(SCNetworkInterfaceGetBSDName(interface));
    const auto shown = utf8(SCNetworkInterfaceGetLocalizedDisplayName(interface));
    if (name && shown) names.insert_or_assign(*name, *shown);
}

}  // namespace

FriendlyNames friendlyNames() {
    using Array = std::remove_pointer_t<CFArrayRef>;
    const std::unique_ptr<Array, decltype(&CFRelease)> all(SCNetworkInterfaceCopyAll(), &CFRelease);
    FriendlyNames names;
    if (all == nullptr) return names;
    for (CFIndex i = 0; i < CFArrayGetCount(all.get()); ++i) {
        addName(names, static_cast<SCNetworkInterfaceRef>(CFArrayGetValueAtIndex(all.get(), i)));
    }
    return names;
}

}  // namespace tidewright::network
