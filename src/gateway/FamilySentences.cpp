#include "gateway/FamilySentences.h"

#include "encoding/NMEA0183Encoder.h"
#include "platform/Check.h"

namespace tidewright::gateway {

std::vector<std::string> familySentences(SentenceKind kind, const simulation::BoatState& state,
                                         const std::string& gpsTalker, bool corrupt) {
    const encoding::NMEA0183Encoder gps{gpsTalker, corrupt};
    const encoding::NMEA0183Encoder instruments{"II", corrupt};
    switch (kind) {
        case SentenceKind::position:
            return {gps.rmc(state), gps.gga(state)};
        case SentenceKind::courseSpeed:
            return {gps.vtg(state)};
        case SentenceKind::heading:
            return {instruments.hdt(state), instruments.hdg(state)};
        case SentenceKind::boatSpeed:
            return {instruments.vhw(state)};
        case SentenceKind::wind:
            return {instruments.mwvApparent(state), instruments.mwvTrue(state)};
        case SentenceKind::depth:
            return {instruments.dbt(state), instruments.dpt(state)};
        case SentenceKind::temperature:
            return {instruments.mtw(state)};
        case SentenceKind::ais:
            return {};
    }
    platform::fail("no such sentence family");
}

}  // namespace tidewright::gateway
