#include "network/DatagramBacklog.h"

#include <utility>

namespace tidewright::network {

std::size_t DatagramBacklog::add(SharedBytes datagram) {
    bytes_ += datagram->size();
    datagrams_.push_back(std::move(datagram));
    std::size_t dropped = 0;
    for (; bytes_ > maximumBytes_ && datagrams_.size() > 1; ++dropped) removeOldest();
    return dropped;
}

void DatagramBacklog::removeOldest() {
    bytes_ -= datagrams_.front()->size();
    datagrams_.pop_front();
}

std::size_t DatagramBacklog::clear() {
    bytes_ = 0;
    return std::exchange(datagrams_, {}).size();
}

}  // namespace tidewright::network
