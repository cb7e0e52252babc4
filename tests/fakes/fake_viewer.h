// A viewer that only remembers what was asked of it.
#pragma once

#include "platform/CRViewer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace qbrpt::fakes {

class FakeViewer final : public CRViewer {
public:
    int views = 0; ///< how often its window was shown
    bool arabic = false;
    Ref<CrystalRuntime::Report> report;
    int busyFor = 0; ///< how many times more it answers that it is busy
    int refreshed = 0;
    std::int32_t page = 1;
    std::vector<std::int16_t> pagesAsked;
    std::vector<std::int16_t> zooms;
    std::array<std::int32_t, 4> place{};
    /// Runs while the report is on the screen.
    std::function<void()> whileOpen = [] {};
    /// Runs each time that the viewer is asked whether it is busy.
    std::function<void()> whenAsked = [] {};

private:
    void DoSetReportSource(const Ref<CrystalRuntime::Report>& source) override { report = source; }
    Shown DoViewReport(bool inArabic) override {
        arabic = inArabic;
        return {"", report->NumberOfPages()};
    }
    bool DoIsBusy() override {
        whenAsked();
        if (busyFor <= 0) return false;
        --busyFor;
        return true;
    }
    void DoRefresh() override { ++refreshed; }
    std::int32_t DoGetCurrentPageNumber() override { return page; }
    void DoShowNthPage(std::int16_t number) override {
        pagesAsked.push_back(number);
        page = number;
    }
    void DoZoom(std::int16_t level) override { zooms.push_back(level); }
    void DoMove(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) override {
        place = {left, top, width, height};
    }
};

} // namespace qbrpt::fakes
