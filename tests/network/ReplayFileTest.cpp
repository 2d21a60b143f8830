#include "network/ReplayFile.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <thread>

#include "platform/AsioMainLoop.h"
#include "support/Pipe.h"
#include "support/TemporaryFile.h"

namespace tidewright::network {
namespace {
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

using Source = std::unique_ptr<LineSource>;

struct ReplayFileTest : testing::Test {
    platform::AsioMainLoop loop;

    Source open(const std::string& path) {
        auto opened = openReplay(path, loop);
        if (const auto* reason = std::get_if<std::string>(&opened)) ADD_FAILURE() << *reason;
        return std::get<Source>(std::move(opened));
    }

    /// Why it cannot be opened.
    std::string refusal(const std::string& path) {
        auto opened = openReplay(path, loop);
        const auto* reason = std::get_if<std::string>(&opened);
        return reason ? *reason : "it was opened";
    }

    /// To the end, or for ten seconds.
    std::vector<std::string> linesOf(LineSource& source) {
        std::vector<std::string> lines;
        const auto take = [&] {
            NextLine next = source.next();
            for (; next.kind == NextLine::Kind::line; next = source.next())
                lines.push_back(std::move(next.text));
            if (next.kind == NextLine::Kind::end) loop.stop();
        };
        source.onMore = take;
        const auto patience = loop.every(10s, [&] { loop.stop(); });
        loop.post(take);
        loop.run();
        source.onMore = {};
        return lines;
    }
};

TEST_F(ReplayFileTest, givesTheLinesOfAFile) {
    const TemporaryFile file("a\r\nb\n\nc");
    EXPECT_THAT(linesOf(*open(file.path())), ElementsAre("a\r\n", "b\r\n", "c\r\n"));
}

TEST_F(ReplayFileTest, neverWaitsForAFile) {
    const TemporaryFile file(std::string(200'000, 'x') + "\ny\n");
    const Source source = open(file.path());
    EXPECT_EQ(source->next().text.size(), 200'002U);
    EXPECT_EQ(source->next(), (NextLine{NextLine::Kind::line, "y\r\n"}));
    EXPECT_EQ(source->next().kind, NextLine::Kind::end);
}

TEST_F(ReplayFileTest, beginsAFileAgain) {
    const TemporaryFile file("a\nb\n");
    const Source source = open(file.path());
    linesOf(*source);
    EXPECT_TRUE(source->rewind());
    EXPECT_THAT(linesOf(*source), ElementsAre("a\r\n", "b\r\n"));
    EXPECT_TRUE(source->rewind());
    source->next();
    EXPECT_TRUE(source->rewind());
    EXPECT_EQ(source->next().text, "a\r\n");
}

TEST_F(ReplayFileTest, givesWhatAGrowingFileHoldsWhenItsEndIsReached) {
    const TemporaryFile file("a\n");
    const Source source = open(file.path());
    EXPECT_EQ(source->next().text, "a\r\n");
    file.append("b\n");
    EXPECT_EQ(source->next().text, "b\r\n");
    EXPECT_EQ(source->next().kind, NextLine::Kind::end);
    file.append("c\n");
    EXPECT_EQ(source->next().kind, NextLine::Kind::end);
}

TEST_F(ReplayFileTest, refusesAFileWithoutALine) {
    const TemporaryFile empty;
    EXPECT_EQ(refusal(empty.path()), "« " + empty.path() + " » ne contient aucune ligne.");
    const TemporaryFile blank("\r\n\n\n\r");
    EXPECT_THAT(refusal(blank.path()), HasSubstr("ne contient aucune ligne."));
    EXPECT_EQ(refusal("/dev/null"), "« /dev/null » ne contient aucune ligne.");
}

TEST_F(ReplayFileTest, saysWhyAFileCannotBeRead) {
    EXPECT_EQ(refusal("/nowhere/log"), "« /nowhere/log » n'existe pas.");
    EXPECT_EQ(refusal("/dev/null/log"), "« /dev/null/log » n'existe pas.");
    EXPECT_EQ(refusal(""), "«  » n'existe pas.");
    EXPECT_EQ(refusal("/"), "« / » est un dossier.");
    EXPECT_THAT(refusal(std::string(5000, 'x')),
                HasSubstr("lecture impossible (File name too long)"));
}

/// Nobody in particular, where the test is run by the administrator, for a while.
struct PlainUser {
    PlainUser() { isPlain = ::geteuid() != 0 || ::seteuid(65'534) == 0; }
    PlainUser(const PlainUser&) = delete;
    ~PlainUser() { isPlain = ::seteuid(::getuid()) == 0; }

    bool isPlain = false;
};

TEST_F(ReplayFileTest, saysThatAccessIsRefused) {
    const TemporaryFile file("a\n");
    ::chmod(file.path().c_str(), 0);
    const PlainUser user;
    ASSERT_TRUE(user.isPlain);
    EXPECT_EQ(refusal(file.path()), "« " + file.path() + " » : accès refusé.");
}

/// A named pipe, gone in the end.
struct NamedPipe {
    NamedPipe() { EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0); }
    NamedPipe(const NamedPipe&) = delete;
    ~NamedPipe() { std::filesystem::remove(path); }

    std::string path = TemporaryFile().path();
};

TEST_F(ReplayFileTest, readsANamedPipeWithoutWaitingForItsWriter) {
    const NamedPipe fifo;
    const Source source = open(fifo.path);
    EXPECT_EQ(source->next().kind, NextLine::Kind::later);
    std::thread writer([&] {
        const FileDescriptor end(::open(fifo.path.c_str(), O_WRONLY));
        EXPECT_EQ(::write(end.number(), "a\nb", 3), 3);
    });
    EXPECT_THAT(linesOf(*source), ElementsAre("a\r\n", "b\r\n"));
    writer.join();
    EXPECT_FALSE(source->rewind());
}

TEST_F(ReplayFileTest, keepsWhatAPipeHoldsAlready) {
    Pipe pipe;
    ASSERT_TRUE(pipe.write("a\nb\n"));
    const std::string path = "/dev/fd/" + std::to_string(pipe.reader());
    const Source source = open(path);
    pipe.close();
    EXPECT_THAT(linesOf(*source), ElementsAre("a\r\n", "b\r\n"));
}

/// Puts `descriptor` in the place of standard input for a while.
class StandardInput {
public:
    explicit StandardInput(int descriptor) { ::dup2(descriptor, STDIN_FILENO); }
    StandardInput(const StandardInput&) = delete;
    ~StandardInput() { ::dup2(usual_.number(), STDIN_FILENO); }

private:
    FileDescriptor usual_{::dup(STDIN_FILENO)};
};

TEST_F(ReplayFileTest, readsStandardInputAndLeavesItOpen) {
    Pipe pipe;
    const StandardInput input(pipe.reader());
    {
        const Source source = open("-");
        EXPECT_EQ(source->next().kind, NextLine::Kind::later);
        ASSERT_TRUE(pipe.write("a\n"));
        pipe.close();
        EXPECT_THAT(linesOf(*source), ElementsAre("a\r\n"));
    }
    EXPECT_NE(::fcntl(STDIN_FILENO, F_GETFD), -1);
    EXPECT_EQ(::fcntl(STDIN_FILENO, F_GETFL) & O_NONBLOCK, 0);
}

TEST_F(ReplayFileTest, opensStandardInputThatEndsWithoutALine) {
    const TemporaryFile empty;
    for (const char* path : {empty.path().c_str(), "/dev/null"}) {
        const FileDescriptor file(::open(path, O_RDONLY));
        const StandardInput input(file.number());
        EXPECT_THAT(linesOf(*open("-")), testing::IsEmpty()) << path;
    }
}

TEST_F(ReplayFileTest, saysWhyStandardInputCannotBeRead) {
    const FileDescriptor folder(::open("/", O_RDONLY));
    const StandardInput input(folder.number());
    EXPECT_EQ(refusal("-"), "L'entrée standard est un dossier.");
    ::close(STDIN_FILENO);
    EXPECT_EQ(refusal("-"), "L'entrée standard est fermée.");
}

TEST_F(ReplayFileTest, namesASourceThatEndedWithoutALine) {
    EXPECT_EQ(withoutLines("-"), "L'entrée standard ne contient aucune ligne.");
    EXPECT_EQ(withoutLines("pipe"), "« pipe » ne contient aucune ligne.");
}

}  // namespace
}  // namespace tidewright::network
