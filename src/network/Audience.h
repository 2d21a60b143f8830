#pragma once

#include <asio/ip/tcp.hpp>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "network/SentenceTape.h"
#include "network/SharedBytes.h"
#include "network/TCPClient.h"

namespace tidewright::network {

/// All the clients of a server, and the tape of sentences on which they read along.
///
/// Nobody waits for anybody: a client that does not keep up with the last mebibyte of sentences
/// loses the oldest, whole. Lives on the server's queue.
class Audience {
public:
    using Task = std::function<void()>;
    using Post = std::function<void(Task)>;
    using Changed = std::function<void(std::vector<std::string> addresses)>;

    /// `post` runs a task on the queue, soon. `changed` is called with the clients' addresses as
    /// listed, whenever that list may have changed.
    Audience(Post post, Changed changed) : post_(std::move(post)), changed_(std::move(changed)) {}

    /// Takes in a connected client, who receives what is told from now on. A connection already
    /// lost is not listed.
    void admit(asio::ip::tcp::socket socket);

    /// Sends `sentence` to everyone. What is told in one burst leaves together.
    void tell(SharedBytes sentence);

    /// Sends everyone away, after what was told has been sent to whoever has room for it. Returns
    /// when the last connection is closed: clients that take too long to acknowledge what they were
    /// sent, 0.2 s all together, are reset.
    void dismiss();

private:
    void flushSoon();
    void flush();
    void lose(const TCPClient& client);
    void reportChange() const;

    Post post_;
    Changed changed_;
    SentenceTape tape_{1 << 20};
    std::vector<std::shared_ptr<TCPClient>> clients_;
    std::size_t unflushedBytes_ = 0;
    bool flushIsPosted_ = false;
};

}  // namespace tidewright::network
