#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzInput.h"
#include "gateway/Assembly.h"
#include "gateway/Replay.h"
#include "network/LineReader.h"
#include "network/LineSource.h"
#include "platform/Check.h"
#include "platform/PacedMainLoop.h"
#include "platform/VirtualMainLoop.h"
#include "simulation/SeededRandom.h"
#include "support/ReadOutHost.h"

namespace tidewright::fuzz {

using network::NextLine;
using platform::check;

namespace {

constexpr std::int64_t longestLine = 64;
constexpr std::int64_t largestRead = 32;
constexpr std::size_t mostForALine = 8;  // sentences, whatever the faults add

/// Bytes that come in reads of a given size: all of them there, as in a file, or one read at a
/// time, as through a pipe.
class PiecemealLines final : public network::LineSource {
public:
    struct Shape {
        std::size_t longestLine = 0;
        std::size_t read = 0;
        bool isPipe = false;
    };

    PiecemealLines(platform::MainLoop& loop, std::string_view bytes, Shape shape)
        : loop_(loop), rest_(bytes), shape_(shape), lines_(shape.longestLine) {}

    NextLine next() override {
        while (true) {
            if (auto line = lines_.next()) return {NextLine::Kind::line, *std::move(line)};
            if (hasEnded_) return {NextLine::Kind::end, {}};
            readOn();
            if (!shape_.isPipe) continue;
            loop_.post([this] { onMore(); });
            return {NextLine::Kind::later, {}};
        }
    }

    bool rewind() override { return false; }

private:
    void readOn() {
        hasEnded_ = rest_.empty();
        if (hasEnded_) return lines_.finish();
        lines_.add(rest_.substr(0, shape_.read));
        rest_.remove_prefix(std::min(shape_.read, rest_.size()));
    }

    platform::MainLoop& loop_;
    std::string_view rest_;
    Shape shape_;
    network::LineReader lines_;
    bool hasEnded_ = false;
};

/// What is to come out, found another way than the reader's.
std::vector<std::string> linesIn(std::string_view bytes, std::size_t longest) {
    std::vector<std::string> lines;
    std::string line;
    const auto add = [&] {
        for (std::size_t at = 0; at < line.size(); at += longest)
            lines.push_back(line.substr(at, longest) + "\r\n");
        line.clear();
    };
    for (const char each : bytes) {
        if (each == '\r' || each == '\n')
            add();
        else
            line += each;
    }
    add();
    return lines;
}

gateway::SettingValue anyValue(const gateway::Setting& setting, FuzzInput& input) {
    const auto from = static_cast<std::int64_t>(setting.range.from);
    const auto to = static_cast<std::int64_t>(setting.range.to);
    switch (setting.kind) {
        case gateway::SettingKind::flag:
            return input.flag();
        case gateway::SettingKind::integer:
            return input.whole(from, to);
        case gateway::SettingKind::number:
            return static_cast<double>(input.whole(from, to));
        case gateway::SettingKind::choice: {
            const auto last = static_cast<std::int64_t>(setting.choices.size()) - 1;
            return setting.choices[static_cast<std::size_t>(input.whole(0, last))].value;
        }
        default:
            return setting.read();
    }
}

void switchFaults(gateway::Assembly& assembly, FuzzInput& input) {
    for (const auto& setting : assembly.settings.all()) {
        if (!setting.name.starts_with("faults.")) continue;
        const auto value = anyValue(setting, input);
        if (setting.fits(value)) setting.write(value);
    }
}

/// A gateway without a boat that replays `lines` to the end, as fast as it can.
std::vector<std::string> replayed(FuzzInput& input, std::string_view bytes,
                                  PiecemealLines::Shape shape, bool withFaults) {
    platform::VirtualMainLoop machine;
    platform::PacedMainLoop loop(machine, platform::WallTime(), platform::PacedMainLoop::unlimited);
    simulation::SeededRandom random(1);
    std::vector<std::string> sent;
    gateway::Host host =
        readOutHost(loop, random, [&](const std::string& sentence) { sent.push_back(sentence); });
    host.replays = true;
    gateway::Assembly assembly(std::move(host));
    if (withFaults) switchFaults(assembly, input);
    assembly.gateway.start();
    bool hasEnded = false;
    const gateway::Replay replay(loop, assembly.gateway,
                                 std::make_unique<PiecemealLines>(loop, bytes, shape),
                                 {.holdsRun = true, .ended = [&](bool hadLines) {
                                      check(!hasEnded, "it ends once");
                                      hasEnded = true;
                                      check(hadLines == !linesIn(bytes, shape.longestLine).empty(),
                                            "it tells whether there were lines");
                                      loop.hold();
                                  }});
    machine.advance(std::chrono::nanoseconds(0));
    check(hasEnded, "it ends");
    return sent;
}

}  // namespace

/// Whether it comes through a pipe, how long lines may be, how much a read gives, the faults, then
/// the bytes.
void tryInput(FuzzInput input) {
    const PiecemealLines::Shape shape{
        .longestLine = static_cast<std::size_t>(input.whole(1, longestLine)),
        .read = static_cast<std::size_t>(input.whole(1, largestRead)),
        .isPipe = input.flag()};
    FuzzInput faults(input.textUpTo('\n'));
    const std::string_view bytes = input.rest();
    const auto lines = linesIn(bytes, shape.longestLine);
    check(replayed(faults, bytes, shape, false) == lines, "the lines come out as they are");
    check(replayed(faults, bytes, shape, true).size() <= mostForALine * lines.size(),
          "faults add within a bound");
}

}  // namespace tidewright::fuzz
