#include "Crowd.h"

#include <poll.h>
#include <sys/epoll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "platform/Check.h"

namespace tidewright::soak {
namespace {
using namespace std::chrono_literals;

constexpr auto patience = 10s;

}  // namespace

Crowd::Crowd(const Journal& journal, std::uint16_t port, std::size_t readers, std::size_t sleepers)
    : journal_(journal), poll_(epoll_create1(0)) {
    for (std::size_t i = 0; i < readers; ++i) readers_.push_back({LoopbackSocket(port)});
    for (std::size_t i = 0; i < readers; ++i) {
        epoll_event event{.events = EPOLLIN, .data = {.u64 = i}};
        platform::check(epoll_ctl(poll_, EPOLL_CTL_ADD, readers_[i].socket.native(), &event) == 0,
                        "cannot watch a client");
    }
    constexpr int smallBuffer = 4096;
    for (std::size_t i = 0; i < sleepers; ++i) sleepers_.emplace_back(port, smallBuffer);
}

Crowd::~Crowd() {
    close(poll_);
}

void Crowd::readAlong() {
    auto deadline = std::chrono::steady_clock::time_point::max();
    while (!everybodyHasAll()) {
        std::array<epoll_event, 256> events;
        const int ready = epoll_wait(poll_, events.data(), events.size(), 100);
        for (int i = 0; i < ready; ++i) receive(readers_[events[static_cast<size_t>(i)].data.u64]);
        const auto now = std::chrono::steady_clock::now();
        if (!journal_.isClosed()) deadline = now + patience;
        if (now > deadline) {
            for (Reader& each : readers_)
                if (each.position < journal_.bytes().size()) giveUp(each, "not everything arrived");
            return;
        }
    }
}

void Crowd::receive(Reader& reader) {
    static std::array<char, 256 * 1024> buffer;
    const ssize_t got = recv(reader.socket.native(), buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (got > 0)
        check(reader, {buffer.data(), static_cast<std::size_t>(got)});
    else
        giveUp(reader, "the stream ended");
}

void Crowd::check(Reader& reader, std::string_view received) {
    const std::int64_t now = Journal::now();
    const std::string_view sent = journal_.bytes();
    if (sent.substr(std::min<std::size_t>(reader.position, sent.size()), received.size()) !=
        received) {
        giveUp(reader, "other bytes than were sent");
        return;
    }
    reader.position += received.size();
    const auto marks = journal_.marks();
    while (reader.mark < marks.size() && marks[reader.mark].end <= reader.position) {
        latencies_.add(now - marks[reader.mark++].nanoseconds);
    }
}

bool Crowd::everybodyHasAll() const {
    return journal_.isClosed() && std::ranges::all_of(readers_, [this](const Reader& each) {
               return each.position >= journal_.bytes().size();
           });
}

void Crowd::giveUp(Reader& reader, const std::string& why) {
    ++faults_[why];
    epoll_ctl(poll_, EPOLL_CTL_DEL, reader.socket.native(), nullptr);
    reader.position = UINT64_MAX / 2;  // as one who wants nothing more
}

void Crowd::wakeSleepers() {
    for (const LoopbackSocket& each : sleepers_) checkSleeper(readToQuiet(each));
}

std::string Crowd::readToQuiet(const LoopbackSocket& sleeper) const {
    static std::array<char, 256 * 1024> buffer;
    std::string received;
    const auto hasAll = [&] { return std::string_view(received).ends_with(lastSentence()); };
    pollfd waiting{sleeper.native(), POLLIN, 0};
    while (::poll(&waiting, 1, hasAll() ? 50 : 2000) > 0) {
        const ssize_t got = recv(sleeper.native(), buffer.data(), buffer.size(), 0);
        if (got <= 0) break;
        received.append(buffer.data(), static_cast<std::size_t>(got));
    }
    return received;
}

std::string_view Crowd::lastSentence() const {
    const std::string_view sent = journal_.bytes();
    return sent.substr(sent.rfind('\n', sent.size() - 2) + 1);
}

void Crowd::checkSleeper(std::string_view received) {
    const std::string_view sent = journal_.bytes();
    const auto marks = journal_.marks();
    std::size_t next = 0;
    const auto sentence = [&](std::size_t number) {
        const auto begin = number == 0 ? 0 : marks[number - 1].end;
        return sent.substr(begin, marks[number].end - begin);
    };
    if (!received.ends_with(lastSentence()))
        ++faults_["a client that woke missed the last sentence"];
    while (!received.empty()) {
        const auto line = received.substr(0, received.find('\n') + 1);
        const std::size_t before = next;
        while (next < marks.size() && sentence(next) != line) ++next;
        if (line.empty() || next == marks.size()) {
            ++faults_["a client that woke found something that was never sent, or out of order"];
            return;
        }
        sleepersMissed_ += next++ - before;
        ++sleepersFound_;
        received.remove_prefix(line.size());
    }
}

}  // namespace tidewright::soak
