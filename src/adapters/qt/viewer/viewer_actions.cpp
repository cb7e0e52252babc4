#include "adapters/qt/viewer/viewer_actions.h"

#include "adapters/qt/viewer/viewer_words.h"

namespace qbrpt::viewer {

namespace {

using Text = const char* ViewerWords::*;

constexpr std::array<Text, ViewerCommands> Texts = {
    &ViewerWords::find,      &ViewerWords::copy,       &ViewerWords::fitWidth,  &ViewerWords::fitPage,
    &ViewerWords::fullSize,  &ViewerWords::goToPage,   &ViewerWords::saveAsPdf, &ViewerWords::saveAsXlsx,
    &ViewerWords::saveAsCsv, &ViewerWords::saveAsHtml,
};

} // namespace

ViewerActions::ViewerActions(QWidget* owner, const std::function<void(ViewerCommand)>& run) : mOwner(owner) {
    for (std::size_t i = 0; i < ViewerCommands; ++i) {
        mActions[i] = new QAction(owner);
        owner->addAction(mActions[i]);
        QObject::connect(mActions[i], &QAction::triggered, owner,
                         [run, i] { run(static_cast<ViewerCommand>(i)); });
    }
    Of(ViewerCommand::Find)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));
    Of(ViewerCommand::Copy)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_C));
    Of(ViewerCommand::GoToPage)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
    for (QAction* action : mActions)
        action->setShortcutVisibleInContextMenu(true);
    SetLanguage(true);
}

void ViewerActions::SetLanguage(bool arabic) {
    mArabic = arabic;
    for (std::size_t i = 0; i < ViewerCommands; ++i)
        mActions[i]->setText(QString::fromUtf8(WordsOf(arabic).*Texts[i]));
}

void ViewerActions::OpenMenu(QPoint place, const std::function<void(QMenu&)>& dress) {
    QMenu menu(mOwner);
    menu.setLayoutDirection(mArabic ? Qt::RightToLeft : Qt::LeftToRight);
    menu.addAction(Of(ViewerCommand::Find));
    menu.addAction(Of(ViewerCommand::Copy));
    menu.addSeparator();
    for (const auto command : {ViewerCommand::FitWidth, ViewerCommand::FitPage, ViewerCommand::FullSize})
        menu.addAction(Of(command));
    menu.addSeparator();
    menu.addAction(Of(ViewerCommand::GoToPage));
    menu.addSeparator();
    QMenu* save = menu.addMenu(QString::fromUtf8(WordsOf(mArabic).saveAs));
    save->setLayoutDirection(menu.layoutDirection());
    for (const auto command :
         {ViewerCommand::SavePdf, ViewerCommand::SaveXlsx, ViewerCommand::SaveCsv, ViewerCommand::SaveHtml})
        save->addAction(Of(command));
    if (dress) {
        dress(menu);
        dress(*save);
    }
    menu.exec(place);
}

} // namespace qbrpt::viewer
