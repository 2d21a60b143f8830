#include "network/Recorder.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/AsioMainLoop.h"
#include "support/Pipe.h"

namespace tidewright::network {
namespace {
using namespace std::chrono_literals;

/// A recorder that writes into a pipe, on the machine's own loop.
struct RecorderTest : testing::Test {
    platform::AsioMainLoop loop;
    Pipe pipe;
    std::vector<OutputFile::Failure> failures;
    int roomReports = 0;
    std::unique_ptr<Recorder> recorder;

    void SetUp() override {
        pipe.doNotBlock();
        recordInto(pipe.path());
    }

    void recordInto(const std::string& path) {
        recorder = std::make_unique<Recorder>(
            std::get<OutputFile>(OutputFile::open(path)), loop,
            Recorder::Reports{.failed = [this](const auto& why) { failures.push_back(why); },
                              .hasRoom = [this] { ++roomReports; }});
    }

    void record(const std::string& text) {
        recorder->record(std::make_shared<const std::string>(text));
    }

    /// Runs the loop until `isDone`, for ten seconds at most.
    void runUntil(const std::function<bool()>& isDone) {
        const auto deadline = loop.now() + 10s;
        const auto look = loop.every(1ms, [&] {
            if (isDone() || loop.now() > deadline) loop.stop();
        });
        loop.run();
        EXPECT_TRUE(isDone());
    }

    void finish() {
        bool isFinished = false;
        recorder->finish([&] { isFinished = true; });
        runUntil([&] { return isFinished; });
    }

    void fill() {
        while (!recorder->isFull()) record(std::string(998, 'x') + "\r\n");
    }
};

TEST_F(RecorderTest, writesWhatItIsGivenInOrderWithinATenthOfASecond) {
    const auto start = loop.now();
    record("$one\r\n");
    record("$two\r\n");
    std::string seen;
    runUntil([&] {
        seen += pipe.read();
        return seen == "$one\r\n$two\r\n";
    });
    EXPECT_LT(loop.now() - start, 1s);  // a tenth, on a machine that has nothing else to do
}

TEST_F(RecorderTest, writesEverythingBeforeItIsFinished) {
    record("$one\r\n");
    finish();
    EXPECT_EQ(pipe.read(), "$one\r\n");
}

TEST_F(RecorderTest, isFullBehindASlowReaderAndSaysWhenThereIsRoomAgain) {
    fill();
    EXPECT_EQ(roomReports, 0);
    runUntil([this] {
        pipe.read();
        return roomReports > 0;
    });
    EXPECT_FALSE(recorder->isFull());
    EXPECT_EQ(roomReports, 1);
}

TEST_F(RecorderTest, takesWhatItIsGivenWhileFull) {
    fill();
    record("$the last\r\n");
    std::string end;
    bool isFinished = false;
    recorder->finish([&] { isFinished = true; });
    runUntil([&] {
        end = (end + pipe.read()).substr(0, 1 << 21);
        if (end.size() > 100) end.erase(0, end.size() - 100);
        return isFinished || end.ends_with("$the last\r\n");
    });
    EXPECT_TRUE(end.ends_with("x\r\n$the last\r\n"));
}

TEST_F(RecorderTest, isFinishedThoughAReaderTakesNothingOnceHeIsGivenUp) {
    fill();
    recorder->abandon();
    finish();
    EXPECT_TRUE(pipe.read().ends_with("x\r\n"));
}

TEST_F(RecorderTest, saysOnceThatNothingMoreCanBeWritten) {
    recordInto("/dev/full");
    record("$one\r\n");
    runUntil([this] { return !failures.empty(); });
    record("$two\r\n");
    finish();
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].reason, "il n'y a plus de place.");
}

}  // namespace
}  // namespace tidewright::network
