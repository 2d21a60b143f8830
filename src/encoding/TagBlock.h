#pragma once

#include <cstddef>
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

/// How many bytes the TAG blocks in front of `sentence` take, their backslashes included; 0 where
/// there is none. A backslash without a second one begins none.
std::size_t tagBlockSize(std::string_view sentence);

}  // namespace tidewright::encoding
