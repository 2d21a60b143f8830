#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tidewright::network {

/// A TCP client on this machine. Everything that waits gives up after ten seconds, with a failure
/// of the test under way.
class LoopbackClient {
public:
    struct Options {
        bool overIPv6 = false;
        int receiveBufferBytes = 0;  ///< small for a slow reader; 0 for the system's choice
    };

    explicit LoopbackClient(std::uint16_t port) : LoopbackClient(port, Options()) {}
    LoopbackClient(std::uint16_t port, Options options);
    LoopbackClient(LoopbackClient&& other) noexcept;
    ~LoopbackClient();

    /// The next `bytes` bytes; fewer if the stream ends.
    std::string read(std::size_t bytes);

    /// Everything up to and including the first `end`, and perhaps some more; or to the end of the
    /// stream.
    std::string readThrough(std::string_view end);

    /// Everything to the end of the stream.
    std::string readToEnd();

    /// Whether the stream was found to end in good order rather than with an error.
    bool endedCleanly() const { return endedCleanly_; }

    /// Whether nothing has arrived that was not read.
    bool hasNothingToRead() const;

    void write(std::string_view bytes);
    void closeSending();
    void reset();

private:
    std::string readSome(std::size_t most);

    int socket_;
    bool ended_ = false;
    bool endedCleanly_ = false;
};

}  // namespace tidewright::network
