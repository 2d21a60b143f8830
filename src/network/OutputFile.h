#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "network/FileDescriptor.h"

namespace tidewright::network {

/// A file, a pipe or the standard output that whole sentences are written into.
class OutputFile {
public:
    /// Why nothing more can be written.
    struct Failure {
        std::string reason;          ///< for the user, in French, to stand behind a colon
        bool hasReaderLeft = false;  ///< of a pipe
    };

    /// Opens `path` and empties it; "-" is the standard output. Why it cannot, in French, else.
    static std::variant<OutputFile, Failure> open(const std::string& path);

    /// Writes sentences, each with its CR LF, and waits as long as a reader needs to take them, or
    /// until `isAbandoned`. Where they cannot all be written, what was written ends with a whole
    /// sentence, as far as the system lets that be mended.
    std::optional<Failure> write(std::string_view sentences,
                                 const std::atomic<bool>& isAbandoned) const;

private:
    explicit OutputFile(FileDescriptor descriptor);

    std::optional<Failure> writeToFile(std::string_view sentences) const;
    std::optional<Failure> writeToReader(std::string_view sentences,
                                         const std::atomic<bool>& isAbandoned) const;

    FileDescriptor descriptor_;
    bool isRegular_;
};

}  // namespace tidewright::network
