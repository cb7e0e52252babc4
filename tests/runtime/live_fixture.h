// A platform whose reports are alive; everything else is a fake.
#pragma once

#include "adapters/runtime/runtime.h"
#include "adapters/text/text_engine.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_text_port.h"
#include "pdf/pdf_help.h"
#include "platform/platform.h"
#include "templates/field_tables.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qbrpt {

using pdf::test::StringSink;

/// Remembers what came to the printer.
struct FakeDelivery final : Delivery {
    std::vector<PrintJob> jobs;
    std::vector<std::int32_t> pageCounts;
    void Print(ReportOutput& report, const PrintJob& job) override {
        jobs.push_back(job);
        pageCounts.push_back(report.PageCount());
    }
};

class LiveReports : public testing::Test {
protected:
    LiveReports() {
        RuntimeServices services;
        services.text = std::make_shared<fakes::FakeTextPort>();
        Use(std::move(services));
    }

    /// Puts other services under the reports made from now on.
    void Use(RuntimeServices services) {
        services.delivery = delivery;
        services.layouts = layout::Library();
        Platform::Current().reports = MakeRuntime(std::move(services));
    }
    /// Real shaping and real faces.
    void UseRealText() { Use(ServicesOf(std::make_shared<text::TextEngine>(), delivery)); }

    [[nodiscard]] static Ref<CrystalRuntime::Report> NewReport(const std::string& name) {
        return Platform::Current().reports->NewReport(name, FactsOf(name).fields);
    }
    /// A report whose rows are read in.
    [[nodiscard]] static Ref<CrystalRuntime::Report> Filled(const std::string& name,
                                                            std::vector<fakes::Row> rows) {
        const auto report = NewReport(name);
        report->SetDataSource(std::make_shared<fakes::FakeRecordset>(std::move(rows)), 3);
        report->ReadRecords();
        return report;
    }
    /// The failure of an action; none is a failure of the test.
    [[nodiscard]] static Failure FailureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const Failure& failure) {
            return failure;
        }
        ADD_FAILURE() << "nothing failed";
        return {FailureNumber::Report, ""};
    }

    fakes::FakePlatform platform;
    std::shared_ptr<FakeDelivery> delivery = std::make_shared<FakeDelivery>();
};

} // namespace qbrpt
