#include "network/LineReader.h"

#include <algorithm>
#include <utility>

namespace tidewright::network {

namespace {

bool endsALine(char byte) {
    return byte == '\r' || byte == '\n';
}

/// How many bytes of `text` stand before the first line end; all of them where there is none.
std::size_t lengthOfLine(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if(text, endsALine) - text.begin());
}

}  // namespace

void LineReader::add(std::string_view bytes) {
    bytes_.erase(0, std::exchange(read_, 0));
    bytes_ += bytes;
}

/// The LF of a CR LF ends an empty line, and is passed over with it.
std::optional<std::string> LineReader::next() {
    while (read_ < bytes_.size()) {
        const std::size_t room = longestLine_ - line_.size();
        const auto rest = std::string_view(bytes_).substr(read_, room);
        const std::size_t length = lengthOfLine(rest);
        line_ += rest.substr(0, length);
        read_ += length;
        const bool hasEnd = length < rest.size();
        if (hasEnd) ++read_;
        if (line_.size() == longestLine_ || (hasEnd && !line_.empty())) return takeLine();
    }
    if (isFinished_ && !line_.empty()) return takeLine();
    return std::nullopt;
}

std::string LineReader::takeLine() {
    line_ += "\r\n";
    return std::exchange(line_, {});
}

}  // namespace tidewright::network
