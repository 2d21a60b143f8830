#pragma once

#include <utility>

#include "platform/Observable.h"

namespace tidewright::ui {

/// Assigns one member of a published struct, and with it the whole struct.
template <typename Settings, typename Value>
void assignMember(platform::Published<Settings>& settings, Value Settings::*member,
                  std::type_identity_t<Value> value) {
    Settings changed = settings;
    changed.*member = std::move(value);
    settings = std::move(changed);
}

}  // namespace tidewright::ui
