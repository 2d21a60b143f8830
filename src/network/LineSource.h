#pragma once

#include <functional>
#include <string>

namespace tidewright::network {

/// The answer of a source that is asked for a line.
struct NextLine {
    enum class Kind {
        line,   ///< here it is
        later,  ///< none has come yet
        end,    ///< there is none any more
    };

    Kind kind = Kind::end;
    std::string text;  ///< of a line, with CR LF at its end

    bool operator==(const NextLine&) const = default;
};

/// Lines, one after the other, which are read as they are asked for. For the main thread.
class LineSource {
public:
    virtual ~LineSource() = default;

    /// Called on the main thread, never from inside next(), when it is worth asking again after
    /// the answer `later`.
    std::function<void()> onMore;

    /// The line after the one before. An error while reading is an end.
    virtual NextLine next() = 0;

    /// Has next() begin again with the first line. False where that cannot be, as with a pipe.
    virtual bool rewind() = 0;
};

}  // namespace tidewright::network
