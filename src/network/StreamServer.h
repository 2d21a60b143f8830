#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "network/ClientTraffic.h"
#include "network/ConnectedClient.h"
#include "network/DroppedSentences.h"
#include "network/SharedBytes.h"

namespace tidewright::network {

/// Why a server could not start.
struct StartFailure {
    std::string domain;       ///< "nmea.tcp", or "system" for an error of the host
    int code = 0;             ///< within the domain
    std::string description;  ///< for the user
};

/// The stream side of the gateway: every client receives the same sentences.
class StreamServer {
public:
    using ClientsChanged = std::function<void(const std::vector<ConnectedClient>& clients)>;
    using Traffic = std::function<void(const std::vector<ClientTraffic>& clients)>;
    using Failed = std::function<void(const std::string& description)>;

    virtual ~StreamServer() = default;

    /// Called on the main thread with the connected clients, sorted by address as text and then by
    /// number, whenever that list may have changed. Set before start().
    ClientsChanged onClientsChanged;

    /// Called on the main thread with what each connected client was sent, in the order in which
    /// they came: the answer to askForTraffic(). Set before start().
    Traffic onTraffic;

    /// Called on the main thread, never from inside start(), when the listener of the latest
    /// start() fails: a port already in use, for instance. Set before start().
    Failed onFailed;

    /// Stops, then listens on `port`. Nothing on success; why not, for a port that cannot be used
    /// (0) or a socket that cannot be made.
    virtual std::optional<StartFailure> start(std::uint16_t port) = 0;

    /// The same on a port that the system picks, which is the answer; nothing where no socket can
    /// be made.
    virtual std::optional<std::uint16_t> startOnFreePort() = 0;

    /// Closes every client and the listener, and returns when that is done; the port is free again.
    /// An empty client list is reported. Harmless when already stopped.
    virtual void stop() = 0;

    /// The same, after clients who read have had everything that was broadcast; they are waited for
    /// two seconds at most.
    virtual void finish() { stop(); }

    /// Sends `sentence` to every client, and returns at once. Failures are silent; where the server
    /// is too slow for its owner, whole sentences are dropped and counted.
    virtual void broadcast(SharedBytes sentence) = 0;

    /// From now on, whoever comes while `limit` (> 0) clients are there is sent away with a clean
    /// end of stream, and never listed; 0 or below: nobody is. Who is there stays. Returns at once.
    virtual void limitClients(std::int64_t limit) = 0;

    /// Closes every client, and returns at once. The listener stays: they may come back.
    virtual void dropAllClients() = 0;

    /// Closes the client of this number as dropAllClients() does for all, and returns at once.
    /// Harmless for a number that nobody has.
    virtual void drop(std::uint64_t number) = 0;

    /// Has onTraffic called, soon, and returns at once.
    virtual void askForTraffic() = 0;

    /// How many clients were listed so far, those included who are gone. Any thread may call it.
    virtual std::uint64_t acceptedClients() const = 0;

    /// What was dropped so far; what clients missed, as of the latest report.
    virtual DroppedSentences droppedSentences() const = 0;
};

}  // namespace tidewright::network
