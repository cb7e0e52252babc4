// A host of the public class on a platform of fakes.
#pragma once

#include "adapters/locale/locale_adapter.h"
#include "base/calendar.h"
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "fakes/fault_observer.h"
#include "service/VantlowCls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qbrpt {

constexpr BoxAnswer Retry = BoxAnswer::Retry;
constexpr BoxAnswer Cancel = BoxAnswer::Cancel;

/// A working day of the café's calendar as the database gives it.
inline Value WorkDay(int year, int month, int day, int hour = 0) {
    return Date{DayNumberOf({year, month, day, hour, 0, 0, 0, 0})};
}

class ServiceTest : public ::testing::Test {
protected:
    ServiceTest() { Platform::Current().locale = MakeLocale(); }

    /// Hands `db` to the object; its working days are 5 (Thursday 15 January 2004) and 9 (Monday 19th).
    void GiveDatabase() {
        db->Answer("FROM host_log_time WHERE id = ", {});
        db->Answer("FROM host_log_time WHERE id = 5", {{WorkDay(2004, 1, 15)}});
        db->Answer("FROM host_log_time WHERE id = 9", {{WorkDay(2004, 1, 19)}});
        db->Answer("From daily_sheet", {{std::int64_t{1}}, {std::int64_t{2}}});
        db->Answer("FROM pay_out", {{12.5, WorkDay(2004, 1, 15), std::string("شاي")}});
        cls.SetDatabase(db);
    }

    [[nodiscard]] std::vector<std::string> Statements() const {
        std::vector<std::string> texts;
        for (const auto& statement : db->opened)
            texts.push_back(statement.text);
        return texts;
    }

    fakes::FakePlatform platform;
    std::shared_ptr<fakes::FakeDatabase> db = std::make_shared<fakes::FakeDatabase>();
    VantlowCls cls;
};

} // namespace qbrpt
