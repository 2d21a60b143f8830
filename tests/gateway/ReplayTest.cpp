#include "gateway/Replay.h"

#include <gmock/gmock.h>

#include <chrono>
#include <optional>
#include <ostream>
#include <vector>

#include "gateway/Assembly.h"
#include "platform/PacedMainLoop.h"
#include "support/PretendHost.h"
#include "support/ReadOutHost.h"
#include "support/ScriptedLines.h"
#include "support/ScriptedRandom.h"

namespace tidewright::gateway {
namespace {
using namespace std::chrono_literals;
using network::ScriptedLines;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Lines = std::vector<std::string>;

constexpr platform::WallTime noon =
    std::chrono::sys_days{std::chrono::June / 1 / 2026} + std::chrono::hours(12);

/// What left, and when, in milliseconds of the run.
struct Sent {
    std::chrono::milliseconds time;
    std::string text;

    bool operator==(const Sent&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Sent& sent) {
    return out << sent.time.count() << " ms: " << sent.text;
}

/// A gateway without a boat, and a source of lines, on a machine whose time passes when the test
/// says so.
struct ReplayTest : testing::Test {
    platform::VirtualMainLoop machine;
    platform::PacedMainLoop loop{machine, noon, 1};
    ScriptedRandom random;
    PretendHost pretended;
    std::optional<Assembly> assembly;
    ScriptedLines* source = nullptr;  // the replay's
    std::optional<Replay> replay;
    std::vector<Sent> sent;
    std::optional<Sent> ended;  ///< when, and whether there were lines

    explicit ReplayTest(double speed = 1) : loop(machine, noon, speed) {
        Host host = pretended.host(loop, random);
        host.replays = true;
        host.record = [this](const network::SharedBytes& bytes) {
            sent.push_back({timeOfRun(), *bytes});
        };
        assembly.emplace(std::move(host));
        assembly->gateway.start();
    }

    std::chrono::milliseconds timeOfRun() const {
        return std::chrono::floor<std::chrono::milliseconds>(loop.now().time_since_epoch());
    }

    void begin(Lines lines, bool loops = false) {
        begin(std::make_unique<ScriptedLines>(std::move(lines)), {.loops = loops});
    }

    void beginPipe(Replay::Options options = {}) {
        begin(std::make_unique<ScriptedLines>(Lines{}, ScriptedLines::Sort::pipe),
              std::move(options));
    }

    void begin(std::unique_ptr<ScriptedLines> lines, Replay::Options options) {
        source = lines.get();
        options.ended = [this](bool hadLines) {
            ended = {timeOfRun(), hadLines ? "lines" : "no line"};
        };
        replay.emplace(loop, assembly->gateway, std::move(lines), std::move(options));
    }

    /// What leaves until then.
    std::vector<Sent> sentDuring(std::chrono::milliseconds span) {
        sent.clear();
        machine.advance(span);
        return sent;
    }

