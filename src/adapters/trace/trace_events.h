// The events of a trace, as JSON.
#pragma once

#include "platform/port.h"

#include <optional>
#include <string>

namespace qbrpt {

/// The line of an event that a call begins with; nothing for calls that are no event.
[[nodiscard]] std::optional<std::string> EventOfCall(const PortCall& call);

/// The line of an event that is complete only with its answer: a message box, a preview, a print.
[[nodiscard]] std::optional<std::string> EventOfAnswer(const PortCall& call, const Value& answer);

[[nodiscard]] std::string EventOfMember(std::string_view member, std::span<const Value> arguments);

} // namespace qbrpt
