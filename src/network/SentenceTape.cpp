#include "network/SentenceTape.h"

#include <utility>

namespace tidewright::network {

void SentenceTape::append(SharedBytes sentence) {
    bytes_ += sentence->size();
    sentences_.push_back(std::move(sentence));
    while (bytes_ > maximumBytes_ && sentences_.size() > 1) dropOldest();
}

void SentenceTape::dropOldest() {
    bytes_ -= sentences_.front()->size();
    sentences_.pop_front();
    ++begin_;
}

}  // namespace tidewright::network
