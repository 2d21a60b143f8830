#pragma once

#include <memory>
#include <string_view>

#include "network/FileDescriptor.h"
#include "network/LineSource.h"
#include "platform/MainLoop.h"

namespace tidewright::network {

/// The lines of what makes a reader wait: a pipe, a terminal, a serial port. Its own thread reads
/// them, 64 KiB at a time and no more before they are used. Destroying it never waits for more to
/// come.
class PipeLines final : public LineSource {
public:
    /// Reports through `mainLoop`, which must outlive this. `begun` is what was read of `pipe`
    /// already. Whether `pipe` blocks is left as it is: others may share it.
    PipeLines(platform::MainLoop& mainLoop, FileDescriptor pipe, std::string_view begun = {});
    ~PipeLines() override;

    NextLine next() override;

    /// Always false.
    bool rewind() override { return false; }

private:
    struct Core;
    std::unique_ptr<Core> core_;
};

}  // namespace tidewright::network
