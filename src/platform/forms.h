// Windows of the system and what stands in them. A form is data (a table of controls) and rules (a class
// that hears its events); what draws it lies behind these ports.
#pragma once

#include "base/failure.h"
#include "base/ref.h"
#include "platform/controls.h"
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
    Viewer,
    Label,
    TextBox,
    CommandButton,
    Frame,
    OptionButton,
    CheckBox,
    ComboBox, ///< a drop-down list
    ListView,
    ListColumn, ///< one of the list view that is its parent
    TabStrip,
    Tab, ///< one of the tab strip that is its parent
    DatePicker,
    VScrollBar,
    PictureBox ///< also a panel
};

/// A place in the rows and columns of a container; columns are counted from the side where reading begins.
struct GridCell {
    std::int16_t row = -1; ///< from 0; below 0: not in the grid
    std::int16_t column = 0;
    std::int16_t columns = 1; ///< that it takes
    std::int16_t rows = 1;    ///< that it takes
    bool stretch = false;     ///< takes what room the row has left
};

/// One line of a form's table. Members of a control array have their index in their name: "OrignOpt(0)".
struct ControlRow {
    ControlKind kind = ControlKind::MenuItem;
    std::string_view name{};     ///< of a tool bar's button: its key
    std::string_view parent{};   ///< the control that it stands in; empty: the form
    std::string_view caption{};  ///< of a tool bar's button: its tool tip
    std::string_view shortcut{}; ///< "Ctrl+P"
    std::int16_t image = 0;      ///< number of its picture in the form's image list, from 1; 0: none

    GridCell cell{};                ///< where it stands, unless `place` has a size
    ControlPlace place{};           ///< a fixed place in its container
    std::int16_t tabIndex = 0;      ///< order of the tab key
    std::string_view text{};        ///< what a text box holds at first
    std::string_view format{};      ///< of a date picker: "dd/MM/yyyy hh:mmtt"
    std::string_view picture{};     ///< of a picture box: the name of its picture
    std::int16_t minimum = 0;       ///< of a scroll bar; its value at first
    std::int16_t maximum = 0;       ///< of a scroll bar
    bool on = false;                ///< an option or check box that is on at first
    bool isDefault = false;         ///< answers to the enter key
    bool isCancel = false;          ///< answers to the escape key
    bool locked = false;            ///< a text box that shows and takes nothing; grey
    bool multiLine = false;         ///< a text box of several lines
    bool centred = false;           ///< a text box whose text stands in its middle
    bool hidden = false;            ///< not to be seen at first
    bool canBeEmpty = false;        ///< a date picker with a check box, which can hold no date
    std::int16_t widthInDigits = 0; ///< wished width of a field; 0: as wide as its cell
};

/// A form as it is built, before its rules touch it.
struct FormTable {
    std::string_view name;
    std::string_view caption;
    std::int32_t clientWidth = 0;  ///< twips
    std::int32_t clientHeight = 0; ///< twips
    std::span<const ControlRow> controls;
    bool designedRightToLeft = false;
    std::string_view imageList{}; ///< the list that its tool bars and tabs show at first
    bool isDialog = false;        ///< a fixed frame, centred on the screen
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
    /// Shows the window and returns when it was hidden or closed.
    void ShowModal();
    /// Ends ShowModal; the window and what it holds stay until Unload.
    void Hide();
    /// Closes the window: its rules hear of it once, then it is gone. Nothing for a window that is gone.
    void Unload();

    [[nodiscard]] Ref<MenuItem> Menu(const std::string& name);
    [[nodiscard]] Ref<Toolbar> ToolbarOf(const std::string& name);
    [[nodiscard]] Ref<CRViewer> Viewer(const std::string& name);
    /// The control of this name. None, or one of another kind, raises NotInCollection.
    template <class Kind>
    [[nodiscard]] Ref<Kind> Get(const std::string& name) {
        auto control = std::dynamic_pointer_cast<Kind>(ControlOf(name).Shared());
        if (!control)
            throw Failure(FailureNumber::NotInCollection, "The control \"" + name + "\" is of another kind.");
        return control;
    }

private:
    [[nodiscard]] Ref<Control> ControlOf(const std::string& name);
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
    virtual void DoHide() = 0;
    virtual void DoUnload() = 0;
    virtual Ref<MenuItem> DoMenu(const std::string& name) = 0;
    virtual Ref<Toolbar> DoToolbarOf(const std::string& name) = 0;
    virtual Ref<CRViewer> DoViewer(const std::string& name) = 0;
    virtual Ref<Control> DoControl(const std::string& name) = 0;
};

/// The rules of a form hear here what happens to it. Nothing may be thrown back.
class FormEvents {
public:
    virtual ~FormEvents() = default;
    /// The window is on screen and active.
    virtual void Activate() {}
    virtual void Resize() {}
    /// The window is about to close, by its frame or by Unload.
    virtual void QueryUnload() {}
    /// A menu item was chosen; a button pressed; an option switched on; a check box switched; an entry of a
    /// list selected, also the one that was; a tab strip clicked.
    virtual void Click(const std::string& name) { static_cast<void>(name); }
    virtual void DblClick(const std::string& name) { static_cast<void>(name); }
    /// An item of a list view was clicked, or selected by keys.
    virtual void ItemClick(const std::string& name) { static_cast<void>(name); }
    /// Whether the text of a list view's item may be edited in place.
    [[nodiscard]] virtual bool BeforeLabelEdit(const std::string& name) {
        static_cast<void>(name);
        return true;
    }
    /// The text of a text box or the value of a scroll bar has changed; a user has changed a date picker's.
    virtual void Change(const std::string& name) { static_cast<void>(name); }
    /// A character is typed into a text box; the one that the box takes in its place, 0 for none. A line
    /// end is 13, backspace is 8.
    [[nodiscard]] virtual std::int16_t KeyPress(const std::string& name, std::int16_t key) {
        static_cast<void>(name);
        return key;
    }
    virtual void GotFocus(const std::string& name) { static_cast<void>(name); }
    /// A picture box is to be painted; its hDC is valid until this returns.
    virtual void Paint(const std::string& name) { static_cast<void>(name); }
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
