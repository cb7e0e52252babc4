// A form in a real window.
#pragma once

#include "adapters/qt/form_controls.h"
#include "adapters/qt/form_window.h"
#include "platform/forms.h"

#include <QtCore/QEventLoop>

#include <exception>
#include <functional>
#include <memory>

namespace qbrpt::qt {

class QtForm final : public Form {
public:
    QtForm(const FormTable& table, FormEvents& events);
    ~QtForm() override;

private:
    WindowHandle DohWnd() override { return mControls->Handle(); }
    void DoSetCaption(const std::string& caption) override;
    WindowState DoState() override;
    void DoSetState(WindowState state) override;
    void DoSetRightToLeft(bool rightToLeft) override;
    std::int32_t DoScaleWidth() override;
    std::int32_t DoScaleHeight() override;
    bool DoVisible() override { return mWindow->isVisible(); }
    void DoMove(std::int32_t left, std::int32_t top) override;
    void DoShowModal() override;
    void DoHide() override;
    void DoUnload() override;
    Ref<MenuItem> DoMenu(const std::string& name) override;
    Ref<Toolbar> DoToolbarOf(const std::string& name) override;
    Ref<CRViewer> DoViewer(const std::string& name) override;
    Ref<Control> DoControl(const std::string& name) override { return mControls->ControlOf(name); }

    /// Runs a rule out of an event of Qt's, through which nothing may be thrown.
    void Run(const std::function<void()>& rule);
    [[nodiscard]] ControlEvents Heard();
    void FitToControls(const FormTable& table);
    /// Runs the rules' Activate once the window can be seen and typed into.
    void Activated();
    void KeepActivation();
    void Closing();

    FormEvents& mEvents;
    std::unique_ptr<FormWindow> mWindow;
    std::unique_ptr<FormControls> mControls;
    QEventLoop mLoop;
    std::exception_ptr mThrown; ///< by a rule; told of when the window is closed
    bool mHidden = false;       ///< by its rules, which will unload it
    bool mAwaited = false;      ///< shown, and not yet active
    bool mClosing = false;
    bool mGone = false;
};

/// Forms in real windows.
class QtForms final : public Forms {
    Ref<Form> DoLoad(const FormTable& table, FormEvents& events) override;
};

} // namespace qbrpt::qt
