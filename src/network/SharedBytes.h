#pragma once

#include <memory>
#include <string>

namespace tidewright::network {

/// One sentence as it is sent, shared by every client and never changed.
using SharedBytes = std::shared_ptr<const std::string>;

}  // namespace tidewright::network
