#include "app/HeadlessRunner.h"

#include <gtest/gtest.h>

#include "platform/VirtualMainLoop.h"
#include "support/PretendHost.h"
#include "support/ScriptedRandom.h"

namespace tidewright::app {
namespace {
using namespace std::chrono_literals;

struct HeadlessRunnerTest : testing::Test {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    PretendHost host;
    std::string written;
    int status = 0;  ///< 0: still runs

    HeadlessRunner run(Arguments options) {
        options.insert(options.begin(), {"tidewright", "--headless"});
        return HeadlessRunner(options, host.host(loop, random),
                              {.write = [this](std::string_view text) { written += text; },
                               .fail = [this](int its) { status = its; }});
    }
};

TEST_F(HeadlessRunnerTest, showsWhereToConnect) {
    const auto runner = run({});
    EXPECT_EQ(written,
              "Tidewright — headless\n"
              "  TCP  192.168.1.37:2000\n"
              "  UDP  broadcast 192.168.1.255:2000\n"
              "  AIS  5 targets\n"
              "  Ctrl-C pour arrêter.\n");
}

TEST_F(HeadlessRunnerTest, showsPlaceholdersWithoutANetwork) {
    host.interface.reset();
    const auto runner = run({"--ais", "0"});
    EXPECT_EQ(written,
              "Tidewright — headless\n"
              "  TCP  0.0.0.0:2000\n"
              "  UDP  broadcast 255.255.255.255:2000\n"
              "  AIS  0 targets\n"
              "  Ctrl-C pour arrêter.\n");
}

TEST_F(HeadlessRunnerTest, writesNothingMoreWhileAllIsWell) {
    const auto runner = run({});
    written.clear();
    loop.advance(1h);
    EXPECT_EQ(written, "");
    EXPECT_EQ(status, 0);
    EXPECT_GT(host.tcp->sentences.size(), 27 * 3600);
}

TEST_F(HeadlessRunnerTest, failsASecondLaterWithoutAnyOutput) {
    const auto runner = run({"--no-tcp", "--no-udp"});
    EXPECT_EQ(written, "Tidewright — headless\n  AIS  5 targets\n  Ctrl-C pour arrêter.\n");
    written.clear();
    loop.advance(999ms);
    EXPECT_EQ(status, 0);
    loop.advance(1ms);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written, "ERREUR : Activez au moins une sortie (TCP ou UDP).\n");
}

TEST_F(HeadlessRunnerTest, failsAtTheNextLookWhenThePortIsTaken) {
    const auto runner = run({"--tcp-port", "2345"});
    written.clear();
    loop.advance(2500ms);
    host.tcp->onFailed("Address already in use");
    loop.advance(500ms);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written,
              "ERREUR : Le port TCP 2345 est déjà utilisé : une autre instance du simulateur "
              "tourne probablement. Quittez-la (ou changez de port), puis relancez.\n");
}

TEST_F(HeadlessRunnerTest, saysThatMemoryLacksForTheFleet) {
    const auto runner = run({"--ais", "9223372036854775807"});
    written.clear();
    loop.advance(1s);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written, "ERREUR : Mémoire insuffisante pour 9223372036854775807 cibles AIS.\n");
}

}  // namespace
}  // namespace tidewright::app
