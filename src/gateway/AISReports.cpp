#include "gateway/AISReports.h"

#include <utility>

#include "platform/Check.h"

namespace tidewright::gateway {

namespace {

/// How many emissions make a round: ten seconds' worth at whole rates from 1 Hz up, ten below.
std::int64_t emissionsPerRound(double aisHz) {
    const double hertz = aisHz > 1 ? aisHz : 1;
    platform::check(hertz < 0x1p59, "an AIS rate must be countable");
    return 10 * static_cast<std::int64_t>(hertz);
}

}  // namespace

std::vector<std::string> AISReports::next(const std::vector<simulation::AISTarget>& targets,
                                          const encoding::AISEncoder& encoder, double aisHz) {
    std::vector<std::string> sentences;
    sentences.reserve(targets.size());
    for (const auto& target : targets) sentences.push_back(encoder.positionReport(target));
    if (--staticCountdown_ > 0) return sentences;
    staticCountdown_ = emissionsPerRound(aisHz);
    for (const auto& target : targets) {
        sequence_ = (sequence_ + 1) % 10;
        for (std::string& fragment : encoder.staticReport(target, sequence_))
            sentences.push_back(std::move(fragment));
    }
    return sentences;
}

}  // namespace tidewright::gateway
