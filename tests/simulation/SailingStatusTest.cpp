#include "simulation/SailingStatus.h"

#include <gtest/gtest.h>

#include "simulation/SailingSimulation.h"
#include "support/ForeignNumbers.h"

namespace tidewright::simulation {
namespace {

TEST(SailingStatusTest, countsMinutesAndSeconds) {
    EXPECT_EQ(clock(125.4), "2:05");
    EXPECT_EQ(clock(0), "0:00");
    EXPECT_EQ(clock(9), "0:09");
    EXPECT_EQ(clock(3600), "60:00");
}

TEST(SailingStatusTest, roundsHalfASecondUp) {
    EXPECT_EQ(clock(59.6), "1:00");
    EXPECT_EQ(clock(0.5), "0:01");
    EXPECT_EQ(clock(2.5), "0:03");
    EXPECT_EQ(clock(59.4), "0:59");
}

TEST(SailingStatusTest, countsNoTimeGoneBy) {
    EXPECT_EQ(clock(-3), "0:00");
    EXPECT_EQ(clock(-0.6), "0:00");
}

struct SailingStatusLineTest : testing::Test {
    SailingSimulation boat{SailingProgram::beat, {}, 1};

    SailingStatusLineTest() {
        boat.wind.speed = 12.4;
        boat.leg.duration = 500;
        boat.legElapsed = 79.6;
        boat.boardLength = 200;
        boat.boardElapsed = 75;
        boat.performanceLength = 1000;
        boat.performanceElapsed = 935;
    }
};

TEST_F(SailingStatusLineTest, countsDownToTheNextTackWhenBeating) {
    EXPECT_EQ(boat.statusLine(),
              "Au près · tribord amures · vent 12 nd\n"
              "prochain virement 2:05 · allure suivante 7:00\n"
              "performance équipage 94 % de la polaire · palier suivant 1:05");
}

TEST_F(SailingStatusLineTest, countsDownToTheNextGybeWhenRunning) {
    boat.currentSail = PointOfSail::run;
    boat.side = -1;
    EXPECT_EQ(boat.statusLine(),
              "Grand largue · bâbord amures · vent 12 nd\n"
              "prochain empannage 2:05 · allure suivante 7:00\n"
              "performance équipage 94 % de la polaire · palier suivant 1:05");
}

TEST_F(SailingStatusLineTest, hasNothingToCountDownToOnAReach) {
    boat.currentSail = PointOfSail::beamReach;
    boat.boardLength.reset();
    EXPECT_EQ(boat.statusLine(),
              "Travers · tribord amures · vent 12 nd\n"
              "allure suivante 7:00\n"
              "performance équipage 94 % de la polaire · palier suivant 1:05");
}

TEST_F(SailingStatusLineTest, namesTheManoeuvreUnderWay) {
    boat.maneuvering = true;
    EXPECT_EQ(boat.statusLine(),
              "Au près · tribord amures · vent 12 nd\n"
              "virement de bord en cours · allure suivante 7:00\n"
              "performance équipage 94 % de la polaire · palier suivant 1:05");
    boat.maneuverIsTack = false;
    EXPECT_EQ(boat.statusLine(),
              "Au près · tribord amures · vent 12 nd\n"
              "empannage en cours · allure suivante 7:00\n"
              "performance équipage 94 % de la polaire · palier suivant 1:05");
}

TEST_F(SailingStatusLineTest, namesTheManoeuvreUnderWayOnAReachToo) {
    boat.currentSail = PointOfSail::closeReach;
    boat.boardLength.reset();
    boat.maneuvering = true;
    EXPECT_NE(boat.statusLine().find("\nvirement de bord en cours · allure suivante 7:00\n"),
              std::string::npos);
}

TEST_F(SailingStatusLineTest, roundsTheWindAndThePerformance) {
    boat.wind.speed = 12.5;
    boat.environment.performance = 0.85;
    boat.stepSmooth = 0.97;
    const std::string status = boat.statusLine();
    EXPECT_NE(status.find(" · vent 13 nd\n"), std::string::npos);
    EXPECT_NE(status.find("performance équipage 82 % de la polaire"), std::string::npos);
}

TEST_F(SailingStatusLineTest, keepsTheCrewsCountdownWhenItsStepsAreOff) {
    boat.environment = {.performance = 0.9, .crewSteps = false};
    EXPECT_TRUE(boat.statusLine().ends_with(
        "performance équipage 90 % de la polaire · palier suivant 1:05"));
}

TEST_F(SailingStatusLineTest, isTheSameWhateverTheLanguageOfTheDesktop) {
    boat.leg.duration = 100000;
    const std::string atHome = boat.statusLine();
    const ForeignNumbers abroad;
    EXPECT_EQ(boat.statusLine(), atHome);
}

}  // namespace
}  // namespace tidewright::simulation
