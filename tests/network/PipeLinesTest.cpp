#include "network/PipeLines.h"

#include <gmock/gmock.h>

#include <thread>

#include "platform/AsioMainLoop.h"
#include "support/Pipe.h"
#include "support/TemporaryFile.h"

namespace tidewright::network {
namespace {
using namespace std::chrono_literals;
using testing::ElementsAre;

struct PipeLinesTest : testing::Test {
    platform::AsioMainLoop loop;
    Pipe pipe;
    PipeLines source{loop, pipe.takeReader()};
    std::vector<std::string> lines;

    PipeLinesTest() {
        source.onMore = [this] { loop.stop(); };
    }

    /// Takes what is there; false once nothing will come any more.
    bool takeLines() {
        NextLine next = source.next();
        for (; next.kind == NextLine::Kind::line; next = source.next())
            lines.push_back(std::move(next.text));
        return next.kind == NextLine::Kind::later;
    }

    /// Waits until the source has more, ten seconds at most.
    void awaitMore() {
        const auto patience = loop.every(10s, [this] {
            ADD_FAILURE() << "nothing came";
            loop.stop();
        });
        loop.run();
    }

    void readToEnd() {
        while (takeLines() && !HasFailure()) awaitMore();
    }
};

TEST_F(PipeLinesTest, giveLinesAsTheyCome) {
    EXPECT_TRUE(takeLines());
    ASSERT_TRUE(pipe.write("a\r\nb\r\nc"));
    awaitMore();
    EXPECT_TRUE(takeLines());
    EXPECT_THAT(lines, ElementsAre("a\r\n", "b\r\n"));
    ASSERT_TRUE(pipe.write("d\r\n"));
    awaitMore();
    EXPECT_TRUE(takeLines());
    EXPECT_THAT(lines, ElementsAre("a\r\n", "b\r\n", "cd\r\n"));
    pipe.close();
    readToEnd();
    EXPECT_EQ(source.next().kind, NextLine::Kind::end);
}

TEST_F(PipeLinesTest, endWithALineWithoutAnEnd) {
    ASSERT_TRUE(pipe.write("\n\na"));
    pipe.close();
    readToEnd();
    EXPECT_THAT(lines, ElementsAre("a\r\n"));
}

TEST_F(PipeLinesTest, readMegabytesInOrder) {
    std::thread writer([&] {
        for (int i = 0; i < 200'000; ++i) pipe.write(std::to_string(i) + "\n");
        pipe.close();
    });
    readToEnd();
    writer.join();
    ASSERT_EQ(lines.size(), 200'000U);
    for (std::size_t i = 0; i < lines.size(); ++i) ASSERT_EQ(lines[i], std::to_string(i) + "\r\n");
}

TEST_F(PipeLinesTest, readNoMoreThanAChunkAhead) {
    Pipe& written = pipe;
    EXPECT_TRUE(takeLines());
    ASSERT_TRUE(written.write(std::string(65'535, 'x') + "\n"));
    awaitMore();
    ASSERT_TRUE(written.write("y\n"));
    EXPECT_EQ(source.next().text.size(), 65'537U);
    EXPECT_EQ(source.next().kind, NextLine::Kind::later) << "what follows was not asked for";
}

TEST_F(PipeLinesTest, cannotBeginAgain) {
    EXPECT_FALSE(source.rewind());
}

TEST_F(PipeLinesTest, beginWithWhatWasReadAlready) {
    Pipe other;
    PipeLines begun(loop, other.takeReader(), "a\nb");
    EXPECT_EQ(begun.next(), (NextLine{NextLine::Kind::line, "a\r\n"}));
    EXPECT_EQ(begun.next().kind, NextLine::Kind::later);
}

TEST_F(PipeLinesTest, leaveABlockingPipeBlocking) {
    Pipe other;
    const int reader = ::dup(other.reader());
    {
        PipeLines lines(loop, other.takeReader());
        EXPECT_EQ(lines.next().kind, NextLine::Kind::later);
        EXPECT_EQ(::fcntl(reader, F_GETFL) & O_NONBLOCK, 0);
    }
    EXPECT_EQ(::fcntl(reader, F_GETFL) & O_NONBLOCK, 0);
    ::close(reader);
}

TEST_F(PipeLinesTest, goAwayAtOnceWhileTheyWait) {
    const auto before = loop.now();
    {
        Pipe other;
        PipeLines waiting(loop, other.takeReader());
        EXPECT_EQ(waiting.next().kind, NextLine::Kind::later);
    }
    EXPECT_LT(loop.now() - before, 5s);
}

TEST_F(PipeLinesTest, reportNothingOnceTheyAreGone) {
    bool hasMore = false;
    Pipe other;
    {
        PipeLines gone(loop, other.takeReader());
        gone.onMore = [&] { hasMore = true; };
        EXPECT_EQ(gone.next().kind, NextLine::Kind::later);
        other.close();
    }
    loop.after(10ms, [this] { loop.stop(); });
    loop.run();
    EXPECT_FALSE(hasMore);
}

TEST_F(PipeLinesTest, endWhereNothingCanBeRead) {
    PipeLines none(loop, FileDescriptor());
    EXPECT_EQ(none.next().kind, NextLine::Kind::end);
}

TEST_F(PipeLinesTest, readWhatCannotBeWaitedFor) {
    const TemporaryFile file("a\nb\n");
    PipeLines ordinary(loop, file.open());
    ordinary.onMore = [this] { loop.stop(); };
    EXPECT_EQ(ordinary.next().kind, NextLine::Kind::later);
    awaitMore();
    EXPECT_EQ(ordinary.next().text, "a\r\n");
}

}  // namespace
}  // namespace tidewright::network
