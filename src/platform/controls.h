// The controls that stand in windows. What a rule sets here is heard as if the user had done it: a text, a
// selection, a check or a value that changes by it runs the form's Change or Click before the call returns.
#pragma once

#include "platform/port.h"
#include "platform/windows.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qbrpt {

/// A rectangle inside the control's container, in twips.
struct ControlPlace {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// Handle of a drawing surface; 0 is none.
using DeviceContext = std::uint32_t;
/// Handle of a picture; 0 is none.
using PictureHandle = std::uint32_t;

/// What all controls can do.
class Control : public Port {
public:
    [[nodiscard]] WindowHandle hWnd() const;
    [[nodiscard]] bool Enabled() const;
    void SetEnabled(bool enabled);
    [[nodiscard]] bool Visible() const;
    void SetVisible(bool visible);
    [[nodiscard]] ControlPlace Place() const;
    /// Moves the control and leaves its size.
    void Move(double left, double top);
    void Move(const ControlPlace& place);
    /// Brings the control in front of its neighbours.
    void ZOrder();
    /// A control that is disabled or not to be seen raises InvalidArgument.
    void SetFocus();

private:
    [[nodiscard]] virtual WindowHandle DohWnd() const = 0;
    [[nodiscard]] virtual bool DoEnabled() const = 0;
    virtual void DoSetEnabled(bool enabled) = 0;
    [[nodiscard]] virtual bool DoVisible() const = 0;
    virtual void DoSetVisible(bool visible) = 0;
    [[nodiscard]] virtual ControlPlace DoPlace() const = 0;
    virtual void DoMove(const ControlPlace& place) = 0;
    virtual void DoZOrder() = 0;
    virtual void DoSetFocus() = 0;
};

class Label : public Control {
public:
    void SetCaption(const std::string& caption);

private:
    virtual void DoSetCaption(const std::string& caption) = 0;
};

class TextBox : public Control {
public:
    [[nodiscard]] std::string Text() const;
    void SetText(const std::string& text);
    /// Where the selection begins, in characters from 0.
    [[nodiscard]] std::int32_t SelStart() const;
    void SetSelStart(std::int32_t start);
    /// Characters selected; 0 for a bare caret.
    [[nodiscard]] std::int32_t SelLength() const;
    void SetSelLength(std::int32_t length);

private:
    [[nodiscard]] virtual std::string DoText() const = 0;
    virtual void DoSetText(const std::string& text) = 0;
    [[nodiscard]] virtual std::int32_t DoSelStart() const = 0;
    virtual void DoSetSelStart(std::int32_t start) = 0;
    [[nodiscard]] virtual std::int32_t DoSelLength() const = 0;
    virtual void DoSetSelLength(std::int32_t length) = 0;
};

class CommandButton : public Control {
public:
    /// The default button answers to the enter key; a form has one at most, the last that was made it.
    void SetDefault(bool isDefault);

private:
    virtual void DoSetDefault(bool isDefault) = 0;
};

/// A check box, or an option button: of the option buttons in one container one at most is on.
class ToggleControl : public Control {
public:
    [[nodiscard]] bool Value() const;
    void SetValue(bool on);

private:
    [[nodiscard]] virtual bool DoValue() const = 0;
    virtual void DoSetValue(bool on) = 0;
};

/// A combo or list box.
class ListControl : public Control {
public:
    void Clear();
    /// Adds an entry at the end.
    void AddItem(const std::string& text);
    [[nodiscard]] std::int32_t ListCount() const;
    /// The selected entry from 0, -1 for none.
    [[nodiscard]] std::int32_t ListIndex() const;
    void SetListIndex(std::int32_t index);
    [[nodiscard]] std::int32_t ItemData(std::int32_t index) const;
    void SetItemData(std::int32_t index, std::int32_t data);
    /// Of the selected entry; empty for none.
    [[nodiscard]] std::string Text() const;

private:
    virtual void DoClear() = 0;
    virtual void DoAddItem(const std::string& text) = 0;
    [[nodiscard]] virtual std::int32_t DoListCount() const = 0;
    [[nodiscard]] virtual std::int32_t DoListIndex() const = 0;
    virtual void DoSetListIndex(std::int32_t index) = 0;
    [[nodiscard]] virtual std::int32_t DoItemData(std::int32_t index) const = 0;
    virtual void DoSetItemData(std::int32_t index, std::int32_t data) = 0;
    [[nodiscard]] virtual std::string DoText() const = 0;
};

/// A list in report view. Items are counted from 1; each has a key that no other has.
class ListView : public Control {
public:
    void Clear();
    /// Adds an item at the end. A key that is there already raises NotUnique.
    void Add(const std::string& key, const std::string& text);
    [[nodiscard]] std::int32_t ItemCount() const;
    [[nodiscard]] std::string ItemKey(std::int32_t index) const;
    [[nodiscard]] std::string ItemText(std::int32_t index) const;
    void SetItemText(std::int32_t index, const std::string& text);
    /// The text of the item's column `column`, counted from 1 behind the item's own.
    [[nodiscard]] std::string SubItem(std::int32_t index, std::int16_t column) const;
    void SetSubItem(std::int32_t index, std::int16_t column, const std::string& text);
    /// 0 for none.
    [[nodiscard]] std::int32_t SelectedItem() const;

private:
    virtual void DoClear() = 0;
    virtual void DoAdd(const std::string& key, const std::string& text) = 0;
    [[nodiscard]] virtual std::int32_t DoItemCount() const = 0;
    [[nodiscard]] virtual std::string DoItemKey(std::int32_t index) const = 0;
    [[nodiscard]] virtual std::string DoItemText(std::int32_t index) const = 0;
    virtual void DoSetItemText(std::int32_t index, const std::string& text) = 0;
    [[nodiscard]] virtual std::string DoSubItem(std::int32_t index, std::int16_t column) const = 0;
    virtual void DoSetSubItem(std::int32_t index, std::int16_t column, const std::string& text) = 0;
    [[nodiscard]] virtual std::int32_t DoSelectedItem() const = 0;
};

/// `Style` of a tab strip.
enum class TabStyle : std::int16_t { Tabs = 0, Buttons = 1 };

/// Tabs, counted from 1, around a client area for panels.
class TabStrip : public Control {
public:
    [[nodiscard]] std::int16_t TabCount() const;
    /// Whether tab `index` is the selected one.
    [[nodiscard]] bool TabSelected(std::int16_t index) const;
    [[nodiscard]] double TabTop(std::int16_t index) const;
    [[nodiscard]] TabStyle Style() const;
    /// The client area in the container's twips. A mirrored strip counts its left edge from the other side.
    [[nodiscard]] ControlPlace ClientPlace() const;

private:
    [[nodiscard]] virtual std::int16_t DoTabCount() const = 0;
    [[nodiscard]] virtual bool DoTabSelected(std::int16_t index) const = 0;
    [[nodiscard]] virtual double DoTabTop(std::int16_t index) const = 0;
    [[nodiscard]] virtual TabStyle DoStyle() const = 0;
    [[nodiscard]] virtual ControlPlace DoClientPlace() const = 0;
};

/// A field for a date and time. One with a check box can hold none.
class DatePicker : public Control {
public:
    /// A day number.
    [[nodiscard]] std::optional<double> Value() const;
    /// "No date" for a picker without a check box raises InvalidArgument.
    void SetValue(std::optional<double> value);

private:
    [[nodiscard]] virtual std::optional<double> DoValue() const = 0;
    virtual void DoSetValue(std::optional<double> value) = 0;
};

class ScrollBar : public Control {
public:
    [[nodiscard]] std::int16_t Max() const;
    [[nodiscard]] std::int16_t Value() const;
    /// Outside its limits: InvalidArgument.
    void SetValue(std::int16_t value);

private:
    [[nodiscard]] virtual std::int16_t DoMax() const = 0;
    [[nodiscard]] virtual std::int16_t DoValue() const = 0;
    virtual void DoSetValue(std::int16_t value) = 0;
};

/// A picture, a surface to paint on, or a panel for other controls.
class PictureBox : public Control {
public:
    /// Valid while the form's Paint runs.
    [[nodiscard]] DeviceContext hDC() const;
    /// The picture it was built with; 0 for none. It stays the box's own.
    [[nodiscard]] PictureHandle Picture() const;
    void SetBorderStyle(std::int16_t style);
    /// Has it painted anew.
    void Refresh();

private:
    [[nodiscard]] virtual DeviceContext DohDC() const = 0;
    [[nodiscard]] virtual PictureHandle DoPicture() const = 0;
    virtual void DoSetBorderStyle(std::int16_t style) = 0;
    virtual void DoRefresh() = 0;
};

} // namespace qbrpt
