// Windows that only remember what was done to them.
#pragma once

#include "fakes/fake_form_controls.h"
#include "fakes/fake_viewer.h"
#include "platform/forms.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

class FakeMenuItem final : public MenuItem {
public:
    std::string caption;
    bool enabled = true;

private:
    void DoSetCaption(const std::string& value) override { caption = value; }
    bool DoEnabled() override { return enabled; }
    void DoSetEnabled(bool value) override { enabled = value; }
};

class FakeButton final : public ToolbarButton {
public:
    std::string key;
    ButtonStyle style = ButtonStyle::Default;
    std::int16_t image = 0;
    std::int16_t value = 0;
    std::string toolTip;
    bool enabled = true;

private:
    std::string DoKey() override { return key; }
    ButtonStyle DoStyle() override { return style; }
    std::int16_t DoImage() override { return image; }
    void DoSetImage(std::int16_t number) override { image = number; }
    void DoSetValue(std::int16_t pressed) override { value = pressed; }
    void DoSetToolTipText(const std::string& text) override { toolTip = text; }
    void DoSetEnabled(bool on) override { enabled = on; }
};

class FakeToolbar final : public Toolbar {
public:
    std::vector<std::shared_ptr<FakeButton>> buttons;
    std::string imageList;
    std::int32_t width = 7000;
    std::int32_t height = 600;
    std::int32_t left = 0;
    std::int32_t top = 0;
    int moves = 0;
    int broughtToFront = 0;

    [[nodiscard]] std::shared_ptr<FakeButton> Of(const std::string& key) const {
        for (const auto& button : buttons) {
            if (button->key == key) return button;
        }
        throw Failure(FailureNumber::NotInCollection, "There is no button \"" + key + "\".");
    }

private:
    std::int16_t DoButtonCount() override { return static_cast<std::int16_t>(buttons.size()); }
    Ref<ToolbarButton> DoButtons(std::int16_t index) override {
        return buttons.at(static_cast<std::size_t>(index - 1));
    }
    Ref<ToolbarButton> DoButtonOf(const std::string& key) override { return Of(key); }
    void DoSetImageList(const std::string& name) override {
        imageList = name;
        for (const auto& button : buttons)
            button->image = 0;
    }
    std::int32_t DoWidth() override { return width; }
    std::int32_t DoHeight() override { return height; }
    void DoMove(std::int32_t newLeft, std::int32_t newTop) override {
        ++moves;
        left = newLeft;
        top = newTop;
    }
    void DoZOrder() override { ++broughtToFront; }
};

/// A window. `shown` runs while it is open; then it closes as by its frame, unless it is closed or hidden
/// already.
class FakeForm final : public Form {
public:
    FakeForm(const FormTable& table, FormEvents& formEvents, std::shared_ptr<FakeViewer> formViewer)
        : events(formEvents), viewer(std::move(formViewer)), controls(formEvents), formName(table.name),
          caption(table.caption) {
        for (const ControlRow& row : table.controls)
            Add(row, table);
    }

    ~FakeForm() override { viewer->report.Clear(); }
    FakeForm(const FakeForm&) = delete;
    FakeForm& operator=(const FakeForm&) = delete;

    FormEvents& events;
    std::shared_ptr<FakeViewer> viewer;
    FakeFormControls controls;
    std::string formName;
    std::string caption;
    std::map<std::string, std::shared_ptr<FakeMenuItem>> menu;
    std::map<std::string, std::shared_ptr<FakeToolbar>> toolbars;
    WindowHandle handle = 77;
    WindowState state = WindowState::Normal;
    bool rightToLeft = false;
    bool visible = false;
    bool gone = false;
    std::int32_t scaleWidth = 9930;
    std::int32_t scaleHeight = 3645;
    std::vector<std::pair<std::int32_t, std::int32_t>> moves;
    std::function<void(FakeForm&)> shown = [](FakeForm&) {};

    void Close() {
        if (std::exchange(gone, true)) return;
        events.QueryUnload();
        visible = false;
        viewer->report.Clear();
    }

private:
    void Add(const ControlRow& row, const FormTable& table) {
        const std::string name(row.name);
        switch (row.kind) {
        case ControlKind::Menu:
        case ControlKind::MenuItem:
            menu[name] = std::make_shared<FakeMenuItem>();
            menu[name]->caption = row.caption;
            break;
        case ControlKind::Toolbar:
            toolbars[name] = std::make_shared<FakeToolbar>();
            toolbars[name]->imageList = table.imageList;
            break;
        case ControlKind::ToolbarButton:
        case ControlKind::ToolbarSeparator: {
            auto button = std::make_shared<FakeButton>();
            button->key = name;
            button->toolTip = row.caption;
            button->image = row.image;
            if (row.kind == ControlKind::ToolbarSeparator) button->style = ButtonStyle::Separator;
            toolbars.at(std::string(row.parent))->buttons.push_back(std::move(button));
            break;
        }
        default:
            controls.Add(row);
            break;
        }
    }

    WindowHandle DohWnd() override { return handle; }
    void DoSetCaption(const std::string& text) override { caption = text; }
    WindowState DoState() override { return state; }
    void DoSetState(WindowState value) override { state = value; }
    void DoSetRightToLeft(bool value) override { rightToLeft = value; }
    std::int32_t DoScaleWidth() override { return scaleWidth; }
    std::int32_t DoScaleHeight() override { return scaleHeight; }
    bool DoVisible() override { return visible; }
    void DoMove(std::int32_t left, std::int32_t top) override { moves.emplace_back(left, top); }
    void DoShowModal() override {
        visible = true;
        ++viewer->views;
        events.Resize();
        events.Activate();
        viewer->whileOpen();
        shown(*this);
        if (visible) Close();
    }
    void DoHide() override { visible = false; }
    void DoUnload() override { Close(); }
    Ref<MenuItem> DoMenu(const std::string& name) override { return menu.at(name); }
    Ref<Toolbar> DoToolbarOf(const std::string& name) override { return toolbars.at(name); }
    Ref<CRViewer> DoViewer(const std::string&) override { return viewer; }
    Ref<Control> DoControl(const std::string& name) override { return controls.Get(name); }
};

class FakeForms final : public Forms {
public:
    std::shared_ptr<FakeViewer> viewer = std::make_shared<FakeViewer>();
    std::weak_ptr<FakeForm> latest; ///< the last window that was built
    int built = 0;
    std::function<void(FakeForm&)> prepare = [](FakeForm&) {}; ///< runs when a window was built
    std::function<void(FakeForm&)> shown = [](FakeForm&) {};   ///< runs while one is open

private:
    Ref<Form> DoLoad(const FormTable& table, FormEvents& events) override {
        ++built;
        auto form = std::make_shared<FakeForm>(table, events, viewer);
        latest = form;
        form->shown = shown;
        prepare(*form);
        return form;
    }
};

} // namespace qbrpt::fakes
