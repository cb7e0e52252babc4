// A test with a platform of fakes and the house's own locale words.
#pragma once

#include "adapters/locale/locale_adapter.h"
#include "base/calendar.h"
#include "fakes/fake_platform.h"

#include <gtest/gtest.h>

namespace qbrpt {

class SupportTest : public ::testing::Test {
protected:
    SupportTest() { Platform::Current().locale = MakeLocale(); }

    fakes::FakePlatform platform;
};

/// The day number of a calendar day, with a time of day.
inline double Day(int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
                  int millisecond = 0) {
    return DayNumberOf({year, month, day, hour, minute, second, millisecond, 0});
}

} // namespace qbrpt
