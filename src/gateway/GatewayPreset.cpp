#include "gateway/GatewayPreset.h"

namespace tidewright::gateway {

constexpr std::array<GatewayPreset, 6> GatewayPreset::all{{
    {"digital-yacht", "Digital Yacht", "iKonvert / WLN10", true, true, 2000, 2000, "GP", false},
    {"miniplex", "MiniPlex", "3Wi", true, true, 10110, 10110, "GP", false},
    {"nke", "NKE", "Wifi Box", true, true, 50000, 50000, "II", false},
    {"yacht-devices", "Yacht Devices", "YDWG-02", true, true, 1456, 1456, "GN", true},
    {"generic", "Generic", "NMEA", true, true, 10110, 10110, "GP", false},
    {"custom", "Custom", "", true, true, 2000, 2000, "GP", false},
}};

}  // namespace tidewright::gateway
