#include "adapters/qt/menus.h"

#include "adapters/qt/look.h"
#include "adapters/qt/menu_style.h"
#include "adapters/qt/shown_text.h"

#include <QtCore/QPointer>
#include <QtGui/QKeySequence>
#include <QtWidgets/QMenu>

#include <memory>

namespace qbrpt::qt {

namespace {

constexpr const char* CaptionProperty = "caption";

class QtMenuItem final : public MenuItem {
public:
    explicit QtMenuItem(QAction& action) : mAction(&action) {}

private:
    void DoSetCaption(const std::string& caption) override {
        if (mAction) SetCaptionOf(*mAction, QString::fromStdString(caption));
    }
    bool DoEnabled() override { return mAction && mAction->isEnabled(); }
    void DoSetEnabled(bool enabled) override {
        if (mAction) mAction->setEnabled(enabled);
    }
    QPointer<QAction> mAction;
};

} // namespace

QString CaptionOf(const QAction& action) {
    return action.property(CaptionProperty).toString();
}

void SetCaptionOf(QAction& action, const QString& caption) {
    action.setProperty(CaptionProperty, caption);
    action.setText(KeptInOrder(caption));
}

void DressMenu(QMenu& menu) {
    menu.setFont(WindowFont());
    menu.setStyle(&MenuStyle::Instance());
}

void SetMenuDirection(QAction& action, bool rightToLeft) {
    QMenu* menu = action.menu();
    if (menu == nullptr) return;
    menu->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    for (QAction* item : menu->actions())
        SetMenuDirection(*item, rightToLeft);
}

QMenu* MenuBuilder::MenuOf(std::string_view name) const {
    const auto found = mItems.find(std::string(name));
    return found == mItems.end() ? nullptr : found->second->menu();
}

void MenuBuilder::Add(const ControlRow& row) {
    QMenu* holder = MenuOf(row.parent);
    QWidget& parent = holder == nullptr ? static_cast<QWidget&>(mBar) : *holder;
    QAction* action = nullptr;
    if (row.kind == ControlKind::Menu) {
        auto* menu = new QMenu(&parent);
        DressMenu(*menu);
        action = menu->menuAction();
    } else {
        action = new QAction(&parent);
        action->setSeparator(row.kind == ControlKind::MenuSeparator);
        if (!row.shortcut.empty()) action->setShortcut(QKeySequence(Text(row.shortcut)));
        QObject::connect(action, &QAction::triggered,
                         [chosen = mChosen, name = std::string(row.name)] { chosen(name); });
    }
    if (row.kind != ControlKind::MenuSeparator) SetCaptionOf(*action, Text(row.caption));
    action->setObjectName(Text(row.name));
    parent.addAction(action);
    mItems[std::string(row.name)] = action;
}

Ref<MenuItem> ItemOf(QAction& action) {
    return std::make_shared<QtMenuItem>(action);
}

} // namespace qbrpt::qt
