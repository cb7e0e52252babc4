#include "adapters/locale/system_clock.h"

#include "base/calendar.h"

#include <chrono>
#include <ctime>
#include <memory>

namespace qbrpt {

namespace {

class SystemClock final : public Clock {
    double DoNow() override {
        using std::chrono::floor;
        const auto now = std::chrono::system_clock::now();
        const auto second = floor<std::chrono::seconds>(now);
        const std::time_t time = std::chrono::system_clock::to_time_t(second);
        std::tm local{};
        if (localtime_r(&time, &local) == nullptr)
            throw Failure(FailureNumber::Device, "The system's clock cannot be read.");
        Moment moment;
        moment.year = local.tm_year + 1900;
        moment.month = local.tm_mon + 1;
        moment.day = local.tm_mday;
        moment.hour = local.tm_hour;
        moment.minute = local.tm_min;
        moment.second = local.tm_sec;
        moment.millisecond = static_cast<int>(floor<std::chrono::milliseconds>(now - second).count());
        return DayNumberOf(moment);
    }
};

} // namespace

Ref<Clock> MakeSystemClock() {
    return std::make_shared<SystemClock>();
}

} // namespace qbrpt
