#include "adapters/qt/dialog/dialog_controls.h"

#include "adapters/qt/dialog/arrow_pair.h"
#include "adapters/qt/dialog/buttons.h"
#include "adapters/qt/dialog/combo_box.h"
#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/date_field.h"
#include "adapters/qt/dialog/list_view.h"
#include "adapters/qt/dialog/picture_area.h"
#include "adapters/qt/dialog/sheet.h"
#include "adapters/qt/dialog/tab_strip.h"
#include "adapters/qt/dialog/text_boxes.h"
#include "adapters/qt/dialog/words.h"
#include "adapters/qt/handles.h"
#include "adapters/qt/shown_text.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QShortcut>

#include <algorithm>
#include <utility>

namespace qbrpt::qt {

namespace {

bool IsField(ControlKind kind) {
    return kind == ControlKind::TextBox || kind == ControlKind::ComboBox || kind == ControlKind::DatePicker ||
           kind == ControlKind::ListView;
}

QString Spoken(std::string_view caption) {
    return Text(caption).remove('&').trimmed();
}

} // namespace

DialogControls::DialogControls(QWidget& client, const FormTable& table, ControlEvents events)
    : mClient(client), mTable(table), mEvents(std::move(events)), mFocus(mEvents.gotFocus) {}

DialogControls::Built DialogControls::Make(QWidget& parent, const ControlRow& row) const {
    const auto as = [&](const auto& built) { return Built{&row, built.widget, built.port}; };
    switch (row.kind) {
    case ControlKind::Label:
        return as(BuildLabel(parent, row));
    case ControlKind::Frame:
        return as(BuildFrame(parent, row));
    case ControlKind::TextBox:
        return as(
            BuildTextBox(parent, row, mEvents, [defaults = mDefaults] { return defaults->CanAnswer(); }));
    case ControlKind::CommandButton:
        return as(BuildPushButton(parent, row, mEvents, mDefaults));
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
        return as(BuildToggle(parent, row, mEvents));
    case ControlKind::ComboBox:
        return as(BuildCombo(parent, row, mEvents));
    case ControlKind::ListView:
        return as(BuildListView(parent, row, mTable, mEvents));
    case ControlKind::TabStrip:
        return as(BuildTabStrip(parent, row, mTable, mEvents));
    case ControlKind::DatePicker:
        return as(BuildDatePicker(parent, row, mEvents));
    case ControlKind::VScrollBar:
        return as(BuildScrollBar(parent, row, mEvents));
    case ControlKind::PictureBox:
        return as(BuildPictureBox(parent, row, mEvents));
    default:
        return {};
    }
}

void DialogControls::Add(const ControlRow& row, const AddToTree& addToTree) {
    QWidget* holder = row.parent.empty() ? &mClient : WidgetOf(std::string(row.parent));
    if (holder == nullptr) holder = &mClient;
    Built built = Make(*holder, row);
    if (built.widget == nullptr) return;
    if (mBuilt.empty()) mClient.setStyleSheet(DialogSheet());
    built.widget->setObjectName(Text(row.name));
    mGrids.Place(*holder, *built.widget, row);
    if (row.hidden) built.widget->hide();
    mFocus.Add(*built.widget, std::string(row.name));
    if (auto* tabs = dynamic_cast<TabBox*>(built.widget); tabs != nullptr && mTabs == nullptr) mTabs = tabs;
    mBuilt.push_back(built);
    addToTree(*built.widget, row, row.parent.empty() ? 0 : Handles::Table().HandleOf(holder));
}

Ref<Control> DialogControls::Find(const std::string& name) const {
    const auto found = std::find_if(mBuilt.begin(), mBuilt.end(),
                                    [&](const Built& built) { return built.row->name == name; });
    return found == mBuilt.end() ? Ref<Control>() : found->port;
}

QWidget* DialogControls::WidgetOf(const std::string& name) const {
    const auto found = std::find_if(mBuilt.begin(), mBuilt.end(),
                                    [&](const Built& built) { return built.row->name == name; });
    return found == mBuilt.end() ? nullptr : found->widget;
}

void DialogControls::Finish() {
    mGrids.Finish();
    NameFields();
    OrderTabKey();
    if (mTabs == nullptr) return;
    mTabs->resized = [this] { FitPanels(); };
    TurnTabsByKeys();
}

/// A field is called by the words before it.
void DialogControls::NameFields() {
    for (std::size_t at = 1; at < mBuilt.size(); ++at) {
        const ControlRow& field = *mBuilt[at].row;
        const ControlRow& before = *mBuilt[at - 1].row;
        const bool isWords = before.kind == ControlKind::Label || before.kind == ControlKind::OptionButton;
        if (!IsField(field.kind) || !isWords || field.parent != before.parent) continue;
        mBuilt[at].widget->setAccessibleName(Spoken(before.caption));
        auto* label = qobject_cast<QLabel*>(mBuilt[at - 1].widget);
        if (label != nullptr && !before.caption.empty()) label->setBuddy(mBuilt[at].widget);
    }
}

std::vector<QWidget*> DialogControls::InTabOrder() const {
    std::vector<const Built*> rows;
    for (const Built& built : mBuilt) {
        if (built.widget->focusPolicy() != Qt::NoFocus || built.widget->focusProxy() != nullptr)
            rows.push_back(&built);
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Built* one, const Built* other) {
        return one->row->tabIndex < other->row->tabIndex;
    });
    std::vector<QWidget*> widgets;
    for (const Built* built : rows)
        widgets.push_back(built->widget);
    return widgets;
}