    Lines textsDuring(std::chrono::milliseconds span) {
        Lines texts;
        for (const Sent& each : sentDuring(span)) texts.push_back(each.text);
        return texts;
    }
};

TEST_F(ReplayTest, sendsTenLinesASecondFromTheStartWhereNoneCarriesATime) {
    begin({"a", "b", "c"});
    EXPECT_THAT(sent, IsEmpty()) << "nothing before the loop's first turn";
    EXPECT_THAT(sentDuring(0ms), ElementsAre(Sent{0ms, "a\r\n"}));
    EXPECT_THAT(sentDuring(1s), ElementsAre(Sent{100ms, "b\r\n"}, Sent{200ms, "c\r\n"}));
}

TEST_F(ReplayTest, keepsThePaceOfTheTimesThatItMeets) {
    begin({"a", "$GPRMC,120000,A", "b", "$GPRMC,120002.5,A", "c"});
    EXPECT_THAT(
        sentDuring(1min),
        ElementsAre(Sent{0ms, "a\r\n"}, Sent{100ms, "$GPRMC,120000,A\r\n"}, Sent{100ms, "b\r\n"},
                    Sent{2600ms, "$GPRMC,120002.5,A\r\n"}, Sent{2600ms, "c\r\n"}));
}

TEST_F(ReplayTest, waitsForAGapOfMoreThanAMinuteAMinute) {
    begin({"\\c:100*00\\a", "\\c:99999*00\\b"});
    EXPECT_THAT(textsDuring(59'999ms), SizeIs(1));
    EXPECT_THAT(sentDuring(1ms), ElementsAre(Sent{60s, "\\c:99999*00\\b\r\n"}));
}

TEST_F(ReplayTest, sendsLinesAsTheyAreWhateverTheyHold) {
    const std::string odd("\0\xFF $GPGGA,*\\é", 14);
    const std::string fragment(200'000, 'x');
    begin({odd, fragment, " ", "\\c:1*00\\"});
    EXPECT_THAT(textsDuring(1s),
                ElementsAre(odd + "\r\n", fragment + "\r\n", " \r\n", "\\c:1*00\\\r\n"));
}

TEST_F(ReplayTest, countsAndShowsLinesAsSentences) {
    begin({"a", "b"});
    machine.advance(1s);
    EXPECT_EQ(assembly->gateway.sentSentences(), 2U);
    EXPECT_EQ(assembly->gateway.messagesPerSecond, 2);
    EXPECT_EQ(assembly->gateway.consoleLines().back().text, "b");
    EXPECT_THAT(pretended.tcp->sentences, ElementsAre("a\r\n", "b\r\n"));
    EXPECT_THAT(pretended.udp->sentences, ElementsAre("a\r\n", "b\r\n"));
}

TEST_F(ReplayTest, passesLinesThroughTheFaultsOfSentencesAndDelivery) {
    assembly->faults.invalidChecksum = true;
    assembly->faults.latencyMs = 500;
    begin({"$IIMTW,16.5,C*11", "no checksum"});
    EXPECT_THAT(sentDuring(1s),
                ElementsAre(Sent{500ms, "$IIMTW,16.5,C*EE\r\n"}, Sent{600ms, "no checksum\r\n"}));
}

TEST_F(ReplayTest, goesOnUnheardWhileTheStreamIsCut) {
    begin({"a", "b", "c"});
    machine.advance(0ms);
    assembly->faults.stopStream = true;
    EXPECT_THAT(textsDuring(150ms), IsEmpty());
    assembly->faults.stopStream = false;
    EXPECT_THAT(sentDuring(1s), ElementsAre(Sent{200ms, "c\r\n"}));
}

TEST_F(ReplayTest, isNotSilentForWantOfFamilies) {
    for (const auto& setting : assembly->settings.all())
        if (setting.name.starts_with("rates.")) setting.write(*setting.parse("0"));
    assembly->gateway.stop();
    assembly->gateway.start();
    EXPECT_FALSE(assembly->gateway.isSilent());
    assembly->faults.stopStream = true;
    EXPECT_TRUE(assembly->gateway.isSilent());
}

TEST_F(ReplayTest, endsOnceTheLastLineHasLeft) {
    begin({"a", "b"});
    machine.advance(99ms);
    EXPECT_FALSE(ended);
    machine.advance(1ms);
    EXPECT_EQ(ended, (Sent{100ms, "lines"}));
}

TEST_F(ReplayTest, endsOnceDeliveryHoldsNothingBack) {
    assembly->faults.latencyMs = 200;
    begin({"a"});
    machine.advance(199ms);
    EXPECT_FALSE(ended);
    machine.advance(11ms);
    EXPECT_TRUE(ended);
    EXPECT_THAT(sent, ElementsAre(Sent{200ms, "a\r\n"}));
}

TEST_F(ReplayTest, endsOnceHoweverOftenTheGatewayStarts) {
    begin({"a"});
    machine.advance(1s);
    ended.reset();
    assembly->gateway.stop();
    assembly->gateway.start();
    machine.advance(1s);
    EXPECT_FALSE(ended);
}

TEST_F(ReplayTest, beginsAgainASecondAfterTheLastLine) {
    begin({"a", "\\c:100*00\\b", "\\c:102*00\\c"}, true);
    const Lines once{"a\r\n", "\\c:100*00\\b\r\n", "\\c:102*00\\c\r\n"};
    EXPECT_THAT(textsDuring(3099ms), testing::ElementsAreArray(once));
    EXPECT_THAT(sentDuring(3100ms),
                ElementsAre(Sent{3100ms, once[0]}, Sent{3200ms, once[1]}, Sent{5200ms, once[2]}))
        << "finding its pace anew";
    EXPECT_FALSE(ended);
}

TEST_F(ReplayTest, endsWhereTheFileHoldsNothingAnyMoreWhenItBeginsAgain) {
    begin({"a"}, true);
    machine.advance(10ms);
    source->replace({});
    machine.advance(10s);
    EXPECT_EQ(ended->text, "lines");
}

TEST_F(ReplayTest, endsWhereTheSourceCannotBeginAgain) {
    beginPipe({.loops = true});
    source->add({"a"});
    source->end();
    machine.advance(1s);
    EXPECT_EQ(ended->text, "lines");
}

TEST_F(ReplayTest, tellsThatThereWasNoLine) {
    beginPipe();
    machine.advance(1s);
    EXPECT_FALSE(ended);
    source->end();
    machine.advance(0s);
    EXPECT_EQ(ended, (Sent{1s, "no line"}));
}

TEST_F(ReplayTest, pausesWhileTheGatewayIsStopped) {
    const auto clock = loop.every(1s, [] {});
    begin({"a", "b", "c"});
    machine.advance(160ms);
    loop.post([this] { assembly->gateway.stop(); });
    EXPECT_THAT(textsDuring(10s), IsEmpty());
    loop.post([this] { assembly->gateway.start(); });
    EXPECT_THAT(textsDuring(39ms), IsEmpty());
    EXPECT_THAT(textsDuring(1ms), ElementsAre("c\r\n"));
}

TEST_F(ReplayTest, beginsWhenTheGatewayStarts) {
    assembly->gateway.stop();
    begin({"a"});
    EXPECT_THAT(textsDuring(1s), IsEmpty());
    assembly->gateway.start();
    EXPECT_THAT(textsDuring(0s), ElementsAre("a\r\n"));
}

TEST_F(ReplayTest, keepsWhatComesWhileTheGatewayIsStopped) {
    beginPipe();
    machine.advance(0s);
    assembly->gateway.stop();
    source->add({"a"});
    EXPECT_THAT(textsDuring(1s), IsEmpty());
    assembly->gateway.start();
    EXPECT_THAT(textsDuring(0s), ElementsAre("a\r\n"));
}

TEST_F(ReplayTest, sendsLinesThatComeLateAtOnceAndCountsFromThere) {
    beginPipe();
    EXPECT_THAT(textsDuring(500ms), IsEmpty());
    loop.post([this] { source->add({"\\c:100*00\\a", "\\c:101*00\\b"}); });
    EXPECT_THAT(sentDuring(1s),
                ElementsAre(Sent{500ms, "\\c:100*00\\a\r\n"}, Sent{1500ms, "\\c:101*00\\b\r\n"}));
    machine.advance(3s);
    loop.post([this] { source->add({"\\c:102*00\\c", "\\c:103*00\\d"}); });
    EXPECT_THAT(sentDuring(1s),
                ElementsAre(Sent{4500ms, "\\c:102*00\\c\r\n"}, Sent{5500ms, "\\c:103*00\\d\r\n"}));
}

TEST_F(ReplayTest, letsTheRunsClockGoOnWhileItAwaitsLines) {
    beginPipe();
    machine.advance(5s);
    EXPECT_EQ(timeOfRun(), 5s);
}

struct UnpacedReplayTest : ReplayTest {
    UnpacedReplayTest() : ReplayTest(platform::PacedMainLoop::unlimited) {}
};

TEST_F(UnpacedReplayTest, holdsTheRunWhileItAwaitsLines) {
    beginPipe({.holdsRun = true});
    machine.advance(1s);
    EXPECT_EQ(timeOfRun(), 0ms);
    loop.post([this] { source->add({"\\c:100*00\\a", "\\c:109*00\\b"}); });
    machine.advance(1s);
    EXPECT_EQ(timeOfRun(), 9s);
    loop.post([this] { source->end(); });
    machine.after(0s, [this] { loop.hold(); });
    machine.advance(0s);
    EXPECT_THAT(sent, ElementsAre(Sent{0ms, "\\c:100*00\\a\r\n"}, Sent{9s, "\\c:109*00\\b\r\n"}));
    EXPECT_EQ(ended, (Sent{9s, "lines"}));
}

TEST_F(ReplayTest, readsNoFurtherThanTheLineThatComesNext) {
    begin({"a", "b", "c", "d"});
    machine.advance(0ms);
    EXPECT_EQ(source->given(), 2U);
}

TEST_F(ReplayTest, takesTurnsWithOthersWhereAllIsDueAtOnce) {
    begin(Lines(100'000, "\\c:1*00\\a"));
    int others = 0;
    machine.after(0s, [&] { loop.post([&] { others = static_cast<int>(sent.size()); }); });
    machine.advance(1s);
    EXPECT_EQ(sent.size(), 100'000U);
    EXPECT_EQ(sent.back().time, 0ms);
    EXPECT_LE(others, 64 * 64);
}

TEST_F(ReplayTest, givesARecordingAgainAtTheSameDistances) {
    platform::VirtualMainLoop boatLoop{noon};
    std::vector<Sent> recorded;
    Assembly boat(readOutHost(boatLoop, random, [&](const std::string& sentence) {
        recorded.push_back(
            {std::chrono::floor<std::chrono::milliseconds>(boatLoop.now().time_since_epoch()),
             sentence});
    }));
    boat.config.tagBlock = true;
    boat.gateway.start();
    boatLoop.advance(10min);
    ASSERT_GT(recorded.size(), 10'000U);

    assembly->config.tagBlock = true;
    Lines lines;
    for (const Sent& each : recorded) lines.push_back(each.text.substr(0, each.text.size() - 2));
    begin(std::move(lines));
    machine.advance(11min);
    ASSERT_EQ(sent.size(), recorded.size());
    for (std::size_t i = 0; i < sent.size(); ++i) {
        ASSERT_EQ(sent[i].text, recorded[i].text) << "its own TAG block alone";
        ASSERT_LE(sent[i].time, recorded[i].time - recorded[0].time + 10ms);
        ASSERT_GE(sent[i].time, recorded[i].time - recorded[0].time - 10ms);
    }
}

TEST_F(ReplayTest, putsATagBlockOnALineWithoutOne) {
    assembly->config.tagBlock = true;
    begin({"a", "\\not closed"});
    EXPECT_THAT(textsDuring(1s),
                ElementsAre("\\s:tidewright,c:1780315200000*0C\\a\r\n",
                            "\\s:tidewright,c:1780315200100*0D\\\\not closed\r\n"));
}

}  // namespace
}  // namespace tidewright::gateway
