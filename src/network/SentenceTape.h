#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

#include "network/SharedBytes.h"

namespace tidewright::network {

/// The most recent sentences, kept once for all clients, each of which is sent them at its own
/// pace.
///
/// Sentences are numbered from 0 in the order in which they came. Old ones fall off at the front
/// when the tape grows past its bound, sent or not.
class SentenceTape {
public:
    using Number = std::uint64_t;

    /// `maximumBytes` bounds what is kept; the newest sentence stays even if it alone is longer.
    explicit SentenceTape(std::size_t maximumBytes) : maximumBytes_(maximumBytes) {}

    /// The oldest sentence still there; end() if there is none.
    Number begin() const { return begin_; }

    /// The number that the next sentence will have.
    Number end() const { return begin_ + sentences_.size(); }

    /// A sentence still there: `number` within [begin(), end()).
    const SharedBytes& at(Number number) const {
        return sentences_[static_cast<std::size_t>(number - begin_)];
    }

    void append(SharedBytes sentence);

private:
    void dropOldest();

    std::size_t maximumBytes_;
    std::size_t bytes_ = 0;
    Number begin_ = 0;
    std::deque<SharedBytes> sentences_;
};

}  // namespace tidewright::network
