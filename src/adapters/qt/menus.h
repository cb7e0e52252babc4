// Menu bars of forms.
#pragma once

#include "platform/forms.h"

#include <QtGui/QAction>
#include <QtWidgets/QMenuBar>

#include <functional>
#include <map>
#include <string>

namespace qbrpt::qt {

/// Hears of the chosen item, by its name.
using MenuChosen = std::function<void(const std::string& name)>;

/// Fills a menu bar from the rows of a form's table. What a row stands for can be asked for by its name.
class MenuBuilder {
public:
    MenuBuilder(QMenuBar& bar, MenuChosen chosen) : mBar(bar), mChosen(std::move(chosen)) {}
    void Add(const ControlRow& row);
    [[nodiscard]] const std::map<std::string, QAction*>& Items() const { return mItems; }

private:
    [[nodiscard]] QMenu* MenuOf(std::string_view name) const;

    QMenuBar& mBar;
    MenuChosen mChosen;
    std::map<std::string, QAction*> mItems;
};

[[nodiscard]] Ref<MenuItem> ItemOf(QAction& action);

/// The caption as it was given, "&" and all.
[[nodiscard]] QString CaptionOf(const QAction& action);
void SetCaptionOf(QAction& action, const QString& caption);

/// Gives a menu that drops down the look of all our menus.
void DressMenu(QMenu& menu);

/// Turns the menu that drops down from an item, and all that cascade from it.
void SetMenuDirection(QAction& action, bool rightToLeft);

} // namespace qbrpt::qt
