#include "app/HeadlessRunner.h"

#include <fmt/format.h>

#include <utility>

#include "app/StandardError.h"
#include "platform/AsioMainLoop.h"
#include "platform/SystemRandom.h"

namespace tidewright::app {

HeadlessRunner::HeadlessRunner(const Arguments& arguments, gateway::Host host, Terminal terminal)
    : engine_(host.loop, host.random),
      loop_(host.loop),
      gateway_(engine_, config_, failure_, std::move(host)),
      terminal_(std::move(terminal)) {
    CommandLine::apply(arguments, config_, engine_);
    gateway_.start();
    terminal_.write(banner());
    watchTimer_ = loop_.every(std::chrono::seconds(1), [this] { watch(); });
}

std::string HeadlessRunner::banner() const {
    const auto& interface = gateway_.interface.get();
    std::string text = "Tidewright — headless\n";
    if (config_.tcpEnabled)
        text += fmt::format("  TCP  {}:{}\n", interface ? interface->ip : "0.0.0.0",
                            config_.tcpPort.get());
    if (config_.udpEnabled)
        text += fmt::format("  UDP  broadcast {}:{}\n",
                            interface ? interface->broadcast : "255.255.255.255",
                            config_.udpPort.get());
    text += config_.ais ? fmt::format("  AIS  {} targets\n", config_.aisTargetCount.get())
                        : "  AIS  off\n";
    return text + "  Ctrl-C pour arrêter.\n";
}

void HeadlessRunner::watch() {
    if (gateway_.isRunning) return;
    terminal_.write("ERREUR : " + gateway_.lastError->value_or("le simulateur s'est arrêté.") +
                    "\n");
    terminal_.fail();
}

int HeadlessRunner::run(const Arguments& arguments) {
    platform::SystemRandom random;
    platform::AsioMainLoop loop;
    int exitStatus = 0;
    const HeadlessRunner runner(arguments, gateway::Host::machine(loop, random, {}),
                                {.write = writeStandardError, .fail = [&] {
                                     exitStatus = 1;
                                     loop.stop();
                                 }});
    loop.run();
    return exitStatus;
}

}  // namespace tidewright::app
