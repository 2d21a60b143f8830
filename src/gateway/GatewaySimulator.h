#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "faults/Delivery.h"
#include "faults/FailureInjection.h"
#include "faults/SensorFaults.h"
#include "faults/SentenceFaults.h"
#include "gateway/AISReports.h"
#include "gateway/ConsoleLog.h"
#include "gateway/EmissionSchedule.h"
#include "gateway/GatewayClient.h"
#include "gateway/Host.h"
#include "gateway/SimulationConfig.h"
#include "gateway/ThroughputMeter.h"
#include "platform/Lifetime.h"
#include "platform/Observable.h"
#include "simulation/BoatSimulationEngine.h"
#include "simulation/Track.h"

namespace tidewright::gateway {

/// The boat's Wi-Fi gateway: turns the simulated boat into a stream of sentences on the network,
/// and misbehaves on command. One for the life of the process. For the main thread.
class GatewaySimulator : public platform::Observable {
public:
    static constexpr auto pumpPeriod = std::chrono::milliseconds(50);
    static constexpr auto statisticsPeriod = std::chrono::seconds(1);
    static constexpr auto disconnectPeriod = std::chrono::seconds(8);

    /// `engine`, `config` and `faults` must outlive this.
    GatewaySimulator(simulation::BoatSimulationEngine& engine, SimulationConfig& config,
                     faults::FailureInjection& faults, Host host);

    platform::Published<bool> isRunning{*this, false};

    /// The interface whose addresses are shown and broadcast to; none where there is no network.
    platform::Published<std::optional<network::LocalInterface>> interface;

    platform::Published<std::vector<std::string>> tcpClients{*this, {}};  ///< remote addresses

    /// The same clients, in the same order, with what each was sent. Assigned only when it changes.
    platform::Published<std::vector<GatewayClient>> clients{*this, {}};

    platform::Published<std::int64_t> messagesPerSecond{*this, 0};  ///< of the last second
    platform::Published<double> kilobytesPerSecond{*this, 0};       ///< of the last second

    /// While true, what would be logged is lost, and counted.
    platform::Published<bool> consolePaused{*this, false};

    /// What the user must know, in French: why it did not start, or why it stopped by itself.
    /// Cleared by the next start().
    platform::Published<std::optional<std::string>> lastError{*this, std::nullopt};

    /// What the transports dropped since this was made, because something was too slow.
    network::DroppedSentences droppedOverTCP() const { return host_.tcp->droppedSentences(); }
    network::DroppedSentences droppedOverUDP() const { return host_.udp->droppedSentences(); }

    /// How many sentences were sent, and how many TCP clients came, since this was made.
    std::uint64_t sentSentences() const { return sentSentences_; }
    std::uint64_t connections() const { return host_.tcp->acceptedClients(); }

    const std::deque<ConsoleLine>& consoleLines() const { return console_.lines(); }
    std::uint64_t consoleAppendedCount() const { return console_.appendedCount(); }
    std::uint64_t consoleMissedCount() const { return console_.missedCount(); }
    const ThroughputMeter& throughput() const { return throughput_; }
    const AISReports& aisReports() const { return aisReports_; }

    /// Whether it emits, and yet nothing that a family or a replay writes can reach the network:
    /// the stream is cut, everything is lost, no open output is switched on, or no family is.
    bool isSilent() const;

    /// Where the boat really was in this run or the last, a point a second; begins at home.
    const simulation::Track& track() const { return track_; }

    /// Begins emission, with a new run of the boat. Where it cannot, lastError says why and
    /// isRunning stays false. Does nothing while running.
    void start();

    /// Ends emission and freezes the boat; returns when the ports are free. Sentences that still
    /// wait on their latency are counted and logged all the same. Does nothing while stopped.
    void stop();

    /// As stop(), at the end of the program: clients who read get everything first.
    void finish();

    /// Makes the AIS vessels anew, as many as the settings say; lastError where memory lacks.
    void regenerateAIS();

    /// The IPv4 address to which datagrams would go if it started now; dotted decimal.
    std::string udpDestination() const;

    /// Whether that is the broadcast address of a network, found by itself.
    bool broadcastsUdp() const;

    /// Throws every TCP client out; they may come back at once.
    void dropClients();

    /// Throws the client of this number out; it may come back at once, under another number. Does
    /// nothing when nobody has it.
    void dropClient(std::uint64_t number);

    /// Adds a line to the console, unless paused.
    void log(std::string_view transport, std::string_view text);

    /// Empties the console.
    void clearConsole();

    /// Puts the whole console on the clipboard.
    void copyConsole() const;

    /// Sends lines, each with its CR LF, that somebody else wrote, as if the boat's instruments
    /// had: the faults of sentences and of delivery act on them. Does nothing while stopped or
    /// while the stream is cut.
    void relay(std::vector<std::string> lines);

    /// Whether delivery still holds sentences back, which leave later.
    bool holdsSentences() const { return !delivery_.isEmpty(); }

    // What its timers call, every pumpPeriod, statisticsPeriod and disconnectPeriod.

    /// Sends the families that are due.
    void pump();
    /// Publishes what went out since the last call, takes the boat's position for the track, asks
    /// what each client was sent, and follows the network to which datagrams go, if it is to.
    void statisticsTick();
    /// Drops the clients, if any, while that fault is on.
    void maybeRandomDisconnect();

private:
    /// As they were opened at the last start.
    struct Outputs {
        bool tcp = false;
        bool udp = false;
        bool udpFollows = false;  ///< the network that the machine is on
        std::uint16_t udpPort = 0;
    };

    void listClients(const std::vector<network::ConnectedClient>& connected);
    void noteTraffic(const std::vector<network::ClientTraffic>& traffic);
    void publishClients(std::vector<GatewayClient> list);
    void tcpListenFailed();
    bool startTransports();
    std::optional<std::string> startTcp();
    bool startEngine();
    void startTimers();
    void end(void (network::StreamServer::*endStream)());
    std::int64_t wantedTargets() const;
    std::string summaryLine() const;
    std::string broadcastAddress() const;
    void followNetwork();
    void emit(const SentenceFamily& family);
    void extendTrack();
    void sendNow(std::string sentence);

    simulation::BoatSimulationEngine& engine_;
    SimulationConfig& config_;
    faults::FailureInjection& faults_;
    Host host_;
    ConsoleLog console_;
    EmissionSchedule schedule_;
    Outputs outputs_;
    ThroughputMeter throughput_;
    std::uint64_t sentSentences_ = 0;
    bool hasPickedTcpPort_ = false;
    AISReports aisReports_;
    simulation::Track track_;
    faults::SensorFaults sensorFaults_;
    faults::SentenceFaults sentenceFaults_;
    faults::Delivery delivery_;
    platform::Subscription limitChanges_;
    platform::Subscription scheduler_;
    platform::Subscription statsTimer_;
    platform::Subscription disconnectTimer_;
    platform::Lifetime lifetime_;
};

}  // namespace tidewright::gateway
