#include "app/HeadlessRunner.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <utility>
#include <variant>

#include "app/ErrorLine.h"
#include "network/ReplayFile.h"
#include "platform/TimeText.h"

namespace tidewright::app {

namespace {
using namespace std::chrono_literals;

/// How long an interrupted program waits for who reads its recording.
constexpr auto patience = 1s;

/// `file` as a person calls it.
std::string nameOf(const std::string& file) {
    return file == "-" ? "la sortie standard" : file;
}

bool asksForUdp(const Arguments& arguments) {
    return std::ranges::any_of(CommandLine::settings(arguments), [](const auto& each) {
        return each.first == "network.udp" && each.second == "true";
    });
}

}  // namespace

HeadlessRunner::HeadlessRunner(const Arguments& arguments, gateway::Host host, Terminal terminal,
                               Run run)
    : machineLoop_(host.machineLoop),
      terminal_(std::move(terminal)),
      run_(std::move(run)),
      assembly_(equipped(std::move(host))) {
    if (const auto problem = apply(arguments)) {
        fail(2, *problem);
        return;
    }
    if (!openRecording()) return;
    if (run_.clock && run_.plan.duration)
        run_.clock->firstAfter(*run_.plan.duration, [this] { finish(0); });
    beginReplay();
    assembly_.gateway.start();
    terminal_.write(banner());
    beginScenario();
    if (isOver_) return;
    watchTimer_ = machineLoop_.every(1s, [this] { watch(); });
}

gateway::Host HeadlessRunner::equipped(gateway::Host host) {
    if (run_.plan.output)
        host.record = [this](const network::SharedBytes& sentence) { record(sentence); };
    host.replays = run_.plan.replay.has_value();
    host.picksTcpPort = run_.plan.picksTcpPort;
    if (run_.clock) host.utcOffset = [](platform::WallTime) { return 0s; };
    return host;
}

/// What is wrong with the command line, in one line of French; nothing where it is applied.
std::optional<std::string> HeadlessRunner::apply(const Arguments& arguments) {
    if (auto problem = CommandLine::problem(arguments)) return problem;
    if (run_.scenario)
        if (auto why = gateway::reasons(assembly_.settings.writeTexts(run_.scenario->set)))
            return why;
    if (auto why = CommandLine::applyAll(arguments, assembly_)) return why;
    if (run_.plan.picksTcpPort) assembly_.config.udpEnabled = asksForUdp(arguments);
    if (run_.plan.isUnpaced()) {
        assembly_.config.tcpEnabled = false;
        assembly_.config.udpEnabled = false;
    }
    assembly_.settings.keepForReset();
    return std::nullopt;
}

/// Whether there is one, or none is wanted; else it has said why, and ended.
bool HeadlessRunner::openRecording() {
    if (!run_.plan.output) return true;
    auto opened = network::OutputFile::open(*run_.plan.output);
    if (const auto* failure = std::get_if<network::OutputFile::Failure>(&opened)) {
        fail(1, fmt::format("L'enregistrement dans {} ne peut commencer : {}",
                            nameOf(*run_.plan.output), failure->reason));
        return false;
    }
    recorder_ = std::make_unique<network::Recorder>(
        std::get<network::OutputFile>(std::move(opened)), machineLoop_,
        network::Recorder::Reports{
            .failed = [this](const network::OutputFile::Failure& why) { endRecording(why); },
            .hasRoom = [this] { goOnRecording(); }});
    return true;
}

void HeadlessRunner::beginReplay() {
    if (!run_.replay) return;
    const auto ended = [this](bool hadLines) {
        if (hadLines) return finish(0);
        fail(2, network::withoutLines(*run_.plan.replay));
    };
    replay_ = std::make_unique<gateway::Replay>(
        *run_.clock, assembly_.gateway, std::move(run_.replay),
        gateway::Replay::Options{
            .loops = run_.plan.loopsReplay, .holdsRun = run_.plan.isUnpaced(), .ended = ended});
}

void HeadlessRunner::beginScenario() {
    if (!run_.scenario || !assembly_.gateway.isRunning) return;
    scenario_ = std::make_unique<scenario::ScenarioRunner>(
        *run_.clock, assembly_, std::move(*run_.scenario),
        scenario::ScenarioRunner::Reports{.write = terminal_.write,
                                          .end = [this](int status) { finish(status); }});
    scenario_->begin();
}

bool HeadlessRunner::hasNetwork() const {
    return assembly_.config.tcpEnabled || assembly_.config.udpEnabled;
}

void HeadlessRunner::record(const network::SharedBytes& sentence) {
    if (recorder_->isFull() && hasNetwork()) {
        if (recorder_->droppedSentences() == 0)
            terminal_.write(
                "ATTENTION : l'enregistrement n'est pas complet : qui le lit ne suit "
                "pas.\n");
        return recorder_->drop();
    }
    recorder_->record(sentence);
    if (!recorder_->isFull() || hasNetwork() || std::exchange(isHeldForReader_, true)) return;
    run_.hold();
}

void HeadlessRunner::goOnRecording() {
    if (std::exchange(isHeldForReader_, false)) run_.resume();
}

void HeadlessRunner::endRecording(const network::OutputFile::Failure& why) {
    if (why.hasReaderLeft && run_.plan.output == "-") return finish(0);
    if (isOver_) return;
    fail(1, fmt::format("L'enregistrement dans {} s'arrête : {}", nameOf(*run_.plan.output),
                        why.reason));
}

void HeadlessRunner::finish(int status) {
    if (std::exchange(isOver_, true)) return;
    const auto& gateway = assembly_.gateway;
    if (status == 0 && !gateway.isRunning && gateway.lastError->has_value()) {
        terminal_.write(errorLine(gateway.lastError->value()));
        status = 1;
    }
    if (status == 0 && scenario_ && !scenario_->isComplete())
        terminal_.write("ATTENTION : la simulation s'arrête avant la fin du scénario.\n");
    run_.hold();
    watchTimer_.reset();
    assembly_.gateway.finish();
    endWhenRecorded(status);
}

void HeadlessRunner::interrupt() {
    if (std::exchange(isOver_, true)) return;
    run_.hold();
    watchTimer_.reset();
    assembly_.gateway.stop();
    if (recorder_) machineLoop_.after(patience, [this] { recorder_->abandon(); });
    endWhenRecorded(0);
}

void HeadlessRunner::endWhenRecorded(int status) {
    if (!recorder_) return terminal_.end(status);
    recorder_->finish([this, status] {
        if (const auto dropped = recorder_->droppedSentences())
            terminal_.write(fmt::format("Il manque {} phrases à l'enregistrement.\n", dropped));
        terminal_.end(status);
    });
}

std::string HeadlessRunner::banner() const {
    const auto& config = assembly_.config;
    const auto& interface = assembly_.gateway.interface.get();
    std::string text = "Tidewright — headless\n";
    if (config.tcpEnabled)
        text += fmt::format("  TCP  {}:{}\n", interface ? interface->ip : "0.0.0.0",
                            config.tcpPort.get());
    if (config.udpEnabled)
        text +=
            fmt::format("  UDP  {}{}:{}\n", assembly_.gateway.broadcastsUdp() ? "broadcast " : "",
                        assembly_.gateway.udpDestination(), config.udpPort.get());
    const bool sendsAis = config.ais && !run_.plan.replay;
    text +=
        sendsAis ? fmt::format("  AIS  {} targets\n", config.aisTargetCount.get()) : "  AIS  off\n";
    return text + runLines() + "  Ctrl-C pour arrêter.\n";
}

/// What this run has of its own.
std::string HeadlessRunner::runLines() const {
    const RunPlan& plan = run_.plan;
    std::string lines;
    if (plan.output) lines += fmt::format("  FILE  {}\n", *plan.output);
    if (plan.replay) lines += fmt::format("  REPLAY  {}\n", *plan.replay);
    if (plan.scenario) lines += fmt::format("  SCENARIO  {}\n", *plan.scenario);
    if (plan.seed) lines += fmt::format("  SEED  {}\n", *plan.seed);
    if (plan.start)
        lines += fmt::format("  CLOCK  {} × {}\n", platform::utcText(*plan.start),
                             platform::speedText(plan.speed.value_or(1)));
    return lines;
}

void HeadlessRunner::watch() {
    const bool isStopWanted = scenario_ && scenario_->stoppedOnPurpose();
    if (assembly_.gateway.isRunning || isStopWanted) return;
    watchTimer_.reset();
    fail(1, assembly_.gateway.lastError->value_or("le simulateur s'est arrêté."));
}

void HeadlessRunner::fail(int status, const std::string& why) {
    terminal_.write(errorLine(why));
    finish(status);
}

}  // namespace tidewright::app
