// The control in which a finished report is read.
#pragma once

#include "platform/CrystalRuntime.h"

namespace qbrpt {

class CRViewer : public Port {
public:
    /// The report to show.
    void SetReportSource(const Ref<CrystalRuntime::Report>& report);
    /// Starts rendering; may return before that has ended. `arabic`: the language of the viewer's own words.
    void ViewReport(bool arabic);
    /// Whether the viewer is still working.
    [[nodiscard]] bool IsBusy();
    /// Renders the report anew after a change.
    void Refresh();
    /// The page shown, from 1.
    [[nodiscard]] std::int32_t GetCurrentPageNumber();
    void ShowNthPage(std::int16_t page);
    /// In percent.
    void Zoom(std::int16_t level);
    /// Places the control in its window, in twips.
    void Move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height);

protected:
    struct Shown {
        std::string printer; ///< the printer that the report is bound to
        std::int32_t pages = 0;
    };

private:
    virtual void DoSetReportSource(const Ref<CrystalRuntime::Report>& report) = 0;
    virtual Shown DoViewReport(bool arabic) = 0;
    virtual bool DoIsBusy() = 0;
    virtual void DoRefresh() = 0;
    virtual std::int32_t DoGetCurrentPageNumber() = 0;
    virtual void DoShowNthPage(std::int16_t page) = 0;
    virtual void DoZoom(std::int16_t level) = 0;
    virtual void DoMove(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) = 0;
};

} // namespace qbrpt
