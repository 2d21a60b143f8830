#include "gateway/AISReports.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace tidewright::gateway {
namespace {

struct AISReportsTest : testing::Test {
    AISReports reports;
    std::vector<simulation::AISTarget> fleet{3};

    auto next(double aisHz = 1) { return reports.next(fleet, {}, aisHz); }
};

TEST_F(AISReportsTest, bringsStaticReportsWithTheFirstEmission) {
    const auto sentences = next();
    ASSERT_EQ(sentences.size(), 3 + 3 * 2);
    EXPECT_TRUE(sentences[2].starts_with("!AIVDM,1,1,,A,"));
    EXPECT_TRUE(sentences[3].starts_with("!AIVDM,2,1,1,A,"));
    EXPECT_TRUE(sentences[4].starts_with("!AIVDM,2,2,1,A,"));
}

TEST_F(AISReportsTest, bringsThemAgainEveryTenEmissionsAtOneHertz) {
    next();
    for (int i = 0; i < 9; ++i) EXPECT_EQ(next().size(), 3);
    EXPECT_EQ(next().size(), 9);
}

TEST_F(AISReportsTest, countsTheSequenceOnThroughVesselsAndBatches) {
    std::string ids;
    for (int i = 0; i < 40; ++i)
        for (const std::string& each : next())
            if (each.starts_with("!AIVDM,2,1,")) ids += each[11];
    EXPECT_EQ(ids, "123456789012");
}

TEST_F(AISReportsTest, takesTheWholePartOfTheRate) {
    const auto roundAt = [](double aisHz) {
        AISReports reports;
        reports.next({}, {}, aisHz);
        return reports.staticCountdown();
    };
    EXPECT_EQ(roundAt(1.5), 10);
    EXPECT_EQ(roundAt(2), 20);
    EXPECT_EQ(roundAt(0.2), 10);
    EXPECT_EQ(roundAt(-1), 10);
    EXPECT_EQ(roundAt(std::nan("")), 10);
}

TEST_F(AISReportsTest, refusesARateBeyondCounting) {
    EXPECT_DEATH(next(INFINITY), "countable");
}

}  // namespace
}  // namespace tidewright::gateway
