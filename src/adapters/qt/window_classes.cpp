#include "adapters/qt/window_classes.h"

#include "adapters/qt/style_words.h"

namespace qbrpt::qt {

namespace {

constexpr std::uint32_t Reading = StyleBit::Right | StyleBit::RightReading;

/// A class as it is built right to left.
WindowClass BuiltFromRight(ControlKind kind) {
    switch (kind) {
    case ControlKind::Toolbar:
        return {"msvb_lib_toolbar", 0, 0};
    case ControlKind::Viewer:
        return {"CRViewer", 0, 0};
    case ControlKind::TextBox:
        return {"ThunderTextBox", 0, Reading | StyleBit::LeftScrollBar};
    case ControlKind::CommandButton:
        return {"ThunderCommandButton", 0, Reading};
    case ControlKind::Frame:
        return {"ThunderFrame", 0, Reading};
    case ControlKind::OptionButton:
        return {"ThunderOptionButton", StyleBit::ButtonAtRight, StyleBit::RightReading};
    case ControlKind::CheckBox:
        return {"ThunderCheckBox", StyleBit::ButtonAtRight, StyleBit::RightReading};
    case ControlKind::ComboBox:
        return {"ThunderComboBox", 0, Reading | StyleBit::LeftScrollBar};
    case ControlKind::ListView:
        return {"ListView20WndClass", 0, 0};
    case ControlKind::TabStrip:
        return {"TabStrip20WndClass", 0, 0};
    case ControlKind::DatePicker:
        return {"DTPicker20WndClass", 0, Reading};
    case ControlKind::VScrollBar:
        return {"ThunderVScrollBar", 0, 0};
    case ControlKind::PictureBox:
        return {"ThunderPictureBox", 0, Reading};
    default:
        return {"Static", 0, Reading};
    }
}

} // namespace

WindowClass ClassOf(ControlKind kind, bool designedRightToLeft) {
    WindowClass made = BuiltFromRight(kind);
    if (!designedRightToLeft) made.style = made.extendedStyle = 0;
    return made;
}

} // namespace qbrpt::qt
