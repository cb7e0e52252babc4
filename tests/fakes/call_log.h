// Writes down every port call, in order, as a line of text.
#pragma once

#include "base/numbers.h"
#include "platform/port.h"

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::fakes {

inline std::string LoggedValue(const Value& value) {
    switch (KindOf(value)) {
    case ValueKind::Null:
        return "null";
    case ValueKind::Boolean:
        return std::get<bool>(value) ? "true" : "false";
    case ValueKind::Whole:
        return std::to_string(std::get<std::int64_t>(value));
    case ValueKind::Number:
        return RoundTripText(std::get<double>(value));
    case ValueKind::Date:
        return "#" + RoundTripText(std::get<Date>(value).number) + "#";
    case ValueKind::Text:
        return "\"" + std::get<std::string>(value) + "\"";
    }
    return "?";
}

class CallLog final : public PortObserver {
public:
    void Called(const PortCall& call) override {
        mLines.push_back(Line(std::string(call.port) + "." + std::string(call.operation), call.arguments));
    }
    void MemberCalled(std::string_view member, std::span<const Value> arguments) noexcept override {
        mLines.push_back(Line("member " + std::string(member), arguments));
    }

    [[nodiscard]] const std::vector<std::string>& Lines() const { return mLines; }

    /// The lines that begin with one of `heads`.
    [[nodiscard]] std::vector<std::string> LinesOf(const std::vector<std::string>& heads) const {
        std::vector<std::string> found;
        for (const std::string& line : mLines) {
            for (const std::string& head : heads) {
                if (line.starts_with(head)) {
                    found.push_back(line);
                    break;
                }
            }
        }
        return found;
    }

private:
    static std::string Line(std::string text, std::span<const Value> arguments) {
        text += "(";
        for (std::size_t index = 0; index < arguments.size(); ++index)
            text += (index == 0 ? "" : ", ") + LoggedValue(arguments[index]);
        return text + ")";
    }

    std::vector<std::string> mLines;
};

} // namespace qbrpt::fakes
