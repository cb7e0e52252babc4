#include "adapters/trace/trace_events.h"

#include <nlohmann/json.hpp>

#include <array>
#include <initializer_list>
#include <type_traits>
#include <utility>

namespace qbrpt {

namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const Value& value) {
    return std::visit(
        [](const auto& held) -> Json {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, Null>)
                return nullptr;
            else if constexpr (std::is_same_v<Held, Date>)
                return held.number;
            else
                return held;
        },
        value);
}

/// Bytes that are no UTF-8 are replaced: a trace is read when something is odd.
std::string LineOf(const Json& event) {
    return event.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// An event whose values are arguments of the call, by position; an empty name leaves one out.
struct EventShape {
    std::string_view port;
    std::string_view operation;
    std::string_view event;
    std::array<std::string_view, 5> names;
    std::string_view answerName; ///< empty: the event is written before the call
};

constexpr std::array Shapes = {
    EventShape{"DAO.Database", "OpenRecordset", "statement", {"sql", "type"}, ""},
    EventShape{"DAO.Database", "Execute", "statement", {"sql"}, ""},
    EventShape{"DAO.QueryDef", "Parameters", "parameter", {"query", "index", "value"}, ""},
    EventShape{"CrystalRuntime.Runtime", "NewReport", "template", {"name"}, ""},
    EventShape{"CrystalRuntime.ReportObject", "SetText", "text", {"object", "text"}, ""},
    EventShape{"Printer", "SetOrientation", "orientation", {"value"}, ""},
    EventShape{"Screen", "MousePointer", "pointer", {"value"}, ""},
    EventShape{"MessageBoxes", "MsgBox", "message", {"text", "style", "title"}, "answer"},
    EventShape{"CRViewer", "ViewReport", "preview", {"arabic", "printer"}, "pages"},
    EventShape{"CrystalRuntime.Report",
               "PrintOut",
               "print",
               {"prompt", "printer", "copies", "startPage", "stopPage"},
               "pages"},
};

const EventShape* ShapeOf(const PortCall& call) {
    for (const EventShape& shape : Shapes)
        if (shape.port == call.port && shape.operation == call.operation) return &shape;
    return nullptr;
}

Json EventWithArguments(const EventShape& shape, std::span<const Value> arguments) {
    Json event;
    event["event"] = std::string{shape.event};
    for (std::size_t i = 0; i < shape.names.size() && i < arguments.size(); ++i)
        if (!shape.names[i].empty()) event[std::string{shape.names[i]}] = JsonOf(arguments[i]);
    return event;
}

} // namespace

std::optional<std::string> EventOfCall(const PortCall& call) {
    const EventShape* shape = ShapeOf(call);
    if (shape == nullptr || !shape->answerName.empty()) return std::nullopt;
    Json event = EventWithArguments(*shape, call.arguments);
    // A statement that gives no type says so, whichever way it is sent.
    if (shape->event == "statement" && !event.contains("type")) event["type"] = nullptr;
    return LineOf(event);
}

std::optional<std::string> EventOfAnswer(const PortCall& call, const Value& answer) {
    const EventShape* shape = ShapeOf(call);
    if (shape == nullptr || shape->answerName.empty()) return std::nullopt;
    Json event = EventWithArguments(*shape, call.arguments);
    event[std::string{shape->answerName}] = JsonOf(answer);
    return LineOf(event);
}

std::string EventOfMember(std::string_view member, std::span<const Value> arguments) {
    Json event;
    event["event"] = "member";
    event["name"] = std::string{member};
    event["arguments"] = Json::array();
    for (const Value& argument : arguments)
        event["arguments"].push_back(JsonOf(argument));
    return LineOf(event);
}

} // namespace qbrpt
