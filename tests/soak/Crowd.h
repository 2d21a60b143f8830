#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "Journal.h"
#include "Latencies.h"
#include "LoopbackSocket.h"

namespace tidewright::soak {

/// Many TCP clients in one thread: some read all the time and must receive what the journal says,
/// byte for byte; others hold still until the end, and must then find whole sentences in order.
class Crowd {
public:
    /// Connects to `port` of this machine, as soon as somebody listens there.
    Crowd(const Journal& journal, std::uint16_t port, std::size_t readers, std::size_t sleepers);
    Crowd(const Crowd&) = delete;
    ~Crowd();

    /// Reads until the journal is closed and all has arrived, or failed to for ten seconds.
    void readAlong();

    /// Lets the sleepers read, to the end of the journal.
    void wakeSleepers();

    /// What went wrong, by kind, and how often; empty for a run without loss.
    const std::map<std::string, int>& faults() const { return faults_; }

    const Latencies& latencies() const { return latencies_; }

    /// Sentences that sleepers found, and those that they had to do without.
    std::uint64_t sleepersFound() const { return sleepersFound_; }
    std::uint64_t sleepersMissed() const { return sleepersMissed_; }

private:
    struct Reader {
        LoopbackSocket socket;
        std::uint64_t position = 0;  ///< in the journal's bytes
        std::size_t mark = 0;        ///< the first sentence that has not arrived whole
    };

    void receive(Reader& reader);
    void check(Reader& reader, std::string_view received);
    bool everybodyHasAll() const;
    std::string readToQuiet(const LoopbackSocket& sleeper) const;
    std::string_view lastSentence() const;
    void checkSleeper(std::string_view received);
    void giveUp(Reader& reader, const std::string& why);

    const Journal& journal_;
    int poll_;
    std::vector<Reader> readers_;
    std::vector<LoopbackSocket> sleepers_;
    std::map<std::string, int> faults_;
    Latencies latencies_;
    std::uint64_t sleepersFound_ = 0;
    std::uint64_t sleepersMissed_ = 0;
};

}  // namespace tidewright::soak
