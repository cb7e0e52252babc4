// Each call of a control is announced under the name of its kind.
#include "platform/controls.h"

namespace qbrpt {

WindowHandle Control::hWnd() const {
    Announce("Control", "hWnd");
    return DohWnd();
}

bool Control::Enabled() const {
    Announce("Control", "Enabled");
    return DoEnabled();
}

void Control::SetEnabled(bool enabled) {
    Announce("Control", "SetEnabled", {enabled});
    DoSetEnabled(enabled);
}

bool Control::Visible() const {
    Announce("Control", "Visible");
    return DoVisible();
}

void Control::SetVisible(bool visible) {
    Announce("Control", "SetVisible", {visible});
    DoSetVisible(visible);
}

ControlPlace Control::Place() const {
    Announce("Control", "Place");
    return DoPlace();
}

void Control::ZOrder() {
    Announce("Control", "ZOrder");
    DoZOrder();
}

void Control::SetFocus() {
    Announce("Control", "SetFocus");
    DoSetFocus();
}

void Control::Move(double left, double top) {
    const ControlPlace place = DoPlace();
    Move({.left = left, .top = top, .width = place.width, .height = place.height});
}

void Control::Move(const ControlPlace& place) {
    Announce("Control", "Move", {place.left, place.top, place.width, place.height});
    DoMove(place);
}

void Label::SetCaption(const std::string& caption) {
    Announce("Label", "SetCaption", {caption});
    DoSetCaption(caption);
}

std::string TextBox::Text() const {
    Announce("TextBox", "Text");
    return DoText();
}

void TextBox::SetText(const std::string& text) {
    Announce("TextBox", "SetText", {text});
    DoSetText(text);
}

std::int32_t TextBox::SelStart() const {
    Announce("TextBox", "SelStart");
    return DoSelStart();
}

void TextBox::SetSelStart(std::int32_t start) {
    Announce("TextBox", "SetSelStart", {Number(start)});
    DoSetSelStart(start);
}

std::int32_t TextBox::SelLength() const {
    Announce("TextBox", "SelLength");
    return DoSelLength();
}

void TextBox::SetSelLength(std::int32_t length) {
    Announce("TextBox", "SetSelLength", {Number(length)});
    DoSetSelLength(length);
}

void CommandButton::SetDefault(bool isDefault) {
    Announce("CommandButton", "SetDefault", {isDefault});
    DoSetDefault(isDefault);
}

bool ToggleControl::Value() const {
    Announce("ToggleControl", "Value");
    return DoValue();
}

void ToggleControl::SetValue(bool on) {
    Announce("ToggleControl", "SetValue", {on});
    DoSetValue(on);
}

void ListControl::Clear() {
    Announce("ListControl", "Clear");
    DoClear();
}

void ListControl::AddItem(const std::string& text) {
    Announce("ListControl", "AddItem", {text});
    DoAddItem(text);
}

std::int32_t ListControl::ListCount() const {
    Announce("ListControl", "ListCount");
    return DoListCount();
}

std::int32_t ListControl::ListIndex() const {
    Announce("ListControl", "ListIndex");
    return DoListIndex();
}

void ListControl::SetListIndex(std::int32_t index) {
    Announce("ListControl", "SetListIndex", {Number(index)});
    DoSetListIndex(index);
}

std::int32_t ListControl::ItemData(std::int32_t index) const {
    Announce("ListControl", "ItemData", {Number(index)});
    return DoItemData(index);
}

void ListControl::SetItemData(std::int32_t index, std::int32_t data) {
    Announce("ListControl", "SetItemData", {Number(index), Number(data)});
    DoSetItemData(index, data);
}

std::string ListControl::Text() const {
    Announce("ListControl", "Text");
    return DoText();
}

void ListView::Clear() {
    Announce("ListView", "Clear");
    DoClear();
}

void ListView::Add(const std::string& key, const std::string& text) {
    Announce("ListView", "Add", {key, text});
    DoAdd(key, text);
}

std::int32_t ListView::ItemCount() const {
    Announce("ListView", "ItemCount");
    return DoItemCount();
}

std::string ListView::ItemKey(std::int32_t index) const {
    Announce("ListView", "ItemKey", {Number(index)});
    return DoItemKey(index);
}

std::string ListView::ItemText(std::int32_t index) const {
    Announce("ListView", "ItemText", {Number(index)});
    return DoItemText(index);
}

void ListView::SetItemText(std::int32_t index, const std::string& text) {
    Announce("ListView", "SetItemText", {Number(index), text});
    DoSetItemText(index, text);
}

std::string ListView::SubItem(std::int32_t index, std::int16_t column) const {
    Announce("ListView", "SubItem", {Number(index), Number(column)});
    return DoSubItem(index, column);
}

void ListView::SetSubItem(std::int32_t index, std::int16_t column, const std::string& text) {
    Announce("ListView", "SetSubItem", {Number(index), Number(column), text});
    DoSetSubItem(index, column, text);
}

std::int32_t ListView::SelectedItem() const {
    Announce("ListView", "SelectedItem");
    return DoSelectedItem();
}

std::int16_t TabStrip::TabCount() const {
    Announce("TabStrip", "TabCount");
    return DoTabCount();
}

bool TabStrip::TabSelected(std::int16_t index) const {
    Announce("TabStrip", "TabSelected", {Number(index)});
    return DoTabSelected(index);
}

double TabStrip::TabTop(std::int16_t index) const {
    Announce("TabStrip", "TabTop", {Number(index)});
    return DoTabTop(index);
}

TabStyle TabStrip::Style() const {
    Announce("TabStrip", "Style");
    return DoStyle();
}

ControlPlace TabStrip::ClientPlace() const {
    Announce("TabStrip", "ClientPlace");
    return DoClientPlace();
}

std::optional<double> DatePicker::Value() const {
    Announce("DatePicker", "Value");
    return DoValue();
}

void DatePicker::SetValue(std::optional<double> value) {
    Announce("DatePicker", "SetValue", {value ? qbrpt::Value(*value) : qbrpt::Value()});
    DoSetValue(value);
}

std::int16_t ScrollBar::Max() const {
    Announce("ScrollBar", "Max");
    return DoMax();
}

std::int16_t ScrollBar::Value() const {
    Announce("ScrollBar", "Value");
    return DoValue();
}

void ScrollBar::SetValue(std::int16_t value) {
    Announce("ScrollBar", "SetValue", {Number(value)});
    DoSetValue(value);
}

DeviceContext PictureBox::hDC() const {
    Announce("PictureBox", "hDC");
    return DohDC();
}

PictureHandle PictureBox::Picture() const {
    Announce("PictureBox", "Picture");
    return DoPicture();
}

void PictureBox::SetBorderStyle(std::int16_t style) {
    Announce("PictureBox", "SetBorderStyle", {Number(style)});
    DoSetBorderStyle(style);
}

void PictureBox::Refresh() {
    Announce("PictureBox", "Refresh");
    DoRefresh();
}

} // namespace qbrpt
