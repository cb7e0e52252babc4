// A preview window of fakes with a report in it.
#pragma once

#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "preview/frmPrntServer.h"
#include "support/owner_window.h"
#include "templates/PayOutRpt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt {

class PreviewTest : public ::testing::Test {
protected:
    PreviewTest() {
        hOwnerWnd = 0;
        report = std::make_shared<PayOutRpt>();
        Bind();
        platform.tree->windows[Me].className = "ThunderFormDC";
        platform.windows->places[Me] = {.showCmd = 1, .left = 10, .top = 20, .right = 110, .bottom = 220};
    }
    ~PreviewTest() override {
        frmPrntServer::Drop();
        hOwnerWnd = 0;
    }
    PreviewTest(const PreviewTest&) = delete;
    PreviewTest& operator=(const PreviewTest&) = delete;

    static constexpr WindowHandle Me = 77; ///< the preview window, as the fakes number it

    /// Binds the report to the current printer, as the run of a report does.
    void Bind() {
        const PrinterInfo& printer = platform.printers->printers[0];
        Record().driver = printer.driverName;
        Record().device = printer.deviceName;
        Record().port = printer.port;
        Record().paperSize = printer.paperSize;
        Record().orientation = printer.orientation;
    }
    fakes::ReportRecord& Record() { return *platform.runtime->made.back(); }

    /// Shows the report and does `act` while its window is open.
    bool Show(
        const std::function<void(fakes::FakeForm&)>& act = [](fakes::FakeForm&) {}, bool arabic = true) {
        platform.forms->shown = act;
        return frmPrntServer::Instance().ShowpReport(report, arabic);
    }
    static void Choose(fakes::FakeForm& form, const std::string& item) { form.events.Click(item); }
    static void Press(fakes::FakeForm& form, const std::string& key) { form.events.ButtonClick(key); }

    fakes::FakePlatform platform;
    Ref<PayOutRpt> report;
};

} // namespace qbrpt
