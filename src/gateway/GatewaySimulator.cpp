#include "gateway/GatewaySimulator.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <new>
#include <unordered_map>
#include <utility>

#include "gateway/FamilySentences.h"
#include "platform/Check.h"

namespace tidewright::gateway {

GatewaySimulator::GatewaySimulator(simulation::BoatSimulationEngine& engine,
                                   SimulationConfig& config, FailureInjection& failure, Host host)
    : interface(*this, host.bestInterface()),
      engine_(engine),
      config_(config),
      failure_(failure),
      host_(std::move(host)),
      console_(host_.random, host_.utcOffset) {
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
    if (!startTransports() || !startEngine()) return;
    schedule_ = EmissionSchedule(config_);
    opened_ = {.tcp = config_.tcpEnabled, .udp = config_.udpEnabled};
    startTimers();
    isRunning = true;
    log("SYS", "Simulation démarrée — " + summaryLine());
}

void GatewaySimulator::stop() {
    if (!isRunning) return;
    scheduler_.reset();
    statsTimer_.reset();
    disconnectTimer_.reset();
    engine_.stop();
    host_.tcp->stop();
    host_.udp->stop();
    isRunning = false;
    messagesPerSecond = 0;
    kilobytesPerSecond = 0;
    tcpClients = {};
    publishClients({});
    log("SYS", "Simulation arrêtée");
}

bool GatewaySimulator::isSilent() const {
    const bool anyOutput =
        (opened_.tcp && config_.tcpEnabled) || (opened_.udp && config_.udpEnabled);
    return isRunning && (failure_.stopStream || failure_.packetLossPercent >= 100 || !anyOutput ||
                         schedule_.entries().empty());
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
    if (!config_.tcpEnabled && !config_.udpEnabled) {
        lastError = "Activez au moins une sortie (TCP ou UDP).";
        return false;
    }
    if (config_.tcpEnabled) {
        if (const auto failure = host_.tcp->start(config_.tcpPort)) {
            lastError = fmt::format("TCP {} : {}", config_.tcpPort.get(), failure->description);
            return false;
        }
    }
    if (config_.udpEnabled) {
        const auto& chosen = interface.get();
        host_.udp->start(chosen ? chosen->broadcast : "255.255.255.255", config_.udpPort);
    }
    return true;
}

bool GatewaySimulator::startEngine() {
    track_.clear();  // before the boat is home again, lest a line lead there
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
    scheduler_ = host_.loop.every(pumpPeriod, [this] { pump(); });
    statsTimer_ = host_.loop.every(statisticsPeriod, [this] { statisticsTick(); });
    disconnectTimer_ = host_.loop.every(disconnectPeriod, [this] { maybeRandomDisconnect(); });
}

std::int64_t GatewaySimulator::wantedTargets() const {
    return config_.ais ? config_.aisTargetCount.get() : 0;
}

std::string GatewaySimulator::summaryLine() const {
    std::vector<std::string> parts;
    if (config_.tcpEnabled) parts.push_back(fmt::format("TCP {}", config_.tcpPort.get()));
    if (config_.udpEnabled) parts.push_back(fmt::format("UDP {}", config_.udpPort.get()));
    return fmt::format("{}", fmt::join(parts, " · "));
}

void GatewaySimulator::pump() {
    if (!isRunning || failure_.stopStream) return;
    for (const SentenceKind kind : schedule_.takeDue(host_.loop.now())) emit(kind);
}

void GatewaySimulator::emit(SentenceKind kind) {
    if (!isSilenced(kind)) deliver(sentences(kind));
}

bool GatewaySimulator::isSilenced(SentenceKind kind) const {
    switch (kind) {
        case SentenceKind::position:
        case SentenceKind::courseSpeed:
            return failure_.disableGPS;
        case SentenceKind::wind:
            return failure_.disableWind;
        case SentenceKind::ais:
            return failure_.disableAIS;
        default:
            return false;
    }
}

std::vector<std::string> GatewaySimulator::sentences(SentenceKind kind) {
    const bool corrupt = failure_.invalidChecksum;
    if (kind == SentenceKind::ais)
        return aisReports_.next(engine_.traffic.targets, {corrupt, host_.loop.wallClock()},
                                config_.aisHz);
    return familySentences(kind, engine_.state, config_.gpsTalker, corrupt);
}

void GatewaySimulator::deliver(std::vector<std::string> sentences) {
    for (std::string& each : sentences) {
        if (isLost()) continue;
        auto sentence = std::make_shared<const std::string>(std::move(each));
        const std::int64_t latency = failure_.latencyMs;
        if (latency < 1) {
            sendNow(sentence);
            continue;
        }
        platform::check(latency <= std::chrono::milliseconds::max().count() / 1'000'000,
                        "a latency must be countable in nanoseconds");
        host_.loop.after(std::chrono::milliseconds(latency),
                         lifetime_.guard([this, sentence] { sendNow(sentence); }));
    }
}

bool GatewaySimulator::isLost() {
    if (failure_.packetLossPercent < 1) return false;
    return host_.random.below(100) < failure_.packetLossPercent;
}

void GatewaySimulator::sendNow(const network::SharedBytes& sentence) {
    if (config_.tcpEnabled) {
        host_.tcp->broadcast(sentence);
        throughput_.addBytes(sentence->size());
        log("TCP", *sentence);
    }
    if (config_.udpEnabled) {
        host_.udp->send(sentence);
        throughput_.addBytes(sentence->size());
        log("UDP", *sentence);
    }
    throughput_.addMessage();
}

void GatewaySimulator::statisticsTick() {
    extendTrack();
    const Throughput measured = throughput_.take();
    messagesPerSecond = measured.messagesPerSecond;
    kilobytesPerSecond = measured.kilobytesPerSecond;
    if (!clients->empty()) host_.tcp->askForTraffic();
}

void GatewaySimulator::extendTrack() {
    track_.append({host_.loop.wallClock(), engine_.state->latitude, engine_.state->longitude});
}

void GatewaySimulator::maybeRandomDisconnect() {
    if (failure_.randomDisconnections && !tcpClients->empty()) dropClients();
}

}  // namespace tidewright::gateway
