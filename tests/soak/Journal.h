#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tidewright::soak {

/// Everything that was broadcast, and when, for another process to read along. Made before the
/// fork that separates the two; one process appends, the other reads.
class Journal {
public:
    /// One sentence that was broadcast.
    struct Mark {
        std::uint64_t end = 0;         ///< the bytes up to and including this sentence
        std::int64_t nanoseconds = 0;  ///< when, on the steady clock, which both processes share
    };

    Journal();
    Journal(const Journal&) = delete;
    ~Journal();

    void append(std::string_view sentence);

    /// Nothing will be appended any more.
    void close() { pages_->closed.store(true, std::memory_order_release); }

    bool isClosed() const { return pages_->closed.load(std::memory_order_acquire); }
    std::span<const Mark> marks() const;
    std::string_view bytes() const;

    /// The steady clock as marks have it.
    static std::int64_t now();

private:
    /// Untouched pages cost nothing, so there is room for the longest run.
    struct Pages {
        static constexpr std::size_t mostBytes = std::size_t{1} << 30;
        static constexpr std::size_t mostSentences = std::size_t{1} << 24;

        std::atomic<std::uint64_t> sentences;
        std::atomic<bool> closed;
        Mark marks[mostSentences];
        char bytes[mostBytes];
    };

    Pages* pages_;
};

}  // namespace tidewright::soak
