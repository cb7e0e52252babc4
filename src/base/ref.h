// A counted reference that knows how to be empty: using an empty one is a failure, not a crash.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace qbrpt {

/// Shared reference to a platform object. `->` and `*` on an empty reference raise
/// FailureNumber::ObjectNotSet, so that "no database" and "no record set" end in the error trap.
template <class T>
class Ref {
public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref(std::shared_ptr<U> object) : mObject(std::move(object)) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref(const Ref<U>& other) : mObject(other.Shared()) {}

    T* operator->() const { return &Required(); }
    T& operator*() const { return Required(); }

    [[nodiscard]] bool Empty() const { return mObject == nullptr; }
    void Clear() { mObject.reset(); }
    [[nodiscard]] const std::shared_ptr<T>& Shared() const { return mObject; }

private:
    T& Required() const {
        if (!mObject) throw Failure(FailureNumber::ObjectNotSet, "Object variable not set.");
        return *mObject;
    }
    std::shared_ptr<T> mObject;
};

} // namespace qbrpt
