#include "encoding/TagBlock.h"

#include <fmt/format.h>

#include <chrono>

#include "encoding/NMEAChecksum.h"

namespace tidewright::encoding {

std::string tagBlock(platform::WallTime time) {
    const auto milliseconds =
        std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch()).count();
    const std::string body = fmt::format("s:tidewright,c:{}", milliseconds);
    return fmt::format("\\{}*{:02X}\\", body, NMEAChecksum::compute(body));
}

bool hasTagBlock(std::string_view sentence) {
    return sentence.starts_with('\\');
}

}  // namespace tidewright::encoding
