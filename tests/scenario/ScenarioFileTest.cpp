#include "scenario/ScenarioFile.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace tidewright::scenario {
namespace {

using testing::HasSubstr;

struct ScenarioFileTest : testing::Test {
    std::filesystem::path folder = testing::TempDir();
    std::string path =
        folder /
        (std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + ".yaml");

    ~ScenarioFileTest() override { std::filesystem::remove(path); }

    ScenarioFile read(std::string_view content) const {
        std::ofstream(path, std::ios::binary) << content;
        return readScenarioFile(path, {});
    }
};

TEST_F(ScenarioFileTest, isReadAndChecked) {
    const auto file = read("name: Essai\nsteps:\n  - {at: 1s, end: true}\n");
    ASSERT_TRUE(file.scenario) << file.complaint;
    EXPECT_EQ(file.scenario->name, "Essai");
    EXPECT_EQ(file.complaint, "");
}

TEST_F(ScenarioFileTest, tellsAllMistakesThenCountsThem) {
    const auto file = read("nom: Été\nseed: x\n");
    EXPECT_FALSE(file.scenario);
    EXPECT_EQ(file.complaint,
              path + ":1:1: « nom » n'est pas un mot connu ici ; le plus proche est « name ».\n" +
                  path +
                  ":2:7: « seed » : « x » est refusé ; il faut un nombre entier de 0 à "
                  "2^64−1.\n" +
                  "ERREUR : 2 fautes dans " + path + "\n");
}

TEST_F(ScenarioFileTest, mayBeginWithAByteOrderMark) {
    EXPECT_TRUE(read("\xEF\xBB\xBFname: Essai\n").scenario);
    EXPECT_THAT(read("\xEF\xBB\xBFnom: Essai\n").complaint, HasSubstr(":1:1: "));
}

TEST_F(ScenarioFileTest, saysWhyItCannotBeRead) {
    EXPECT_EQ(readScenarioFile(path, {}).complaint, "ERREUR : " + path + " n'existe pas.\n");
    EXPECT_EQ(readScenarioFile("/", {}).complaint, "ERREUR : / est un dossier.\n");
}

TEST_F(ScenarioFileTest, isOneMebibyteAtMost) {
    EXPECT_TRUE(read("name: a\n#" + std::string(largestScenario - 9, 'x')).scenario);
    EXPECT_EQ(read(std::string(largestScenario + 1, '#')).complaint,
              "ERREUR : " + path + " dépasse 1 Mio, le plus qu'un scénario peut tenir.\n");
}

TEST_F(ScenarioFileTest, thatComesWithTheProgramHasNoMistake) {
    int count = 0;
    for (const auto& each : std::filesystem::directory_iterator(TIDEWRIGHT_SCENARIOS)) {
        const auto file = readScenarioFile(each.path(), {});
        EXPECT_EQ(file.complaint, "");
        ASSERT_TRUE(file.scenario);
        EXPECT_FALSE(file.scenario->name.empty()) << each.path();
        EXPECT_FALSE(file.scenario->steps.empty()) << each.path();
        ++count;
    }
    EXPECT_GE(count, 8);
}

}  // namespace
}  // namespace tidewright::scenario
