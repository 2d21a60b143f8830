#include "gateway/GatewaySimulator.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <new>
#include <unordered_map>
#include <utility>

#include "encoding/TagBlock.h"
#include "gateway/SentenceFamily.h"

namespace tidewright::gateway {

GatewaySimulator::GatewaySimulator(simulation::BoatSimulationEngine& engine,
                                   SimulationConfig& config, faults::FailureInjection& faults,
                                   Host host)
    : interface(*this, host.bestInterface()),
      engine_(engine),
      config_(config),
      faults_(faults),
      host_(std::move(host)),
      console_(host_.random.stream("console"), host_.utcOffset),
      sensorFaults_(faults, engine),
      sentenceFaults_(faults),
      delivery_(host_.loop, host_.random, faults,
                [this](std::string sentence) { sendNow(std::move(sentence)); }),
      limitChanges_(
          config.observe([this] { host_.tcp->limitClients(config_.tcpClientLimit.get()); })) {
    host_.tcp->onClientsChanged = lifetime_.guard(
        [this](const std::vector<network::ConnectedClient>& connected) { listClients(connected); });
    host_.tcp->onTraffic = lifetime_.guard(
        [this](const std::vector<network::ClientTraffic>& traffic) { noteTraffic(traffic); });
    host_.tcp->onFailed = lifetime_.guard([this](const std::string&) { tcpListenFailed(); });
}

void GatewaySimulator::start() {
    if (isRunning) return;
    lastError = std::nullopt;
    interface = host_.bestInterface();
    if (!startTransports() || (!host_.replays && !startEngine())) return;
    schedule_ = EmissionSchedule(config_);
    outputs_ = {.tcp = config_.tcpEnabled,
                .udp = config_.udpEnabled,
                .udpFollows = config_.udpDestination == udpFollowsNetwork,
                .udpPort = config_.udpPort};
    startTimers();
    isRunning = true;
    log("SYS", "Simulation démarrée — " + summaryLine());
}

void GatewaySimulator::stop() {
    end(&network::StreamServer::stop);
}

void GatewaySimulator::finish() {
    end(&network::StreamServer::finish);
}

void GatewaySimulator::end(void (network::StreamServer::*endStream)()) {
    if (!isRunning) return;
    scheduler_.reset();
    statsTimer_.reset();
    disconnectTimer_.reset();
    engine_.stop();
    ((*host_.tcp).*endStream)();
    host_.udp->stop();
    isRunning = false;
    messagesPerSecond = 0;
    kilobytesPerSecond = 0;
    tcpClients = {};
    publishClients({});
    log("SYS", "Simulation arrêtée");
}

bool GatewaySimulator::isSilent() const {
    const bool anyOutput = (outputs_.tcp && config_.tcpEnabled) ||
                           (outputs_.udp && config_.udpEnabled) || host_.record;
    const bool anySource = host_.replays || !schedule_.entries().empty();
    return isRunning &&
           (faults_.stopStream || faults_.packetLossPercent >= 100 || !anyOutput || !anySource);
}

void GatewaySimulator::regenerateAIS() {
    try {
        engine_.setAISTargets(wantedTargets());
    } catch (const std::bad_alloc&) {
        lastError = fmt::format("Mémoire insuffisante pour {} cibles AIS.", wantedTargets());
    }
}

void GatewaySimulator::dropClients() {
    host_.tcp->dropAllClients();
    log("SYS", "Clients TCP lâchés");
}

void GatewaySimulator::dropClient(std::uint64_t number) {
    const auto client = std::ranges::find(clients.get(), number, &GatewayClient::number);
    if (client == clients->end()) return;
    host_.tcp->drop(number);
    log("SYS", "Client TCP lâché : " + client->address);
}

void GatewaySimulator::log(std::string_view transport, std::string_view text) {
    if (consolePaused) return console_.miss();
    console_.append(host_.loop.wallClock(), transport, text);
    notify();
}

void GatewaySimulator::clearConsole() {
    console_.clear();
    notify();
}

void GatewaySimulator::copyConsole() const {
    host_.setClipboard(console_.asText());
}

void GatewaySimulator::listClients(const std::vector<network::ConnectedClient>& connected) {
    std::unordered_map<std::uint64_t, GatewayClient> known;
    for (const GatewayClient& each : clients.get()) known.emplace(each.number, each);
    std::vector<std::string> addresses;
    std::vector<GatewayClient> list;
    for (const auto& [number, address] : connected) {
        addresses.push_back(address);
        const GatewayClient fresh{
            .number = number, .address = address, .since = host_.loop.wallClock()};
        list.push_back(known.emplace(number, fresh).first->second);
    }
    publishClients(std::move(list));
    tcpClients = std::move(addresses);
}

void GatewaySimulator::noteTraffic(const std::vector<network::ClientTraffic>& traffic) {
    std::unordered_map<std::uint64_t, network::ClientTraffic> byNumber;
    for (const auto& each : traffic) byNumber.emplace(each.number, each);
    std::vector<GatewayClient> list = clients;
    for (GatewayClient& client : list) {
        const auto found = byNumber.find(client.number);
        if (found == byNumber.end()) continue;
        client.sentBytes = found->second.sentBytes;
        client.missedSentences = found->second.missedSentences;
    }
    publishClients(std::move(list));
}

void GatewaySimulator::publishClients(std::vector<GatewayClient> list) {
    if (clients != list) clients = std::move(list);
}

void GatewaySimulator::tcpListenFailed() {
    if (!isRunning) return;
    const std::uint16_t port = config_.tcpPort;
    stop();
    lastError = fmt::format(
        "Le port TCP {} est déjà utilisé : une autre instance du simulateur tourne probablement. "
        "Quittez-la (ou changez de port), puis relancez.",
        port);
}

bool GatewaySimulator::startTransports() {
    if (!config_.tcpEnabled && !config_.udpEnabled && !host_.record) {
        lastError = "Activez au moins une sortie (TCP ou UDP).";
        return false;
    }
    if (config_.tcpEnabled) {
        if (auto failure = startTcp()) {
            lastError = std::move(failure);
            return false;
        }
    }
    if (config_.udpEnabled) host_.udp->start(udpDestination(), config_.udpPort);
    return true;
}

/// Why it could not start, in French; nothing where it did.
std::optional<std::string> GatewaySimulator::startTcp() {
    if (host_.picksTcpPort && !hasPickedTcpPort_) {
        const auto port = host_.tcp->startOnFreePort();
        if (!port) return "TCP : aucun port libre.";
        hasPickedTcpPort_ = true;
        config_.tcpPort = *port;
        return std::nullopt;
    }
    if (const auto failure = host_.tcp->start(config_.tcpPort))
        return fmt::format("TCP {} : {}", config_.tcpPort.get(), failure->description);
    return std::nullopt;
}

std::string GatewaySimulator::udpDestination() const {
    return broadcastsUdp() ? broadcastAddress() : config_.udpDestination.get();
}

std::string GatewaySimulator::broadcastAddress() const {
    return interface.get() ? interface->value().broadcast : "255.255.255.255";
}

bool GatewaySimulator::broadcastsUdp() const {
    return config_.udpDestination == udpAutomatic || config_.udpDestination == udpFollowsNetwork;
}

void GatewaySimulator::followNetwork() {
    auto found = host_.bestInterface();
    if (found == interface) return;
    interface = std::move(found);
    host_.udp->start(broadcastAddress(), outputs_.udpPort);
    log("SYS", "UDP vers " + broadcastAddress());
}

bool GatewaySimulator::startEngine() {
    track_.clear();  // before the boat is home again, so that no line leads there
    try {
        engine_.start(wantedTargets());
        extendTrack();
        return true;
    } catch (const std::bad_alloc&) {
        host_.tcp->stop();
        host_.udp->stop();
        lastError = fmt::format("Mémoire insuffisante pour {} cibles AIS.", wantedTargets());
        return false;
    }
}

void GatewaySimulator::startTimers() {
    if (!host_.replays) scheduler_ = host_.loop.every(pumpPeriod, [this] { pump(); });
    statsTimer_ = host_.loop.every(statisticsPeriod, [this] { statisticsTick(); });
    disconnectTimer_ =
        host_.machineLoop.every(disconnectPeriod, [this] { maybeRandomDisconnect(); });
}

std::int64_t GatewaySimulator::wantedTargets() const {
    return config_.ais ? config_.aisTargetCount.get() : 0;
}

std::string GatewaySimulator::summaryLine() const {
    std::vector<std::string> parts;
    if (config_.tcpEnabled) parts.push_back(fmt::format("TCP {}", config_.tcpPort.get()));
    if (config_.udpEnabled) parts.push_back(fmt::format("UDP {}", config_.udpPort.get()));
    if (host_.record) parts.emplace_back("fichier");
    return fmt::format("{}", fmt::join(parts, " · "));
}

void GatewaySimulator::pump() {
    if (!isRunning || faults_.stopStream) return;
    for (const SentenceKind kind : schedule_.takeDue(host_.loop.now())) emit(family(kind));
}

void GatewaySimulator::relay(std::vector<std::string> lines) {
    if (!isRunning || faults_.stopStream) return;
    delivery_.deliver(sentenceFaults_.apply(std::move(lines)));
}

void GatewaySimulator::emit(const SentenceFamily& family) {
    if (family.silencer && faults_.*family.silencer) return;
    const simulation::BoatState reported = sensorFaults_.reported();
    delivery_.deliver(sentenceFaults_.apply(family.sentences({.boat = reported,
                                                              .vessels = engine_.traffic.targets,
                                                              .aisReports = aisReports_,
                                                              .gpsTalker = config_.gpsTalker,
                                                              .aisHz = config_.aisHz,
                                                              .now = host_.loop.wallClock()})));
}

void GatewaySimulator::sendNow(std::string sentence) {
    if (config_.tagBlock && !encoding::hasTagBlock(sentence))
        sentence.insert(0, encoding::tagBlock(host_.loop.wallClock()));
    const auto bytes = std::make_shared<const std::string>(std::move(sentence));
    if (config_.tcpEnabled) {
        host_.tcp->broadcast(bytes);
        throughput_.addBytes(bytes->size());
        log("TCP", *bytes);
    }
    if (config_.udpEnabled) {
        host_.udp->send(bytes);
        throughput_.addBytes(bytes->size());
        log("UDP", *bytes);
    }
    if (host_.record) host_.record(bytes);
    throughput_.addMessage();
    ++sentSentences_;
}

void GatewaySimulator::statisticsTick() {
    if (!host_.replays) extendTrack();
    const Throughput measured = throughput_.take();
    messagesPerSecond = measured.messagesPerSecond;
    kilobytesPerSecond = measured.kilobytesPerSecond;
    if (!clients->empty()) host_.tcp->askForTraffic();
    if (outputs_.udp && outputs_.udpFollows) followNetwork();
}

void GatewaySimulator::extendTrack() {
    track_.append({host_.loop.wallClock(), engine_.state->latitude, engine_.state->longitude});
}

void GatewaySimulator::maybeRandomDisconnect() {
    if (faults_.randomDisconnections && !tcpClients->empty()) dropClients();
}

}  // namespace tidewright::gateway
