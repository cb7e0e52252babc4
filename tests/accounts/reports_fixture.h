// The reports on the journal, on a platform of fakes.
#pragma once

#include "accounts/account_report_fake.h"
#include "accounts/account_reports.h"
#include "adapters/locale/locale_adapter.h"
#include "base/calendar.h"
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "fakes/fault_observer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace qbrpt {

class AccountReportsTest : public ::testing::Test {
protected:
    AccountReportsTest() {
        Platform::Current().locale = MakeLocale();
        inside = std::make_shared<fakes::ReportRecord>();
        platform.runtime->prepare = [this](fakes::FakeReport& report) {
            GiveAccountParts(report, inside);
            for (const auto& section : report.sections)
                sections[section->name] = section;
        };
    }

    static fakes::Row Move(const char* name, double amount) {
        return {std::string(name), amount, std::string("بيان"), Date{37780.5}};
    }
    /// What account 7 received and gave.
    void Give(const std::vector<fakes::Row>& incoming, const std::vector<fakes::Row>& outgoing) {
        db->Answer("WHERE account_log.acc_to = 7", incoming);
        db->Answer("WHERE account_log.acc_from = 7", outgoing);
    }
    void PrintOfOne(double dFrom = 0, double dTo = 0) {
        PrintAccountMoves(db, 7, dFrom, dTo, [] { return std::string("الصندوق"); });
    }
    [[nodiscard]] std::vector<std::string> Statements() const {
        std::vector<std::string> texts;
        for (const auto& statement : db->opened)
            texts.push_back(statement.text);
        return texts;
    }
    [[nodiscard]] fakes::ReportRecord& Record() const { return *platform.runtime->made.at(0); }
    [[nodiscard]] std::string Text(const char* object) const { return Record().texts.at(object); }

    fakes::FakePlatform platform;
    std::shared_ptr<fakes::FakeDatabase> db = std::make_shared<fakes::FakeDatabase>();
    std::shared_ptr<fakes::ReportRecord> inside;
    std::map<std::string, std::shared_ptr<fakes::FakeSection>> sections;
};

} // namespace qbrpt
