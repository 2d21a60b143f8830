#include "network/ReplayFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

#include "network/Chunk.h"
#include "network/FileDescriptor.h"
#include "network/LineReader.h"
#include "network/PipeLines.h"

namespace tidewright::network {

namespace {

using Opened = std::variant<std::unique_ptr<LineSource>, std::string>;

/// The lines of an ordinary file.
class FileLines final : public LineSource {
public:
    explicit FileLines(FileDescriptor file) : file_(std::move(file)) {}

    NextLine next() override {
        while (true) {
            if (auto line = lines_.next()) return {NextLine::Kind::line, *std::move(line)};
            if (hasEnded_) return {NextLine::Kind::end, {}};
            readOn();
        }
    }

    bool rewind() override {
        lines_ = LineReader();
        hasEnded_ = ::lseek(file_.number(), 0, SEEK_SET) < 0;
        return !hasEnded_;
    }

private:
    void readOn() {
        const Chunk chunk = readChunk(file_.number());
        hasEnded_ = chunk.bytes.empty();
        if (hasEnded_) lines_.finish();
        lines_.add(chunk.bytes);
    }

    FileDescriptor file_;
    LineReader lines_;
    bool hasEnded_ = false;
};

std::string nameOf(const std::string& path) {
    return path == "-" ? "L'entrée standard" : fmt::format("« {} »", path);
}

std::string unreadable(const std::string& path, int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return fmt::format("{} n'existe pas.", nameOf(path));
        case EISDIR:
            return fmt::format("{} est un dossier.", nameOf(path));
        case EACCES:
        case EPERM:
            return fmt::format("{} : accès refusé.", nameOf(path));
        case EBADF:
            return fmt::format("{} est fermée.", nameOf(path));  // it alone can be
        default:
            break;
    }
    return fmt::format("{} : lecture impossible ({}).", nameOf(path),
                       std::generic_category().message(error));
}

/// A named pipe is opened before anybody writes to it; reading an ordinary file waits all the same.
FileDescriptor openDescriptor(const std::string& path) {
    if (path == "-") return FileDescriptor(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
    int number = -1;
    do number = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    while (number < 0 && errno == EINTR);
    return FileDescriptor(number);
}

bool isReady(const FileDescriptor& descriptor) {
    pollfd asked{.fd = descriptor.number(), .events = POLLIN, .revents = 0};
    return ::poll(&asked, 1, 0) > 0;
}

/// A file that is there at once, as a device without an end of its own, must hold something.
Opened openPipe(const std::string& path, platform::MainLoop& mainLoop, FileDescriptor pipe) {
    Chunk begun{.bytes = {}, .isLater = true};
    if (path != "-" && isReady(pipe)) begun = readChunk(pipe.number());
    if (begun.bytes.empty() && !begun.isLater) return withoutLines(path);
    return std::make_unique<PipeLines>(mainLoop, std::move(pipe), begun.bytes);
}

Opened openFile(const std::string& path, FileDescriptor file) {
    auto lines = std::make_unique<FileLines>(std::move(file));
    if (path == "-") return lines;
    if (lines->next().kind == NextLine::Kind::end) return withoutLines(path);
    lines->rewind();
    return lines;
}

}  // namespace

std::string withoutLines(const std::string& path) {
    return fmt::format("{} ne contient aucune ligne.", nameOf(path));
}

Opened openReplay(const std::string& path, platform::MainLoop& mainLoop) {
    FileDescriptor descriptor = openDescriptor(path);
    struct stat status {};
    if (descriptor.number() < 0 || ::fstat(descriptor.number(), &status) != 0)
        return unreadable(path, errno);
    if (S_ISDIR(status.st_mode)) return unreadable(path, EISDIR);
    if (S_ISREG(status.st_mode)) return openFile(path, std::move(descriptor));
    return openPipe(path, mainLoop, std::move(descriptor));
}

}  // namespace tidewright::network
