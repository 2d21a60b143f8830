#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <string>

#include "encoding/AISEncoder.h"
#include "encoding/NMEA0183Encoder.h"

namespace tidewright::bench {
namespace {

using encoding::NMEA0183Encoder;
using simulation::BoatState;

/// Numbers as a run gives them, with digits down to the last bit.
BoatState underway() {
    BoatState state = BoatState::starting(platform::WallTime(std::chrono::seconds(1767225599)));
    state.latitude = 47.39972168491292;
    state.longitude = -3.5500068114780636;
    state.sog = 6.081314526352075;
    state.cog = 182.64841907795503;
    state.heading = 187.39374496581564;
    state.stw = 5.993926155646107;
    state.apparentWindAngle = 27.12252669671439;
    state.apparentWindSpeed = 17.12932256134524;
    state.trueWindAngle = 40.166882379913744;
    state.trueWindSpeed = 12.106938667214042;
    state.depth = 12.080146552778857;
    state.waterTemperature = 16.5209378268646;
    return state;
}

template <std::string (NMEA0183Encoder::*builder)(const BoatState&) const>
void build(benchmark::State& state) {
    const BoatState boat = underway();
    const NMEA0183Encoder encoder{"GP", false};
    for (auto _ : state) benchmark::DoNotOptimize((encoder.*builder)(boat));
}
BENCHMARK(build<&NMEA0183Encoder::rmc>)->Name("RMC");
BENCHMARK(build<&NMEA0183Encoder::gga>)->Name("GGA");
BENCHMARK(build<&NMEA0183Encoder::vtg>)->Name("VTG");
BENCHMARK(build<&NMEA0183Encoder::hdt>)->Name("HDT");
BENCHMARK(build<&NMEA0183Encoder::hdg>)->Name("HDG");
BENCHMARK(build<&NMEA0183Encoder::vhw>)->Name("VHW");
BENCHMARK(build<&NMEA0183Encoder::mwvApparent>)->Name("MWV");
BENCHMARK(build<&NMEA0183Encoder::dbt>)->Name("DBT");
BENCHMARK(build<&NMEA0183Encoder::dpt>)->Name("DPT");
BENCHMARK(build<&NMEA0183Encoder::mtw>)->Name("MTW");

/// Prints the same text as the builder by one snprintf, the checksum known beforehand.
template <typename... Values>
void print(benchmark::State& state, const char* format, Values... values) {
    std::array<char, 128> text{};
    for (auto _ : state) {
        (benchmark::DoNotOptimize(values), ...);
        benchmark::DoNotOptimize(std::snprintf(text.data(), text.size(), format, values...));
    }
}

const BoatState boat = underway();

BENCHMARK_CAPTURE(
    print, RMC,
    "$%sRMC,%02d%02d%02d.%02d,%c,%02d%07.4f,%c,%03d%07.4f,%c,%.1f,%.1f,%02d%02d%02d,,,A*%02X\r\n",
    "GP", 23, 59, 59, 0, 'A', 47, 23.983301094775, 'N', 3, 33.000408688684, 'W', boat.sog, boat.cog,
    31, 12, 25, 0x71);
BENCHMARK_CAPTURE(
    print, GGA,
    "$%sGGA,%02d%02d%02d.%02d,%02d%07.4f,%c,%03d%07.4f,%c,%d,%02d,%.1f,0.0,M,48.0,M,,*%02X\r\n",
    "GP", 23, 59, 59, 0, 47, 23.983301094775, 'N', 3, 33.000408688684, 'W', 1, 11, 0.8, 0x71);
BENCHMARK_CAPTURE(print, VTG, "$%sVTG,%.1f,T,,M,%.1f,N,%.1f,K,A*%02X\r\n", "GP", boat.cog, boat.sog,
                  boat.sog * 1.852, 0x71);
BENCHMARK_CAPTURE(print, HDT, "$%sHDT,%.1f,T*%02X\r\n", "II", boat.heading, 0x71);
BENCHMARK_CAPTURE(print, HDG, "$%sHDG,%.1f,,,,*%02X\r\n", "II", boat.heading, 0x71);
BENCHMARK_CAPTURE(print, VHW, "$%sVHW,%.1f,T,,M,%.1f,N,%.1f,K*%02X\r\n", "II", boat.heading,
                  boat.stw, boat.stw * 1.852, 0x71);
BENCHMARK_CAPTURE(print, MWV, "$%sMWV,%.1f,R,%.1f,N,A*%02X\r\n", "II", boat.apparentWindAngle,
                  boat.apparentWindSpeed, 0x71);
BENCHMARK_CAPTURE(print, DBT, "$%sDBT,%.1f,f,%.1f,M,%.1f,F*%02X\r\n", "II", boat.depth * 3.28084,
                  boat.depth, boat.depth * 0.546807, 0x71);
BENCHMARK_CAPTURE(print, DPT, "$%sDPT,%.1f,0.0,*%02X\r\n", "II", boat.depth, 0x71);
BENCHMARK_CAPTURE(print, MTW, "$%sMTW,%.1f,C*%02X\r\n", "II", boat.waterTemperature, 0x71);
BENCHMARK_CAPTURE(print, AIS, "!AIVDM,%d,%d,,%c,%s,%d*%02X\r\n", 1, 1, 'A',
                  "13HVQ00P11OhKr0K;P84lSo:0000", 0, 0x53);

void positionReport(benchmark::State& state) {
    const simulation::AISTarget target{227123456, "PEN DUICK", 47.5, -3.4,  6.5,
                                       123.4,     123.4,       36,   "FGA0"};
    const encoding::AISEncoder encoder{false, {}};
    for (auto _ : state) benchmark::DoNotOptimize(encoder.positionReport(target));
}
BENCHMARK(positionReport)->Name("AIS position report");

}  // namespace
}  // namespace tidewright::bench
