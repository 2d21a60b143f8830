#include "scenario/Expectation.h"

#include <gtest/gtest.h>

#include "gateway/GatewayFixture.h"

namespace tidewright::scenario {
namespace {

const Quantity& clients = *findQuantity("clients");
const Quantity& sog = *findQuantity("sog");

struct ExpectationTest : gateway::GatewayFixture {
    static Bound bound(std::string_view text, const Quantity& quantity) {
        return Bound::parse(text, quantity).value();
    }

    void sailAt(double knots) {
        simulation::BoatState state = engine.state;
        state.sog = knots;
        engine.state = state;
    }
};

TEST_F(ExpectationTest, takesWholeNumbersForCountsAndDecimalsForMeasures) {
    EXPECT_EQ(Bound::parse("12", clients)->value, 12);
    EXPECT_EQ(Bound::parse("1.50", sog)->value, 1.5);
    EXPECT_FALSE(Bound::parse("1.5", clients));
    for (const char* each : {"", "-1", "+1", "1e3", ".5", "5.", "1,5", "0x1", " 1", "nan"})
        EXPECT_FALSE(Bound::parse(each, sog)) << each;
    EXPECT_FALSE(Bound::parse(std::string(400, '9'), sog));
}

TEST_F(ExpectationTest, ofOneCountIsThatOne) {
    const auto one = Expectation::equal(clients, bound("1", clients));
    EXPECT_FALSE(one.holds(assembly));
    connect({"192.168.1.20"});
    EXPECT_TRUE(one.holds(assembly));
    EXPECT_EQ(one.found(assembly), "clients = 1");
    EXPECT_EQ(one.wanted, "1");
    connect({"192.168.1.20", "192.168.1.21"});
    EXPECT_FALSE(one.holds(assembly));
}

TEST_F(ExpectationTest, ofOneMeasureIsThatOneToItsLastDigit) {
    const auto about = Expectation::equal(sog, bound("5.2", sog));
    for (const double knots : {5.151, 5.2, 5.249}) {
        sailAt(knots);
        EXPECT_TRUE(about.holds(assembly)) << knots;
    }
    for (const double knots : {5.149, 5.251}) {
        sailAt(knots);
        EXPECT_FALSE(about.holds(assembly)) << knots;
    }
    EXPECT_TRUE(Expectation::equal(sog, bound("5", sog)).holds(assembly));
}

TEST_F(ExpectationTest, holdsBetweenItsBoundsBothIncluded) {
    const auto some = Expectation::between(sog, bound("3", sog), bound("4.5", sog));
    EXPECT_EQ(some.wanted, "de 3 à 4.5 nd");
    for (const auto& [knots, holds] :
         {std::pair{2.9, false}, {3.0, true}, {4.5, true}, {4.6, false}}) {
        sailAt(knots);
        EXPECT_EQ(some.holds(assembly), holds) << knots;
    }
    EXPECT_EQ(some.found(assembly), "sog = 4.600 nd");
}

TEST_F(ExpectationTest, mayHaveOneBound) {
    EXPECT_EQ(Expectation::between(sog, bound("3", sog), {}).wanted, "au moins 3 nd");
    EXPECT_EQ(Expectation::between(clients, {}, bound("2", clients)).wanted, "au plus 2");
}

TEST_F(ExpectationTest, doesNotHoldWhereItCannotBeJudged) {
    const Quantity& distance = *findQuantity("anchor-distance");
    const auto any = Expectation::between(distance, bound("0", distance), {});
    EXPECT_FALSE(any.holds(assembly));
    EXPECT_EQ(any.found(assembly), "anchor-distance ne peut être jugé");
}

}  // namespace
}  // namespace tidewright::scenario
