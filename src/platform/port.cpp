#include "platform/port.h"

#include "platform/platform.h"

namespace qbrpt {

void PortObserver::Answered(const PortCall&, const Value&) noexcept {}
void PortObserver::MemberCalled(std::string_view, std::span<const Value>) noexcept {}

void PortObservers::Called(const PortCall& call) const {
    for (const auto& observer : mObservers)
        observer->Called(call);
}

void PortObservers::Answered(const PortCall& call, const Value& answer) const noexcept {
    for (const auto& observer : mObservers)
        observer->Answered(call, answer);
}

void PortObservers::MemberCalled(std::string_view member, std::span<const Value> arguments) const noexcept {
    for (const auto& observer : mObservers)
        observer->MemberCalled(member, arguments);
}

void Port::Announce(std::string_view port, std::string_view operation,
                    std::initializer_list<Value> arguments) {
    const PortObservers& observers = Platform::Current().observers;
    if (!observers.Empty()) observers.Called({port, operation, {arguments.begin(), arguments.size()}});
}

void Port::Answer(std::string_view port, std::string_view operation, std::initializer_list<Value> arguments,
                  const Value& answer) noexcept {
    const PortObservers& observers = Platform::Current().observers;
    if (!observers.Empty())
        observers.Answered({port, operation, {arguments.begin(), arguments.size()}}, answer);
}

} // namespace qbrpt
