#include "app/HeadlessRunner.h"

#include <fmt/format.h>

#include <utility>

#include "platform/AsioMainLoop.h"
#include "platform/StandardError.h"
#include "platform/SystemRandom.h"

namespace tidewright::app {

namespace {

std::string errorLine(const std::string& text) {
    return "ERREUR : " + text + "\n";
}

}  // namespace

HeadlessRunner::HeadlessRunner(const Arguments& arguments, gateway::Host host, Terminal terminal)
    : loop_(host.loop), assembly_(std::move(host)), terminal_(std::move(terminal)) {
    if (const auto problem = apply(arguments)) {
        terminal_.write(errorLine(*problem));
        terminal_.fail(2);
        return;
    }
    assembly_.gateway.start();
    terminal_.write(banner());
    watchTimer_ = loop_.every(std::chrono::seconds(1), [this] { watch(); });
}

/// What is wrong with the command line, in one line of French; nothing where it is applied.
std::optional<std::string> HeadlessRunner::apply(const Arguments& arguments) {
    if (auto problem = CommandLine::problem(arguments)) return problem;
    CommandLine::apply(arguments, assembly_.config, assembly_.engine);
    std::string reasons;
    for (const auto& refusal : assembly_.settings.writeTexts(CommandLine::settings(arguments)))
        reasons += (reasons.empty() ? "" : " ") + refusal.reason;
    if (!reasons.empty()) return reasons;
    assembly_.settings.keepForReset();
    return std::nullopt;
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
    text += config.ais ? fmt::format("  AIS  {} targets\n", config.aisTargetCount.get())
                       : "  AIS  off\n";
    return text + "  Ctrl-C pour arrêter.\n";
}

void HeadlessRunner::watch() {
    if (assembly_.gateway.isRunning) return;
    terminal_.write(
        errorLine(assembly_.gateway.lastError->value_or("le simulateur s'est arrêté.")));
    terminal_.fail(1);
}

int HeadlessRunner::run(const Arguments& arguments) {
    platform::SystemRandom random;
    platform::AsioMainLoop loop;
    int exitStatus = 0;
    const HeadlessRunner runner(arguments, gateway::Host::machine(loop, loop, random, {}),
                                {.write = platform::writeStandardError, .fail = [&](int status) {
                                     exitStatus = status;
                                     loop.stop();
                                 }});
    if (exitStatus == 0) loop.run();
    return exitStatus;
}

}  // namespace tidewright::app
