// The control in which a finished report is read.
#pragma once

#include "adapters/qt/viewer/desk_area.h"
#include "adapters/qt/viewer/find_bar.h"
#include "adapters/qt/viewer/finder.h"
#include "adapters/qt/viewer/page_store.h"
#include "adapters/qt/viewer/save_report.h"
#include "adapters/qt/viewer/viewer_actions.h"
#include "platform/CRViewer.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace qbrpt::qt {

/// Pages on a desk, a find bar under it, and a menu of its own.
class ViewerWidget final : public QWidget {
public:
    explicit ViewerWidget(QWidget* parent = nullptr);
    ~ViewerWidget() override;

    /// Another page is shown, by the viewer's own doing, or the report has another number of them.
    std::function<void()> pageChanged;
    /// The reader asks for the next larger or smaller zoom level.
    std::function<void(bool in)> zoomStep;
    /// The reader asks for pages in their own size.
    std::function<void()> fullSize;
    /// A menu of the viewer is about to open: its owner may give it the look of other menus.
    std::function<void(QMenu& menu)> dressMenu;

    /// The same object at every call. After the widget is gone its calls are failures.
    [[nodiscard]] std::shared_ptr<CRViewer> Port() const;

    [[nodiscard]] viewer::DeskArea& Desk() { return *mDesk; }
    [[nodiscard]] viewer::FindBar& Find() { return *mFind; }

    void SetReport(const Ref<CrystalRuntime::Report>& report);
    /// Gives the number of pages.
    std::int32_t View(bool arabic);
    /// Shows what the report has become. Where that is not read to its end the desk stays empty until this is
    /// asked for again.
    void Renew();
    [[nodiscard]] bool IsBusy() const { return mBusy; }
    void Run(viewer::ViewerCommand command);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void ReadPages();
    void Empty();
    void CopySelection();
    void StartFinding(const QString& text);
    void CloseFind();
    void AskForPage();
    void Save(viewer::SaveFormat format);

    Ref<CrystalRuntime::Report> mReport;
    std::shared_ptr<viewer::PageStore> mPages;
    viewer::Finder mFinder;
    viewer::DeskArea* mDesk;
    viewer::FindBar* mFind;
    viewer::ViewerActions mActions;
    std::shared_ptr<CRViewer> mPort;
    bool mArabic = true;
    bool mBusy = false;
    bool mViewed = false; ///< asked for once; a report that was only handed over is not read
};

} // namespace qbrpt::qt
