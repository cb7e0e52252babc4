// The dialogs of printing on fakes, with what a user does in them.
#pragma once

#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "preview/print_dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

namespace qbrpt {

class DialogTest : public ::testing::Test {
protected:
    static constexpr WindowHandle Me = 77; ///< every window, as the fakes number it

    DialogTest() {
        platform.tree->windows[Me].className = "ThunderFormDC";
        platform.printers->printers = {
            {"Lazer", "lazer driver", "LPT1:", OrientationPortrait, 9, 7, 11'906},
            {"Plotter", "plotter driver", "LPT2:", OrientationLandscape, 8, 2, 23'811}};
    }

    static fakes::FakeTextBox& Box(const fakes::FakeForm& form, const std::string& name) {
        return *form.controls.Of<fakes::FakeTextBox>(name);
    }
    static fakes::FakeList& List(const fakes::FakeForm& form, const std::string& name) {
        return *form.controls.Of<fakes::FakeList>(name);
    }
    static fakes::FakeToggle& Toggle(const fakes::FakeForm& form, const std::string& name) {
        return *form.controls.Of<fakes::FakeToggle>(name);
    }

    /// Presses keys with the caret behind the text; what the rules drop does not arrive.
    static void Type(const fakes::FakeForm& form, const std::string& name, const std::string& keys) {
        for (const char key : keys) {
            fakes::FakeTextBox& box = Box(form, name);
            box.selStart = static_cast<std::int32_t>(box.text.size());
            const std::int16_t taken = form.events.KeyPress(name, static_cast<std::int16_t>(key));
            if (taken != 0) box.SetText(box.text + static_cast<char>(taken));
        }
    }
    static void Press(const fakes::FakeForm& form, const std::string& button) { form.events.Click(button); }

    /// What happens while the dialog of this name is open.
    void While(const std::string& dialog, const std::function<void(fakes::FakeForm&)>& act) {
        mActs[dialog] = act;
        platform.forms->shown = [this](fakes::FakeForm& form) {
            const auto found = mActs.find(form.formName);
            if (found != mActs.end()) found->second(form);
        };
    }

    fakes::FakePlatform platform;

private:
    std::map<std::string, std::function<void(fakes::FakeForm&)>> mActs;
};

} // namespace qbrpt
