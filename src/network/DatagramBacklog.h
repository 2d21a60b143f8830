#pragma once

#include <cstddef>
#include <deque>
#include <string>

#include "network/SharedBytes.h"

namespace tidewright::network {

/// The datagrams that wait for a socket to have room, within a bound: beyond it the oldest are
/// dropped, whole.
class DatagramBacklog {
public:
    explicit DatagramBacklog(std::size_t maximumBytes) : maximumBytes_(maximumBytes) {}

    bool isEmpty() const { return datagrams_.empty(); }

    /// The one to be sent next. Not while empty.
    const std::string& oldest() const { return *datagrams_.front(); }

    /// Adds the newest, which stays even if it alone is longer than the bound; returns how many
    /// are dropped for it.
    std::size_t add(SharedBytes datagram);

    /// Takes note that the oldest has been sent. Not while empty.
    void removeOldest();

    /// Drops everything; returns how many that is.
    std::size_t clear();

private:
    std::size_t maximumBytes_;
    std::size_t bytes_ = 0;
    std::deque<SharedBytes> datagrams_;
};

}  // namespace tidewright::network
