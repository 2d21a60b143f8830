#pragma once

#include <memory>

#include "network/StreamServer.h"
#include "platform/MainLoop.h"

namespace tidewright::network {

/// Serves the sentences to any number of TCP clients, on every local address, IPv4 and IPv6.
///
/// Any thread may call its operations. start() and stop() wait for the server's own thread: at most
/// 0.2 s, if a client does not acknowledge what it was sent. Clients who do find a clean end of
/// stream, after a whole sentence. Made and destroyed on the main thread, at any time.
class TCPServer final : public StreamServer {
public:
    /// Reports through `mainLoop`, which must outlive the server.
    explicit TCPServer(platform::MainLoop& mainLoop);
    ~TCPServer() override;

    std::optional<StartFailure> start(std::uint16_t port) override;
    std::optional<std::uint16_t> startOnFreePort() override;
    void stop() override;
    void finish() override;
    void broadcast(SharedBytes sentence) override;
    void limitClients(std::int64_t limit) override;
    void dropAllClients() override;
    void drop(std::uint64_t number) override;
    void askForTraffic() override;
    std::uint64_t acceptedClients() const override;
    DroppedSentences droppedSentences() const override;

private:
    struct Core;
    std::unique_ptr<Core> core_;
};

}  // namespace tidewright::network
