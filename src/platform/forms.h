// Windows of the system and what stands in them. A form is data (a table of controls) and rules (a class
// that hears its events); what draws it lies behind these ports.
#pragma once

#include "base/ref.h"
#include "platform/desktop.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qbrpt {

class CRViewer;

enum class ControlKind : std::uint8_t {
    Menu,
    MenuItem,
    MenuSeparator,
    Toolbar,
    ToolbarButton,
    ToolbarSeparator,
    Viewer
};

/// One line of a form's table.
struct ControlRow {
    ControlKind kind = ControlKind::MenuItem;
    std::string_view name{};     ///< of a tool bar's button: its key
    std::string_view parent{};   ///< the menu or tool bar that it stands in; empty: the form
    std::string_view caption{};  ///< of a tool bar's button: its tool tip
    std::string_view shortcut{}; ///< "Ctrl+P"
    std::int16_t image = 0;      ///< number of its picture in the form's image list, from 1; 0: none
};

/// A form as it is built, before its rules touch it.
struct FormTable {
    std::string_view name;
    std::string_view caption;
    std::int32_t clientWidth = 0;  ///< twips
    std::int32_t clientHeight = 0; ///< twips
    std::span<const ControlRow> controls;
    bool designedRightToLeft = false;
    std::string_view imageList; ///< the list that its tool bars show at first
};

class MenuItem : public Port {
public:
    void SetCaption(const std::string& caption);
    [[nodiscard]] bool Enabled();
    void SetEnabled(bool enabled);

private:
    virtual void DoSetCaption(const std::string& caption) = 0;
    virtual bool DoEnabled() = 0;
    virtual void DoSetEnabled(bool enabled) = 0;
};

/// `Style` of a tool bar's button.
enum class ButtonStyle : std::int16_t { Default = 0, Check = 1, Group = 2, Separator = 3, Placeholder = 4 };

class ToolbarButton : public Port {
public:
    [[nodiscard]] std::string Key();
    [[nodiscard]] ButtonStyle Style();
    /// The number of the button's picture, from 1; 0 for none.
    [[nodiscard]] std::int16_t Image();
    void SetImage(std::int16_t image);
    /// 1: pressed.
    void SetValue(std::int16_t value);
    void SetToolTipText(const std::string& text);
    void SetEnabled(bool enabled);

private:
    virtual std::string DoKey() = 0;
    virtual ButtonStyle DoStyle() = 0;
    virtual std::int16_t DoImage() = 0;
    virtual void DoSetImage(std::int16_t image) = 0;
    virtual void DoSetValue(std::int16_t value) = 0;
    virtual void DoSetToolTipText(const std::string& text) = 0;
    virtual void DoSetEnabled(bool enabled) = 0;
};

class Toolbar : public Port {
public:
    [[nodiscard]] std::int16_t ButtonCount();
    /// Button `index`, counted from 1; separators count.
    [[nodiscard]] Ref<ToolbarButton> Buttons(std::int16_t index);
    [[nodiscard]] Ref<ToolbarButton> ButtonOf(const std::string& key);
    /// Points the tool bar at another image list; its buttons lose their pictures.
    void SetImageList(const std::string& name);
    /// In twips.
    [[nodiscard]] std::int32_t Width();
    [[nodiscard]] std::int32_t Height();
    void Move(std::int32_t left, std::int32_t top);
    /// Brings the tool bar in front of its neighbours.
    void ZOrder();

private:
    virtual std::int16_t DoButtonCount() = 0;
    virtual Ref<ToolbarButton> DoButtons(std::int16_t index) = 0;
    virtual Ref<ToolbarButton> DoButtonOf(const std::string& key) = 0;
    virtual void DoSetImageList(const std::string& name) = 0;
    virtual std::int32_t DoWidth() = 0;
    virtual std::int32_t DoHeight() = 0;
    virtual void DoMove(std::int32_t left, std::int32_t top) = 0;
    virtual void DoZOrder() = 0;
};

/// `WindowState` of a form.
enum class WindowState : std::int16_t { Normal = 0, Minimized = 1, Maximized = 2 };

class Form : public Port {
public:
    [[nodiscard]] WindowHandle hWnd();
    void SetCaption(const std::string& caption);
    [[nodiscard]] WindowState State();
    void SetState(WindowState state);
    void SetRightToLeft(bool rightToLeft);
    /// The inner size, in twips; 0 while minimised.
    [[nodiscard]] std::int32_t ScaleWidth();
    [[nodiscard]] std::int32_t ScaleHeight();
    [[nodiscard]] bool Visible();
    /// Moves the window, in twips, and leaves its size.
    void Move(std::int32_t left, std::int32_t top);
    /// Shows the window and returns when it was closed.
    void ShowModal();
    /// Closes the window: its rules hear of it once, then it is gone. Nothing for a window that is gone.
    void Unload();

    [[nodiscard]] Ref<MenuItem> Menu(const std::string& name);
    [[nodiscard]] Ref<Toolbar> ToolbarOf(const std::string& name);
    [[nodiscard]] Ref<CRViewer> Viewer(const std::string& name);

private:
    virtual WindowHandle DohWnd() = 0;
    virtual void DoSetCaption(const std::string& caption) = 0;
    virtual WindowState DoState() = 0;
    virtual void DoSetState(WindowState state) = 0;
    virtual void DoSetRightToLeft(bool rightToLeft) = 0;
    virtual std::int32_t DoScaleWidth() = 0;
    virtual std::int32_t DoScaleHeight() = 0;
    virtual bool DoVisible() = 0;
    virtual void DoMove(std::int32_t left, std::int32_t top) = 0;
    virtual void DoShowModal() = 0;
    virtual void DoUnload() = 0;
    virtual Ref<MenuItem> DoMenu(const std::string& name) = 0;
    virtual Ref<Toolbar> DoToolbarOf(const std::string& name) = 0;
    virtual Ref<CRViewer> DoViewer(const std::string& name) = 0;
};

/// The rules of a form hear here what happens to it. Nothing may be thrown back.
class FormEvents {
public:
    virtual ~FormEvents() = default;
    virtual void Resize() {}
    /// The window is about to close, by its frame or by Unload.
    virtual void QueryUnload() {}
    /// A menu item was chosen.
    virtual void Click(const std::string& name) { static_cast<void>(name); }
    /// A tool bar's button was clicked.
    virtual void ButtonClick(const std::string& key) { static_cast<void>(key); }
    /// The viewer shows another page, by its own doing.
    virtual void PageChanged() {}
};

/// Builds windows. Where there is no display that is a failure with words.
class Forms : public Port {
public:
    /// A window of `table`, not shown yet. `events` must outlive it.
    [[nodiscard]] Ref<Form> Load(const FormTable& table, FormEvents& events);

private:
    virtual Ref<Form> DoLoad(const FormTable& table, FormEvents& events) = 0;
};

} // namespace qbrpt
