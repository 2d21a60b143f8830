#include "network/ClientReports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/AsioMainLoop.h"
#include "support/NumberedClients.h"

namespace tidewright::network {
namespace {
using namespace std::chrono_literals;

struct ClientReportsTest : testing::Test {
    struct Report {
        platform::Instant at;
        std::size_t clients;
    };

    platform::AsioMainLoop loop;
    std::vector<Report> delivered;
    std::vector<ConnectedClient> clients;
    ClientReports reports{loop, queue, [this] { return clients; },
                          [this](const std::vector<ConnectedClient>& list) {
                              delivered.push_back({loop.now(), list.size()});
                          }};
    platform::WorkQueue queue{"test.queue"};

    ~ClientReportsTest() override {
        queue.runAndWait([] {});
    }

    void change(std::size_t count) {
        queue.runAndWait([this, count] {
            clients = numberedClients(std::vector<std::string>(count, "10.0.0.9"));
            reports.reportChange();
        });
    }

    /// Lets the main thread take what was posted to it so far.
    void takeReports() {
        loop.post([this] { loop.stop(); });
        loop.run();
    }

    void waitForReports(std::size_t count) {
        const auto deadline = loop.now() + 10s;
        const auto watch = loop.every(1ms, [&] {
            if (delivered.size() >= count || loop.now() > deadline) loop.stop();
        });
        loop.run();
        ASSERT_EQ(delivered.size(), count);
    }
};

TEST_F(ClientReportsTest, reportsAChangeAtOnce) {
    change(1);
    takeReports();
    ASSERT_EQ(delivered.size(), 1);
    EXPECT_EQ(delivered[0].clients, 1);
}

TEST_F(ClientReportsTest, reportsTogetherWhatChangesBeforeTheLastReportIsTaken) {
    for (std::size_t count = 1; count <= 100; ++count) change(count);
    takeReports();
    EXPECT_EQ(delivered.size(), 1);
    waitForReports(2);
    EXPECT_EQ(delivered[1].clients, 100);
    change(101);
    waitForReports(3);
}

TEST_F(ClientReportsTest, pausesTheLongerTheLongerTheListIs) {
    change(10'000);
    waitForReports(1);
    change(9999);
    waitForReports(2);
    EXPECT_GE(delivered[1].at - delivered[0].at, 100ms);
}

TEST_F(ClientReportsTest, reportsWhenToldToWhateverCameBefore) {
    change(1);
    queue.runAndWait([this] { reports.report(); });
    takeReports();
    EXPECT_EQ(delivered.size(), 2);
}

}  // namespace
}  // namespace tidewright::network
