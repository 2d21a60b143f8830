#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tidewright::network {

/// Divides a stream of bytes into lines. CR, LF or CR LF end a line; empty lines are passed over;
/// every other byte, NUL included, is kept. Of a line that is too long, pieces are lines.
class LineReader {
public:
    static constexpr std::size_t usualLongestLine = 8 << 20;

    /// `longestLine` (> 0) is in bytes, without the line end.
    explicit LineReader(std::size_t longestLine = usualLongestLine) : longestLine_(longestLine) {}

    /// Takes the bytes that come next. Once next() answers nothing, all that is kept is the line
    /// begun: who adds only then keeps memory within a line and what is added.
    void add(std::string_view bytes);

    /// Nothing comes any more: a line begun is one also without its end.
    void finish() { isFinished_ = true; }

    /// The next line, with CR LF at its end; nothing where more bytes are needed for one.
    std::optional<std::string> next();

private:
    std::string takeLine();

    std::size_t longestLine_;
    std::string bytes_;
    std::size_t read_ = 0;  // how many of them
    std::string line_;      // as far as it was read
    bool isFinished_ = false;
};

}  // namespace tidewright::network
