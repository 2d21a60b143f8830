#include "network/SentenceInbox.h"

#include <utility>

namespace tidewright::network {

void SentenceInbox::post(SharedBytes sentence) {
    const std::size_t size = sentence->size();
    if (bytes_.fetch_add(size) + size > maximumBytes_) {
        bytes_ -= size;
        ++droppedSentences_;
        return;
    }
    queue_.post([this, sentence = std::move(sentence)]() mutable {
        bytes_ -= sentence->size();
        deliver_(std::move(sentence));
    });
}

}  // namespace tidewright::network
