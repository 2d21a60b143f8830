#include "network/TapeReader.h"

#include <algorithm>
#include <utility>

namespace tidewright::network {

std::size_t TapeReader::upcoming(const SentenceTape& tape, std::span<std::string_view> pieces) {
    missed_ = missedSentences(tape);
    next_ = std::max(next_, tape.begin());
    std::size_t count = 0;
    if (begun_) pieces[count++] = remainder();
    for (auto number = next_; number != tape.end() && count != pieces.size(); ++number) {
        pieces[count++] = *tape.at(number);
    }
    return count;
}

void TapeReader::advance(const SentenceTape& tape, std::size_t bytes) {
    sentBytes_ += bytes;
    if (begun_) {
        const auto step = std::min(bytes, remainder().size());
        begin(std::move(begun_), sent_ + step);
        bytes -= step;
    }
    while (bytes > 0) {
        const auto& sentence = tape.at(next_++);
        const auto step = std::min(bytes, sentence->size());
        begin(sentence, step);
        bytes -= step;
    }
}

std::uint64_t TapeReader::missedSentences(const SentenceTape& tape) const {
    return missed_ + std::max(next_, tape.begin()) - next_;
}

std::string_view TapeReader::remainder() const {
    return begun_ ? std::string_view(*begun_).substr(sent_) : std::string_view();
}

void TapeReader::begin(SharedBytes sentence, std::size_t sent) {
    const bool whole = sent == sentence->size();
    begun_ = whole ? nullptr : std::move(sentence);
    sent_ = sent;
}

}  // namespace tidewright::network
