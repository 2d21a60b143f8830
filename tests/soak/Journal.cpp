#include "Journal.h"

#include <sys/mman.h>

#include <chrono>
#include <cstring>

#include "platform/Check.h"

namespace tidewright::soak {

Journal::Journal()
    : pages_(static_cast<Pages*>(mmap(nullptr, sizeof(Pages), PROT_READ | PROT_WRITE,
                                      MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0))) {
    platform::check(pages_ != MAP_FAILED, "no memory to share with another process");
}

Journal::~Journal() {
    munmap(pages_, sizeof(Pages));
}

void Journal::append(std::string_view sentence) {
    const std::uint64_t number = pages_->sentences.load(std::memory_order_relaxed);
    const std::uint64_t begin = number == 0 ? 0 : pages_->marks[number - 1].end;
    platform::check(number < Pages::mostSentences && begin + sentence.size() <= Pages::mostBytes,
                    "the journal is full");
    std::memcpy(pages_->bytes + begin, sentence.data(), sentence.size());
    pages_->marks[number] = {begin + sentence.size(), now()};
    pages_->sentences.store(number + 1, std::memory_order_release);
}

std::span<const Journal::Mark> Journal::marks() const {
    return {pages_->marks, pages_->sentences.load(std::memory_order_acquire)};
}

std::string_view Journal::bytes() const {
    const auto written = marks();
    return {pages_->bytes, written.empty() ? 0 : written.back().end};
}

std::int64_t Journal::now() {
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

}  // namespace tidewright::soak
