#include "network/OutputFile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <system_error>
#include <utility>

namespace tidewright::network {

namespace {

constexpr int betweenLooksMs = 50;

OutputFile::Failure failure(int error) {
    switch (error) {
        case EPIPE:
            return {.reason = "son lecteur est parti.", .hasReaderLeft = true};
        case ENOSPC:
        case EDQUOT:
            return {.reason = "il n'y a plus de place."};
        case EFBIG:
            return {.reason = "il est devenu trop grand."};
        case EACCES:
        case EPERM:
        case EROFS:
            return {.reason = "l'écriture n'y est pas permise."};
        case EISDIR:
            return {.reason = "c'est un dossier."};
        case ENOENT:
        case ENOTDIR:
            return {.reason = "son dossier n'existe pas."};
        default:
            return {.reason = std::generic_category().message(error) + "."};
    }
}

bool isRegularFile(int descriptor) {
    struct stat file {};
    return ::fstat(descriptor, &file) == 0 && S_ISREG(file.st_mode);
}

/// How much of `text` the system took; -1 with errno for nothing and a failure.
ssize_t writeSome(int descriptor, std::string_view text) {
    ssize_t written = 0;
    do {
        written = ::write(descriptor, text.data(), text.size());
    } while (written < 0 && errno == EINTR);
    return written;
}

/// The end of the last sentence that ends within the first `size` bytes.
std::size_t endOfSentences(std::string_view text, std::size_t size) {
    const auto last = text.substr(0, size).rfind('\n');
    return last == std::string_view::npos ? 0 : last + 1;
}

}  // namespace

std::variant<OutputFile, OutputFile::Failure> OutputFile::open(const std::string& path) {
    constexpr mode_t everybodyAsTheMaskSays = 0666;
    const int descriptor = path == "-"
                               ? ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0)
                               : ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC,
                                        everybodyAsTheMaskSays);
    if (descriptor < 0) return failure(errno);
    return OutputFile(FileDescriptor(descriptor));
}

OutputFile::OutputFile(FileDescriptor descriptor)
    : descriptor_(std::move(descriptor)), isRegular_(isRegularFile(descriptor_.number())) {}

std::optional<OutputFile::Failure> OutputFile::write(std::string_view sentences,
                                                     const std::atomic<bool>& isAbandoned) const {
    return isRegular_ ? writeToFile(sentences) : writeToReader(sentences, isAbandoned);
}

std::optional<OutputFile::Failure> OutputFile::writeToFile(std::string_view sentences) const {
    std::size_t done = 0;
    while (done < sentences.size()) {
        const ssize_t written = writeSome(descriptor_.number(), sentences.substr(done));
        if (written >= 0) {
            done += static_cast<std::size_t>(written);
            continue;
        }
        const Failure why = failure(errno);
        const auto surplus = static_cast<off_t>(done - endOfSentences(sentences, done));
        const off_t end = ::lseek(descriptor_.number(), 0, SEEK_CUR);
        if (surplus > 0 && end >= surplus) (void)!::ftruncate(descriptor_.number(), end - surplus);
        return why;
    }
    return std::nullopt;
}

/// In pieces that a pipe takes whole or not at all, which end with a sentence where one is short
/// enough.
std::optional<OutputFile::Failure> OutputFile::writeToReader(
    std::string_view sentences, const std::atomic<bool>& isAbandoned) const {
    pollfd room{.fd = descriptor_.number(), .events = POLLOUT, .revents = 0};
    while (!sentences.empty()) {
        const int ready = ::poll(&room, 1, betweenLooksMs);
        if (ready == 0 && isAbandoned) return std::nullopt;
        if (ready <= 0) continue;
        const auto whole = endOfSentences(sentences, PIPE_BUF);
        const ssize_t written =
            writeSome(descriptor_.number(), sentences.substr(0, whole > 0 ? whole : PIPE_BUF));
        if (written < 0 && errno != EAGAIN) return failure(errno);
        if (written > 0) sentences.remove_prefix(static_cast<std::size_t>(written));
    }
    return std::nullopt;
}

}  // namespace tidewright::network
