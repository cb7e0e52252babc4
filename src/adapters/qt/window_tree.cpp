#include "adapters/qt/window_tree.h"

#include "adapters/qt/form_window.h"
#include "adapters/qt/menus.h"
#include "adapters/qt/style_words.h"

#include <QtCore/QLibrary>
#include <QtGui/QWindow>
#include <QtWidgets/QMenuBar>

#include <algorithm>

namespace qbrpt::qt {

namespace {

constexpr std::size_t LongestClassName = 260;

QMenuBar* MenuBarOf(WindowHandle window) {
    TreeWindow* found = Handles::Table().Find(window);
    auto* form = found == nullptr ? nullptr : dynamic_cast<FormWindow*>(found->widget.data());
    return form == nullptr || form->MenuBar().actions().isEmpty() ? nullptr : &form->MenuBar();
}

/// The action at `position` of a menu bar; null where there is none.
QAction* ItemAt(MenuHandle menu, std::int32_t position) {
    const QMenuBar* bar = MenuBarOf(menu);
    return bar != nullptr && position >= 0 && position < bar->actions().size() ? bar->actions()[position]
                                                                               : nullptr;
}

std::uint32_t& TypeOf(TreeWindow& window, std::int32_t position) {
    const auto index = static_cast<std::size_t>(position);
    if (window.menuItemTypes.size() <= index) window.menuItemTypes.resize(index + 1);
    return window.menuItemTypes[index];
}

} // namespace

std::optional<std::string> QtTree::DoGetClassName(WindowHandle window) {
    const TreeWindow* found = Handles::Table().Find(window);
    if (found == nullptr) return std::nullopt;
    return found->className.substr(0, LongestClassName);
}

WindowHandle QtTree::DoGetWindow(WindowHandle window, WindowRelation relation) {
    TreeWindow* found = Handles::Table().Find(window);
    if (found == nullptr) return relation == WindowRelation::Owner ? mWindows->GetParent(window) : 0;
    if (relation == WindowRelation::Child) return found->children.empty() ? 0 : found->children.front();
    if (relation != WindowRelation::Owner) return Sibling(window, relation);
    const QWindow* native = found->widget->windowHandle();
    const QWindow* owner = native == nullptr ? nullptr : native->transientParent();
    return owner == nullptr ? 0 : static_cast<WindowHandle>(owner->winId());
}

WindowHandle QtTree::Sibling(WindowHandle window, WindowRelation relation) const {
    Handles& table = Handles::Table();
    const TreeWindow* holder = table.Find(table.Find(window)->parent);
    const std::vector<WindowHandle> row = holder == nullptr ? table.Tops() : holder->children;
    if (relation == WindowRelation::First) return row.front();
    const auto next = std::find(row.begin(), row.end(), window) + 1;
    return next == row.end() ? 0 : *next;
}

std::vector<WindowHandle> QtTree::DoEnumChildWindows(WindowHandle window) {
    std::vector<WindowHandle> below;
    if (const TreeWindow* found = Handles::Table().Find(window)) {
        for (const WindowHandle child : found->children) {
            below.push_back(child);
            const auto deeper = DoEnumChildWindows(child);
            below.insert(below.end(), deeper.begin(), deeper.end());
        }
    }
    return below;
}

std::uint32_t QtTree::DoGetWindowLong(WindowHandle window, int index) {
    const TreeWindow* found = Handles::Table().Find(window);
    if (found == nullptr) return 0;
    if (index == WindowLong::Style) return found->style;
    if (index == WindowLong::ExtendedStyle) return found->extendedStyle;
    return index == WindowLong::Owner ? DoGetWindow(window, WindowRelation::Owner) : 0;
}

void QtTree::DoSetWindowLong(WindowHandle window, int index, std::uint32_t value) {
    TreeWindow* found = Handles::Table().Find(window);
    if (found == nullptr) return;
    if (index == WindowLong::Owner) {
        // Freed from its owner a window stays when that one is hidden. Nobody gives one a new owner.
        if (value == 0 && found->widget->windowHandle() != nullptr)
            found->widget->windowHandle()->setTransientParent(nullptr);
        return;
    }
    if (index == WindowLong::Style) found->style = value;
    if (index == WindowLong::ExtendedStyle) found->extendedStyle = value;
    ApplyStyles(*found->widget, found->style, found->extendedStyle);
}

void QtTree::DoInvalidateRect(WindowHandle window) {
    if (TreeWindow* found = Handles::Table().Find(window)) found->widget->update();
}

MenuHandle QtTree::DoGetMenu(WindowHandle window) {
    return MenuBarOf(window) == nullptr ? 0 : window;
}

std::int32_t QtTree::DoGetMenuItemCount(MenuHandle menu) {
    const QMenuBar* bar = MenuBarOf(menu);
    return bar == nullptr ? 0 : static_cast<std::int32_t>(bar->actions().size());
}

MenuItemInfo QtTree::DoGetMenuItemInfo(MenuHandle menu, std::int32_t position, std::size_t length) {
    const QAction* item = ItemAt(menu, position);
    if (item == nullptr) return {};
    const std::string text = CaptionOf(*item).toStdString();
    return {TypeOf(*Handles::Table().Find(menu), position), text.substr(0, length), text.size()};
}

void QtTree::DoSetMenuItemInfo(MenuHandle menu, std::int32_t position, const MenuItemInfo& item) {
    QAction* action = ItemAt(menu, position);
    if (action == nullptr) return;
    TypeOf(*Handles::Table().Find(menu), position) = item.type;
    SetCaptionOf(*action, QString::fromStdString(item.text));
}

void QtTree::DoDrawMenuBar(WindowHandle window) {
    QMenuBar* bar = MenuBarOf(window);
    if (bar == nullptr) return;
    const std::vector<std::uint32_t>& types = Handles::Table().Find(window)->menuItemTypes;
    const auto fromRight = [&](std::int32_t position) {
        const auto index = static_cast<std::size_t>(position);
        return index < types.size() && (types[index] & StyleBit::MenuFromRight) == StyleBit::MenuFromRight;
    };
    // Items are marked one by one, but the bar as a whole begins where its first one does.
    bar->setLayoutDirection(fromRight(0) ? Qt::RightToLeft : Qt::LeftToRight);
    for (std::int32_t position = 0; position < bar->actions().size(); ++position)
        SetMenuDirection(*bar->actions()[position], fromRight(position));
    bar->update();
}

bool QtTree::DoLibraryLoads(const std::string& name) {
    QLibrary library(QString::fromStdString(name));
    const bool loads = library.load();
    if (loads) library.unload();
    return loads;
}

} // namespace qbrpt::qt
