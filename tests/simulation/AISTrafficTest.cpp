#include "simulation/AISTraffic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <new>
#include <string>
#include <vector>

#include "platform/SystemRandom.h"
#include "simulation/EarthModel.h"
#include "support/CornerRandom.h"
#include "support/ScriptedRandom.h"

namespace tidewright::simulation {
namespace {

using Corner = CornerRandom::Corner;

/// Metres from where the fleet was put.
double distanceFrom(double latitude, double longitude, const AISTarget& target) {
    return std::hypot((target.latitude - latitude) * metresPerDegreeOfLatitude,
                      (target.longitude - longitude) * metresPerDegreeOfLongitude(latitude));
}

struct AISTrafficTest : testing::Test {
    ScriptedRandom random;
    AISTraffic traffic{random};

    /// One vessel at a place with a course and speed of the test's choosing.
    void putVessel(double latitude, double cog, double sog) {
        random.numbers = {0, 0, cog, sog};
        traffic.regenerate(1, latitude, -3.55);
    }
    const AISTarget& vessel() const { return traffic.targets.front(); }

    /// The next `steps` steps of one vessel go all the way to one side.
    void push(int steps, double side) {
        random.numbers.assign(static_cast<std::size_t>(steps) * 9, side);
        for (int i = 0; i < steps; ++i) traffic.advance(1);
    }
};

TEST_F(AISTrafficTest, isEmptyAtFirst) {
    EXPECT_TRUE(traffic.targets.empty());
}

TEST_F(AISTrafficTest, hasNoVesselsWhenNoneAreAskedForAndMovesNone) {
    for (const std::int64_t count : {std::int64_t{0}, std::int64_t{-1}, INT64_MIN}) {
        traffic.regenerate(3, 47.4, -3.55);
        random.numbers = {1, 2, 3};
        traffic.regenerate(count, 47.4, -3.55);
        traffic.advance(1);
        EXPECT_TRUE(traffic.targets.empty());
        EXPECT_EQ(random.numbers.size(), 3U);
    }
}

TEST_F(AISTrafficTest, makesAVesselFromItsDraws) {
    random.wholeNumbers[900'000] = {123456};
    random.numbers = {90, 2, 45, 7.5};
    traffic.regenerate(1, 60, 10);
    EXPECT_EQ(vessel().mmsi, 227223456);
    EXPECT_NEAR(vessel().latitude, 60, 1e-12);
    EXPECT_NEAR(vessel().longitude, 10 + 2 * 1852 / 55660.0, 1e-12);
    EXPECT_EQ(vessel().cog, 45);
    EXPECT_EQ(vessel().sog, 7.5);
}

TEST_F(AISTrafficTest, namesTwentyVesselsAndThenBeginsAgain) {
    const std::vector<std::string> names{
        "PEN DUICK", "GROIX EXPRESS", "MARIE GALANTE", "BRUNELLE", "L'ABEILLE",
        "CORSAIRE",  "IROISE",        "BELLE POULE",   "GWALARN",  "ARMORIQUE",
        "KEREON",    "MARVENTIN",     "STELLA MARIS",  "AVEL MAD", "PENFRET",
        "MOR BIHAN", "SIROCCO",       "ALIZE",         "GALION",   "OUESSANT"};
    traffic.regenerate(25, 47.4, -3.55);
    ASSERT_EQ(traffic.targets.size(), 25U);
    for (std::size_t i = 0; i < 25; ++i) EXPECT_EQ(traffic.targets[i].name, names[i % 20]);
}

TEST_F(AISTrafficTest, numbersTheCallSignsOverEightPrefixes) {
    traffic.regenerate(25, 47.4, -3.55);
    EXPECT_EQ(traffic.targets[0].callsign, "FGA0");
    EXPECT_EQ(traffic.targets[1].callsign, "FHB1");
    EXPECT_EQ(traffic.targets[7].callsign, "FPH7");
    EXPECT_EQ(traffic.targets[8].callsign, "FGA8");
    EXPECT_EQ(traffic.targets[10].callsign, "FJC10");
    EXPECT_EQ(traffic.targets[24].callsign, "FGA24");
}

TEST_F(AISTrafficTest, takesShipTypesInTurn) {
    traffic.regenerate(7, 47.4, -3.55);
    std::vector<std::int64_t> types;
    for (const AISTarget& each : traffic.targets) types.push_back(each.shipType);
    EXPECT_EQ(types, (std::vector<std::int64_t>{30, 36, 37, 60, 70, 52, 30}));
}

TEST_F(AISTrafficTest, asksForVesselsFromAThirdOfAMileToFourMilesOff) {
    CornerRandom lowest(Corner::lowest);
    CornerRandom highest(Corner::highest);
    AISTraffic near(lowest);
    AISTraffic far(highest);
    near.regenerate(1, 47.4, -3.55);
    far.regenerate(1, 47.4, -3.55);
    EXPECT_NEAR(distanceFrom(47.4, -3.55, near.targets.front()), 555.6, 1e-6);
    EXPECT_NEAR(distanceFrom(47.4, -3.55, far.targets.front()), 7408, 1e-6);
}

TEST_F(AISTrafficTest, asksForFrenchIdentitiesAndForCoursesAndSpeedsThatBoatsHave) {
    CornerRandom lowest(Corner::lowest);
    CornerRandom highest(Corner::highest);
    AISTraffic first(lowest);
    AISTraffic last(highest);
    first.regenerate(1, 47.4, -3.55);
    last.regenerate(1, 47.4, -3.55);
    EXPECT_EQ(first.targets.front().mmsi, 227100000);
    EXPECT_EQ(last.targets.front().mmsi, 227999999);
    EXPECT_EQ(first.targets.front().sog, 0);
    EXPECT_EQ(last.targets.front().sog, 18);
    EXPECT_EQ(first.targets.front().cog, 0);
    EXPECT_LT(last.targets.front().cog, 360);
}

TEST_F(AISTrafficTest, spreadsTheVesselsAllAround) {
    platform::SystemRandom chance;
    AISTraffic fleet(chance);
    fleet.regenerate(1000, 47.4, -3.55);
    int north = 0;
    int east = 0;
    for (const AISTarget& each : fleet.targets) {
        const double distance = distanceFrom(47.4, -3.55, each);
        EXPECT_TRUE(distance > 555.599 && distance < 7408.001) << distance;
        north += each.latitude > 47.4;
        east += each.longitude > -3.55;
    }
    EXPECT_NEAR(north, 500, 120);
    EXPECT_NEAR(east, 500, 120);
}

TEST_F(AISTrafficTest, replacesTheVesselsAndForgetsTheirDrifts) {
    putVessel(47.4, 0, 5);
    push(3, 1);
    putVessel(48, 0, 5);
    EXPECT_EQ(traffic.targets.size(), 1U);
    push(1, 0);
    EXPECT_EQ(vessel().sog, 5);
    EXPECT_EQ(vessel().cog, 0);
}

TEST_F(AISTrafficTest, movesByTheSpeedAndCourseOfBeforeTheStep) {
    putVessel(60, 90, 10);
    push(1, 1);
    EXPECT_NEAR(vessel().longitude, -3.55 + 10 * 1852 / 3600.0 / 55660, 1e-12);
    EXPECT_NEAR(vessel().latitude, 60, 1e-12);
    EXPECT_NEAR(vessel().sog, 10 + 0.05 * 0.4, 1e-12);
    EXPECT_NEAR(vessel().cog, 90 + 0.05 * 6, 1e-12);
}

TEST_F(AISTrafficTest, staysPutAtNoSpeedUntilItsDriftMovesIt) {
    putVessel(47.4, 0, 0);
    push(2, 0);
    EXPECT_EQ(vessel().latitude, 47.4);
    push(1, 1);
    EXPECT_EQ(vessel().latitude, 47.4);
    push(1, 0);
    EXPECT_GT(vessel().latitude, 47.4);
}

TEST_F(AISTrafficTest, neverMakesSternwayNorMoreThanTwentyTwoKnots) {
    putVessel(47.4, 0, 18);
    push(200, 1);
    EXPECT_EQ(vessel().sog, 22);
    push(800, -1);
    EXPECT_EQ(vessel().sog, 0);
}

TEST_F(AISTrafficTest, wrapsItsCourseToOneTurn) {
    putVessel(47.4, 359.9, 5);
    push(1, 1);
    EXPECT_NEAR(vessel().cog, 0.2, 1e-9);
    putVessel(47.4, 0.1, 5);
    push(1, -1);
    EXPECT_NEAR(vessel().cog, 359.8, 1e-9);
}

TEST_F(AISTrafficTest, headsWhereItGoes) {
    platform::SystemRandom chance;
    AISTraffic fleet(chance);
    fleet.regenerate(30, 47.4, -3.55);
    for (int i = 0; i < 100; ++i) {
        for (const AISTarget& each : fleet.targets) EXPECT_EQ(each.heading, each.cog);
        fleet.advance(1);
    }
}

TEST_F(AISTrafficTest, keepsItsLongitudeAtThePole) {
    random.numbers = {90, 4, 90, 18};
    traffic.regenerate(1, 90, -3.55);
    EXPECT_EQ(vessel().longitude, -3.55);
    push(1, 0);
    EXPECT_EQ(vessel().longitude, -3.55);
}

TEST_F(AISTrafficTest, stepsTheDriftOfASharedIdentityOnceForEachVessel) {
    random.wholeNumbers[900'000] = {7, 7};
    random.numbers = {0, 1, 0, 5, 0, 1, 0, 5};
    traffic.regenerate(2, 47.4, -3.55);
    random.numbers.assign(9, 1);  // the second vessel's own draws are all zero
    traffic.advance(1);
    ASSERT_EQ(traffic.targets[0].mmsi, traffic.targets[1].mmsi);
    EXPECT_NEAR(traffic.targets[0].sog, 5 + 0.05 * 0.4, 1e-12);
    EXPECT_NEAR(traffic.targets[1].sog, 5 + 0.05 * 0.4 * 0.7, 1e-12);
}

TEST_F(AISTrafficTest, refusesAFleetThatMemoryCannotHoldAndIsLeftWithNone) {
    traffic.regenerate(3, 47.4, -3.55);
    EXPECT_THROW(traffic.regenerate(INT64_MAX, 47.4, -3.55), std::bad_alloc);
    EXPECT_TRUE(traffic.targets.empty());
    traffic.advance(1);
    traffic.regenerate(2, 47.4, -3.55);
    EXPECT_EQ(traffic.targets.size(), 2U);
}

}  // namespace
}  // namespace tidewright::simulation
