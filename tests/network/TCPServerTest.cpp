#include "network/TCPServer.h"

#include <arpa/inet.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <thread>

#include "platform/AsioMainLoop.h"
#include "support/FreePort.h"
#include "support/LoopbackClient.h"

namespace tidewright::network {
namespace {
using namespace std::chrono_literals;

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Clients = std::vector<ConnectedClient>;

/// A recognizable sentence of 500 bytes.
std::string numbered(int number) {
    return fmt::format("$TEST,{:08},{:*<482}\r\n", number, "");
}

/// The numbers of the sentences in `text`, which holds nothing but whole ones.
std::vector<int> numbersIn(const std::string& text) {
    std::vector<int> numbers;
    const std::size_t size = numbered(0).size();
    for (std::size_t at = 0; at < text.size(); at += size) {
        const int number = std::atoi(text.c_str() + at + 6);
        EXPECT_EQ(text.substr(at, size), numbered(number));
        if (testing::Test::HasFailure()) break;
        numbers.push_back(number);
    }
    return numbers;
}

std::chrono::nanoseconds processorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Leaves the process room for just so many more descriptors, until destroyed.
class DescriptorsLeft {
public:
    explicit DescriptorsLeft(int count) {
        getrlimit(RLIMIT_NOFILE, &usual_);
        const int lowestFree = dup(STDERR_FILENO);
        close(lowestFree);
        rlimit scarce = usual_;
        scarce.rlim_cur = static_cast<rlim_t>(lowestFree) + static_cast<rlim_t>(count);
        setrlimit(RLIMIT_NOFILE, &scarce);
    }

    ~DescriptorsLeft() { setrlimit(RLIMIT_NOFILE, &usual_); }

    DescriptorsLeft(const DescriptorsLeft&) = delete;

private:
    rlimit usual_{};
};

struct TCPServerTest : testing::Test {
    platform::AsioMainLoop loop;
    std::unique_ptr<TCPServer> server = makeServer();
    std::vector<Clients> lists;
    std::vector<std::vector<ClientTraffic>> traffics;
    std::vector<std::string> failures;
    std::uint16_t port = freePort();

    std::unique_ptr<TCPServer> makeServer() {
        auto made = std::make_unique<TCPServer>(loop);
        made->onClientsChanged = [this](const auto& clients) { lists.push_back(clients); };
        made->onTraffic = [this](const auto& clients) { traffics.push_back(clients); };
        made->onFailed = [this](const auto& description) { failures.push_back(description); };
        return made;
    }

    /// Runs the loop until `condition` holds; whether it did so within `patience`.
    bool runUntil(const std::function<bool()>& condition, platform::MainLoop::Duration patience) {
        const auto deadline = loop.now() + patience;
        const auto watch = loop.every(1ms, [&] {
            if (condition() || loop.now() > deadline) loop.stop();
        });
        loop.run();
        return condition();
    }

    void waitUntil(const std::function<bool()>& condition) {
        ASSERT_TRUE(runUntil(condition, 10s)) << "waited in vain";
    }

    /// Runs what was posted to the loop so far.
    void runPosted() {
        loop.post([this] { loop.stop(); });
        loop.run();
    }

    Clients listed() const { return lists.empty() ? Clients() : lists.back(); }

    std::vector<std::string> listedAddresses() const {
        std::vector<std::string> addresses;
        for (const auto& client : listed()) addresses.push_back(client.address);
        return addresses;
    }

    void waitForClients(std::size_t count) {
        waitUntil([&] { return listed().size() == count; });
    }

    void start() { ASSERT_EQ(server->start(port), std::nullopt); }

    std::optional<StartFailure> startWithoutDescriptors() {
        server->stop();  // first, lest the stop within start() free a descriptor
        const DescriptorsLeft none(0);
        return server->start(port);
    }

