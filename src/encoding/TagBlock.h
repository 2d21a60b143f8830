#pragma once

#include <string>
#include <string_view>

#include "platform/MainLoop.h"

namespace tidewright::encoding {

/// A TAG block (NMEA 0183), which stands before a sentence and says who sends it and when:
///
///     \s:tidewright,c:1780315200000*0C\$IIMTW,16.5,C*11
///        |            |             |
///        |            |             +- checksum of what stands between the backslashes
///        |            +--------------- Unix time, milliseconds
///        +---------------------------- source
std::string tagBlock(platform::WallTime time);

/// Whether `sentence` brings a TAG block of its own.
bool hasTagBlock(std::string_view sentence);

}  // namespace tidewright::encoding
