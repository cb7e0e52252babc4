// What all ports have in common: each call is announced before it is done.
#pragma once

#include "base/value.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace qbrpt {

/// One call of a port, as observers see it.
struct PortCall {
    std::string_view port;      ///< the interface, e.g. "DAO.Database"
    std::string_view operation; ///< the operation, e.g. "OpenRecordset"
    std::span<const Value> arguments;
};

/// Looks on at every port call: the trace writes them down, the fault observer makes one fail.
class PortObserver {
public:
    virtual ~PortObserver() = default;
    /// Before the call has any effect. A Failure thrown here is the call's own failure.
    virtual void Called(const PortCall& call) = 0;
    /// After a call that has an answer worth knowing (the button of a message box, the pages of a
    /// preview). Must not throw.
    virtual void Answered(const PortCall& call, const Value& answer) noexcept;
    /// A title or logo member of a report template was called. Must not throw.
    virtual void MemberCalled(std::string_view member, std::span<const Value> arguments) noexcept;
};

/// The observers of the process's platform, in the order in which they are asked.
class PortObservers {
public:
    void Add(std::shared_ptr<PortObserver> observer) { mObservers.push_back(std::move(observer)); }
    [[nodiscard]] bool Empty() const { return mObservers.empty(); }

    void Called(const PortCall& call) const;
    void Answered(const PortCall& call, const Value& answer) const noexcept;
    void MemberCalled(std::string_view member, std::span<const Value> arguments) const noexcept;

private:
    std::vector<std::shared_ptr<PortObserver>> mObservers;
};

/// Base of every port class. The public face of a port is not virtual: it announces the call, then runs
/// the adapter's `Do...`, so that no adapter and no fake can forget it.
class Port {
public:
    Port() = default;
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    virtual ~Port() = default;

protected:
    /// A number, a handle or a code as an argument that observers see.
    template <class T>
    static std::int64_t Number(T value) {
        return static_cast<std::int64_t>(value);
    }

    static void Announce(std::string_view port, std::string_view operation,
                         std::initializer_list<Value> arguments = {});
    static void Answer(std::string_view port, std::string_view operation,
                       std::initializer_list<Value> arguments, const Value& answer) noexcept;
};

} // namespace qbrpt
