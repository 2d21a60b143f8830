#pragma once

#include <memory>
#include <string>
#include <variant>

#include "network/LineSource.h"
#include "platform/MainLoop.h"

namespace tidewright::network {

/// Opens the lines of the file `path`; "-" is standard input. The answer is the source, or why
/// there is none, in French, for a file that cannot be read or holds no line.
///
/// An ordinary file is read by the caller's own turns, 64 KiB at a time, so that what comes when
/// never depends on the machine; where it grows meanwhile, what is there when its end is reached
/// counts. Everything else is read by PipeLines, which reports through `mainLoop`; whether it holds
/// a line, as with standard input of any sort, shows only later.
std::variant<std::unique_ptr<LineSource>, std::string> openReplay(const std::string& path,
                                                                  platform::MainLoop& mainLoop);

/// What to tell of `path`, in French, where its source ends without a line.
std::string withoutLines(const std::string& path);

}  // namespace tidewright::network
