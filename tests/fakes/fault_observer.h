// Makes the n-th port call fail, whatever port it goes to.
#pragma once

#include "base/failure.h"
#include "platform/port.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace qbrpt::fakes {

class FaultObserver final : public PortObserver {
public:
    enum class Reach : std::uint8_t { Once, FromThenOn };

    /// Call `position`, counted from 1, fails; 0 makes none fail and only counts.
    FaultObserver(std::size_t position, Reach reach) : mPosition(position), mReach(reach) {}

    void Called(const PortCall& call) override {
        ++mCalls;
        if (mPosition == 0 || mCalls < mPosition) return;
        if (mReach == Reach::Once && mCalls > mPosition) return;
        ++mFailed;
        mLastFailed = std::string(call.port) + "." + std::string(call.operation);
        throw Failure(FailureNumber::Device, "fault in " + mLastFailed);
    }

    [[nodiscard]] std::size_t Calls() const { return mCalls; }
    [[nodiscard]] std::size_t Failed() const { return mFailed; }
    /// "Port.Operation" of the last call that was made to fail.
    [[nodiscard]] const std::string& LastFailed() const { return mLastFailed; }

private:
    std::size_t mPosition;
    Reach mReach;
    std::size_t mCalls = 0;
    std::size_t mFailed = 0;
    std::string mLastFailed;
};

} // namespace qbrpt::fakes
