#include "network/ClientReports.h"

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <memory>
#include <utility>

namespace tidewright::network {

namespace {
using namespace std::chrono_literals;

constexpr platform::MainLoop::Duration pauseAClient = 10us;

}  // namespace

ClientReports::ClientReports(platform::MainLoop& mainLoop, platform::WorkQueue& queue, List list,
                             Deliver deliver)
    : mainLoop_(mainLoop), queue_(queue), list_(std::move(list)), deliver_(std::move(deliver)) {}

void ClientReports::reportChange() {
    hasChanged_ = true;
    if (!isPausing_) report();
}

void ClientReports::report() {
    isPausing_ = true;
    hasChanged_ = false;
    mainLoop_.post(lifetime_.guard([this, clients = list_()] {
        deliver_(clients);
        queue_.post([this, span = pauseAClient * clients.size()] { pause(span); });
    }));
}

void ClientReports::pause(platform::MainLoop::Duration span) {
    const auto timer = std::make_shared<asio::steady_timer>(queue_.context(), span);
    timer->async_wait([this, timer](const asio::error_code& error) {
        if (!error) endPause();
    });
}

void ClientReports::endPause() {
    isPausing_ = false;
    if (hasChanged_) report();
}

}  // namespace tidewright::network
