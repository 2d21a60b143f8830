#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tidewright::soak {

/// Reads a stream of sentences as a sceptical instrument: wants right checksums, values inside
/// their ranges, and position reports exactly one second apart.
class StreamInspector {
public:
    void take(const std::string& sentence);

    /// Sentences by what they begin with, talker and name: "GPRMC", "AIVDM".
    const std::map<std::string, std::uint64_t>& countByAddress() const { return countByAddress_; }

    /// The first sentence of each kind of fault; empty for a stream without.
    const std::map<std::string, std::string>& faults() const { return faults_; }

private:
    std::string faultOf(const std::string& sentence);
    bool isASecondLater(std::string_view time);

    int previousHundredths_ = -1;  // of the day, of the latest position report
    std::map<std::string, std::uint64_t> countByAddress_;
    std::map<std::string, std::string> faults_;
};

}  // namespace tidewright::soak
