#pragma once

#include <asio/ip/tcp.hpp>
#include <functional>
#include <memory>

#include "network/ClientTraffic.h"
#include "network/ConnectedClient.h"
#include "network/SentenceTape.h"
#include "network/TapeReader.h"

namespace tidewright::network {

/// One connected client: it is sent what is on the tape at its own pace, and what it sends is
/// thrown away.
///
/// A client that closes its sending side is no longer read, but still receives. Lives on the
/// server's queue; what it waits for is forgotten when it is destroyed.
class TCPClient : public std::enable_shared_from_this<TCPClient> {
public:
    /// Called when the connection itself has failed; the client may be destroyed meanwhile.
    using Failed = std::function<void(const TCPClient&)>;

    /// `socket` is connected. The client is sent what is put on `tape`, which must outlive it, from
    /// now on.
    TCPClient(asio::ip::tcp::socket socket, ConnectedClient identity, const SentenceTape& tape,
              Failed failed);

    /// Resets the connection, unless it was closed.
    ~TCPClient();

    TCPClient(const TCPClient&) = delete;
    TCPClient& operator=(const TCPClient&) = delete;

    const ConnectedClient& identity() const { return identity_; }

    ClientTraffic traffic() const;

    /// Begins to read and discard. To be called once, when a shared_ptr owns the client.
    void start();

    /// Ends that, and the sending that was to follow by itself; `failed` is not called any more.
    void stop() { isStopped_ = true; }

    /// Sends what is new on the tape, as far as the socket has room for it; the rest follows by
    /// itself when there is room again.
    void send();

    /// Whether everything on the tape was sent and acknowledged, or never will be.
    bool hasEverything();

    /// Sends the rest of the sentence begun, if there is room for it. Whether nothing more is to be
    /// waited for: all that was sent is acknowledged, in whole sentences, or never will be.
    bool isReadyToClose();

    /// Closes the connection: the client finds a clean end of stream after what it has received.
    void close();

private:
    void await(asio::socket_base::wait_type what, void (TCPClient::*handle)());
    void discardInput();
    void lookForFailure();
    void finishSentence();
    void awaitRoom();
    void sendOn();

    asio::ip::tcp::socket socket_;
    ConnectedClient identity_;
    const SentenceTape& tape_;
    TapeReader reader_;
    Failed failed_;
    bool awaitsRoom_ = false;
    bool isStopped_ = false;
};

}  // namespace tidewright::network
