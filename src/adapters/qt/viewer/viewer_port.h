// The viewer as the preview window's rules know it.
#pragma once

#include "platform/CRViewer.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace qbrpt::qt {

class ViewerWidget;

class ViewerPort final : public CRViewer {
public:
    explicit ViewerPort(ViewerWidget& widget);

private:
    void DoSetReportSource(const Ref<CrystalRuntime::Report>& report) override;
    Shown DoViewReport(bool arabic) override;
    bool DoIsBusy() override;
    void DoRefresh() override;
    std::int32_t DoGetCurrentPageNumber() override;
    void DoShowNthPage(std::int16_t page) override;
    void DoZoom(std::int16_t level) override;
    void DoMove(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) override;

    [[nodiscard]] ViewerWidget& Widget() const;

    QPointer<QWidget> mWidget;
    Ref<CrystalRuntime::Report> mReport;
};

} // namespace qbrpt::qt
