#include "network/Recorder.h"

#include <chrono>
#include <utility>

namespace tidewright::network {

namespace {
using namespace std::chrono_literals;

constexpr auto delay = 50ms;
constexpr std::size_t batchBytes = 64 * 1024;

}  // namespace

Recorder::Recorder(OutputFile file, platform::MainLoop& machineLoop, Reports reports)
    : machineLoop_(machineLoop), reports_(std::move(reports)), file_(std::move(file)) {}

Recorder::~Recorder() {
    abandon();
    writeBatch();
}

void Recorder::record(const SharedBytes& sentence) {
    batch_ += *sentence;
    wasFull_ = wasFull_ || isFull();
    if (batch_.size() >= batchBytes)
        writeBatch();
    else
        writeSoon();
}

bool Recorder::isFull() const {
    return waitingBytes_ + batch_.size() >= maximumBytes;
}

void Recorder::writeSoon() {
    if (std::exchange(isWriteDue_, true)) return;
    machineLoop_.after(delay, lifetime_.guard([this] {
        isWriteDue_ = false;
        writeBatch();
    }));
}

void Recorder::writeBatch() {
    if (batch_.empty()) return;
    waitingBytes_ += batch_.size();
    queue_.post([this, batch = std::exchange(batch_, {})] { write(batch); });
}

/// On the queue.
void Recorder::write(const std::string& batch) {
    if (!hasFailed_) {
        if (auto failure = file_.write(batch, isAbandoned_)) {
            hasFailed_ = true;
            machineLoop_.post(
                lifetime_.guard([this, why = std::move(*failure)] { reports_.failed(why); }));
        }
    }
    machineLoop_.post(lifetime_.guard([this, size = batch.size()] { makeRoom(size); }));
}

void Recorder::makeRoom(std::size_t written) {
    waitingBytes_ -= written;
    if (waitingBytes_ + batch_.size() < maximumBytes / 2 && std::exchange(wasFull_, false))
        reports_.hasRoom();
}

void Recorder::finish(std::function<void()> done) {
    writeBatch();
    queue_.post(
        [this, done = std::move(done)] { machineLoop_.post(lifetime_.guard([done] { done(); })); });
}

}  // namespace tidewright::network
