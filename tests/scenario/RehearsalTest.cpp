#include "scenario/Rehearsal.h"

#include <gtest/gtest.h>

namespace tidewright::scenario {
namespace {

struct RehearsalTest : testing::Test {
    Rehearsal rehearsal;

    std::vector<std::string> refused(gateway::Settings::Texts texts) {
        std::vector<std::string> names;
        for (const auto& each : rehearsal.set(std::move(texts))) names.push_back(each.name);
        return names;
    }

    std::string valueOf(std::string_view name) {
        return gateway::textOf(rehearsal.assembly().settings.at(name).read());
    }
};

using Names = std::vector<std::string>;

TEST_F(RehearsalTest, writesWhatIsNotRefused) {
    EXPECT_EQ(refused({{"boat.mode", "anchor"}, {"nope", "1"}, {"faults.loss", "101"}}),
              (Names{"nope", "faults.loss"}));
    EXPECT_TRUE(rehearsal.isAtAnchor());
}

TEST_F(RehearsalTest, judgesTheBoundsOfTheWindTogetherAsTheyAreByThen) {
    EXPECT_EQ(refused({{"wind.low", "20"}}), Names{"wind.low"});
    EXPECT_EQ(refused({{"wind.low", "20"}, {"wind.high", "25"}}), Names{});
    EXPECT_EQ(refused({{"wind.low", "22"}}), Names{});
    EXPECT_EQ(refused({{"wind.high", "21"}, {"boat.mode", "anchor"}}), Names{"wind.high"});
    EXPECT_TRUE(rehearsal.isAtAnchor());
}

TEST_F(RehearsalTest, takesBackWhatActionsTakeBack) {
    EXPECT_EQ(refused({{"boat.mode", "anchor"}, {"faults.loss", "50"}}), Names{});
    rehearsal.begin();
    EXPECT_EQ(refused({{"boat.mode", "manual"}}), Names{});
    rehearsal.perform("clear-faults");
    EXPECT_EQ(valueOf("faults.loss"), "0");
    EXPECT_FALSE(rehearsal.isAtAnchor());
    rehearsal.perform("reset");
    EXPECT_EQ(valueOf("faults.loss"), "50");
    EXPECT_TRUE(rehearsal.isAtAnchor());
}

TEST_F(RehearsalTest, neverRuns) {
    for (const char* each : {"start", "restart", "drop-clients", "reset"}) rehearsal.perform(each);
    EXPECT_FALSE(rehearsal.assembly().gateway.isRunning);
}

TEST_F(RehearsalTest, makesNoFleet) {
    EXPECT_EQ(refused({{"ais.count", "100000"}}), Names{});
    EXPECT_TRUE(rehearsal.assembly().engine.traffic.targets.empty());
    EXPECT_EQ(refused({{"ais.count", "100001"}}), Names{"ais.count"});
}

}  // namespace
}  // namespace tidewright::scenario
