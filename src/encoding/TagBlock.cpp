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
    return tagBlockSize(sentence) > 0;
}

std::size_t tagBlockSize(std::string_view sentence) {
    std::size_t size = 0;
    while (size < sentence.size() && sentence[size] == '\\') {
        const auto end = sentence.find('\\', size + 1);
        if (end == std::string_view::npos) break;
        size = end + 1;
    }
    return size;
}

}  // namespace tidewright::encoding
