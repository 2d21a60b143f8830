#pragma once

#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "network/ClientTraffic.h"
#include "network/ConnectedClient.h"
#include "network/SentenceTape.h"
#include "network/SharedBytes.h"
#include "network/TCPClient.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

/// All the clients of a stream server, and the tape of sentences from which each is sent at its own
/// pace.
///
/// Nobody waits for anybody: a client that does not keep up with the last mebibyte of sentences
/// loses the oldest, whole. Lives on the server's queue.
class StreamClients {
public:
    using Changed = std::function<void()>;
    using Closed = std::function<void()>;

    /// `changed` is called when a client came or went by itself. `queue` is not used before any
    /// other operation.
    StreamClients(platform::WorkQueue& queue, Changed changed)
        : queue_(queue), changed_(std::move(changed)) {}

    /// Takes in a connected client, who receives what is broadcast from now on. A connection
    /// already lost is not listed. Where `limit` (> 0) clients are there, it is closed instead,
    /// with a clean end of stream. Whether it is listed.
    bool add(asio::ip::tcp::socket socket, std::int64_t limit = 0);

    /// Sends `sentence` to every client. What is broadcast in one burst leaves together.
    void broadcast(SharedBytes sentence);

    /// Closes every client, after what was broadcast has been sent as far as there is room for it,
    /// and as soon as the client has acknowledged it; within 0.2 s at any rate. None of them is
    /// listed any more.
    void closeAll();

    /// Closes the client of this number likewise; whether somebody has it.
    bool close(std::uint64_t number);

    /// Calls `sent` when every client who is there has everything, or after two seconds, at once or
    /// later. To be called once.
    void whenAllSent(Closed sent);

    /// Calls `closed` when no client is being closed, at once or later.
    void whenClosed(Closed closed);

    /// The clients as they are listed.
    std::vector<ConnectedClient> list() const;

    /// What each client was sent, in the order in which they came.
    std::vector<ClientTraffic> traffic() const;

    /// How many sentences clients missed in all, those included who are gone.
    std::uint64_t missedSentences() const;

private:
    using Clients = std::map<std::uint64_t, std::shared_ptr<TCPClient>>;

    void flushSoon();
    void flush();
    void lookWhetherAllIsSent();
    void flushFrom(std::uint64_t number);
    void remove(const TCPClient& client);
    void close(const Clients& clients);
    void countClosed();

    platform::WorkQueue& queue_;
    Changed changed_;
    SentenceTape tape_{1 << 20};
    Clients clients_;  // by number
    std::uint64_t latestNumber_ = 0;
    std::uint64_t missedByTheGone_ = 0;
    std::size_t unflushedBytes_ = 0;
    bool flushIsPosted_ = false;
    std::size_t groupsBeingClosed_ = 0;
    std::vector<Closed> whenClosed_;
    Closed whenAllSent_;
    int looksLeft_ = 0;
    std::unique_ptr<asio::steady_timer> pause_;  // between looks; gone before the queue is
};

}  // namespace tidewright::network
