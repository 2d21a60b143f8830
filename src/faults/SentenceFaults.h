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

    /// The framed sentences of one emission, as the faults leave them: all of them met the same
    /// faults.
    std::vector<std::string> apply(std::vector<std::string> sentences) const;

private:
    const FailureInjection& faults_;
};

}  // namespace tidewright::faults
