#pragma once

#include <asio/ip/tcp.hpp>
#include <functional>
#include <memory>
#include <string>

#include "network/SentenceTape.h"
#include "network/TapeReader.h"

namespace tidewright::network {

/// One connected client: reads along on the tape at its own pace; what it says is thrown away.
///
/// A client that closes its sending side is no longer read, but still receives. Lives on the
/// server's queue; its callbacks do nothing once it is destroyed.
class TCPClient : public std::enable_shared_from_this<TCPClient> {
public:
    /// Called when the connection itself has failed; the client may be destroyed meanwhile.
    using Gone = std::function<void(const TCPClient&)>;

    /// `socket` is connected; `address` is the client's host as text. The client is sent what is
    /// put on `tape`, which must outlive it, from now on.
    TCPClient(asio::ip::tcp::socket socket, std::string address, const SentenceTape& tape,
              Gone gone);

    /// Resets the connection, unless it was left.
    ~TCPClient();

    TCPClient(const TCPClient&) = delete;
    TCPClient& operator=(const TCPClient&) = delete;

    const std::string& address() const { return address_; }

    /// Begins to read and discard. To be called once, when a shared_ptr owns the client.
    void listen();

    /// Sends what is new on the tape, as far as the socket has room for it; the rest follows by
    /// itself when there is room again.
    void send();

    /// Sends the rest of the sentence begun, if there is room for it. Whether nothing more is to be
    /// waited for: all that was sent has arrived, in whole sentences, or never will.
    bool isSettled();

    /// Closes the connection: the client finds a clean end of stream after what it has received.
    void leave();

private:
    void discardInput();
    void awaitFailure();
    void finishSentence();
    void awaitRoom();

    asio::ip::tcp::socket socket_;
    std::string address_;
    const SentenceTape& tape_;
    TapeReader reader_;
    Gone gone_;
    bool awaitsRoom_ = false;
};

}  // namespace tidewright::network
