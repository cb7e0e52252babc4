#include "adapters/console/quiet_forms.h"

#include "adapters/console/quiet_controls.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace qbrpt {

namespace {

class QuietMenuItem final : public MenuItem {
    void DoSetCaption(const std::string&) override {}
    bool DoEnabled() override { return mEnabled; }
    void DoSetEnabled(bool enabled) override { mEnabled = enabled; }
    bool mEnabled = true;
};

class QuietButton final : public ToolbarButton {
    std::string DoKey() override { return {}; }
    ButtonStyle DoStyle() override { return ButtonStyle::Default; }
    std::int16_t DoImage() override { return 0; }
    void DoSetImage(std::int16_t) override {}
    void DoSetValue(std::int16_t) override {}
    void DoSetToolTipText(const std::string&) override {}
    void DoSetEnabled(bool) override {}
};

class QuietToolbar final : public Toolbar {
    std::int16_t DoButtonCount() override { return 0; }
    Ref<ToolbarButton> DoButtons(std::int16_t) override { return std::make_shared<QuietButton>(); }
    Ref<ToolbarButton> DoButtonOf(const std::string&) override { return std::make_shared<QuietButton>(); }
    void DoSetImageList(const std::string&) override {}
    std::int32_t DoWidth() override { return 0; }
    std::int32_t DoHeight() override { return 0; }
    void DoMove(std::int32_t, std::int32_t) override {}
    void DoZOrder() override {}
};

/// Stays on the first page.
class QuietViewer final : public CRViewer {
public:
    [[nodiscard]] const Ref<CrystalRuntime::Report>& Source() const { return mReport; }

private:
    void DoSetReportSource(const Ref<CrystalRuntime::Report>& report) override { mReport = report; }
    Shown DoViewReport(bool) override { return {mReport->PrinterName(), mReport->NumberOfPages()}; }
    bool DoIsBusy() override { return false; }
    void DoRefresh() override {}
    std::int32_t DoGetCurrentPageNumber() override { return 1; }
    void DoShowNthPage(std::int16_t) override {}
    void DoZoom(std::int16_t) override {}
    void DoMove(std::int32_t, std::int32_t, std::int32_t, std::int32_t) override {}

    Ref<CrystalRuntime::Report> mReport;
};

class QuietForm final : public Form {
public:
    QuietForm(const FormTable& table, FormEvents& events, ReportTaker taker, FormAnswer answer)
        : mEvents(events), mTaker(std::move(taker)), mAnswer(std::move(answer)), mControls(table) {}

private:
    WindowHandle DohWnd() override { return 0; }
    void DoSetCaption(const std::string&) override {}
    WindowState DoState() override { return WindowState::Normal; }
    void DoSetState(WindowState) override {}
    void DoSetRightToLeft(bool) override {}
    std::int32_t DoScaleWidth() override { return 0; }
    std::int32_t DoScaleHeight() override { return 0; }
    bool DoVisible() override { return false; }
    void DoMove(std::int32_t, std::int32_t) override {}
    void DoShowModal() override {
        if (mAnswer) return mAnswer(*this, mEvents);
        mTaker(mViewer->Source());
        DoUnload();
    }
    void DoHide() override {}
    void DoUnload() override {
        if (!std::exchange(mGone, true)) mEvents.QueryUnload();
    }
    Ref<MenuItem> DoMenu(const std::string&) override { return mMenuItem; }
    Ref<Toolbar> DoToolbarOf(const std::string&) override { return mToolbar; }
    Ref<CRViewer> DoViewer(const std::string&) override { return mViewer; }
    Ref<Control> DoControl(const std::string& name) override { return mControls.Get(name); }

    FormEvents& mEvents;
    ReportTaker mTaker;
    FormAnswer mAnswer;
    QuietControls mControls;
    bool mGone = false;
    std::shared_ptr<QuietMenuItem> mMenuItem = std::make_shared<QuietMenuItem>();
    std::shared_ptr<QuietToolbar> mToolbar = std::make_shared<QuietToolbar>();
    std::shared_ptr<QuietViewer> mViewer = std::make_shared<QuietViewer>();
};

} // namespace

QuietForms::QuietForms(ReportTaker taker) : mTaker(std::move(taker)) {}

Ref<Form> QuietForms::DoLoad(const FormTable& table, FormEvents& events) {
    const bool showsReports =
        std::any_of(table.controls.begin(), table.controls.end(),
                    [](const ControlRow& row) { return row.kind == ControlKind::Viewer; });
    if (!showsReports)
        throw Failure(FailureNumber::Device, "The window \"" + std::string(table.caption) +
                                                 "\" cannot be shown: there is no display for it.");
    return std::make_shared<QuietForm>(table, events, mTaker, nullptr);
}

AnsweredForms::AnsweredForms(Ref<Forms> others, std::string name, FormAnswer answer)
    : mOthers(std::move(others)), mName(std::move(name)), mAnswer(std::move(answer)) {}

Ref<Form> AnsweredForms::DoLoad(const FormTable& table, FormEvents& events) {
    if (table.name != mName) return mOthers->Load(table, events);
    return std::make_shared<QuietForm>(table, events, nullptr, mAnswer);
}

} // namespace qbrpt
