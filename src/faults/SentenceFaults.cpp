#include "faults/SentenceFaults.h"

#include <string_view>

#include "encoding/NMEAChecksum.h"

namespace tidewright::faults {

namespace {

/// Frames the sentence anew, with the checksum that is its own with every bit inverted.
void invertChecksum(std::string& sentence) {
    const std::string_view body(sentence.data() + 1, sentence.find('*') - 1);
    sentence = encoding::NMEAChecksum::sentence(sentence.front(), body, true);
}

}  // namespace

std::vector<std::string> SentenceFaults::apply(std::vector<std::string> sentences) const {
    if (faults_.invalidChecksum)
        for (std::string& each : sentences) invertChecksum(each);
    return sentences;
}

}  // namespace tidewright::faults
