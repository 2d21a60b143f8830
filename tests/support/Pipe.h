#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "network/FileDescriptor.h"

namespace tidewright::network {

/// A pipe of which the test holds the end that writes.
class Pipe {
public:
    Pipe() {
        if (::pipe(ends_.data()) != 0) ends_ = {-1, -1};
    }
    Pipe(const Pipe&) = delete;

    ~Pipe() {
        close();
        takeReader();
    }

    int reader() const { return ends_[0]; }

    /// A descriptor of the end that is read, which closes by itself.
    FileDescriptor takeReader() { return FileDescriptor(std::exchange(ends_[0], -1)); }

    /// False where the pipe does not take all of it.
    bool write(std::string_view bytes) const {
        return ::write(ends_[1], bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    }

    /// What was written and not yet read, 64 KiB of it at most.
    std::string read() const {
        std::string bytes(1 << 16, '\0');
        const ssize_t size = ::read(ends_[0], bytes.data(), bytes.size());
        bytes.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return bytes;
    }

    /// By which the end that writes can be opened once more.
    std::string path() const { return "/dev/fd/" + std::to_string(ends_[1]); }

    /// Ends what is written.
    void close() { FileDescriptor(std::exchange(ends_[1], -1)).close(); }

    void doNotBlock() const { ::fcntl(ends_[0], F_SETFL, O_NONBLOCK); }

private:
    std::array<int, 2> ends_{};
};

}  // namespace tidewright::network
