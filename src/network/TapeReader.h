#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "network/SentenceTape.h"

namespace tidewright::network {

/// One client's place on the tape: what it is to be sent next, and how far it got within a sentence
/// of which a part has left.
///
/// A client for whom the tape no longer holds the next sentence first gets the rest of the one
/// begun, which is kept here, and goes on with the oldest one still there: it loses whole
/// sentences, never parts of one.
class TapeReader {
public:
    /// Begins with the sentence number `next`.
    explicit TapeReader(SentenceTape::Number next) : next_(next) {}

    /// Fills `pieces` with what comes next on `tape`, and returns how many it filled: fewer than
    /// there is room for only at the end of the tape. They last until the tape changes or this
    /// reader advances.
    std::size_t upcoming(const SentenceTape& tape, std::span<std::string_view> pieces);

    /// Takes note that the first `bytes` of what upcoming() just gave have left.
    void advance(const SentenceTape& tape, std::size_t bytes);

    /// How much has left in all.
    std::uint64_t sentBytes() const { return sentBytes_; }

    /// How many sentences `tape` dropped before anything of them had left.
    std::uint64_t missedSentences(const SentenceTape& tape) const;

    /// Whether everything on `tape` has left.
    bool isAtEndOf(const SentenceTape& tape) const { return !begun_ && next_ == tape.end(); }

    /// What remains of the sentence of which a part has left; empty between sentences.
    std::string_view remainder() const;

private:
    void begin(SharedBytes sentence, std::size_t sent);

    SentenceTape::Number next_;  // the first sentence of which nothing has left
    SharedBytes begun_;          // null between sentences
    std::size_t sent_ = 0;       // how much of it
    std::uint64_t sentBytes_ = 0;
    std::uint64_t missed_ = 0;
};

}  // namespace tidewright::network