void DialogControls::OrderTabKey() {
    const std::vector<QWidget*> order = InTabOrder();
    for (std::size_t at = 1; at < order.size(); ++at)
        QWidget::setTabOrder(order[at - 1], order[at]);
}

void DialogControls::FocusFirst() {
    for (QWidget* widget : InTabOrder()) {
        if (!widget->isEnabled() || !IsToBeSeen(*widget)) continue;
        if (widget->focusPolicy() == Qt::ClickFocus) continue; // an option beside the one that is on
        widget->setFocus(Qt::TabFocusReason);
        if (auto* line = qobject_cast<QLineEdit*>(widget)) line->selectAll();
        return;
    }
}

bool DialogControls::IsFreePanel(const Built& built) const {
    return built.row->kind == ControlKind::PictureBox && built.row->cell.row < 0 &&
           built.row->place.width <= 0 && built.widget->layout() != nullptr;
}

void DialogControls::FitPanels() {
    for (const Built& built : mBuilt) {
        if (mTabs != nullptr && IsFreePanel(built)) built.widget->setGeometry(mTabs->Client());
    }
}

QSize DialogControls::LeastSize() const {
    QSize panels;
    for (const Built& built : mBuilt) {
        if (built.row->kind != ControlKind::PictureBox) continue;
        panels = panels.expandedTo(IsFreePanel(built) ? built.widget->layout()->totalMinimumSize()
                                                      : built.widget->size());
    }
    if (mTabs != nullptr) mTabs->setMinimumSize(mTabs->SizeAround(panels));
    return mClient.layout() == nullptr ? QSize() : mClient.layout()->totalMinimumSize();
}

QSize DialogControls::Fit(const QSize& given) {
    if (mBuilt.empty()) return given;
    while (!given.isEmpty() && LeastSize().height() > given.height() && mGrids.Tighten()) {}
    return given.expandedTo(LeastSize());
}

void DialogControls::Settle() {
    qt::Settle(mClient);
    FitPanels();
    qt::Settle(mClient);
}

bool DialogControls::TakesKey(QKeyEvent& event) {
    return mDefaults->Answer(event.key());
}

/// As shortcuts of the window, which come before the control that has the focus: lists and boxes would take
/// these keys for their own.
void DialogControls::TurnTabsByKeys() {
    constexpr auto control = Qt::ControlModifier;
    constexpr auto back = Qt::ControlModifier | Qt::ShiftModifier;
    const std::pair<QKeyCombination, int> turns[] = {{control | Qt::Key_Tab, 1},
                                                     {control | Qt::Key_PageDown, 1},
                                                     {back | Qt::Key_Tab, -1},
                                                     {back | Qt::Key_Backtab, -1},
                                                     {control | Qt::Key_PageUp, -1}};
    for (const auto& [keys, step] : turns) {
        auto* shortcut = new QShortcut(keys, &mClient);
        QObject::connect(shortcut, &QShortcut::activated, &mTabs->Tabs(), [&tabs = mTabs->Tabs(), by = step] {
            if (tabs.count() > 0)
                tabs.setCurrentIndex((tabs.currentIndex() + by + tabs.count()) % tabs.count());
        });
    }
}

} // namespace qbrpt::qt
