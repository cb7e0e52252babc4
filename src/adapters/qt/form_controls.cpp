#include "adapters/qt/form_controls.h"

#include "adapters/qt/button_bar.h"
#include "adapters/qt/handles.h"
#include "adapters/qt/look.h"
#include "adapters/qt/menus.h"
#include "adapters/qt/style_words.h"
#include "adapters/qt/toolbars.h"
#include "adapters/qt/window_classes.h"
#include "base/failure.h"

#include <QtWidgets/QFrame>
#include <QtWidgets/QMenuBar>

#include <algorithm>
#include <utility>

namespace qbrpt::qt {

namespace {

[[noreturn]] void FailNoControl(const std::string& name) {
    throw Failure(FailureNumber::NotInCollection, "The form has no control \"" + name + "\".");
}

template <class Map>
auto& Named(const Map& map, const std::string& name) {
    const auto found = map.find(name);
    if (found == map.end()) FailNoControl(name);
    return *found->second;
}

bool HasButtons(const FormTable& table, std::string_view toolbar) {
    return std::any_of(table.controls.begin(), table.controls.end(), [&](const ControlRow& row) {
        return row.kind == ControlKind::ToolbarButton && row.parent == toolbar;
    });
}

} // namespace

FormControls::FormControls(FormWindow& window, const FormTable& table, ControlEvents events)
    : mWindow(window), mEvents(std::move(events)),
      mHandle(Handles::Table().Add(window, FormClass, StyleBit::Caption)),
      mDialog(window.Client(), table, mEvents) {
    MenuBuilder menu(window.MenuBar(), mEvents.click);
    const auto addToTree = [&](QWidget& widget, const ControlRow& row, WindowHandle parent) {
        return AddToTree(widget, ClassOf(row.kind, table.designedRightToLeft), parent);
    };
    for (const ControlRow& row : table.controls) {
        switch (row.kind) {
        case ControlKind::Menu:
        case ControlKind::MenuItem:
        case ControlKind::MenuSeparator:
            menu.Add(row);
            break;
        case ControlKind::Toolbar:
            AddToolbar(row, table);
            break;
        case ControlKind::ToolbarButton:
            Named(mBars, std::string(row.parent)).AddButton(row);
            break;
        case ControlKind::ToolbarSeparator:
            Named(mBars, std::string(row.parent)).AddSeparator();
            break;
        case ControlKind::Viewer:
            AddViewer(row);
            break;
        default:
            mDialog.Add(row, addToTree);
            break;
        }
    }
    mDialog.Finish();
    mMenu = menu.Items();
    for (const auto& [name, bar] : mBars)
        bar->adjustSize();
}

FormControls::~FormControls() {
    Handles::Table().Remove(mHandle);
}

WindowHandle FormControls::AddToTree(QWidget& widget, const WindowClass& kind, WindowHandle parent) {
    const std::uint32_t style = StyleBit::Child | StyleBit::Visible | kind.style;
    const WindowHandle handle =
        Handles::Table().Add(widget, kind.name, style, parent == 0 ? mHandle : parent);
    TreeWindow& window = *Handles::Table().Find(handle);
    window.extendedStyle = kind.extendedStyle;
    ApplyStyles(widget, window.style, window.extendedStyle);
    return handle;
}

void FormControls::AddToolbar(const ControlRow& row, const FormTable& table) {
    const std::string name(row.name);
    if (HasButtons(table, row.name)) {
        auto* bar = new ButtonBar(&mWindow.Client(), std::string(table.imageList), mEvents.buttonClick);
        mBars[name] = bar;
        AddToTree(*bar, ClassOf(row.kind, false));
        return;
    }
    auto* strip = new QFrame(&mWindow.Client());
    strip->setObjectName("strip");
    strip->setFixedHeight(Measure::Strip);
    mStrips[name] = strip;
    AddToTree(*strip, ClassOf(row.kind, false));
}

void FormControls::AddViewer(const ControlRow& row) {
    auto* viewer = new ViewerWidget(&mWindow.Client());
    viewer->pageChanged = mEvents.pageChanged;
    viewer->zoomStep = [click = mEvents.click](bool in) { click(in ? "mnZoomIn" : "mnZoomOut"); };
    viewer->fullSize = [click = mEvents.click] { click("mnZoom100"); };
    viewer->dressMenu = DressMenu;
    mViewers[std::string(row.name)] = viewer;
    mWindow.setFocusProxy(viewer); // what is typed goes to the pages
    AddToTree(*viewer, ClassOf(row.kind, false));
}

void FormControls::StretchStrips() {
    for (const auto& [name, strip] : mStrips)
        strip->setGeometry(0, 0, mWindow.Client().width(), strip->height());
}

QAction& FormControls::Menu(const std::string& name) const {
    return Named(mMenu, name);
}

Ref<Toolbar> FormControls::ToolbarOf(const std::string& name) const {
    if (const auto bar = mBars.find(name); bar != mBars.end()) return ToolbarOver(*bar->second);
    return ToolbarOver(Named(mStrips, name));
}

Ref<Control> FormControls::ControlOf(const std::string& name) const {
    Ref<Control> control = mDialog.Find(name);
    if (control.Empty()) FailNoControl(name);
    return control;
}

ViewerWidget& FormControls::Viewer(const std::string& name) const {
    return Named(mViewers, name);
}

} // namespace qbrpt::qt
