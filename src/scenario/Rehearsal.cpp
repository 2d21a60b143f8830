#include "scenario/Rehearsal.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "scenario/Mistake.h"

namespace tidewright::scenario {

namespace {

using gateway::Refusal;
using Texts = gateway::Settings::Texts;

class NoStreamServer final : public network::StreamServer {
public:
    std::optional<network::StartFailure> start(std::uint16_t) override { return std::nullopt; }
    std::optional<std::uint16_t> startOnFreePort() override { return std::nullopt; }
    void stop() override {}
    void broadcast(network::SharedBytes) override {}
    void limitClients(std::int64_t) override {}
    void dropAllClients() override {}
    void drop(std::uint64_t) override {}
    void askForTraffic() override {}
    std::uint64_t acceptedClients() const override { return 0; }
    network::DroppedSentences droppedSentences() const override { return {}; }
};

class NoDatagramSender final : public network::DatagramSender {
public:
    void start(const std::string&, std::uint16_t) override {}
    void send(network::SharedBytes) override {}
    void stop() override {}
    network::DroppedSentences droppedSentences() const override { return {}; }
};

gateway::Host nowhere(platform::MainLoop& loop, platform::RandomSource& random) {
    return {.loop = loop,
            .machineLoop = loop,
            .random = random,
            .tcp = std::make_unique<NoStreamServer>(),
            .udp = std::make_unique<NoDatagramSender>(),
            .bestInterface = [] { return std::nullopt; },
            .utcOffset = [](platform::WallTime) { return std::chrono::seconds(0); },
            .setClipboard = [](const std::string&) {}};
}

/// Takes out of `texts` those that `refusals` name.
void removeRefused(Texts& texts, const std::vector<Refusal>& refusals) {
    std::erase_if(texts, [&refusals](const auto& each) {
        return std::ranges::find(refusals, each.first, &Refusal::name) != refusals.end();
    });
}

/// Vessels take time and memory to make, and nothing is judged by how many there are.
bool makesVessels(const Texts::value_type& text) {
    return text.first == "ais.count";
}

bool isOfTheWind(const Texts::value_type& text) {
    return text.first == "wind.low" || text.first == "wind.high";
}

}  // namespace

Rehearsal::Rehearsal() : assembly_(nowhere(loop_, random_)) {}

std::vector<Refusal> Rehearsal::set(Texts texts) {
    auto& settings = assembly_.settings;
    std::vector<Refusal> refusals;
    for (const auto& text : texts) {
        if (refusals.size() == mostMistakes) return refusals;
        const auto* setting = settings.find(text.first);
        if (setting && setting->parse(text.second)) continue;
        for (Refusal& each : settings.writeTexts({text})) refusals.push_back(std::move(each));
    }
    removeRefused(texts, refusals);
    std::erase_if(texts, makesVessels);
    for (Refusal& each : settings.writeTexts(texts)) refusals.push_back(std::move(each));
    if (!refusals.empty()) {  // which of both bounds of the wind was meant, nobody knows
        std::erase_if(texts, isOfTheWind);
        [[maybe_unused]] const auto written = settings.writeTexts(texts);
    }
    return refusals;
}

void Rehearsal::perform(std::string_view action) {
    if (action != "clear-faults" && action != "reset") return;
    [[maybe_unused]] const auto refused = assembly_.actions.find(action)->perform();
}

bool Rehearsal::isAtAnchor() const {
    return assembly_.engine.mode == simulation::ControlMode::anchor;
}

}  // namespace tidewright::scenario
