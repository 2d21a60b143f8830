#pragma once

#include <unistd.h>

#include <utility>

namespace tidewright::network {

/// Owns a descriptor of the system, and closes it in the end; -1: none.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(other.release()) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(FileDescriptor other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    ~FileDescriptor() { close(); }

    int number() const { return number_; }

    void close() {
        if (number_ >= 0) ::close(release());
    }

private:
    int release() { return std::exchange(number_, -1); }

    int number_;
};

}  // namespace tidewright::network
