#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "network/FileDescriptor.h"

namespace tidewright::network {

/// A file of its own for one test, gone in the end.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string_view content = {}) {
        const FileDescriptor file(::mkstemp(path_.data()));
        append(content);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove(path_); }

    const std::string& path() const { return path_; }
    FileDescriptor open() const { return FileDescriptor(::open(path_.c_str(), O_RDONLY)); }

    void append(std::string_view bytes) const {
        std::ofstream(path_, std::ios::binary | std::ios::app) << bytes;
    }

    void empty() const { std::ofstream(path_, std::ios::trunc).flush(); }

private:
    std::string path_ = (std::filesystem::temp_directory_path() / "tidewright-XXXXXX").string();
};

}  // namespace tidewright::network
