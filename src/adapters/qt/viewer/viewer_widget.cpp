#include "adapters/qt/viewer/viewer_widget.h"

#include "adapters/output/report_output.h"
#include "adapters/qt/viewer/reading_watch.h"
#include "adapters/qt/viewer/text_folding.h"
#include "adapters/qt/viewer/viewer_port.h"
#include "adapters/qt/viewer/viewer_words.h"
#include "base/failure.h"

#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace qbrpt::qt {

using viewer::ViewerCommand;

ViewerWidget::ViewerWidget(QWidget* parent)
    : QWidget(parent), mDesk(new viewer::DeskArea(this, mFinder)), mFind(new viewer::FindBar(this, mFinder)),
      mActions(this, [this](ViewerCommand command) { Run(command); }),
      mPort(std::make_shared<ViewerPort>(*this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(mDesk, 1);
    column->addWidget(mFind);
    setFocusProxy(mDesk);
    mDesk->pageChanged = [this] {
        if (pageChanged) pageChanged();
    };
    mDesk->zoomStep = [this](bool in) {
        if (zoomStep) zoomStep(in);
    };
    mFinder.changed = [this] {
        mFind->ShowCounts();
        mDesk->viewport()->update();
    };
    mFinder.found = [this](const viewer::HitPlace& place) { mDesk->ShowHit(place); };
    mFind->typed = [this](const QString& text) { StartFinding(text); };
    mFind->closed = [this] { CloseFind(); };
}

ViewerWidget::~ViewerWidget() {
    // The parts tell one another of changes until they are gone.
    mFinder.changed = nullptr;
    mDesk->pageChanged = nullptr;
}

std::shared_ptr<CRViewer> ViewerWidget::Port() const {
    return mPort;
}

void ViewerWidget::SetReport(const Ref<CrystalRuntime::Report>& report) {
    mReport = report;
}

std::int32_t ViewerWidget::View(bool arabic) {
    mArabic = arabic;
    setLayoutDirection(arabic ? Qt::RightToLeft : Qt::LeftToRight);
    mDesk->SetLanguage(arabic);
    mFind->SetLanguage(arabic);
    mActions.SetLanguage(arabic);
    mViewed = true;
    Empty();
    ReadPages();
    mPages = std::make_shared<viewer::PageStore>(mReport);
    mDesk->Show(mPages);
    return mDesk->PageCount();
}

void ViewerWidget::Renew() {
    if (!mViewed) return;
    mFinder.Stop();
    const std::int32_t page = mDesk->CurrentPage();
    const std::int32_t count = mDesk->PageCount();
    try {
        ReadPages();
        if (!mPages) {
            mPages = std::make_shared<viewer::PageStore>(mReport);
            mDesk->Show(mPages);
        } else {
            mDesk->Renew();
        }
    } catch (...) { // what was shown is no longer so, and what is so would be read at the next look
        Empty();
        throw;
    }
    if (mFind->isVisible()) StartFinding(mFind->Text());
    if ((mDesk->CurrentPage() != page || mDesk->PageCount() != count) && pageChanged) pageChanged();
}

void ViewerWidget::Empty() {
    mFinder.Clear();
    mFind->ShowCounts();
    mPages.reset();
    mDesk->Empty();
}

void ViewerWidget::ReadPages() {
    mBusy = true;
    mDesk->Freeze(true);
    const std::shared_ptr<void> readingEnds(nullptr, [this](void*) {
        mBusy = false;
        mDesk->Freeze(false);
    });
    viewer::ReadingWatch watch;
    PagesOf(mReport).CountPages([&watch](std::size_t, std::size_t) { watch.Look(); });
}

void ViewerWidget::Run(ViewerCommand command) {
    if (!mPages || mBusy) return;
    switch (command) {
    case ViewerCommand::Find:
        mFind->Open();
        break;
    case ViewerCommand::Copy:
        CopySelection();
        break;
    case ViewerCommand::FitWidth:
        mDesk->SetFit(viewer::DeskArea::Fit::Width);
        break;
    case ViewerCommand::FitPage:
        mDesk->SetFit(viewer::DeskArea::Fit::Page);
        break;
    case ViewerCommand::FullSize:
        if (fullSize) fullSize();
        break;
    case ViewerCommand::GoToPage:
        AskForPage();
        break;
    case ViewerCommand::SavePdf:
        Save(viewer::SaveFormat::Pdf);
        break;
    case ViewerCommand::SaveXlsx:
        Save(viewer::SaveFormat::Xlsx);
        break;
    case ViewerCommand::SaveCsv:
        Save(viewer::SaveFormat::Csv);
        break;
    case ViewerCommand::SaveHtml:
        Save(viewer::SaveFormat::Html);
        break;
    }
}

void ViewerWidget::CopySelection() {
    if (!mDesk->HasSelection()) return;
    try {
        QGuiApplication::clipboard()->setText(mDesk->SelectedText());
    } catch (const Failure&) { // told of where the page is drawn
    }
}

void ViewerWidget::AskForPage() {
    const viewer::ViewerWords& words = viewer::WordsOf(mArabic);
    QInputDialog dialog(this);
    dialog.setLayoutDirection(layoutDirection());
    dialog.setWindowTitle(QString::fromUtf8(words.goToPage).remove(QChar(0x2026)));
    dialog.setLabelText(QString::fromUtf8(words.pageNumber).arg(mDesk->PageCount()));
    dialog.setInputMode(QInputDialog::IntInput);
    dialog.setIntRange(1, mDesk->PageCount());
    dialog.setIntValue(mDesk->CurrentPage() + 1);
    dialog.setOkButtonText(QString::fromUtf8(words.ok));
    dialog.setCancelButtonText(QString::fromUtf8(words.cancel));
    if (dialog.exec() != QDialog::Accepted) return;
    mDesk->ShowPage(dialog.intValue() - 1);
    if (pageChanged) pageChanged();
}

void ViewerWidget::Save(viewer::SaveFormat format) {
    mFinder.Stop();
    ReportOutput& report = OutputOf(mReport);
    const std::filesystem::path file = viewer::AskForFile(this, report.Title(), format, mArabic);
    if (file.empty()) return;
    viewer::SaveShowingProgress(this, report, format, file, mArabic, [this](bool writing) {
        mBusy = writing;
        mDesk->Freeze(writing);
    });
}

void ViewerWidget::StartFinding(const QString& text) {
    mFinder.Start(mPages, viewer::FoldQuery(text.toStdString()), mDesk->CurrentPage());
}

void ViewerWidget::CloseFind() {
    mFinder.Clear();
    mFind->hide();
    mFind->ShowCounts();
    mDesk->viewport()->update();
    mDesk->setFocus();
}

void ViewerWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && mFind->isVisible())
        mFind->Escape();
    else
        event->ignore();
}

void ViewerWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (!mPages || mFind->geometry().contains(event->pos())) return;
    QAction* copy = mActions.Of(ViewerCommand::Copy);
    copy->setEnabled(mDesk->HasSelection());
    mActions.OpenMenu(event->globalPos(), dressMenu);
    copy->setEnabled(true); // its key is heard at any time
}

} // namespace qbrpt::qt
