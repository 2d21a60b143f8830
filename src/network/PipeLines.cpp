#include "network/PipeLines.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <utility>

#include "network/Chunk.h"
#include "network/LineReader.h"
#include "platform/Lifetime.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

namespace {

/// Wakes who waits for something else to read, once and for all.
class WakeUp {
public:
    WakeUp() {
        std::array<int, 2> ends{-1, -1};
        if (::pipe(ends.data()) != 0) return;
        reader_ = FileDescriptor(ends[0]);
        writer_ = FileDescriptor(ends[1]);
    }

    /// False where the system has no descriptor left.
    bool isPossible() const { return reader_.number() >= 0; }

    void ring() { writer_.close(); }

    /// Returns when `descriptor` can be read, which is true, or when it has rung. Not Asio's work,
    /// which would change the descriptor for everybody who shares it.
    bool awaits(int descriptor) const {
        std::array<pollfd, 2> asked{{{.fd = descriptor, .events = POLLIN, .revents = 0},
                                     {.fd = reader_.number(), .events = POLLIN, .revents = 0}}};
        int ready = -1;
        do ready = ::poll(asked.data(), asked.size(), -1);
        while (ready < 0 && (errno == EINTR || errno == EAGAIN));
        return ready > 0 && asked[1].revents == 0;
    }

private:
    FileDescriptor reader_;
    FileDescriptor writer_;
};

}  // namespace

struct PipeLines::Core {
    Core(const PipeLines& itsOwner, platform::MainLoop& itsMainLoop, FileDescriptor itsPipe,
         std::string_view begun)
        : owner(itsOwner), mainLoop(itsMainLoop), pipe(std::move(itsPipe)) {
        lines.add(begun);
        if (pipe.number() < 0 || !wakeUp.isPossible()) end();
    }

    ~Core() { wakeUp.ring(); }

    NextLine next() {
        if (auto line = lines.next()) return {NextLine::Kind::line, *std::move(line)};
        if (hasEnded) return {NextLine::Kind::end, {}};
        if (!std::exchange(isAsked, true)) queue.post([this] { read(); });
        return {NextLine::Kind::later, {}};
    }

    void take(const std::string& bytes) {
        isAsked = false;
        if (bytes.empty())
            end();
        else
            lines.add(bytes);
        if (owner.onMore) owner.onMore();
    }

    void end() {
        hasEnded = true;
        lines.finish();
    }

    /// On the queue.
    void read() {
        Chunk chunk;
        do {
            if (!wakeUp.awaits(pipe.number())) return;
            chunk = readChunk(pipe.number());
        } while (chunk.isLater);
        mainLoop.post(lifetime.guard([this, bytes = std::move(chunk.bytes)] { take(bytes); }));
    }

    const PipeLines& owner;
    platform::MainLoop& mainLoop;
    FileDescriptor pipe;
    WakeUp wakeUp;
    LineReader lines;
    bool isAsked = false;  // for more
    bool hasEnded = false;
    platform::Lifetime lifetime;
    platform::WorkQueue queue{"replay.reader"};  // last, so that it ends before what it works on
};

PipeLines::PipeLines(platform::MainLoop& mainLoop, FileDescriptor pipe, std::string_view begun)
    : core_(std::make_unique<Core>(*this, mainLoop, std::move(pipe), begun)) {}

PipeLines::~PipeLines() = default;

NextLine PipeLines::next() {
    return core_->next();
}

}  // namespace tidewright::network