    LoopbackClient connect(LoopbackClient::Options options = {}) {
        const auto before = listed().size();
        LoopbackClient client(port, options);
        waitForClients(before + 1);
        return client;
    }

    /// What each client was sent, by the server's own account.
    std::vector<ClientTraffic> traffic() {
        traffics.clear();
        server->askForTraffic();
        waitUntil([&] { return !traffics.empty(); });
        return traffics.back();
    }

    void broadcast(const std::string& text) {
        server->broadcast(std::make_shared<const std::string>(text));
    }

    /// Broadcasts sentences until the backlog of a client that does not read is past every bound,
    /// as `reader` reads along; returns how many.
    int overwhelm(LoopbackClient& reader) {
        constexpr int batches = 80;
        constexpr int sentencesABatch = 200;
        for (int batch = 0; batch < batches; ++batch) {
            for (int i = 0; i < sentencesABatch; ++i) {
                broadcast(numbered(batch * sentencesABatch + i));
            }
            EXPECT_THAT(numbersIn(reader.read(sentencesABatch * numbered(0).size())),
                        SizeIs(sentencesABatch));
        }
        return batches * sentencesABatch;
    }
};

TEST_F(TCPServerTest, sendsEverySentenceToEveryClient) {
    start();
    auto first = connect();
    auto second = connect();
    broadcast("$one\r\n");
    broadcast("$two\r\n");
    EXPECT_EQ(first.read(12), "$one\r\n$two\r\n");
    EXPECT_EQ(second.read(12), "$one\r\n$two\r\n");
}

TEST_F(TCPServerTest, beginsWithTheNextSentenceForAClientThatComesLater) {
    start();
    auto early = connect();
    broadcast("$one\r\n");
    EXPECT_EQ(early.read(6), "$one\r\n");
    auto late = connect();
    broadcast("$two\r\n");
    EXPECT_EQ(late.read(6), "$two\r\n");
}

TEST_F(TCPServerTest, listsTwoClientsOfOneHostTwice) {
    start();
    const auto first = connect();
    const auto second = connect();
    EXPECT_THAT(listedAddresses(), ElementsAre("127.0.0.1", "127.0.0.1"));
}

TEST_F(TCPServerTest, servesIPv4AndIPv6AndListsThemSorted) {
    start();
    auto six = connect({.overIPv6 = true});
    auto four = connect();
    EXPECT_THAT(listedAddresses(), ElementsAre("127.0.0.1", "::1"));
    broadcast("$one\r\n");
    EXPECT_EQ(six.read(6), "$one\r\n");
    EXPECT_EQ(four.read(6), "$one\r\n");
}

TEST_F(TCPServerTest, sendsAwayWhoComesBeyondTheLimitWithACleanEndOfStream) {
    start();
    auto first = connect();
    server->limitClients(2);
    auto second = connect();
    LoopbackClient third(port);
    EXPECT_EQ(third.readToEnd(), "");
    EXPECT_TRUE(third.endedCleanly());
    runPosted();
    EXPECT_THAT(listed(), SizeIs(2));
    broadcast("$one\r\n");
    EXPECT_EQ(first.read(6), "$one\r\n");
    EXPECT_EQ(second.read(6), "$one\r\n");
}

TEST_F(TCPServerTest, letsAnybodyInAgainOnceThereIsRoomOrNoLimit) {
    start();
    server->limitClients(1);
    connect().reset();
    waitForClients(0);
    const auto second = connect();
    server->limitClients(0);
    const auto third = connect();
    EXPECT_THAT(listed(), SizeIs(2));
}

TEST_F(TCPServerTest, keepsWhoIsThereWhenTheLimitFalls) {
    start();
    auto first = connect();
    auto second = connect();
    server->limitClients(1);
    broadcast("$one\r\n");
    EXPECT_EQ(second.read(6), "$one\r\n");
    EXPECT_THAT(listed(), SizeIs(2));
}

TEST_F(TCPServerTest, broadcastsToNobodyWithoutClients) {
    broadcast("$before the start\r\n");
    start();
    broadcast("$before the client\r\n");
    auto client = connect();
    broadcast("$now\r\n");
    EXPECT_EQ(client.read(6), "$now\r\n");
}

TEST_F(TCPServerTest, sendsNothingForAnEmptySentence) {
    start();
    auto client = connect();
    broadcast("");
    broadcast("$one\r\n");
    EXPECT_EQ(client.read(6), "$one\r\n");
}

TEST_F(TCPServerTest, sendsABurstOfAHundredThousandSentencesWhole) {
    start();
    auto client = connect();
    constexpr int count = 100'000;
    std::thread gateway([&] {
        for (int i = 0; i < count; ++i) broadcast(fmt::format("!{:08}\r\n", i));
    });
    const std::string text = client.read(count * 11);
    gateway.join();
    EXPECT_EQ(text.size(), count * 11u);
    EXPECT_THAT(text, EndsWith("!00099999\r\n"));
}

TEST_F(TCPServerTest, sendsSentencesLongerThanItsTapeWhole) {
    start();
    auto client = connect();
    for (const char each : {'a', 'b', 'c'}) {
        const std::string sentence = std::string(8 << 20, each) + "\r\n";
        broadcast(sentence);
        EXPECT_TRUE(client.read(sentence.size()) == sentence) << each;
    }
    EXPECT_EQ(server->droppedSentences(), DroppedSentences());
}

TEST_F(TCPServerTest, dropsWholeWhatIsTooLongAndTooMuchAtOnce) {
    start();
    auto client = connect();
    for (const char each : {'a', 'b', 'c', 'd', 'e'})
        broadcast(std::string(8 << 20, each) + "\r\n");
    const std::string last = "$end\r\n";
    broadcast(last);
    for (auto text = client.read(6); text != last && !HasFailure(); text = client.read(6)) {
        text += client.read((8 << 20) - 4);
        EXPECT_TRUE(text == std::string(8 << 20, text.front()) + "\r\n");
    }
    waitUntil([&] { return traffic().size() == 1; });
    EXPECT_GT(server->droppedSentences().thread + server->droppedSentences().client, 0U);
}

TEST_F(TCPServerTest, listensOnAFreePortAndSaysWhich) {
    const auto itsPort = server->startOnFreePort();
    ASSERT_TRUE(itsPort);
    EXPECT_NE(*itsPort, 0);
    port = *itsPort;
    auto client = connect();
    broadcast("$one\r\n");
    EXPECT_EQ(client.read(6), "$one\r\n");
}

TEST_F(TCPServerTest, countsWhoCameAndNotWhoWasSentAway) {
    start();
    server->limitClients(1);
    const auto first = connect();
    LoopbackClient sentAway(port);
    EXPECT_EQ(sentAway.readToEnd(), "");
    EXPECT_EQ(server->acceptedClients(), 1U);
    server->dropAllClients();
    waitForClients(0);
    const auto next = connect();
    EXPECT_EQ(server->acceptedClients(), 2U);
}

TEST_F(TCPServerTest, refusesPortZero) {
    const auto failure = server->start(0);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->domain, "nmea.tcp");
    EXPECT_EQ(failure->code, 1);
    EXPECT_EQ(failure->description, "Port TCP invalide");
}

TEST_F(TCPServerTest, dropsItsClientsEvenWhenTheNewPortIsRefused) {
    start();
    auto client = connect();
    EXPECT_TRUE(server->start(0));
    EXPECT_EQ(client.readToEnd(), "");
    waitForClients(0);
}

TEST_F(TCPServerTest, refusesToStartWhenNoSocketCanBeMade) {
    start();
    const auto failure = startWithoutDescriptors();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->domain, "system");
    EXPECT_EQ(failure->code, EMFILE);
    EXPECT_THAT(failure->description, Not(IsEmpty()));
}

