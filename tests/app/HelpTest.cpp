#include "app/Help.h"

#include <gtest/gtest.h>

#include "gateway/GatewayPreset.h"

namespace tidewright::app {
namespace {

TEST(HelpTest, namesEveryOption) {
    for (const char* option :
         {"--headless", "--preset", "--tcp-port", "--udp-port", "--ais", "--program",
          "--wind-range", "--polar", "--no-steps", "--no-tcp", "--no-udp", "--help", "--version"})
        EXPECT_NE(helpText().find(option), std::string::npos) << option;
}

TEST(HelpTest, namesEveryPreset) {
    for (const auto& preset : gateway::GatewayPreset::all)
        EXPECT_NE(helpText().find(preset.id), std::string::npos) << preset.id;
}

TEST(HelpTest, givesTheVersionOnOneLine) {
    EXPECT_TRUE(versionText().starts_with("Tidewright "));
    EXPECT_EQ(versionText().find('\n'), versionText().size() - 1);
}

}  // namespace
}  // namespace tidewright::app
