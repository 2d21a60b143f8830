#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "network/SentenceTape.h"

namespace tidewright::network {

/// One client's place on the tape: what it is to be sent next, and how far it got within a sentence
/// of which a part has left.
///
/// A reader that the tape has overtaken first finishes the sentence begun, which it holds itself,
/// and goes on with the oldest one still there: it loses whole sentences, never parts of one.
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

    /// What remains of the sentence of which a part has left; empty between sentences.
    std::string_view remainder() const;

private:
    void begin(SharedBytes sentence, std::size_t sent);

    SentenceTape::Number next_;  // the first sentence of which nothing has left
    SharedBytes begun_;          // null between sentences
    std::size_t sent_ = 0;       // how much of it
};

}  // namespace tidewright::network