TEST_F(TCPServerTest, refusesItsFirstStartWhenNoSocketCanBeMade) {
    const auto failure = startWithoutDescriptors();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->domain, "system");
    EXPECT_EQ(failure->code, EMFILE);
    start();
    const auto client = connect();
}

TEST_F(TCPServerTest, reportsAPortAlreadyInUseLater) {
    start();
    TCPServer other(loop);
    std::vector<std::string> reported;
    other.onFailed = [&](const std::string& description) { reported.push_back(description); };
    EXPECT_EQ(other.start(port), std::nullopt);
    EXPECT_THAT(reported, IsEmpty()) << "never from inside start()";
    waitUntil([&] { return !reported.empty(); });
    EXPECT_THAT(reported, ElementsAre(HasSubstr("in use")));
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(TCPServerTest, startsOnceThePortIsFreeAgain) {
    start();
    TCPServer other(loop);
    ASSERT_EQ(other.start(port), std::nullopt);
    server->stop();
    ASSERT_EQ(other.start(port), std::nullopt);
    broadcast("$nobody\r\n");
    LoopbackClient client(port);
    other.stop();
    EXPECT_EQ(client.readToEnd(), "");
}

TEST_F(TCPServerTest, forgetsTheFailureOfAnEarlierListener) {
    TCPServer other(loop);
    const auto occupied = freePort();
    ASSERT_EQ(other.start(occupied), std::nullopt);
    ASSERT_EQ(server->start(occupied), std::nullopt);  // fails, and says so later
    start();
    runPosted();
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(TCPServerTest, forgetsTheFailureOfAListenerThatWasStopped) {
    TCPServer other(loop);
    const auto occupied = freePort();
    ASSERT_EQ(other.start(occupied), std::nullopt);
    ASSERT_EQ(server->start(occupied), std::nullopt);
    server->stop();
    runPosted();
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(TCPServerTest, dropsEveryoneAndReportsAnEmptyListWhenStartedAgain) {
    start();
    auto client = connect();
    const auto before = lists.size();
    start();
    runPosted();
    EXPECT_EQ(client.readToEnd(), "");
    EXPECT_TRUE(client.endedCleanly());
    EXPECT_GT(lists.size(), before);
    EXPECT_THAT(listed(), IsEmpty());
    const auto again = connect();
    EXPECT_THAT(listed(), SizeIs(1));
}

TEST_F(TCPServerTest, reportsAnEmptyListWheneverItStops) {
    server->stop();
    server->stop();
    runPosted();
    EXPECT_THAT(lists, AllOf(SizeIs(2), Each(IsEmpty())));
}

TEST_F(TCPServerTest, reportsNothingFromInsideItsOperations) {
    start();
    server->stop();
    EXPECT_THAT(lists, IsEmpty());
}

TEST_F(TCPServerTest, sendsWhatItWasGivenBeforeItStops) {
    start();
    auto client = connect();
    for (int i = 0; i < 100; ++i) broadcast(numbered(i));
    server->stop();
    EXPECT_THAT(numbersIn(client.readToEnd()), SizeIs(100));
    EXPECT_TRUE(client.endedCleanly());
}

TEST_F(TCPServerTest, letsWhoReadsHaveEverythingWhenItFinishes) {
    start();
    auto client = connect({.receiveBufferBytes = 4096});
    constexpr int count = 6000;
    for (int i = 0; i < count; ++i) broadcast(numbered(i));
    std::string received;
    std::thread reader([&] { received = client.readToEnd(); });
    server->finish();
    reader.join();
    EXPECT_TRUE(client.endedCleanly());
    EXPECT_THAT(numbersIn(received), SizeIs(count));
}

TEST_F(TCPServerTest, finishesWithoutWhoNeverReads) {
    start();
    const auto sleeper = connect({.receiveBufferBytes = 4096});
    for (int i = 0; i < 100'000; ++i) broadcast(numbered(i));
    server->finish();
    EXPECT_THAT(listed(), SizeIs(1));
    waitForClients(0);
}

TEST_F(TCPServerTest, endsEveryStreamCleanlyWhenItDropsItsClients) {
    start();
    auto first = connect();
    auto second = connect();
    broadcast("$last\r\n");
    server->dropAllClients();
    for (auto* client : {&first, &second}) {
        EXPECT_EQ(client->readToEnd(), "$last\r\n");
        EXPECT_TRUE(client->endedCleanly());
    }
    waitForClients(0);
}

TEST_F(TCPServerTest, numbersItsClientsFromOneAndNeverGivesANumberTwice) {
    start();
    {
        const auto first = connect();
        const auto second = connect();
        EXPECT_THAT(listed(),
                    ElementsAre(ConnectedClient{1, "127.0.0.1"}, ConnectedClient{2, "127.0.0.1"}));
    }
    start();
    waitForClients(0);
    const auto third = connect();
    EXPECT_THAT(listed(), ElementsAre(ConnectedClient{3, "127.0.0.1"}));
}

TEST_F(TCPServerTest, dropsOneClientAndLeavesTheOthersAlone) {
    start();
    auto first = connect();
    auto second = connect();
    broadcast("$both\r\n");
    server->drop(1);
    EXPECT_EQ(first.readToEnd(), "$both\r\n");
    EXPECT_TRUE(first.endedCleanly());
    waitForClients(1);
    EXPECT_THAT(listed(), ElementsAre(ConnectedClient{2, "127.0.0.1"}));
    broadcast("$one\r\n");
    EXPECT_EQ(second.read(13), "$both\r\n$one\r\n");
}

TEST_F(TCPServerTest, dropsNobodyForANumberThatNobodyHas) {
    start();
    auto client = connect();
    server->drop(0);
    server->drop(2);
    broadcast("$one\r\n");
    EXPECT_EQ(client.read(6), "$one\r\n");
    EXPECT_THAT(lists, SizeIs(2)) << "empty at the start, and one client since";
}

TEST_F(TCPServerTest, tellsWhatEachClientWasSent) {
    start();
    auto early = connect();
    broadcast("$one\r\n");
    EXPECT_EQ(early.read(6), "$one\r\n");
    auto late = connect();
    broadcast("$two\r\n");
    EXPECT_EQ(late.read(6), "$two\r\n");
    EXPECT_THAT(traffic(), ElementsAre(ClientTraffic{1, 12, 0}, ClientTraffic{2, 6, 0}));
}

TEST_F(TCPServerTest, tellsTheTrafficOfNobodyWithoutClients) {
    start();
    EXPECT_THAT(traffic(), IsEmpty());
}

TEST_F(TCPServerTest, keepsListeningWhenItDropsItsClients) {
    start();
    const auto dropped = connect();
    server->dropAllClients();
    waitForClients(0);
    auto back = connect();
    broadcast("$one\r\n");
    EXPECT_EQ(back.read(6), "$one\r\n");
}

TEST_F(TCPServerTest, hasThePortFreeAtOnceAHundredTimesInARow) {
    for (int i = 0; i < 100; ++i) {
        start();
        std::vector<std::thread> clients;
        for (int k = 0; k < 4; ++k) {
            // Those who hang up the moment the stream ends are the hard case.
            clients.emplace_back([client = connect()]() mutable { client.readToEnd(); });
        }
        broadcast("$one\r\n");
        server->stop();
        waitForClients(0);
        for (auto& client : clients) client.join();
    }
    start();
    runPosted();
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(TCPServerTest, losesWholeSentencesForASlowReaderAndNoneForTheOthers) {
    start();
    auto slow = connect({.receiveBufferBytes = 4096});
    auto healthy = connect();
    const int count = overwhelm(healthy);
    EXPECT_THAT(listed(), SizeIs(2));

    const auto numbers = numbersIn(slow.readThrough(numbered(count - 1)));
    EXPECT_LT(numbers.size(), static_cast<std::size_t>(count));
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    EXPECT_EQ(numbers.front(), 0);
    EXPECT_EQ(numbers.back(), count - 1);

    broadcast("$caught up\r\n");
    EXPECT_EQ(slow.read(12), "$caught up\r\n");

    const auto sentBytes = [](std::size_t sentences) {
        return sentences * numbered(0).size() + std::string_view("$caught up\r\n").size();
    };
    const auto all = static_cast<std::size_t>(count);
    EXPECT_THAT(traffic(),
                ElementsAre(ClientTraffic{1, sentBytes(numbers.size()), all - numbers.size()},
                            ClientTraffic{2, sentBytes(all), 0}));
    EXPECT_EQ(server->droppedSentences(), (DroppedSentences{.client = all - numbers.size()}));
}

TEST_F(TCPServerTest, dropsAndCountsWhatItsThreadIsTooSlowFor) {
    start();
    auto client = connect();
    constexpr std::size_t count = 2000;
    const auto big = std::make_shared<const std::string>(1 << 20, '*');
    for (std::size_t i = 0; i < count; ++i) server->broadcast(big);
    EXPECT_GT(server->droppedSentences().thread, 0);
    client.reset();
}

TEST_F(TCPServerTest, resetsAClientThatNeverReadsWhenItStops) {
    start();
    auto stuck = connect({.receiveBufferBytes = 4096});
    auto healthy = connect();
    overwhelm(healthy);
    const auto before = loop.now();
    server->stop();
    EXPECT_LT(loop.now() - before, 2s);
    healthy.readToEnd();
    EXPECT_TRUE(healthy.endedCleanly());
    stuck.readToEnd();
    EXPECT_FALSE(stuck.endedCleanly());
    start();
    runPosted();
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(TCPServerTest, finishesTheSentenceBegunForASlowReaderBeforeItStops) {
    start();
    auto slow = connect({.receiveBufferBytes = 64 * 1024});
    auto healthy = connect();
    overwhelm(healthy);
    std::string text;
    std::thread reader([&] { text = slow.readToEnd(); });
    server->stop();
    reader.join();
    if (slow.endedCleanly()) {
        EXPECT_THAT(numbersIn(text), Not(IsEmpty()));
    }
}

TEST_F(TCPServerTest, stopsWithoutDelayForClientsWhoReceivedEverything) {
    start();
    std::vector<LoopbackClient> clients;
    for (int i = 0; i < 20; ++i) clients.push_back(connect());
    const auto before = loop.now();
    server->stop();
    EXPECT_LT(loop.now() - before, 200ms);
}

TEST_F(TCPServerTest, keepsAClientThatClosesItsSendingSide) {
    start();
    auto client = connect();
    client.closeSending();
    for (int i = 0; i < 10; ++i) {
        broadcast("$one\r\n");
        EXPECT_EQ(client.read(6), "$one\r\n");
    }
    runPosted();
    EXPECT_THAT(listed(), SizeIs(1));
}

TEST_F(TCPServerTest, restsWhileAClientHasClosedItsSendingSide) {
    start();
    auto client = connect();
    client.closeSending();
    const auto before = processorTime();
    EXPECT_FALSE(runUntil([&] { return listed().empty(); }, 300ms));
    EXPECT_LT(processorTime() - before, 200ms);
}

TEST_F(TCPServerTest, unlistsAClientThatIsReset) {
    start();
    auto client = connect();
    const auto other = connect();
    client.reset();
    waitForClients(1);
}

TEST_F(TCPServerTest, unlistsAClientThatIsResetAfterItClosedItsSendingSide) {
    start();
    auto client = connect();
    client.closeSending();
    broadcast("$unread\r\n");
    client.reset();
    waitForClients(0);
}

TEST_F(TCPServerTest, unlistsAClientThatWentAwayOnceItIsSentSomething) {
    start();
    { const auto client = connect(); }
    waitUntil([&] {
        broadcast("$anyone\r\n");
        return listed().empty();
    });
}

TEST_F(TCPServerTest, throwsAwayWhatClientsSayAndNeverAnswers) {
    start();
    auto client = connect();
    client.write(std::string(64 << 20, '?'));  // more than the system keeps for anybody
    EXPECT_TRUE(client.hasNothingToRead());
    broadcast("$one\r\n");
    EXPECT_EQ(client.read(6), "$one\r\n");
    EXPECT_THAT(listed(), SizeIs(1));
}

#ifdef __linux__

/// Connects, on a network of this process's own, from a link-local address; 0 if the client is
/// listed without its scope.
[[noreturn]] void connectFromALinkLocalAddress() {
    if (unshare(CLONE_NEWNET) != 0 ||
        std::system(
            "ip link set lo up && ip link add v0 type veth peer name v1 && ip link set v0 up && "
            "ip link set v1 up && ip address add fe80::9/64 dev v0 nodad") != 0)
        std::_Exit(2);
    platform::AsioMainLoop loop;
    TCPServer server(loop);
    Clients listed;
    server.onClientsChanged = [&](const auto& clients) {
        listed = clients;
        if (!listed.empty()) loop.stop();
    };
    constexpr std::uint16_t port = 2000;
    if (server.start(port)) std::_Exit(3);
    const int client = socket(AF_INET6, SOCK_STREAM, 0);
    const timeval patience{.tv_sec = 10, .tv_usec = 0};
    setsockopt(client, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_port = htons(port);
    address.sin6_scope_id = if_nametoindex("v0");
    inet_pton(AF_INET6, "fe80::9", &address.sin6_addr);
    if (connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        std::_Exit(4);
    loop.after(10s, [&] { loop.stop(); });
    loop.run();
    std::_Exit(listed == Clients{{1, "fe80::9"}} ? 0 : 5);
}

TEST(TCPServerDeathTest, listsALinkLocalClientWithoutItsScope) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    if (std::system("unshare --net ip link add v0 type veth peer name v1 > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "this machine lets us make no network of our own";
    EXPECT_EXIT(connectFromALinkLocalAddress(), testing::ExitedWithCode(0), "");
}

#endif

TEST_F(TCPServerTest, acceptsAgainAfterTheHostRanOutOfDescriptors) {
    start();
    auto early = connect();
    std::unique_ptr<LoopbackClient> waiting;
    {
        const DescriptorsLeft one(1);  // for the client's side of the connection
        waiting = std::make_unique<LoopbackClient>(port);
        const auto before = processorTime();
        EXPECT_FALSE(runUntil([&] { return listed().size() == 2; }, 300ms));
        EXPECT_LT(processorTime() - before, 200ms) << "it should not spin";
        broadcast("$one\r\n");
        EXPECT_EQ(early.read(6), "$one\r\n");
    }
    waitForClients(2);
    broadcast("$two\r\n");
    EXPECT_EQ(waiting->read(6), "$two\r\n");
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(TCPServerTest, mayBeDestroyedWhileItServes) {
    start();
    auto client = connect();
    for (int i = 0; i < 100; ++i) broadcast(numbered(i));
    server.reset();
    const auto before = lists.size();
    runPosted();
    EXPECT_THAT(lists, SizeIs(before)) << "nobody is there to report";
    client.readToEnd();
    EXPECT_TRUE(client.endedCleanly());
}

TEST_F(TCPServerTest, mayBeDestroyedWithoutEverBeingStarted) {
    server.reset();
    runPosted();
    EXPECT_THAT(lists, IsEmpty());
}

}  // namespace
}  // namespace tidewright::network
