// The table of a form made into widgets.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/dialog_controls.h"
#include "adapters/qt/form_window.h"
#include "adapters/qt/viewer/viewer_widget.h"
#include "platform/forms.h"

#include <QtGui/QAction>
#include <QtWidgets/QWidget>

#include <map>
#include <string>

namespace qbrpt::qt {

class ButtonBar;
struct WindowClass;

/// The controls of one form, by their names. They stand in its window and die with it.
class FormControls {
public:
    FormControls(FormWindow& window, const FormTable& table, ControlEvents events);
    ~FormControls();
    FormControls(const FormControls&) = delete;
    FormControls& operator=(const FormControls&) = delete;

    /// Of the form itself, in the table of windows.
    [[nodiscard]] WindowHandle Handle() const { return mHandle; }
    [[nodiscard]] QAction& Menu(const std::string& name) const;
    [[nodiscard]] Ref<Toolbar> ToolbarOf(const std::string& name) const;
    [[nodiscard]] ViewerWidget& Viewer(const std::string& name) const;
    [[nodiscard]] Ref<Control> ControlOf(const std::string& name) const;
    [[nodiscard]] DialogControls& OfDialog() { return mDialog; }
    /// The strips keep the window's whole width.
    void StretchStrips();

private:
    void AddToolbar(const ControlRow& row, const FormTable& table);
    void AddViewer(const ControlRow& row);
    /// In the form itself, where no other window is told.
    WindowHandle AddToTree(QWidget& widget, const WindowClass& kind, WindowHandle parent = 0);

    FormWindow& mWindow;
    ControlEvents mEvents;
    WindowHandle mHandle;
    std::map<std::string, QAction*> mMenu;
    std::map<std::string, ButtonBar*> mBars;
    std::map<std::string, QWidget*> mStrips;
    std::map<std::string, ViewerWidget*> mViewers;
    DialogControls mDialog;
};

} // namespace qbrpt::qt
