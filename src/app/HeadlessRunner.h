#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/CommandLine.h"
#include "gateway/Assembly.h"

namespace tidewright::app {

/// The gateway without a window: applies the options, starts, says so, and watches.
class HeadlessRunner {
public:
    /// Where the runner writes, and how it gives up.
    struct Terminal {
        std::function<void(std::string_view)> write;  ///< to standard error, in one piece
        std::function<void(int status)> fail;         ///< ends the program with that exit status
    };

    /// Starts the gateway and writes the banner, whatever came of the start; then looks every
    /// second whether it still runs, and where it does not writes why and fails with 1. Where the
    /// command line cannot be read, writes why and fails with 2 instead.
    HeadlessRunner(const Arguments& arguments, gateway::Host host, Terminal terminal);

    const gateway::Assembly& assembly() const { return assembly_; }

    /// Runs on this machine until interrupted or until the gateway stops; answers the exit status.
    static int run(const Arguments& arguments);

private:
    std::optional<std::string> apply(const Arguments& arguments);
    std::string banner() const;
    void watch();

    platform::MainLoop& loop_;
    gateway::Assembly assembly_;
    Terminal terminal_;
    platform::Subscription watchTimer_;
};

}  // namespace tidewright::app
