#include "gateway/EmissionSchedule.h"

#include <gmock/gmock.h>

#include <cmath>

namespace tidewright::gateway {
namespace {
using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

struct EmissionScheduleTest : testing::Test {
    SimulationConfig config;

    std::vector<SentenceKind> scheduled() const {
        const EmissionSchedule schedule(config);
        std::vector<SentenceKind> kinds;
        for (const auto& entry : schedule.entries()) kinds.push_back(entry.kind);
        return kinds;
    }

    /// At which of the first `pumps` pumps, counted from 0, the heading is due.
    std::vector<int> headingTurns(int pumps, std::chrono::nanoseconds jitter = 0ns) const {
        EmissionSchedule schedule(config);
        std::vector<int> turns;
        for (int pump = 0; pump < pumps; ++pump) {
            const auto late = pump % 2 == 1 ? jitter : 0ns;
            const auto due = schedule.takeDue(platform::Instant(pump * 50ms + late));
            if (std::ranges::find(due, SentenceKind::heading) != due.end()) turns.push_back(pump);
        }
        return turns;
    }
};

TEST_F(EmissionScheduleTest, holdsEveryFamilyInOrderByDefault) {
    std::vector<SentenceKind> all;
    for (const SentenceFamily& each : sentenceFamilies) all.push_back(each.kind);
    EXPECT_EQ(scheduled(), all);
}

TEST_F(EmissionScheduleTest, leavesOutFamiliesWithoutARate) {
    config.headingHz = 0;
    config.windHz = -2;
    config.depthHz = std::nan("");
    EXPECT_THAT(scheduled(), Not(Contains(SentenceKind::heading)));
    EXPECT_THAT(scheduled(), Not(Contains(SentenceKind::wind)));
    EXPECT_THAT(scheduled(), Not(Contains(SentenceKind::depth)));
    EXPECT_EQ(scheduled().size(), 5);
}

TEST_F(EmissionScheduleTest, leavesOutBothGpsFamiliesWhenTheGpsIsOff) {
    config.gps = false;
    EXPECT_EQ(scheduled().front(), SentenceKind::heading);
    EXPECT_EQ(scheduled().size(), 6);
}

TEST_F(EmissionScheduleTest, isDueForEverythingAtFirst) {
    EmissionSchedule schedule(config);
    EXPECT_EQ(schedule.takeDue(platform::Instant::min()).size(), sentenceFamilies.size());
}

TEST_F(EmissionScheduleTest, firesAFifthOfASecondOnEveryFourthPump) {
    EXPECT_THAT(headingTurns(13), ElementsAre(0, 4, 8, 12));
}

TEST_F(EmissionScheduleTest, forgivesTenMillisecondsOfJitter) {
    EXPECT_THAT(headingTurns(13, 9ms), ElementsAre(0, 4, 8, 12));
}

TEST_F(EmissionScheduleTest, roundsAnIntervalUpToWholePumps) {
    config.headingHz = 1 / 0.3;
    EXPECT_THAT(headingTurns(13), ElementsAre(0, 6, 12));
    config.headingHz = 1 / 0.12;
    EXPECT_THAT(headingTurns(10), ElementsAre(0, 3, 6, 9));
}

TEST_F(EmissionScheduleTest, comesDownToOnceAPumpAboveTwentyHertz) {
    for (const double hertz : {20.0, 50.0, 1e9, static_cast<double>(INFINITY)}) {
        config.headingHz = hertz;
        EXPECT_THAT(headingTurns(4), ElementsAre(0, 1, 2, 3));
    }
}

TEST_F(EmissionScheduleTest, countsFromTheLastEmissionNotFromAGrid) {
    config.headingHz = 1;
    EmissionSchedule schedule(config);
    schedule.takeDue(platform::Instant(0s));
    EXPECT_THAT(schedule.takeDue(platform::Instant(1700ms)), Contains(SentenceKind::heading));
    EXPECT_THAT(schedule.takeDue(platform::Instant(2s)), Not(Contains(SentenceKind::heading)));
    EXPECT_THAT(schedule.takeDue(platform::Instant(2690ms)), Contains(SentenceKind::heading));
}

TEST_F(EmissionScheduleTest, keepsTheRatesThatItWasMadeWith) {
    EmissionSchedule schedule(config);
    schedule.takeDue(platform::Instant(0s));
    config.headingHz = 20;
    EXPECT_THAT(schedule.takeDue(platform::Instant(50ms)), IsEmpty());
}

TEST_F(EmissionScheduleTest, isNeverDueBeforeItIsMade) {
    EXPECT_THAT(EmissionSchedule().takeDue(platform::Instant(1h)), IsEmpty());
}

}  // namespace
}  // namespace tidewright::gateway
