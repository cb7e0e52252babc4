// A viewer over live reports, on a screen that exists in memory only.
#pragma once

#include "adapters/qt/viewer/viewer_widget.h"
#include "runtime/live_fixture.h"
#include "samples/sample_rows.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <memory>
#include <string>
#include <vector>

namespace qbrpt {

class Viewers : public LiveReports {
protected:
    Viewers() {
        UseRealText();
        viewer = std::make_unique<qt::ViewerWidget>();
        viewer->resize(1000, 800);
        viewer->pageChanged = [this] { ++pageChanges; };
        port = viewer->Port();
    }

    void View(const Ref<CrystalRuntime::Report>& report, bool arabic = true) {
        port->SetReportSource(report);
        port->ViewReport(arabic);
        viewer->show();
        QApplication::processEvents();
    }
    [[nodiscard]] viewer::DeskArea& Desk() const { return viewer->Desk(); }
    [[nodiscard]] QWidget* Viewport() const { return viewer->Desk().viewport(); }
    void Wait() const { // for a glide to end
        QTest::qWait(200);
    }

    std::unique_ptr<qt::ViewerWidget> viewer;
    std::shared_ptr<CRViewer> port;
    int pageChanges = 0;
};

/// Payments with a name that comes on every tenth row only.
inline std::vector<fakes::Row> NamedPayments(std::size_t count) {
    std::vector<fakes::Row> rows = samples::Payments(count);
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i][2] =
            i % 10 == 0 ? std::string("فاتورة كهرباء أحمد") : std::string("ورق طباعة ") + std::to_string(i);
    return rows;
}

} // namespace qbrpt
