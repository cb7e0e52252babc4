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

    /// Hands `db` to the object; its working days are 5 (Thursday 15 January 2004) and 9 (Monday 19th), and
    /// every report has rows.
    void GiveDatabase() {
        db->Answer("FROM host_log_time WHERE id = ", {});
        db->Answer("FROM host_log_time WHERE id = 5", {{WorkDay(2004, 1, 15)}});
        db->Answer("FROM host_log_time WHERE id = 9", {{WorkDay(2004, 1, 19)}});
        db->Answer("From daily_sheet", {{std::int64_t{1}}, {std::int64_t{2}}});
        db->Answer("FROM pay_out", {{12.5, WorkDay(2004, 1, 15), std::string("شاي")}});
        for (const char* part :
             {"FROM ((local_log INNER JOIN members", "FROM local_log AS lg", "FROM host_src INNER",
              "FROM internet_usage", "FROM (members_payment", "FROM (host_src LEFT", "FROM other_income",
              "FROM host_src AS h", "From members AS mm", "FROM pp_dat", "FROM (pp_dat", "FROM (audit_temp",
              "FROM (print_log"})
            db->Answer(part, {{std::int64_t{1}}});
        db->Answer("SELECT name FROM host_src", {});
        db->Answer("SELECT name FROM host_src WHERE id = 3", {{std::string("جهاز 3")}});
        db->queryDefs["users_income2"] = std::make_shared<fakes::FakeQueryDef>(
            "users_income2", std::vector<fakes::Row>{{std::int64_t{1}}});
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
