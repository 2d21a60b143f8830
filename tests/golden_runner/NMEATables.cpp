#include <fmt/format.h>

#include <functional>
#include <map>
#include <string>

#include "BoatStateRow.h"
#include "Golden.h"
#include "encoding/NMEA0183Encoder.h"
#include "encoding/NMEAChecksum.h"

namespace tidewright::golden {

using encoding::NMEA0183Encoder;
using simulation::BoatState;

namespace {

std::string sentence(const Row& row, const BoatState& state) {
    using Builder = std::string (NMEA0183Encoder::*)(const BoatState&) const;
    static const std::map<std::string, Builder> builders{{"RMC", &NMEA0183Encoder::rmc},
                                                         {"GGA", &NMEA0183Encoder::gga},
                                                         {"VTG", &NMEA0183Encoder::vtg},
                                                         {"HDT", &NMEA0183Encoder::hdt},
                                                         {"HDG", &NMEA0183Encoder::hdg},
                                                         {"VHW", &NMEA0183Encoder::vhw},
                                                         {"MWV-R", &NMEA0183Encoder::mwvApparent},
                                                         {"MWV-T", &NMEA0183Encoder::mwvTrue},
                                                         {"DBT", &NMEA0183Encoder::dbt},
                                                         {"DPT", &NMEA0183Encoder::dpt},
                                                         {"MTW", &NMEA0183Encoder::mtw}};
    const NMEA0183Encoder encoder{row.text("talker"), row.flag("corrupt")};
    return (encoder.*builders.at(row.text("name")))(state);
}

}  // namespace

void compareNMEA(Tables& tables) {
    std::map<std::string, BoatState> states;
    for (const Row& row : tables["nmea_states"].rows())
        states.emplace(row.text("id"), boatState(row));
    for (const Row& row : tables["nmea_sentences"].rows())
        row.expectText("sentence", sentence(row, states.at(row.text("state"))));

    for (const Row& row : tables["nmea_format"].rows()) {
        const double argument = row.number("argument");
        if (row.text("function") == "lat")
            row.expectText("result", NMEA0183Encoder::lat(argument));
        else if (row.text("function") == "lon")
            row.expectText("result", NMEA0183Encoder::lon(argument));
        else
            row.expectText("result",
                           NMEA0183Encoder::f(argument, static_cast<int>(row.integer("decimals"))));
    }
    for (const Row& row : tables["nmea_time"].rows()) {
        row.expectText("utcTime", NMEA0183Encoder::utcTime(instant(row, "timestampNs")));
        row.expectText("utcDate", NMEA0183Encoder::utcDate(instant(row, "timestampNs")));
    }
    for (const Row& row : tables["nmea_frame"].rows()) {
        const std::string& body = row.text("body");
        row.expectText("checksumHex", fmt::format("{:02X}", encoding::NMEAChecksum::compute(body)));
        row.expectText("sentence", encoding::NMEAChecksum::sentence(row.text("prefix").at(0), body,
                                                                    row.flag("corrupt")));
    }
}

}  // namespace tidewright::golden
