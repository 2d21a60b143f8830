#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "network/LineSource.h"

namespace tidewright::network {

/// A source whose lines a test writes. As a file it has them all and can begin again; as a pipe it
/// has what has come so far.
class ScriptedLines final : public LineSource {
public:
    enum class Sort { file, pipe };

    /// `lines` are without their line ends.
    explicit ScriptedLines(std::vector<std::string> lines, Sort sort = Sort::file)
        : lines_(std::move(lines)), sort_(sort), hasEnded_(sort == Sort::file) {}

    NextLine next() override {
        if (next_ < lines_.size()) return {NextLine::Kind::line, lines_[next_++] + "\r\n"};
        return {hasEnded_ ? NextLine::Kind::end : NextLine::Kind::later, {}};
    }

    bool rewind() override {
        if (sort_ == Sort::file) next_ = 0;
        return sort_ == Sort::file;
    }

    /// Has these come.
    void add(const std::vector<std::string>& lines) {
        lines_.insert(lines_.end(), lines.begin(), lines.end());
        onMore();
    }

    void end() {
        hasEnded_ = true;
        onMore();
    }

    /// What a file holds from now on.
    void replace(std::vector<std::string> lines) { lines_ = std::move(lines); }

    /// How many lines were asked for since the beginning.
    std::size_t given() const { return next_; }

private:
    std::vector<std::string> lines_;
    Sort sort_;
    std::size_t next_ = 0;
    bool hasEnded_;
};

}  // namespace tidewright::network
