#pragma once

#include <string>
#include <vector>

#include "faults/FailureInjection.h"

namespace tidewright::faults {

/// What happens to the text of sentences on their way out.
class SentenceFaults {
public:
    /// `faults` must outlive this.
    explicit SentenceFaults(const FailureInjection& faults) : faults_(faults) {}

    /// The sentences of one emission, with their line ends, as the faults leave them: all of them
    /// met the same faults. They may hold any bytes, sentences or not; what a fault needs and does
    /// not find, it leaves alone, and so do all of them a TAG block in front.
    std::vector<std::string> apply(std::vector<std::string> sentences) const;

private:
    const FailureInjection& faults_;
};

}  // namespace tidewright::faults
