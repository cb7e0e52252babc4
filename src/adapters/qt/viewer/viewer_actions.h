// What the viewer's own menu offers, with its keys.
#pragma once

#include <QtGui/QAction>
#include <QtWidgets/QMenu>
#include <QtWidgets/QWidget>

#include <array>
#include <functional>

namespace qbrpt::viewer {

/// In the order of the menu.
enum class ViewerCommand {
    Find,
    Copy,
    FitWidth,
    FitPage,
    FullSize,
    GoToPage,
    SavePdf,
    SaveXlsx,
    SaveCsv,
    SaveHtml
};
constexpr std::size_t ViewerCommands = 10;

/// Their shortcuts hold in the whole window of the owner.
class ViewerActions {
public:
    ViewerActions(QWidget* owner, const std::function<void(ViewerCommand)>& run);

    void SetLanguage(bool arabic);
    [[nodiscard]] QAction* Of(ViewerCommand command) const {
        return mActions.at(static_cast<std::size_t>(command));
    }
    /// `dress` may change how the menu looks.
    void OpenMenu(QPoint place, const std::function<void(QMenu&)>& dress);

private:
    QWidget* mOwner;
    std::array<QAction*, ViewerCommands> mActions{};
    bool mArabic = true;
};

} // namespace qbrpt::viewer
