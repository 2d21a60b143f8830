#include "gateway/Replay.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>

namespace tidewright::gateway {

namespace {
using namespace std::chrono_literals;
using network::NextLine;

// What leaves together; more that is due at the same instant follows a nanosecond later, so that
// the loop serves others in between.
constexpr std::size_t linesABatch = 64;
constexpr std::size_t bytesABatch = 32 * 1024;
constexpr auto untilNextBatch = 1ns;

constexpr auto betweenTwoTimes = 1s;  // through the file
constexpr auto deliveryPeriod = 10ms;

}  // namespace

Replay::Replay(platform::PacedMainLoop& loop, GatewaySimulator& gateway,
               std::unique_ptr<network::LineSource> source, Options options)
    : loop_(loop),
      gateway_(gateway),
      source_(std::move(source)),
      options_(std::move(options)),
      due_(loop.now()),
      gatewayChanges_(gateway.observe([this] { followGateway(); })) {
    source_->onMore = lifetime_.guard([this] { takeMore(); });
    if (!gateway_.isRunning) stoppedAt_ = loop_.now();
    wakeWhenDue();
}

void Replay::followGateway() {
    if (gateway_.isRunning != stoppedAt_.has_value()) return;
    if (!stoppedAt_) {
        stoppedAt_ = loop_.now();
        return;
    }
    due_ += loop_.now() - *stoppedAt_;
    stoppedAt_.reset();
    if (!awaitsMore_) wakeWhenDue();
}

void Replay::wakeWhenDue() {
    loop_.after(std::max<platform::MainLoop::Duration>(due_ - loop_.now(), 0ns),
                lifetime_.guard([this, itsWait = ++wait_] {
                    if (itsWait == wait_) takeTurn();
                }));
}

void Replay::takeTurn() {
    if (stoppedAt_ || hasEnded_) return;
    std::vector<std::string> lines;
    const Pause pause = gather(lines);
    if (!lines.empty()) gateway_.relay(std::move(lines));
    goOnAfter(pause);
}

/// Reads the lines that are due, as many as may leave together.
Replay::Pause Replay::gather(std::vector<std::string>& lines) {
    std::size_t bytes = 0;
    while (lines.size() < linesABatch && bytes < bytesABatch) {
        if (!next_) {
            NextLine read = source_->next();
            if (read.kind == NextLine::Kind::later) return Pause::noneHasCome;
            if (read.kind == NextLine::Kind::end) return Pause::noneIsLeft;
            hold(std::move(read.text));
        }
        if (due_ > loop_.now()) return Pause::nextIsNotDue;
        bytes += next_->size();
        lines.push_back(*std::exchange(next_, std::nullopt));
    }
    return Pause::batchIsFull;
}

/// Keeps `line` until it is due, which is now where it comes too late for its pace.
void Replay::hold(std::string line) {
    due_ += pace_.delayOf(line) + std::exchange(respite_, 0ns);
    due_ = std::max(due_, loop_.now());
    next_ = std::move(line);
    hadLines_ = true;
    hasLinesThisTime_ = true;
}

void Replay::goOnAfter(Pause pause) {
    switch (pause) {
        case Pause::batchIsFull:
            due_ = loop_.now() + untilNextBatch;
            return wakeWhenDue();
        case Pause::nextIsNotDue:
            return wakeWhenDue();
        case Pause::noneHasCome:
            return awaitMore();
        case Pause::noneIsLeft:
            return finish();
    }
}

void Replay::awaitMore() {
    awaitsMore_ = true;
    if (options_.holdsRun) loop_.hold();
}

void Replay::takeMore() {
    if (!std::exchange(awaitsMore_, false)) return;
    if (options_.holdsRun) loop_.resume();
    takeTurn();
}

void Replay::finish() {
    if (options_.loops && std::exchange(hasLinesThisTime_, false) && source_->rewind()) {
        pace_ = {};
        respite_ = betweenTwoTimes;
        return wakeWhenDue();
    }
    hasEnded_ = true;
    awaitDelivery();
}

void Replay::awaitDelivery() {
    if (!gateway_.holdsSentences()) {
        if (options_.ended) options_.ended(hadLines_);
        return;
    }
    loop_.after(deliveryPeriod, lifetime_.guard([this] { awaitDelivery(); }));
}

}  // namespace tidewright::gateway
