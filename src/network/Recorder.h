#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "network/OutputFile.h"
#include "network/SharedBytes.h"
#include "platform/Lifetime.h"
#include "platform/MainLoop.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

/// Records sentences in a file, whole and in order, each within a tenth of a second. Its owner
/// never waits for the disk or for who reads the other end of a pipe: that is the recorder's own
/// thread's business. For the main thread.
class Recorder {
public:
    /// Where what is still to be written reaches this, the recorder is full.
    static constexpr std::size_t maximumBytes = 1 << 20;

    /// Called on the main thread.
    struct Reports {
        std::function<void(const OutputFile::Failure&)> failed;  ///< nothing more is written; once
        std::function<void()> hasRoom;                           ///< it was full, and is half empty
    };

    /// Reports through `machineLoop`, which keeps the machine's time and must outlive this.
    Recorder(OutputFile file, platform::MainLoop& machineLoop, Reports reports);

    /// Writes what it was given, but for what a reader does not take at once.
    ~Recorder();

    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Takes `sentence`, however full it is.
    void record(const SharedBytes& sentence);

    bool isFull() const;

    /// Counts a sentence that was to be recorded and was not.
    void drop() { ++droppedSentences_; }

    std::uint64_t droppedSentences() const { return droppedSentences_; }

    /// Calls `done`, on the main thread, when all that was recorded is written or cannot be.
    void finish(std::function<void()> done);

    /// From now on a reader who takes nothing is not waited for.
    void abandon() { isAbandoned_ = true; }

private:
    void writeSoon();
    void writeBatch();
    void write(const std::string& batch);
    void makeRoom(std::size_t written);

    platform::MainLoop& machineLoop_;
    Reports reports_;
    OutputFile file_;
    std::string batch_;             // not yet given to the queue
    std::size_t waitingBytes_ = 0;  // given to the queue and not yet written
    bool isWriteDue_ = false;
    bool wasFull_ = false;
    bool hasFailed_ = false;  // on the queue
    std::uint64_t droppedSentences_ = 0;
    std::atomic<bool> isAbandoned_ = false;
    platform::Lifetime lifetime_;
    platform::WorkQueue queue_{"nmea.recorder"};  // last, so that it ends before what it works on
};

}  // namespace tidewright::network
