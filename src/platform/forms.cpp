#include "platform/forms.h"

#include "platform/CRViewer.h"

namespace qbrpt {

namespace {

constexpr std::string_view MenuPort = "MenuItem";
constexpr std::string_view ButtonPort = "ToolbarButton";
constexpr std::string_view ToolbarPort = "Toolbar";
constexpr std::string_view FormPort = "Form";

} // namespace

void MenuItem::SetCaption(const std::string& caption) {
    Announce(MenuPort, "SetCaption", {caption});
    DoSetCaption(caption);
}

bool MenuItem::Enabled() {
    Announce(MenuPort, "Enabled");
    return DoEnabled();
}

void MenuItem::SetEnabled(bool enabled) {
    Announce(MenuPort, "SetEnabled", {enabled});
    DoSetEnabled(enabled);
}

std::string ToolbarButton::Key() {
    Announce(ButtonPort, "Key");
    return DoKey();
}

ButtonStyle ToolbarButton::Style() {
    Announce(ButtonPort, "Style");
    return DoStyle();
}

std::int16_t ToolbarButton::Image() {
    Announce(ButtonPort, "Image");
    return DoImage();
}

void ToolbarButton::SetImage(std::int16_t image) {
    Announce(ButtonPort, "SetImage", {Number(image)});
    DoSetImage(image);
}

void ToolbarButton::SetValue(std::int16_t value) {
    Announce(ButtonPort, "SetValue", {Number(value)});
    DoSetValue(value);
}

void ToolbarButton::SetToolTipText(const std::string& text) {
    Announce(ButtonPort, "SetToolTipText", {text});
    DoSetToolTipText(text);
}

void ToolbarButton::SetEnabled(bool enabled) {
    Announce(ButtonPort, "SetEnabled", {enabled});
    DoSetEnabled(enabled);
}

std::int16_t Toolbar::ButtonCount() {
    Announce(ToolbarPort, "ButtonCount");
    return DoButtonCount();
}

Ref<ToolbarButton> Toolbar::Buttons(std::int16_t index) {
    Announce(ToolbarPort, "Buttons", {Number(index)});
    return DoButtons(index);
}

Ref<ToolbarButton> Toolbar::ButtonOf(const std::string& key) {
    Announce(ToolbarPort, "ButtonOf", {key});
    return DoButtonOf(key);
}

void Toolbar::SetImageList(const std::string& name) {
    Announce(ToolbarPort, "SetImageList", {name});
    DoSetImageList(name);
}

std::int32_t Toolbar::Width() {
    Announce(ToolbarPort, "Width");
    return DoWidth();
}

std::int32_t Toolbar::Height() {
    Announce(ToolbarPort, "Height");
    return DoHeight();
}

void Toolbar::Move(std::int32_t left, std::int32_t top) {
    Announce(ToolbarPort, "Move", {Number(left), Number(top)});
    DoMove(left, top);
}

void Toolbar::ZOrder() {
    Announce(ToolbarPort, "ZOrder");
    DoZOrder();
}

WindowHandle Form::hWnd() {
    Announce(FormPort, "hWnd");
    return DohWnd();
}

void Form::SetCaption(const std::string& caption) {
    Announce(FormPort, "SetCaption", {caption});
    DoSetCaption(caption);
}

WindowState Form::State() {
    Announce(FormPort, "WindowState");
    return DoState();
}

void Form::SetState(WindowState state) {
    Announce(FormPort, "SetWindowState", {Number(state)});
    DoSetState(state);
}

void Form::SetRightToLeft(bool rightToLeft) {
    Announce(FormPort, "SetRightToLeft", {rightToLeft});
    DoSetRightToLeft(rightToLeft);
}

std::int32_t Form::ScaleWidth() {
    Announce(FormPort, "ScaleWidth");
    return DoScaleWidth();
}

std::int32_t Form::ScaleHeight() {
    Announce(FormPort, "ScaleHeight");
    return DoScaleHeight();
}

bool Form::Visible() {
    Announce(FormPort, "Visible");
    return DoVisible();
}

void Form::Move(std::int32_t left, std::int32_t top) {
    Announce(FormPort, "Move", {Number(left), Number(top)});
    DoMove(left, top);
}

void Form::ShowModal() {
    Announce(FormPort, "ShowModal");
    DoShowModal();
}

void Form::Hide() {
    Announce(FormPort, "Hide");
    DoHide();
}

void Form::Unload() {
    Announce(FormPort, "Unload");
    DoUnload();
}

Ref<MenuItem> Form::Menu(const std::string& name) {
    Announce(FormPort, "Menu", {name});
    return DoMenu(name);
}

Ref<Toolbar> Form::ToolbarOf(const std::string& name) {
    Announce(FormPort, "ToolbarOf", {name});
    return DoToolbarOf(name);
}

Ref<CRViewer> Form::Viewer(const std::string& name) {
    Announce(FormPort, "Viewer", {name});
    return DoViewer(name);
}

Ref<Control> Form::ControlOf(const std::string& name) {
    Announce(FormPort, "Controls", {name});
    return DoControl(name);
}

Ref<Form> Forms::Load(const FormTable& table, FormEvents& events) {
    Announce("Forms", "Load", {std::string(table.name)});
    return DoLoad(table, events);
}

} // namespace qbrpt
