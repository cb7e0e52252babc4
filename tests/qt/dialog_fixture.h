// A real dialog, and all that its rules hear.
#pragma once

#include "sample_dialog.h"
#include "support/mirroring.h"
#include "window_platform.h"

#include <QtTest/QTest>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace qbrpt::test {

class DialogEvents : public FormEvents {
public:
    std::vector<std::string> heard;           ///< but for resizes and paints
    std::map<std::string, std::int16_t> keys; ///< what a typed character becomes, by box and character
    std::function<void(const std::string& what)> then = [](const std::string&) {};
    bool mayEdit = false;
    int paints = 0;

    /// What was heard of one kind, or of one control.
    [[nodiscard]] std::vector<std::string> Of(const std::string& part) const {
        std::vector<std::string> found;
        std::copy_if(heard.begin(), heard.end(), std::back_inserter(found),
                     [&](const std::string& what) { return what.find(part) != std::string::npos; });
        return found;
    }

private:
    void Hear(const std::string& what) {
        heard.push_back(what);
        then(what);
    }
    void Activate() override { Hear("activate"); }
    void QueryUnload() override { Hear("unload"); }
    void Click(const std::string& name) override { Hear("click " + name); }
    void DblClick(const std::string& name) override { Hear("double " + name); }
    void ItemClick(const std::string& name) override { Hear("item " + name); }
    bool BeforeLabelEdit(const std::string& name) override {
        Hear("edit " + name);
        return mayEdit;
    }
    void Change(const std::string& name) override { Hear("change " + name); }
    std::int16_t KeyPress(const std::string& name, std::int16_t key) override {
        const auto found = keys.find(name + " " + static_cast<char>(key));
        return found == keys.end() ? key : found->second;
    }
    void GotFocus(const std::string& name) override { Hear("focus " + name); }
    void Paint(const std::string&) override {
        ++paints;
        then("paint");
    }
};

class DialogTest : public ::testing::Test {
protected:
    explicit DialogTest(const FormTable& table = SampleDialog(), const char* qtPlatform = "offscreen")
        : platform(qtPlatform) {
        form = Platform::Current().forms->Load(table, events);
    }

    /// Also when it was closed, as long as there is no other.
    [[nodiscard]] qt::FormWindow& Window() const {
        if (const qt::TreeWindow* found = qt::Handles::Table().Find(form->hWnd()))
            mWindow = dynamic_cast<qt::FormWindow*>(found->widget.data());
        return *mWindow;
    }
    template <class W>
    [[nodiscard]] W& Find(const char* name) const {
        return dynamic_cast<W&>(*Window().findChild<QWidget*>(name));
    }
    template <class Kind>
    [[nodiscard]] Ref<Kind> Get(const char* name) const {
        return form->Get<Kind>(name);
    }
    /// Shows the window, acts while it is open, and closes it if it still is.
    void WhileOpen(const std::function<void()>& act) {
        const Meanwhile meanwhile({[this, act] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
            act();
            if (form->Visible()) Window().close();
        }});
        form->ShowModal();
    }
    /// To whatever has the focus.
    static void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    static void Type(const char* letters) { QTest::keyClicks(QApplication::focusWidget(), letters); }
    static void ClickOn(QWidget& widget, const QPoint& place = {}) {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, place);
    }
    [[nodiscard]] static std::string Focused() {
        const QWidget* widget = QApplication::focusWidget();
        if (widget == nullptr) return "none";
        if (widget->objectName().isEmpty()) widget = widget->parentWidget();
        return widget->objectName().toStdString();
    }

    WindowPlatform platform;
    DialogEvents events;
    Ref<Form> form;

private:
    mutable qt::FormWindow* mWindow = nullptr;
};

} // namespace qbrpt::test
